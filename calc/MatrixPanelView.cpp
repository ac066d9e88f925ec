#include "calc/MatrixPanelView.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "calc/CalculatorEngine.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/MessageService.h"
#include "shell/Strings.h"

namespace {

QPushButton* smallKey(const QString& name, const QString& caption, int tooltipId, QWidget* parent) {
  auto* b = new ChameleonButtonWidget(caption, parent);
  b->setObjectName(name);
  if (tooltipId) b->setToolTip(Res(tooltipId));
  b->setMinimumHeight(26);
  b->setFocusPolicy(Qt::NoFocus);
  return b;
}

QTableWidget* makeGrid(const QString& name, QWidget* parent) {
  auto* t = new QTableWidget(parent);
  t->setObjectName(name);
  t->setEditTriggers(QAbstractItemView::NoEditTriggers);
  t->setSelectionMode(QAbstractItemView::SingleSelection);
  t->setFocusPolicy(Qt::NoFocus);
  t->horizontalHeader()->setDefaultSectionSize(64);
  t->verticalHeader()->setDefaultSectionSize(22);
  t->horizontalHeader()->setMinimumSectionSize(24);
  t->verticalHeader()->setMinimumWidth(22);
  t->setContextMenuPolicy(Qt::CustomContextMenu);
  return t;
}

}  // namespace

MatrixPanelView::MatrixPanelView(CalculatorEngine& engine, std::function<void()> changed, QWidget* parent)
    : QWidget(parent), engine_(engine), changed_(std::move(changed)) {
  setObjectName(QStringLiteral("matrixPage"));
  auto* v = new QVBoxLayout(this);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(4);

  menu_ = new QMenu(this);
  menu_->setObjectName(QStringLiteral("MatrizMenu"));
  for (int k = 0; k < 8; ++k) {
    QAction* a = menu_->addAction(Res(4930 + k));
    a->setObjectName(QStringLiteral("MatrizOp(%1)").arg(k));
    connect(a, &QAction::triggered, this, [this, k] {
      engine_.matrices.MatrizOp_Click(k);
      changed_();
    });
  }
  menu_->addSeparator();
  QAction* copy = menu_->addAction(Res(4938));
  copy->setObjectName(QStringLiteral("MatrizCcopia"));
  connect(copy, &QAction::triggered, this, [this] {
    engine_.matrices.MatrizCcopia_Click();
    changed_();
  });

  for (int i = 0; i < 3; ++i) v->addWidget(buildMatrix(i), 1);
  v->addWidget(buildOperations());
  refresh();
}

QWidget* MatrixPanelView::buildMatrix(int i) {
  const auto k = static_cast<std::size_t>(i);
  auto* box = new QWidget(this);
  auto* v = new QVBoxLayout(box);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(2);
  auto* head = new QHBoxLayout;
  head->setSpacing(3);
  auto* title = new QLabel(QStringLiteral("<b>%1</b>").arg(MatrixModel::letter(i)), box);
  title->setToolTip(Res(4940));
  head->addWidget(title);
  auto sizeBox = [&](const char* name, int tooltipId) {
    auto* edit = new QLineEdit(box);
    edit->setObjectName(QStringLiteral("%1(%2)").arg(QString::fromLatin1(name)).arg(i));
    edit->setValidator(new QIntValidator(0, 99, edit));
    edit->setFixedWidth(32);
    edit->setAlignment(Qt::AlignCenter);
    edit->setToolTip(Res(tooltipId));
    return edit;
  };
  Text6[k] = sizeBox("Text6", 4332);
  Text7[k] = sizeBox("Text7", 4333);
  connect(Text6[k], &QLineEdit::textEdited, this, [this, k](const QString& t) { engine_.matrices.Text6[k] = t; });
  connect(Text7[k], &QLineEdit::textEdited, this, [this, k](const QString& t) { engine_.matrices.Text7[k] = t; });
  head->addWidget(Text6[k]);
  head->addWidget(new QLabel(QStringLiteral("x"), box));
  head->addWidget(Text7[k]);
  const struct {
    const char* control;
    int captionId;
    int tooltipId;
    void (MatrixModel::*press)(int);
  } keys[] = {{"Command54", 4939, 4942, &MatrixModel::Command54_Click},
              {"Command57", 4791, 4948, &MatrixModel::Command57_Click},
              {"Command77", 4941, 4943, &MatrixModel::Command77_Click}};
  for (const auto& key : keys) {
    auto* b = smallKey(QStringLiteral("%1(%2)").arg(QString::fromLatin1(key.control)).arg(i), Res(key.captionId),
                       key.tooltipId, box);
    const auto press = key.press;
    connect(b, &QPushButton::clicked, this, [this, i, press] {
      (engine_.matrices.*press)(i);
      changed_();
    });
    head->addWidget(b);
  }
  head->addStretch(1);
  v->addLayout(head);
  QTableWidget* grid = makeGrid(QStringLiteral("MSFlexGrid2(%1)").arg(i), box);
  grid->setToolTip(Res(4940));
  connect(grid, &QTableWidget::cellClicked, this, [this, i](int row, int col) {
    engine_.matrices.cellClick(i, row, col);
    changed_();
  });
  connect(grid, &QWidget::customContextMenuRequested, this, [this, grid, i](const QPoint& at) {
    engine_.matrices.clickedGrid = i;
    menu_->popup(grid->viewport()->mapToGlobal(at));
  });
  MSFlexGrid2[k] = grid;
  v->addWidget(grid, 1);
  return box;
}

// Two rows: the four two-matrix keys; the exchange and the print key.
QWidget* MatrixPanelView::buildOperations() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(3);
  static const char* const kCaptions[] = {"A+B", "A\xE2\x88\x92" "B", "A\xC3\x97" "B", "A\xC3\x97" "B\xE2\x81\xBB\xC2\xB9"};
  for (int k = 0; k < 4; ++k) {
    auto* b = smallKey(QStringLiteral("Command75(%1)").arg(k), QString::fromUtf8(kCaptions[k]), 0, box);
    connect(b, &QPushButton::clicked, this, [this, k] {
      engine_.matrices.Command75_Click(k);
      changed_();
    });
    grid->addWidget(b, 0, k);
  }
  auto* exchange = smallKey(QStringLiteral("ChangeMatriz"), QString::fromUtf8("A \xE2\x87\x84 B"), 4551, box);
  connect(exchange, &QPushButton::clicked, this, [this] {
    engine_.matrices.ChangeMatriz_Click();
    changed_();
  });
  grid->addWidget(exchange, 1, 0, 1, 2);
  auto* print = smallKey(QStringLiteral("Image4"), Res(4792), 4550, box);
  connect(print, &QPushButton::clicked, this, [this] {
    engine_.matrices.MatrizPrinter_Click();
    changed_();
  });
  grid->addWidget(print, 1, 2, 1, 2);
  return box;
}

void MatrixPanelView::fillGrid(QTableWidget* view, int rows, int cols, const std::function<QString(int, int)>& cell) {
  view->setRowCount(rows);
  view->setColumnCount(cols);
  for (int r = 0; r < rows; ++r) {
    for (int c = 0; c < cols; ++c) {
      QTableWidgetItem* item = view->item(r, c);
      if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        view->setItem(r, c, item);
      }
      item->setText(cell(r, c));
    }
  }
}

void MatrixPanelView::refresh() {
  const MatrixModel& m = engine_.matrices;
  for (std::size_t i = 0; i < 3; ++i) {
    if (Text6[i]->text() != m.Text6[i]) Text6[i]->setText(m.Text6[i]);
    if (Text7[i]->text() != m.Text7[i]) Text7[i]->setText(m.Text7[i]);
  }
  if (m.revision == shownRevision_) return;
  shownRevision_ = m.revision;
  for (std::size_t i = 0; i < 3; ++i) {
    const MatrixModel::Grid& g = m.MSFlexGrid2[i];
    fillGrid(MSFlexGrid2[i], g.rows, g.cols, [&g](int r, int c) { return g.cell(r, c); });
  }
}

// ---- Equations page ------------------------------------------------------------------

EquationsPanelView::EquationsPanelView(CalculatorEngine& engine, QWidget* keys, std::function<void()> changed,
                                       QWidget* parent)
    : QWidget(parent), engine_(engine), changed_(std::move(changed)) {
  setObjectName(QStringLiteral("equationsPage"));
  auto* v = new QVBoxLayout(this);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(4);
  keys->setParent(this);
  v->addWidget(keys);
  MSFlexGrid1 = makeGrid(QStringLiteral("MSFlexGrid1(2)"), this);
  MSFlexGrid1->setContextMenuPolicy(Qt::NoContextMenu);
  connect(MSFlexGrid1, &QTableWidget::cellClicked, this, [this](int row, int col) {
    engine_.linearSystem.cellClick(row, col);
    changed_();
  });
  v->addWidget(MSFlexGrid1, 1);
  refresh();
}

void EquationsPanelView::refresh() {
  const LinearSystem& s = engine_.linearSystem;
  if (s.revision == shownRevision_) return;
  shownRevision_ = s.revision;
  MSFlexGrid1->setRowCount(s.n);
  MSFlexGrid1->setColumnCount(s.n == 0 ? 0 : s.n + 1);
  QStringList headers;
  for (int c = 1; c <= s.n; ++c) headers << QStringLiteral("A%1").arg(c);
  if (s.n > 0) headers << QStringLiteral("K");
  MSFlexGrid1->setHorizontalHeaderLabels(headers);
  for (int r = 0; r < s.n; ++r) {
    for (int c = 0; c <= s.n; ++c) {
      QTableWidgetItem* item = MSFlexGrid1->item(r, c);
      if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        MSFlexGrid1->setItem(r, c, item);
      }
      item->setText(s.cell(r, c));
    }
  }
}

void showMatrixScreenshotState(CalculatorEngine& engine, const QString& state) {
  if (state == QLatin1String("matrices")) {
    MatrixModel& m = engine.matrices;
    m.setGrid(0, {{"2", "-1", "0"}, {"-1", "2", "-1"}, {"0", "-1", "2"}});
    m.setGrid(1, {{"1", "0", "3"}, {"0", "4", "1"}, {"2", "1", "0"}});
    m.clickedGrid = 0;
    m.MatrizOp_Click(3);
    m.MatrizOp_Click(5);
    return;
  }
  // x + y + z = 6, 2x - y + z = 3, x + 2y - z = 2
  ScriptedPresenter answers;
  answers.queueAnswer(QStringLiteral("3"));
  answers.queueAnswer(QStringLiteral("1"));
  const PresenterScope scope(&answers);
  LinearSystem& s = engine.linearSystem;
  s.Command39_Click();
  const char* const cells[] = {"1", "1", "1", "6", "2", "-1", "1", "3", "1", "2", "-1", "2"};
  for (int i = 0; i < 12; ++i) s.setCell(i / 4, i % 4, QString::fromLatin1(cells[i]));
  s.Command85_Click(1);
}
