#include "bank/BankWindow.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPageLayout>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ChartWindowRequest.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

// The table on screen: row 0 of Bancolist as the column heads, the data rows
// below, figures to the right.
class BankTableModel : public QAbstractTableModel {
 public:
  explicit BankTableModel(const BankModel& bank, QObject* parent) : QAbstractTableModel(parent), bank_(bank) {}
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : std::max(bank_.rowCount() - 1, 0);
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : bank_.columnCount(); }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) return bank_.TextMatrix(index.row() + 1, index.column());
    if (role == Qt::TextAlignmentRole) {
      return static_cast<int>(Qt::AlignVCenter | (index.column() == 0 ? Qt::AlignHCenter : Qt::AlignRight));
    }
    return {};
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return bank_.TextMatrix(0, section);
  }
  void sync() {
    beginResetModel();
    endResetModel();
  }

 private:
  const BankModel& bank_;
};

namespace {

constexpr int kHelpTopic = 60000;

QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  return parts.size() >= 2 ? parts.at(0) : filter;
}

}  // namespace

BankWindow::BankWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Banking"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Res(724));
  model_.hooks.fileDialog = [this](const BankModel::FileDialogRequest& r) { return askFileName(r); };

  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  columns->setContentsMargins(10, 8, 10, 8);
  columns->setSpacing(10);
  auto* left = new QVBoxLayout;
  left->setSpacing(8);
  left->addWidget(buildInputs());
  auto* padRow = new QHBoxLayout;
  padRow->addWidget(buildKeypad());
  padRow->addWidget(buildButtons());
  left->addLayout(padRow);
  left->addWidget(buildResults());
  left->addStretch(1);
  columns->addLayout(left, 0);
  columns->addWidget(buildTable(), 1);
  setCentralWidget(central);
  buildMenus();

  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  connect(help, &QShortcut::activated, this, [] { ContextHelp(kHelpTopic); });

  setProperty("screenshotStates",
              QStringList{QStringLiteral("loan"), QStringLiteral("savings"), QStringLiteral("repay")});
  resize(1060, 660);
  refresh();
  boxes_[BankModel::kCapital]->setFocus();
}

BankWindow::~BankWindow() {
  // The widgets outlive model_ (they go with the QWidget base): nothing may
  // read it from here on.
  destroying_ = true;
  for (QLineEdit* box : boxes_) box->removeEventFilter(this);
  delete Bancolist;
  Bancolist = nullptr;
}

// ---- Building ------------------------------------------------------------------------------

QWidget* BankWindow::buildInputs() {
  auto* group = new QGroupBox(Res(789), this);
  auto* g = new QGridLayout(group);
  g->setVerticalSpacing(6);
  heading = new QLabel(this);
  heading->setObjectName(QStringLiteral("heading"));
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  g->addWidget(heading, 0, 0, 1, 3);
  static const char* const names[] = {"capital", "interes", "tiempo", "aportemes", "incremes"};
  static const int labels[] = {719, 720, 721, 728, 742};
  for (int i = 0; i < BankModel::kBoxCount; ++i) {
    boxLabels_[i] = new QLabel(Res(labels[i]), this);
    boxes_[i] = new QLineEdit(this);
    boxes_[i]->setObjectName(QString::fromLatin1(names[i]));
    boxes_[i]->setAlignment(Qt::AlignRight);
    boxes_[i]->setMinimumWidth(120);
    boxes_[i]->installEventFilter(this);
    boxLabels_[i]->setBuddy(boxes_[i]);
    connect(boxes_[i], &QLineEdit::textEdited, this, [this, i] { boxEdited(i); });
    connect(boxes_[i], &QLineEdit::returnPressed, this, [this] { act([&] { model_.Command7_Click(); }); });
    const int row = i < 3 ? i + 1 : i + 2;
    g->addWidget(boxLabels_[i], row, 0);
    g->addWidget(boxes_[i], row, 1);
  }
  Option1 = new QRadioButton(Res(722), this);
  Option1->setObjectName(QStringLiteral("Option1"));
  Option2 = new QRadioButton(Res(723), this);
  Option2->setObjectName(QStringLiteral("Option2"));
  auto* options = new QButtonGroup(this);
  options->addButton(Option1);
  options->addButton(Option2);
  auto* units = new QHBoxLayout;
  units->addWidget(Option1);
  units->addWidget(Option2);
  units->addStretch(1);
  g->addLayout(units, 4, 1);
  connect(Option1, &QRadioButton::clicked, this, [this] { act([&] { model_.Option_Click(false); }); });
  connect(Option2, &QRadioButton::clicked, this, [this] { act([&] { model_.Option_Click(true); }); });
  return group;
}

QWidget* BankWindow::buildKeypad() {
  auto* panel = new QWidget(this);
  auto* g = new QGridLayout(panel);
  g->setContentsMargins(0, 0, 0, 0);
  g->setSpacing(4);
  numero = new QLineEdit(this);
  numero->setObjectName(QStringLiteral("numero"));
  numero->setReadOnly(true);
  numero->setFocusPolicy(Qt::NoFocus);
  numero->setAlignment(Qt::AlignRight);
  QFont big = numero->font();
  big.setPointSizeF(big.pointSizeF() * 1.4);
  big.setBold(true);
  numero->setFont(big);
  numero->setStyleSheet(QStringLiteral("QLineEdit { background: #d8f0c8; color: #203020; }"));
  g->addWidget(numero, 0, 0, 1, 3);
  auto key = [this](const QString& name, const QString& caption) {
    auto* b = new ChameleonButtonWidget(caption, this);
    b->setObjectName(name);
    b->setFocusPolicy(Qt::NoFocus);
    b->setMinimumSize(40, 30);
    return b;
  };
  for (int d = 0; d <= 9; ++d) {
    Command1[d] = key(QStringLiteral("Command1_%1").arg(d), QString::number(d));
    connect(Command1[d], &QPushButton::clicked, this, [this, d] { act([&] { model_.Command1_Click(d); }); });
    if (d == 0) g->addWidget(Command1[d], 4, 0);
    else g->addWidget(Command1[d], 3 - (d - 1) / 3, (d - 1) % 3);
  }
  Command2 = key(QStringLiteral("Command2"), program().DecimalSymbol.toText());
  connect(Command2, &QPushButton::clicked, this, [this] { act([&] { model_.Command2_Click(); }); });
  g->addWidget(Command2, 4, 1);
  Command13[0] = key(QStringLiteral("Command13_0"), Res(784));
  Command13[1] = key(QStringLiteral("Command13_1"), Res(785));
  for (int i = 0; i < 2; ++i) {
    connect(Command13[i], &QPushButton::clicked, this, [this, i] { act([&] { model_.Command13_Click(i); }); });
  }
  g->addWidget(Command13[1], 4, 2);
  g->addWidget(Command13[0], 5, 0, 1, 3);
  return panel;
}

QWidget* BankWindow::buildButtons() {
  auto* panel = new QWidget(this);
  auto* v = new QVBoxLayout(panel);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(6);
  auto button = [this, v](const QString& name, const QString& caption, const QString& tooltip) {
    auto* b = new ChameleonButtonWidget(caption, this);
    b->setObjectName(name);
    b->setToolTip(tooltip);
    v->addWidget(b);
    return b;
  };
  Command7 = button(QStringLiteral("Command7"), Res(726), Res(726));
  QFont bold = Command7->font();
  bold.setBold(true);
  Command7->setFont(bold);
  Command7->setMinimumHeight(40);
  Command9 = button(QStringLiteral("Command9"), Res(730), Res(783));
  Command15 = button(QStringLiteral("Command15"), Res(790), Res(790));
  Command14 = button(QStringLiteral("Command14"), Res(788), Res(788));
  Command14->setCheckable(true);
  Command = button(QStringLiteral("Command"), Res(782), Res(781));
  connect(Command, &QPushButton::clicked, this, [this] { showTableChart(); });
  v->addStretch(1);
  connect(Command7, &QPushButton::clicked, this, [this] { act([&] { model_.Command7_Click(); }); });
  connect(Command9, &QPushButton::clicked, this, [this] { act([&] { model_.Command9_Click(); }); });
  connect(Command14, &QPushButton::clicked, this, [this] { act([&] { model_.Command14_Click(); }); });
  connect(Command15, &QPushButton::clicked, this, [this] { act([&] { model_.Command15_Click(); }); });
  return panel;
}

// The table's two money columns after the period (interest or contribution,
// and the capital at the end) as the chart's series X and Y, drawn as bars.
void BankWindow::showTableChart() {
  const QList<QStringList>& table = model_.Bancolist;
  if (table.size() < 2) return;
  ChartData data;
  data.xName = table.first().value(2);
  data.yName = table.first().value(3);
  for (qsizetype row = 1; row < table.size(); ++row) {
    double a = 0, b = 0;
    if (!rt::tryTextToDouble(table.at(row).value(2), a) || !rt::tryTextToDouble(table.at(row).value(3), b)) continue;
    data.x.push_back(a);
    data.y.push_back(b);
    data.categories << table.at(row).value(0);
  }
  data.title = heading->text();
  data.kind = 2;  // "Barras 2D"
  showChart(data);
}

QWidget* BankWindow::buildResults() {
  auto* group = new QGroupBox(Res(787), this);
  auto* g = new QGridLayout(group);
  mensual = new QLabel(this);
  mensual->setObjectName(QStringLiteral("mensual"));
  total = new QLabel(this);
  total->setObjectName(QStringLiteral("total"));
  intereses = new QLabel(this);
  intereses->setObjectName(QStringLiteral("intereses"));
  QFont bold = mensual->font();
  bold.setBold(true);
  for (QLabel* l : {mensual, total, intereses}) {
    l->setFont(bold);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  intereses->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  g->addWidget(mensual, 0, 0, 1, 2);
  g->addWidget(new QLabel(Res(747), this), 1, 0);
  g->addWidget(total, 1, 1);
  g->addWidget(new QLabel(Res(748), this), 2, 0);
  g->addWidget(intereses, 2, 1);
  return group;
}

QWidget* BankWindow::buildTable() {
  auto* panel = new QWidget(this);
  auto* v = new QVBoxLayout(panel);
  v->setContentsMargins(0, 0, 0, 0);
  tableModel_ = new BankTableModel(model_, this);
  Bancolist = new QTableView(this);
  Bancolist->setObjectName(QStringLiteral("Bancolist"));
  Bancolist->setModel(tableModel_);
  Bancolist->setSelectionMode(QAbstractItemView::ContiguousSelection);
  Bancolist->verticalHeader()->setVisible(false);
  Bancolist->verticalHeader()->setDefaultSectionSize(Bancolist->fontMetrics().height() + 6);
  Bancolist->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  Bancolist->setAlternatingRowColors(true);
  connect(Bancolist, &QTableView::clicked, this, [this](const QModelIndex& index) {
    if (model_.waitingForRow) act([&] { model_.Bancolist_Click(index.row() + 1); });
  });
  Label731 = new QLabel(Res(731), this);
  Label731->setObjectName(QStringLiteral("Label731"));
  Label731->setStyleSheet(QStringLiteral("QLabel { color: #a00000; font-weight: bold; }"));
  report = new QPlainTextEdit(this);
  report->setObjectName(QStringLiteral("report"));
  report->setReadOnly(true);
  report->setMaximumHeight(report->fontMetrics().lineSpacing() * 11 + 12);
  v->addWidget(Bancolist, 1);
  v->addWidget(Label731);
  v->addWidget(report);
  return panel;
}

void BankWindow::buildMenus() {
  auto item = [this](QMenu* menu, const QString& name, const QString& caption, auto handler) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, handler);
    return a;
  };
  QMenu* file = menuBar()->addMenu(Res(710));
  item(file, QStringLiteral("bancoImport"), Res(708), [this] { act([&] { model_.bancoImport_Click(); }); })
      ->setShortcut(QKeySequence::Open);
  item(file, QStringLiteral("bancoSave"), Res(709), [this] { act([&] { model_.bancoSave_Click(); }); })
      ->setShortcut(QKeySequence::Save);
  file->addSeparator();
  QMenu* printing = file->addMenu(Res(711));
  printing->setObjectName(QStringLiteral("imprimebanco"));
  item(printing, QStringLiteral("resbank"), Res(712), [this] { print(false); });
  item(printing, QStringLiteral("imprimebancoTablas"), Res(713), [this] { print(true); });
  item(file, QStringLiteral("SumaCol"), Res(714), [this] { sumSelection(); });
  QMenu* registers = file->addMenu(Res(780));
  for (int i = 0; i < kRegisterCount; ++i) {
    item(registers, QStringLiteral("registro%1").arg(i + 1), QStringLiteral("R%1").arg(i + 1),
         [this, i] { act([&] { model_.copyToRegister(i); }); });
  }
  file->addSeparator();
  item(file, QStringLiteral("salir"), Res(59), [this] { close(); });

  QMenu* kinds = menuBar()->addMenu(Res(701));
  kinds->setObjectName(QStringLiteral("BanKOperations"));
  auto* kindGroup = new QActionGroup(this);
  for (int t = 1; t <= 3; ++t) {
    tipoActions_[t - 1] = item(kinds, QStringLiteral("tipo%1").arg(t), Res(701 + t),
                               [this, t] { act([&] { model_.BanKOperations(t); }); });
    tipoActions_[t - 1]->setCheckable(true);
    kindGroup->addAction(tipoActions_[t - 1]);
  }
  QMenu* solve = menuBar()->addMenu(Res(705));
  item(solve, QStringLiteral("PrestIinteres"), Res(706), [this] { act([&] { model_.PrestIinteres(); }); });
  item(solve, QStringLiteral("PrestTiempo"), Res(707), [this] { act([&] { model_.PrestTiempo(); }); });
  QMenu* decimals = menuBar()->addMenu(Res(786));
  auto* decimalGroup = new QActionGroup(this);
  static const char* const patterns[] = {"0", "0.0", "0.00"};
  for (int d = 0; d <= 2; ++d) {
    QString caption = QString::fromLatin1(patterns[d]);
    caption.replace(QLatin1Char('.'), program().DecimalSymbol.toText());
    decimalActions_[d] = item(decimals, QStringLiteral("decimales%1").arg(d), caption, [this, d] {
      act([&] { model_.reformat(d); });
    });
    decimalActions_[d]->setCheckable(true);
    decimalGroup->addAction(decimalActions_[d]);
  }
}

// ---- Events ---------------------------------------------------------------------------------

template <typename Handler>
void BankWindow::act(Handler&& handler) {
  if (destroying_) return;
  handler();
  if (model_.errorBeep) {
    model_.errorBeep = false;
    QApplication::beep();
  }
  refresh();
}

void BankWindow::boxEdited(int index) {
  if (refreshing_ || destroying_) return;
  QLineEdit* box = boxes_[index];
  const QString typed = box->text();
  const int cursor = box->cursorPosition();
  model_.box(index).clear();
  model_.typeInto(index, typed);
  const int dropped = static_cast<int>(typed.size() - model_.box(index).size());
  refresh();
  box->setCursorPosition(std::max(cursor - dropped, 0));
}

bool BankWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    for (int i = 0; i < BankModel::kBoxCount; ++i) {
      if (watched == boxes_[i]) {
        model_.boxFocus(i);
        numero->setText(model_.numero);
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void BankWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && model_.waitingForRow) {
    model_.waitingForRow = false;
    refresh();
    return;
  }
  QMainWindow::keyPressEvent(event);
}

void BankWindow::sumSelection() {
  const QModelIndexList selected = Bancolist->selectionModel()->selectedIndexes();
  const QModelIndex current = Bancolist->currentIndex();
  if (selected.isEmpty() || !current.isValid()) return;
  int first = current.row(), last = current.row();
  for (const QModelIndex& i : selected) {
    if (i.column() != current.column()) continue;
    first = std::min(first, i.row());
    last = std::max(last, i.row());
  }
  act([&] { model_.SumaCol(current.column(), first + 1, last + 1); });
}

void BankWindow::print(bool withTables) {
  QPrinter printer(QPrinter::HighResolution);
  const qreal height = printer.pageLayout().paintRectPixels(printer.resolution()).height();
  QFont f(QStringLiteral("Courier New"), -1);
  f.setPointSizeF(9);
  f.setStyleHint(QFont::TypeWriter);
  const qreal row = QFontMetricsF(QFont(f, &printer)).lineSpacing();
  if (row > 0) model_.printRowsPerPage = std::max(static_cast<int>(height / row) - 2, 10);
  act([&] { model_.imprimebanco(withTables); });
}

bool BankWindow::openDocument(const QString& path) {
  const bool opened = model_.bancoImport(path);
  refresh();
  return opened;
}

QString BankWindow::askFileName(const BankModel::FileDialogRequest& r) {
  const QString filter = dialogFilter(r.filter);
  if (r.save) return QFileDialog::getSaveFileName(this, r.title, r.folder, filter);
  return QFileDialog::getOpenFileName(this, r.title, r.folder, filter);
}

// ---- Repainting -------------------------------------------------------------------------------

void BankWindow::refresh() {
  refreshing_ = true;
  heading->setText(Res(model_.headingId()));
  for (int i = 0; i < BankModel::kBoxCount; ++i) {
    if (boxes_[i]->text() != model_.box(i)) boxes_[i]->setText(model_.box(i));
  }
  const bool plan = model_.tipo == 2;
  for (int i : {BankModel::kAportemes, BankModel::kIncremes}) {
    boxes_[i]->setEnabled(plan);
    boxLabels_[i]->setEnabled(plan);
  }
  Option1->setChecked(!model_.Option2);
  Option2->setChecked(model_.Option2);
  numero->setText(model_.numero);
  mensual->setText(model_.mensual);
  total->setText(model_.total);
  intereses->setText(model_.intereses);
  const bool loan = model_.tipo == 3;
  Command9->setEnabled(loan && !model_.loanRows.isEmpty());
  Command14->setEnabled(loan);
  Command15->setEnabled(loan);
  Command14->setChecked(model_.Command14);
  Label731->setVisible(model_.waitingForRow);
  report->setVisible(loan && !model_.report.isEmpty());
  if (report->toPlainText() != model_.report) report->setPlainText(model_.report);
  tipoActions_[model_.tipo - 1]->setChecked(true);
  for (int d = 0; d <= 2; ++d) {
    decimalActions_[d]->setChecked(model_.formatoBanco.size() == (d == 0 ? 1 : d + 2));
  }
  tableModel_->sync();
  refreshing_ = false;
}

void BankWindow::showScreenshotState(const QString& state) {
  const bool repay = state == QLatin1String("repay");
  model_.BanKOperations(state == QLatin1String("savings") ? 2 : 3);
  for (int i = 0; i < BankModel::kBoxCount; ++i) model_.box(i).clear();
  const bool savings = state == QLatin1String("savings");
  model_.typeInto(BankModel::kCapital, QString::fromLatin1(repay ? "10000" : savings ? "1000" : "150000"));
  model_.typeInto(BankModel::kInteres, QString::fromLatin1(repay ? "8" : "3.5"));
  model_.typeInto(BankModel::kTiempo, QString::fromLatin1(repay ? "10" : savings ? "5" : "25"));
  if (savings) {
    model_.typeInto(BankModel::kAportemes, QStringLiteral("100"));
    model_.typeInto(BankModel::kIncremes, QStringLiteral("3"));
  }
  model_.Option_Click(!repay);
  // The end-of-month question takes its default (first) answer.
  ScriptedPresenter quiet;
  PresenterScope scope(&quiet);
  if (repay) quiet.queueButton(0);
  model_.Command7_Click();
  if (repay) {
    quiet.queueButton(0);
    model_.Command9_Click();
    quiet.queueText(QStringLiteral("3000"));
    model_.Bancolist_Click(4);
  }
  refresh();
}
