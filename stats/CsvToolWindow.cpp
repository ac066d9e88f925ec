#include "stats/CsvToolWindow.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr int kHelpTopic = 40100;

QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList out;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) out << parts.at(i);
  return out.join(QStringLiteral(";;"));
}

}  // namespace

// The preview grid over the model's rows; the heading row is the header.
class CsvGridModel : public QAbstractTableModel {
 public:
  explicit CsvGridModel(const CsvToolModel& tool, QObject* parent) : QAbstractTableModel(parent), tool_(tool) {}
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : std::max<int>(0, static_cast<int>(tool_.MSFlexGrid1.size()) - 1);
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : tool_.gridCols; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return tool_.MSFlexGrid1.value(index.row() + 1).value(index.column());
  }
  QVariant headerData(int section, Qt::Orientation o, int role) const override {
    if (role != Qt::DisplayRole) return {};
    if (o == Qt::Vertical) return section + 1;
    return tool_.MSFlexGrid1.value(0).value(section);
  }
  void reload() {
    beginResetModel();
    endResetModel();
  }

 private:
  const CsvToolModel& tool_;
};

CsvToolWindow::CsvToolWindow(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("FormCSV"));
  setWindowTitle(Res(1916));
  model_.Form_Load();
  model_.fileDialog = [this](const QString& title, const QString& filter, const QString& folder) {
    return QFileDialog::getOpenFileName(this, title, folder, dialogFilter(filter));
  };

  auto* v = new QVBoxLayout(this);
  auto button = [this](const QString& name, const QString& caption, const QString& tip) {
    auto* b = new ChameleonButtonWidget(caption, this);
    b->setObjectName(name);
    b->setToolTip(tip);
    return b;
  };
  auto label = [this](const QString& name) {
    auto* l = new QLabel(this);
    l->setObjectName(name);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
  };

  // The input file.
  auto* top = new QGridLayout;
  Command1 = button(QStringLiteral("Command1"), Res(715), Res(1935));
  Label1 = label(QStringLiteral("Label1"));
  Label4 = label(QStringLiteral("Label4"));
  Label1->setMinimumWidth(380);
  top->addWidget(Command1, 0, 0, 2, 1);
  top->addWidget(new QLabel(Res(1917), this), 0, 1);
  top->addWidget(Label1, 0, 2);
  top->addWidget(new QLabel(Res(1918), this), 1, 1);
  top->addWidget(Label4, 1, 2);
  top->setColumnStretch(2, 1);
  v->addLayout(top);
  v->addWidget(new QLabel(Res(1919), this));
  Text1 = new QPlainTextEdit(this);
  Text1->setObjectName(QStringLiteral("Text1"));
  Text1->setReadOnly(true);
  Text1->setLineWrapMode(QPlainTextEdit::NoWrap);
  Text1->setFixedHeight(Text1->fontMetrics().lineSpacing() * 6 + 12);
  v->addWidget(Text1);

  // Separators, presets and detection.
  auto* formats = new QHBoxLayout;
  const QStringList items = CsvToolModel::comboItems();
  auto sides = [&](int captionId, std::array<QComboBox*, 2>& combos, const QString& name) {
    auto* group = new QGroupBox(Res(captionId), this);
    auto* g = new QGridLayout(group);
    for (int i = 0; i < 2; ++i) {
      auto* c = new QComboBox(group);
      c->setObjectName(name + QStringLiteral("(%1)").arg(i));
      c->addItems(items);
      c->setCurrentIndex(-1);
      g->addWidget(new QLabel(Res(1923 + i), group), i, 0);
      g->addWidget(c, i, 1);
      combos[static_cast<std::size_t>(i)] = c;
      connect(c, &QComboBox::currentIndexChanged, this, [this] { comboChanged(); });
    }
    formats->addWidget(group);
  };
  sides(1921, Combo1, QStringLiteral("Combo1"));
  sides(1922, Combo2, QStringLiteral("Combo2"));
  auto* presets = new QVBoxLayout;
  Command4 = button(QStringLiteral("Command4"), Res(1912), Res(1913));
  Command5 = button(QStringLiteral("Command5"), Res(1914), Res(1915));
  Command6 = button(QStringLiteral("Command6"), Res(1930), Res(1931));
  presets->addWidget(Command4);
  presets->addWidget(Command5);
  presets->addWidget(Command6);
  formats->addLayout(presets);
  Image3 = label(QStringLiteral("Image3"));
  Image3->setAlignment(Qt::AlignCenter);
  Image3->setMinimumWidth(90);
  Image3->setFrameShape(QFrame::StyledPanel);
  formats->addWidget(Image3);
  v->addLayout(formats);

  // Output and conversion.
  auto* output = new QHBoxLayout;
  Check1 = new QCheckBox(Res(1927), this);
  Check1->setObjectName(QStringLiteral("Check1"));
  Label3 = label(QStringLiteral("Label3"));
  Command2 = button(QStringLiteral("Command2"), Res(1929), Res(1907));
  output->addWidget(Check1);
  output->addWidget(Label3, 1);
  output->addWidget(Command2);
  v->addLayout(output);

  // The preview and the column choice.
  v->addWidget(new QLabel(Res(1925), this));
  MSFlexGrid1 = new QTableView(this);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1->setToolTip(Res(1928));
  gridModel_ = new CsvGridModel(model_, this);
  MSFlexGrid1->setModel(gridModel_);
  MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectColumns);
  MSFlexGrid1->setContextMenuPolicy(Qt::CustomContextMenu);
  MSFlexGrid1->verticalHeader()->setDefaultSectionSize(MSFlexGrid1->fontMetrics().height() + 6);
  v->addWidget(MSFlexGrid1, 1);
  flexcolX = new QMenu(this);
  flexcolX->setObjectName(QStringLiteral("flexcolX"));
  const int captions[] = {1906, 1926, 1902};
  for (int i = 0; i < 3; ++i) {
    QAction* a = flexcolX->addAction(Res(captions[i]));
    a->setObjectName(QStringLiteral("flexcolX(%1)").arg(i));
    connect(a, &QAction::triggered, this, [this, i] { chooseColumn(model_.selectedColumn, i); });
  }
  auto popup = [this](int column, const QPoint& at) {
    if (column < 0) return;
    model_.selectedColumn = column + 1;
    flexcolX->popup(at);
  };
  connect(MSFlexGrid1, &QTableView::clicked, this,
          [this, popup](const QModelIndex& i) { popup(i.column(), QCursor::pos()); });
  connect(MSFlexGrid1->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [popup](int column) { popup(column, QCursor::pos()); });
  connect(MSFlexGrid1, &QTableView::customContextMenuRequested, this, [this, popup](const QPoint& p) {
    popup(MSFlexGrid1->columnAt(p.x()), MSFlexGrid1->viewport()->mapToGlobal(p));
  });

  auto* bottom = new QHBoxLayout;
  for (int i = 0; i < 2; ++i) {
    bottom->addWidget(new QLabel(Res(1933 + i) + QLatin1Char(':'), this));
    Label5[static_cast<std::size_t>(i)] = label(QStringLiteral("Label5(%1)").arg(i));
    Label5[static_cast<std::size_t>(i)]->setMinimumWidth(30);
    bottom->addWidget(Label5[static_cast<std::size_t>(i)]);
  }
  bottom->addStretch(1);
  for (int i = 0; i < 2; ++i) {
    Command3[static_cast<std::size_t>(i)] =
        button(QStringLiteral("Command3(%1)").arg(i), Res(1908 + i), Res(1910 + i));
    bottom->addWidget(Command3[static_cast<std::size_t>(i)]);
  }
  v->addLayout(bottom);

  connect(Command1, &QPushButton::clicked, this, [this] { act([&] { model_.Command1_Click(); }); });
  connect(Command2, &QPushButton::clicked, this, [this] { act([&] { model_.Command2_Click(); }); });
  connect(Command4, &QPushButton::clicked, this, [this] { act([&] { model_.Command4_Click(); }); });
  connect(Command5, &QPushButton::clicked, this, [this] { act([&] { model_.Command5_Click(); }); });
  connect(Command6, &QPushButton::clicked, this, [this] { act([&] { model_.Command6_Click(); }); });
  for (int i = 0; i < 2; ++i) {
    connect(Command3[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
            [this, i] { act([&] { model_.Command3_Click(i); }); });
  }
  connect(Check1, &QCheckBox::toggled, this, [this](bool on) {
    if (!refreshing_) model_.Check1 = on;
  });

  setProperty("screenshotStates", QStringList{QStringLiteral("preview")});
  resize(820, 700);
  refresh();
}

CsvToolWindow::~CsvToolWindow() = default;

template <typename Handler>
void CsvToolWindow::act(Handler&& handler) {
  handler();
  refresh();
  if (model_.closeRequested) {
    model_.closeRequested = false;
    close();
  } else if (model_.minimizeRequested) {
    model_.minimizeRequested = false;
    showMinimized();
  }
}

void CsvToolWindow::chooseColumn(int column, int index) {
  model_.selectedColumn = column;
  act([&] { model_.flexcolX_Click(index); });
}

void CsvToolWindow::comboChanged() {
  if (refreshing_) return;
  for (int i = 0; i < 2; ++i) {
    model_.Combo1[static_cast<std::size_t>(i)] = Combo1[static_cast<std::size_t>(i)]->currentText();
    model_.Combo2[static_cast<std::size_t>(i)] = Combo2[static_cast<std::size_t>(i)]->currentText();
  }
}

void CsvToolWindow::refresh() {
  refreshing_ = true;
  Label1->setText(model_.Label1);
  Label3->setText(model_.Label3);
  Label4->setText(model_.Label4);
  Text1->setPlainText(model_.Text1);
  for (int i = 0; i < 2; ++i) {
    const auto k = static_cast<std::size_t>(i);
    Combo1[k]->setCurrentIndex(Combo1[k]->findText(model_.Combo1[k]));
    Combo2[k]->setCurrentIndex(Combo2[k]->findText(model_.Combo2[k]));
    Label5[k]->setText(model_.Label5[k]);
  }
  Check1->setChecked(model_.Check1);
  // The format in force, shown by example.
  Image3->setText(model_.Image3 == 0 ? QStringLiteral("1.234,5 ; 6") : model_.Image3 == 1 ? QStringLiteral("1,234.5 , 6") : QString());
  gridModel_->reload();
  refreshing_ = false;
}

void CsvToolWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    ContextHelp(kHelpTopic);
    return;
  }
  QWidget::keyPressEvent(event);
}

void CsvToolWindow::showScreenshotState(const QString& state) {
  if (state != QLatin1String("preview")) return;
  const QString path = QDir::temp().filePath(QStringLiteral("calvix-muestra.csv"));
  QFile f(path);
  if (!f.open(QIODevice::WriteOnly)) return;
  f.write("mes,ventas,coste\r\n");
  for (int i = 1; i <= 14; ++i) f.write(QStringLiteral("%1,%2.5,%3.25\r\n").arg(i).arg(100 + i * 7).arg(60 + i * 3).toLatin1());
  f.close();
  auto dialog = model_.fileDialog;
  model_.fileDialog = [path](const QString&, const QString&, const QString&) { return path; };
  model_.Command1_Click();
  model_.fileDialog = dialog;
  model_.Command6_Click();
  model_.Command4_Click();
  model_.Command2_Click();
  model_.selectedColumn = 2;
  model_.flexcolX_Click(0);
  model_.selectedColumn = 3;
  model_.flexcolX_Click(1);
  QFile::remove(path);
  refresh();
}
