#include "lottery/LotteryWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QAbstractTableModel>
#include <QApplication>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ChartWindowRequest.h"
#include "shell/MessageService.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"

namespace {

QString colourName(std::uint32_t bgr) {
  // The classic colours are 0xBBGGRR.
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                static_cast<int>((bgr >> 16) & 0xFF))
      .name();
}

const char* const kCategoryCaptions[8] = {"6", "5+C", "5", "4", "3", "2", "1", "0"};

QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  return parts.size() >= 2 ? parts.at(0) : filter;
}

}  // namespace

// The draw grid reads the model's rows straight, so that showing thousands of
// draws costs nothing up front.
class DrawGridModel : public QAbstractTableModel {
 public:
  explicit DrawGridModel(const LotteryModel& model, QObject* parent) : QAbstractTableModel(parent), model_(model) {}
  // Shows these rows of the history (a copy, so the view never reads a list
  // the model is changing).
  void reload(const QList<int>& rows) {
    if (rows == rows_) return;
    beginResetModel();
    rows_ = rows;
    endResetModel();
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 12; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid() || index.column() == 0) return {};
    return model_.draws.rows.value(rows_.at(index.row())).value(index.column());
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    static const char* const heads[12] = {"",   "",   "N1", "N2", "N3",       "N4",
                                          "N5", "N6", "C",  "R",  "Sorteo", "Tipo"};
    return section == 1 ? Res(624) : QString::fromLatin1(heads[section]);
  }

 private:
  const LotteryModel& model_;
  QList<int> rows_;
};

LotteryWindow::LotteryWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Lottery"));
  setAttribute(Qt::WA_DeleteOnClose);
  setProperty("screenshotStates", QStringList{QStringLiteral("multiple"), QStringLiteral("report"),
                                              QStringLiteral("reduction"), QStringLiteral("database"),
                                              QStringLiteral("ten")});
  setProperty("screenshotScreenStates", QStringList{QStringLiteral("report"), QStringLiteral("ten")});
  model_.hooks.fileDialog = [this](const LotteryModel::FileDialogRequest& r) { return askFileName(r); };

  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  columns->addWidget(buildBoard(), 0);
  columns->addWidget(buildTexts(), 1);
  setCentralWidget(central);
  buildMenus();
  refresh();
}

QWidget* LotteryWindow::buildBoard() {
  auto* box = new QWidget(this);
  auto* v = new QVBoxLayout(box);
  v->setContentsMargins(0, 0, 0, 0);
  Label9 = new QLabel(box);
  Label9->setObjectName(QStringLiteral("Label9"));
  v->addWidget(Label9);
  Label9_1 = new QLabel(box);
  Label9_1->setObjectName(QStringLiteral("Label9_1"));
  v->addWidget(Label9_1);

  stack_ = new QStackedWidget(box);
  auto* board = new QWidget(stack_);
  auto* grid = new QGridLayout(board);
  grid->setSpacing(3);
  for (int i = 0; i < 49; ++i) {
    auto* b = new ChameleonButtonWidget(QString::number(i + 1), board);
    b->setObjectName(QStringLiteral("Label10_%1").arg(i));
    b->setFixedSize(44, 34);
    b->setFocusPolicy(Qt::NoFocus);
    b->model().fontBold = true;
    connect(b, &QPushButton::clicked, this, [this, i] { act([this, i] { model_.Label10_Click(i); }); });
    grid->addWidget(b, i / 7, i % 7);
    Label10[i] = b;
  }
  stack_->addWidget(board);
  auto* viewer = new QWidget(stack_);
  auto* grids = new QHBoxLayout(viewer);
  grids->setContentsMargins(0, 0, 0, 0);
  MSFlexGrid0 = new QTableView(viewer);
  MSFlexGrid0->setObjectName(QStringLiteral("MSFlexGrid0"));
  drawGrid_ = new DrawGridModel(model_, this);
  MSFlexGrid0->setModel(drawGrid_);
  MSFlexGrid0->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid0->setSelectionBehavior(QAbstractItemView::SelectRows);
  MSFlexGrid0->setSelectionMode(QAbstractItemView::SingleSelection);
  MSFlexGrid0->verticalHeader()->hide();
  MSFlexGrid0->verticalHeader()->setDefaultSectionSize(20);
  MSFlexGrid0->horizontalHeader()->setMinimumSectionSize(0);
  const int drawWidths[12] = {8, 78, 28, 28, 28, 28, 28, 28, 28, 28, 0, 0};
  for (int c = 0; c < 12; ++c) MSFlexGrid0->setColumnWidth(c, drawWidths[c]);
  MSFlexGrid0->setColumnHidden(10, true);
  MSFlexGrid0->setColumnHidden(11, true);
  // Wide enough for the date, the numbers, the complementary and the reintegro.
  MSFlexGrid0->setMinimumWidth(8 + 78 + 8 * 28 + 24);
  connect(MSFlexGrid0, &QTableView::clicked, this, [this](const QModelIndex& index) {
    act([this, row = index.row()] { model_.MSFlexGrid0_Click(row + 1); });
  });
  grids->addWidget(MSFlexGrid0, 1);
  MSFlexGrid1 = new QTableWidget(0, LotteryModel::kColumns, viewer);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1->setMinimumWidth(24 + 78 + 6 * 28 + 24);  // id, date and a simple bet without scrolling
  MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
  MSFlexGrid1->verticalHeader()->hide();
  MSFlexGrid1->horizontalHeader()->setMinimumSectionSize(24);
  MSFlexGrid1->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(MSFlexGrid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    QMenu menu(this);
    menu.addAction(Res(543), this, [this] { act([this] { model_.lotorecup_Click(); }); });
    menu.addAction(Res(544), this, [this] { act([this] { model_.borraapuessel_Click(); }); });
    menu.addAction(Res(545), this, [this] { analyse(false); });
    menu.addAction(Res(546), this, [this] { analyse(true); });
    menu.exec(MSFlexGrid1->viewport()->mapToGlobal(at));
  });
  connect(MSFlexGrid1, &QTableWidget::itemSelectionChanged, this, [this] {
    const auto ranges = MSFlexGrid1->selectedRanges();
    if (ranges.isEmpty()) return;
    model_.gridRow = ranges.first().topRow() + 1;
    model_.gridRowSel = ranges.first().bottomRow() + 1;
  });
  grids->addWidget(MSFlexGrid1, 1);
  MSFlexGrid2 = new QTableWidget(0, 3, viewer);
  MSFlexGrid2->setObjectName(QStringLiteral("MSFlexGrid2"));
  MSFlexGrid2->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid2->verticalHeader()->hide();
  MSFlexGrid2->verticalHeader()->setDefaultSectionSize(20);
  MSFlexGrid2->setHorizontalHeaderLabels({Res(625), Res(626), QStringLiteral("%")});
  // 540, 850 and 750 twips.
  MSFlexGrid2->setColumnWidth(0, 40);
  MSFlexGrid2->setColumnWidth(1, 60);
  MSFlexGrid2->setColumnWidth(2, 54);
  MSFlexGrid2->setFixedWidth(40 + 60 + 54 + 22);
  MSFlexGrid2->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(MSFlexGrid2, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    QMenu menu(this);
    for (int k = 0; k < 3; ++k) {
      QAction* a = menu.addAction(Res(547 + k), this, [this, k] { act([this, k] { model_.ordenaloto_Click(k); }); });
      a->setObjectName(QStringLiteral("ordenaloto_%1").arg(k));
      a->setCheckable(true);
      a->setChecked(model_.ordenActual == k);
    }
    menu.exec(MSFlexGrid2->viewport()->mapToGlobal(at));
  });
  grids->addWidget(MSFlexGrid2, 0);
  stack_->addWidget(viewer);
  v->addWidget(stack_);

  auto* sizes = new QHBoxLayout;
  for (int i = 0; i < 7; ++i) {
    auto* b = new ChameleonButtonWidget(QString::number(i + 5), box);
    b->setObjectName(QStringLiteral("Command1_%1").arg(i));
    b->setFixedWidth(40);
    connect(b, &QPushButton::clicked, this, [this, i] { act([this, i] { model_.Command1_Click(i); }); });
    sizes->addWidget(b);
    Command1[i] = b;
  }
  v->addLayout(sizes);

  auto* buttons = new QHBoxLayout;
  const auto button = [&](QPushButton*& b, const char* name, int caption) {
    b = new ChameleonButtonWidget(Res(caption), box);
    b->setObjectName(QLatin1String(name));
    buttons->addWidget(b);
  };
  button(Command9, "Command9", 587);
  button(Command11, "Command11", 575);
  button(Command6, "Command6", 563);
  button(Command2, "Command2", 564);
  Command6->setToolTip(Res(576));
  Command11->setToolTip(Res(581));
  connect(Command9, &QPushButton::clicked, this, [this] { act([this] { model_.Command9_Click(); }); });
  connect(Command11, &QPushButton::clicked, this, [this] { act([this] { model_.Command11_Click(); }); });
  connect(Command6, &QPushButton::clicked, this, [this] { analyse(false); });
  connect(Command2, &QPushButton::clicked, this, [this] { stop_ = true; });
  v->addLayout(buttons);
  ProgressBar1 = new QProgressBar(box);
  ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
  ProgressBar1->setTextVisible(false);
  v->addWidget(ProgressBar1);
  return box;
}

QWidget* LotteryWindow::buildTexts() {
  auto* box = new QWidget(this);
  auto* g = new QGridLayout(box);
  for (int i = 0; i < 2; ++i) {
    Label1[i] = new QLabel(Res(565 + i), box);
    Label1[i]->setObjectName(QStringLiteral("Label1_%1").arg(i));
    Label1[i]->setAlignment(Qt::AlignCenter);
    Label1[i]->setAutoFillBackground(true);
    g->addWidget(Label1[i], 0, i);
  }
  for (int i = 0; i < 8; ++i) {
    auto* caption = new QLabel(QLatin1String(kCategoryCaptions[i]), box);
    texts_[i] = new QLabel(box);
    texts_[i]->setObjectName(model_.texts[i].name);
    texts_[i]->setMinimumWidth(110);
    texts_[i]->setFrameShape(QFrame::Panel);
    texts_[i]->setFrameShadow(QFrame::Sunken);
    g->addWidget(caption, i + 1, 0);
    g->addWidget(texts_[i], i + 1, 1);
  }
  Label7 = new QLabel(box);
  Label7->setObjectName(QStringLiteral("Label7"));
  Label7->setWordWrap(true);
  Label7->setMinimumHeight(40);
  g->addWidget(Label7, 9, 0, 1, 2);
  g->addWidget(new QLabel(Res(631) + QLatin1Char(':'), box), 10, 0);
  Label8 = new QLabel(box);
  Label8->setObjectName(QStringLiteral("Label8"));
  g->addWidget(Label8, 10, 1);
  g->setRowStretch(11, 1);
  return box;
}

void LotteryWindow::buildMenus() {
  const auto add = [this](QMenu* menu, const char* name, int caption, auto handler) {
    QAction* a = menu->addAction(Res(caption));
    a->setObjectName(QLatin1String(name));
    connect(a, &QAction::triggered, this, [this, handler] { act(handler); });
    return a;
  };
  QMenu* ficheroloto = menuBar()->addMenu(Res(500));
  add(ficheroloto, "abrirloto", 501, [this] { model_.abrirloto_Click(); });
  add(ficheroloto, "guardarloto", 502, [this] { model_.guardarloto_Click(); });
  add(ficheroloto, "imprimeloto", 503, [this] { model_.imprimeloto_Click(); });
  QMenu* editloto = menuBar()->addMenu(Res(504));
  add(editloto, "mostrarloto", 505, [this] { model_.mostrarloto_Click(); });
  add(editloto, "mostrardbase", 506, [this] { model_.mostrardbase_Click(); });
  QMenu* borrarloto = editloto->addMenu(Res(507));
  add(borrarloto, "borrapuestod", 508, [this] { model_.borrapuestod_Click(); });
  borraapuessel = add(borrarloto, "borraapuessel", 509, [this] { model_.borraapuessel_Click(); });
  QMenu* opciones = menuBar()->addMenu(Res(510));
  auto* modes = new QActionGroup(this);
  azarloto = add(opciones, "azarloto", 511, [this] { model_.azarloto_Click(); });
  manualoto = add(opciones, "manualoto", 512, [this] { model_.manualoto_Click(); });
  modoauto = opciones->addAction(Res(513));
  modoauto->setObjectName(QStringLiteral("modoauto"));
  connect(modoauto, &QAction::triggered, this, [this] { runLong([this] { model_.modoauto_Click(); }); });
  for (QAction* a : {azarloto, manualoto, modoauto}) {
    a->setCheckable(true);
    modes->addAction(a);
  }
  QMenu* lotoRed = opciones->addMenu(Res(514));
  QMenu* lotoRed5 = lotoRed->addMenu(Res(515));
  for (int k = 0; k < kReductionSystems; ++k) {
    QAction* a = lotoRed5->addAction(Res(516 + k));
    a->setObjectName(QStringLiteral("lotoReduc5_%1").arg(k));
    connect(a, &QAction::triggered, this, [this, k] { act([this, k] { model_.lotoReduc5_Click(k); }); });
  }
  QMenu* preferidos = opciones->addMenu(Res(521));
  auto* prefs = new QActionGroup(this);
  for (int k = 0; k < 6; ++k) {
    const QString caption = k == 0 ? Res(522) : k <= 3 ? Res(521) + QLatin1Char(' ') + QString::number(k) : Res(519 + k);
    QAction* a = preferidos->addAction(caption);
    a->setObjectName(QStringLiteral("pref1_%1").arg(k));
    a->setCheckable(true);
    prefs->addAction(a);
    connect(a, &QAction::triggered, this, [this, k] { act([this, k] { model_.pref1_Click(k); }); });
    pref1[k] = a;
  }
  LotoInfoExpress = opciones->addAction(Res(525));
  LotoInfoExpress->setObjectName(QStringLiteral("LotoInfoExpress"));
  LotoInfoExpress->setCheckable(true);
  connect(LotoInfoExpress, &QAction::toggled, this, [this](bool on) { model_.LotoInfoExpress = on; });
  QMenu* lotoestad = menuBar()->addMenu(Res(526));
  auto* types = new QActionGroup(this);
  for (int k = 0; k < 4; ++k) {
    QAction* a = lotoestad->addAction(Res(527 + k));
    a->setObjectName(QStringLiteral("tipoloto_%1").arg(k));
    a->setCheckable(true);
    types->addAction(a);
    connect(a, &QAction::triggered, this, [this, k] { runLong([this, k] { model_.tipoloto_Click(k); }); });
    tipoloto[k] = a;
  }
  lotoestad->addSeparator();
  const auto chart = [this](QMenu* menu, const QString& name, const QString& caption, auto handler) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, [this, handler] {
      act(handler);
      openChart();
    });
  };
  chart(lotoestad, QStringLiteral("lotoestmostrar1"), Res(532), [this] { model_.lotoestmostrar1_Click(); });
  chart(lotoestad, QStringLiteral("lotoestmostrar2"), Res(533), [this] { model_.lotoestmostrar2_Click(); });
  QMenu* lotoestmostrar3 = lotoestad->addMenu(Res(534));
  for (int k = 0; k < 4; ++k) {
    chart(lotoestmostrar3, QStringLiteral("lotoestmostrar31_%1").arg(k), Res(535 + k),
          [this, k] { model_.lotoestmostrar31_Click(k); });
  }
  lotoestad->addSeparator();
  for (int k = 0; k < 2; ++k) {
    QMenu* ten = lotoestad->addMenu(Res(540 + k));
    for (int c = 0; c < 2; ++c) {
      QAction* a = ten->addAction(Res(c == 0 ? 634 : 643));
      a->setObjectName(QStringLiteral("lotoestmostrar41_%1_%2").arg(k).arg(c));
      connect(a, &QAction::triggered, this, [this, k, c] { showTen(k, c == 1); });
    }
  }
  lotoestad->addSeparator();
  add(lotoestad, "lotoest0", 539, [this] { model_.lotoest0_Click(); });
  menuActions_ = {ficheroloto->menuAction(), editloto->menuAction(), opciones->menuAction(), lotoestad->menuAction()};
}

template <typename Handler>
void LotteryWindow::act(Handler&& handler) {
  if (running_) return;
  handler();
  refresh();
}

void LotteryWindow::refresh() {
  setWindowTitle(model_.title);
  for (int i = 0; i < 49; ++i) {
    const auto& n = model_.board[i];
    Label10[i]->setEnabled(n.enabled);
    setButtonColours(Label10[i], QColor(colourName(n.enabled ? n.colour : 0xC0C0C0)), Qt::black);
  }
  for (int i = 0; i < 7; ++i) Command1[i]->setEnabled(model_.Command1Enabled[i]);
  Command1[1]->setText(model_.Command1Caption1);
  Command1[1]->setToolTip(model_.Command1Tooltip1);
  Command9->setText(Res(model_.Command9Caption));
  Command9->setToolTip(Res(model_.Command9Tooltip));
  Command11->setVisible(model_.Command11Visible);
  Command11->setToolTip(Res(model_.Command11Tooltip));
  Command6->setEnabled(model_.Command6Enabled && !running_);
  Command2->setVisible(running_);
  ProgressBar1->setVisible(running_);
  for (int i = 0; i < 8; ++i) {
    texts_[i]->setText(model_.texts[i].text);
    texts_[i]->setToolTip(model_.texts[i].tooltip);
  }
  for (int i = 0; i < 2; ++i) {
    QPalette p = Label1[i]->palette();
    p.setColor(QPalette::Window, QColor(colourName(model_.Label1Lit == i ? 0x80FF80 : 0xFFC0C0)));
    Label1[i]->setPalette(p);
  }
  Label7->setText(model_.Label7);
  Label8->setText(model_.Label8);
  Label9->setText(model_.Label9Text);
  Label9->setVisible(model_.Label9Visible);
  Label9_1->setText(model_.Label9bText);
  Label9_1->setVisible(model_.Label9bVisible);
  for (QAction* a : menuActions_) a->setEnabled(model_.menusEnabled);
  borraapuessel->setEnabled(model_.borraapuesselEnabled);
  azarloto->setChecked(model_.mode == LotteryModel::kRandom);
  manualoto->setChecked(model_.mode == LotteryModel::kManual);
  modoauto->setChecked(model_.mode == LotteryModel::kAuto);
  if (model_.prefActiva >= 0 && model_.prefActiva < 6) pref1[model_.prefActiva]->setChecked(true);
  tipoloto[model_.tipoSorteo]->setChecked(true);

  stack_->setCurrentIndex(model_.listVisible || model_.dbVisible ? 1 : 0);
  MSFlexGrid0->setVisible(model_.dbVisible);
  MSFlexGrid1->setVisible(!model_.dbVisible);
  drawGrid_->reload(model_.dbVisible ? model_.dbRows : QList<int>());
  MSFlexGrid2->setRowCount(static_cast<int>(model_.freqGrid.size()));
  for (int r = 0; r < model_.freqGrid.size(); ++r) {
    for (int c = 0; c < 3; ++c) {
      auto* item = new QTableWidgetItem(model_.freqGrid.at(r).at(c));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      MSFlexGrid2->setItem(r, c, item);
    }
  }
  QStringList heads{QStringLiteral("id"), Res(624)};
  for (int c = 1; c <= 11; ++c) heads << QStringLiteral("n%1").arg(c);
  MSFlexGrid1->setHorizontalHeaderLabels(heads);
  MSFlexGrid1->setRowCount(static_cast<int>(model_.grid.size()));
  for (int r = 0; r < model_.grid.size(); ++r) {
    for (int c = 0; c < LotteryModel::kColumns; ++c) {
      MSFlexGrid1->setItem(r, c, new QTableWidgetItem(model_.grid.at(r).at(c)));
    }
  }
  MSFlexGrid1->resizeColumnsToContents();
}

void LotteryWindow::analyse(bool allRows) {
  if (running_) return;
  stop_ = false;
  running_ = true;
  QElapsedTimer sinceEvents;
  sinceEvents.start();
  model_.hooks.analysisStep = [this, &sinceEvents](int row, int rows) {
    // Yield often enough that a click on Command2 is seen at once.
    if (sinceEvents.elapsed() >= 30) {
      ProgressBar1->setMaximum(rows);
      ProgressBar1->setValue(row);
      QCoreApplication::processEvents();
      sinceEvents.restart();
    }
    return !stop_;
  };
  refresh();
  if (allRows) model_.analizeTodapu_Click();
  else if (model_.listVisible) model_.analizeapu_Click();
  else model_.Command6_Click();
  model_.hooks.analysisStep = {};
  running_ = false;
  refresh();
  if (!model_.informeTitle.isEmpty()) showReport();
}

void LotteryWindow::runLong(const std::function<void()>& work) {
  if (running_) return;
  stop_ = false;
  running_ = true;
  QElapsedTimer sinceEvents;
  sinceEvents.start();
  model_.hooks.progressStep = [this, &sinceEvents](int done, int total) {
    if (sinceEvents.elapsed() >= 30) {
      ProgressBar1->setMaximum(total);
      ProgressBar1->setValue(done);
      QCoreApplication::processEvents();
      sinceEvents.restart();
    }
    return !stop_;
  };
  refresh();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  work();
  QApplication::restoreOverrideCursor();
  model_.hooks.progressStep = {};
  running_ = false;
  refresh();
}

bool LotteryWindow::openDocument(const QString& path) {
  const bool opened = model_.abrirloto(path);
  refresh();
  return opened;
}

void LotteryWindow::openChart() {
  if (!model_.chartRequested) return;
  model_.chartRequested = false;
  if (!hasWindowFactory(WindowId::StatisticsChart)) {
    MBoxShow(3, Res(686), 3, 0, 0, model_.chart.title);
    return;
  }
  // The counts as bars, one per number, labelled with the numbers.
  ChartData data;
  data.title = model_.chart.title;
  for (int k : model_.chart.keys) {
    data.x.push_back(k);
    data.categories << QString::number(k);
  }
  data.y.assign(model_.chart.values.begin(), model_.chart.values.end());
  data.yName = model_.chart.title;
  data.series = 2;
  data.kind = 2;  // bars
  showChart(data);
}

void LotteryWindow::showTen(int index, bool withComplementary) {
  model_.informeTitle.clear();
  act([this, index, withComplementary] { model_.lotoestmostrar41_Click(index, withComplementary); });
  if (!model_.informeTitle.isEmpty()) showReport();
}

void LotteryWindow::showReport() {
  auto* dialog = new QDialog(this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName(QStringLiteral("informeLotoDialog"));
  dialog->setWindowTitle(model_.informeTitle);
  auto* v = new QVBoxLayout(dialog);
  auto* text = new QPlainTextEdit(dialog);
  text->setObjectName(QStringLiteral("informeLoto"));
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setPlainText(QString(model_.informeLoto).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  v->addWidget(text);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, dialog);
  connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  v->addWidget(buttons);
  dialog->resize(560, 600);
  dialog->show();
}

QString LotteryWindow::askFileName(const LotteryModel::FileDialogRequest& r) {
  const QString filter = dialogFilter(r.filter);
  if (r.save) return QFileDialog::getSaveFileName(this, r.title, r.folder, filter);
  return QFileDialog::getOpenFileName(this, r.title, r.folder, filter);
}

void LotteryWindow::closeEvent(QCloseEvent* event) {
  if (running_) {
    stop_ = true;
    event->ignore();
    return;
  }
  model_.Form_Unload();
  event->accept();
}

void LotteryWindow::showScreenshotState(const QString& state) {
  // Each state starts with the window alone: a report left open by the
  // previous one is closed.
  for (QDialog* d : findChildren<QDialog*>(QStringLiteral("informeLotoDialog"))) d->close();
  if (state == QLatin1String("reduction")) {
    // The tour has nobody to answer the reduction's closing message.
    ScriptedPresenter quiet;
    PresenterScope scope(&quiet);
    model_.borrapuestod_Click();
    model_.lotoReduc5_Click(4);
    for (int x : {3, 7, 12, 15, 19, 22, 26, 30, 33, 38, 41, 45}) model_.Label10_Click(x - 1);
    model_.Command9_Click();
    model_.Command11_Click();
    model_.mostrarloto_Click();
    refresh();
    return;
  }
  if (state == QLatin1String("database")) {
    model_.mostrardbase_Click();
    model_.ordenaloto_Click(2);
    model_.MSFlexGrid0_Click(1);
    refresh();
    return;
  }
  if (state == QLatin1String("ten")) {
    if (model_.modoVisor) model_.Command9_Click();
    showTen(0, false);
    return;
  }
  model_.manualoto_Click();
  for (int x : {3, 9, 14, 21, 27, 33, 38, 42, 47}) model_.Label10_Click(x - 1);
  refresh();
  if (state == QLatin1String("report")) analyse(false);
}
