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
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/Strings.h"

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

LotteryWindow::LotteryWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Lottery"));
  setAttribute(Qt::WA_DeleteOnClose);
  setProperty("screenshotStates", QStringList{QStringLiteral("multiple"), QStringLiteral("report")});
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

  stack_ = new QStackedWidget(box);
  auto* board = new QWidget(stack_);
  auto* grid = new QGridLayout(board);
  grid->setSpacing(3);
  for (int i = 0; i < 49; ++i) {
    auto* b = new QPushButton(QString::number(i + 1), board);
    b->setObjectName(QStringLiteral("Label10_%1").arg(i));
    b->setFixedSize(44, 34);
    b->setFocusPolicy(Qt::NoFocus);
    connect(b, &QPushButton::clicked, this, [this, i] { act([this, i] { model_.Label10_Click(i); }); });
    grid->addWidget(b, i / 7, i % 7);
    Label10[i] = b;
  }
  stack_->addWidget(board);
  MSFlexGrid1 = new QTableWidget(0, LotteryModel::kColumns, stack_);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
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
  stack_->addWidget(MSFlexGrid1);
  v->addWidget(stack_);

  auto* sizes = new QHBoxLayout;
  for (int i = 0; i < 7; ++i) {
    auto* b = new QPushButton(QString::number(i + 5), box);
    b->setObjectName(QStringLiteral("Command1_%1").arg(i));
    b->setFixedWidth(40);
    connect(b, &QPushButton::clicked, this, [this, i] { act([this, i] { model_.Command1_Click(i); }); });
    sizes->addWidget(b);
    Command1[i] = b;
  }
  v->addLayout(sizes);

  auto* buttons = new QHBoxLayout;
  const auto button = [&](QPushButton*& b, const char* name, int caption) {
    b = new QPushButton(Res(caption), box);
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
  QMenu* borrarloto = editloto->addMenu(Res(507));
  add(borrarloto, "borrapuestod", 508, [this] { model_.borrapuestod_Click(); });
  borraapuessel = add(borrarloto, "borraapuessel", 509, [this] { model_.borraapuessel_Click(); });
  QMenu* opciones = menuBar()->addMenu(Res(510));
  auto* modes = new QActionGroup(this);
  azarloto = add(opciones, "azarloto", 511, [this] { model_.azarloto_Click(); });
  manualoto = add(opciones, "manualoto", 512, [this] { model_.manualoto_Click(); });
  for (QAction* a : {azarloto, manualoto}) {
    a->setCheckable(true);
    modes->addAction(a);
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
    connect(a, &QAction::triggered, this, [this, k] { act([this, k] { model_.tipoloto_Click(k); }); });
    tipoloto[k] = a;
  }
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
    Label10[i]->setStyleSheet(QStringLiteral("background-color: %1; border: 1px solid #808080; font-weight: bold;")
                                  .arg(colourName(n.enabled ? n.colour : 0xC0C0C0)));
  }
  for (int i = 0; i < 7; ++i) Command1[i]->setEnabled(model_.Command1Enabled[i]);
  Command1[1]->setText(model_.Command1Caption1);
  Command1[1]->setToolTip(model_.Command1Tooltip1);
  Command9->setText(Res(model_.Command9Caption));
  Command9->setToolTip(Res(model_.Command9Tooltip));
  Command11->setVisible(model_.Command11Visible);
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
  for (QAction* a : menuActions_) a->setEnabled(model_.menusEnabled);
  borraapuessel->setEnabled(model_.borraapuesselEnabled);
  azarloto->setChecked(model_.mode == LotteryModel::kRandom);
  manualoto->setChecked(model_.mode == LotteryModel::kManual);
  if (model_.prefActiva >= 0 && model_.prefActiva < 6) pref1[model_.prefActiva]->setChecked(true);
  tipoloto[model_.tipoSorteo]->setChecked(true);

  stack_->setCurrentIndex(model_.listVisible ? 1 : 0);
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
  model_.manualoto_Click();
  for (int x : {3, 9, 14, 21, 27, 33, 38, 42, 47}) model_.Label10_Click(x - 1);
  refresh();
  if (state == QLatin1String("report")) analyse(false);
}
