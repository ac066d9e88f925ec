#include "funcs/FunctionTableWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPageLayout>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "funcs/FunctionGridView.h"
#include "funcs/TableCsvDialog.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"

namespace {

constexpr int kSliceTarget = 20;  // ms of work between two turns of the event loop

// "description|*.evl" pairs as the file dialog wants them.
QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList out;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString& description = parts.at(i);
    out << (description.contains(QLatin1Char('(')) ? description
                                                   : description + QStringLiteral(" (") + parts.at(i + 1) + u')');
  }
  return out.join(QStringLiteral(";;"));
}

void setTextKeepingCursor(QLineEdit* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

}  // namespace

FunctionTableWindow::FunctionTableWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("frmMain"));
  setAttribute(Qt::WA_DeleteOnClose);
  table_.stepwise = true;
  table_.Form_Load();
  installHooks();

  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  rows->setContentsMargins(10, 8, 10, 6);
  rows->setSpacing(8);
  auto* top = new QHBoxLayout;
  top->setSpacing(10);
  buildInputs(top);
  top->addWidget(buildButtons());
  rows->addLayout(top);
  MSFlexGrid1 = new FunctionGridView(table_, this);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  rows->addWidget(MSFlexGrid1, 1);
  setCentralWidget(central);
  buildMenus();
  buildStatusBar();

  connect(MSFlexGrid1->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (refreshing_ || !current.isValid()) return;
            act([&] { table_.MSFlexGrid1_Select(current.row() + 1, current.column()); });
          });
  for (QObject* watched : std::initializer_list<QObject*>{txtStart, txtEnd, txtVariables, Text1, Combo2, MSFlexGrid1}) {
    watched->installEventFilter(this);
  }
  auto shortcut = [this](QKeySequence keys, int key, Qt::KeyboardModifiers modifiers) {
    auto* s = new QShortcut(keys, this);
    connect(s, &QShortcut::activated, this, [this, key, modifiers] {
      act([&] { table_.Form_KeyDown(key, modifiers); });
    });
  };
  shortcut(QKeySequence(Qt::CTRL | Qt::Key_F12), Qt::Key_F12, Qt::ControlModifier);
  shortcut(QKeySequence(Qt::SHIFT | Qt::Key_F12), Qt::Key_F12, Qt::ShiftModifier);
  shortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), Qt::Key_F10, Qt::ShiftModifier);
  shortcut(QKeySequence(Qt::Key_Escape), Qt::Key_Escape, Qt::NoModifier);

  setProperty("screenshotStates", QStringList{QStringLiteral("function"), QStringLiteral("expression"),
                                               QStringLiteral("edit"), QStringLiteral("plot")});
  // The plot beside the table is a picture of the whole screen.
  setProperty("screenshotScreenStates", QStringList{QStringLiteral("plot")});
  resize(1190, 700);
  refresh();
  txtExpression->setFocus();
}

FunctionTableWindow::~FunctionTableWindow() {
  // Widgets going away still send events (focus, current cell): none of them
  // reaches the table from here on.
  destroying_ = true;
  if (!unloaded_) table_.Form_Unload();
  // The grid reads the table, which goes before the widgets do.
  FunctionGridView* grid = MSFlexGrid1;
  MSFlexGrid1 = nullptr;
  delete grid;
}

// ---- Building -----------------------------------------------------------------------

QLineEdit* FunctionTableWindow::addBox(const QString& name, int tooltipId) {
  auto* box = new QLineEdit(this);
  box->setObjectName(name);
  box->setToolTip(Res(tooltipId));
  connect(box, &QLineEdit::textEdited, this, [this, box] { takeText(box); });
  return box;
}

void FunctionTableWindow::buildInputs(QHBoxLayout* row) {

  auto* formulas = new QGroupBox(this);
  auto* g = new QGridLayout(formulas);
  g->setVerticalSpacing(6);
  fLabel = new QLabel(this);
  fLabel->setObjectName(QStringLiteral("fLabel"));
  txtExpression = addBox(QStringLiteral("txtExpression"), 1447);
  Check1 = new QCheckBox(QStringLiteral("G(x) ="), this);
  Check1->setObjectName(QStringLiteral("Check1"));
  Check1->setToolTip(Res(1441));
  Text2 = addBox(QStringLiteral("Text2"), 1447);
  chkVariables = new QCheckBox(Res(1480), this);
  chkVariables->setObjectName(QStringLiteral("chkVariables"));
  chkVariables->setToolTip(Res(1438));
  txtVariables = addBox(QStringLiteral("txtVariables"), 1446);
  Command1 = new ChameleonButtonWidget(QStringLiteral("F(x) \u21C4 G(x)"), this);
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setToolTip(Res(1439));
  g->addWidget(fLabel, 0, 0);
  g->addWidget(txtExpression, 0, 1);
  g->addWidget(Check1, 1, 0);
  g->addWidget(Text2, 1, 1);
  g->addWidget(Command1, 2, 1, Qt::AlignRight);
  g->addWidget(chkVariables, 3, 0);
  g->addWidget(txtVariables, 3, 1);
  row->addWidget(formulas, 3);

  auto* range = new QGroupBox(this);
  auto* r = new QGridLayout(range);
  r->setVerticalSpacing(6);
  chkLoop = new QCheckBox(Res(1422), this);
  chkLoop->setObjectName(QStringLiteral("chkLoop"));
  chkLoop->setToolTip(Res(1437));
  txtStart = addBox(QStringLiteral("txtStart"), 1442);
  txtEnd = addBox(QStringLiteral("txtEnd"), 1443);
  auto* from = new QLabel(Res(1478), this);
  auto* to = new QLabel(Res(1479), this);
  auto* ends = new QHBoxLayout;
  ends->addWidget(from);
  ends->addWidget(txtStart, 1);
  ends->addSpacing(8);
  ends->addWidget(to);
  ends->addWidget(txtEnd, 1);
  auto* options = new QButtonGroup(this);
  for (int i = 0; i < 2; ++i) {
    Option1[i] = new QRadioButton(Res(i == 0 ? 1423 : 1424), this);
    Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
    options->addButton(Option1[i], i);
    connect(Option1[i], &QRadioButton::clicked, this, [this, i] { act([&] { table_.Option1_Click(i); }); });
  }
  Combo2 = new QComboBox(this);
  Combo2->setObjectName(QStringLiteral("Combo2"));
  Combo2->setEditable(true);
  Combo2->setInsertPolicy(QComboBox::NoInsert);
  Combo2->setToolTip(Res(1444));
  Combo2->addItems(table_.Combo2Items);
  connect(Combo2->lineEdit(), &QLineEdit::textEdited, this, [this] { takeText(Combo2); });
  connect(Combo2, &QComboBox::activated, this, [this](int index) {
    table_.Combo2 = Combo2->itemText(index);
    act([&] { table_.Combo2_LostFocus(); });
  });
  Text1 = addBox(QStringLiteral("Text1"), 1445);
  r->addWidget(chkLoop, 0, 0, 1, 2);
  r->addLayout(ends, 1, 0, 1, 2);
  r->addWidget(Option1[0], 2, 0);
  r->addWidget(Combo2, 2, 1);
  r->addWidget(Option1[1], 3, 0);
  r->addWidget(Text1, 3, 1);
  r->setColumnStretch(1, 1);
  row->addWidget(range, 2);

  connect(Check1, &QCheckBox::clicked, this, [this] { act([&] { table_.Check1_Click(); }); });
  connect(chkLoop, &QCheckBox::clicked, this, [this] { act([&] { table_.chkLoop_Click(); }); });
  connect(chkVariables, &QCheckBox::clicked, this, [this] { act([&] { table_.chkVariables_Click(); }); });
  connect(Command1, &QPushButton::clicked, this, [this] { act([&] { table_.Command1_Click(); }); });
  // Enter in a formula evaluates.
  for (QLineEdit* box : {txtExpression, Text2, txtVariables}) {
    connect(box, &QLineEdit::returnPressed, this, [this] { act([&] { table_.cmdResult_Click(); }); });
  }
  inputs_ = {txtExpression, Text2, txtVariables, txtStart, txtEnd, Combo2, Text1, Check1, chkLoop,
             chkVariables, Option1[0], Option1[1], Command1};
}

QWidget* FunctionTableWindow::buildButtons() {
  auto* panel = new QWidget(this);
  auto* g = new QGridLayout(panel);
  g->setContentsMargins(0, 0, 0, 0);
  g->setSpacing(6);
  auto button = [this](const QString& name, const QString& caption, int tooltipId) {
    auto* b = new ChameleonButtonWidget(caption, this);
    b->setObjectName(name);
    b->setToolTip(Res(tooltipId));
    return b;
  };
  cmdResult = button(QStringLiteral("cmdResult"), Res(1431), 1431);
  cmdClear = button(QStringLiteral("cmdClear"), Res(1432), 1432);
  plot = button(QStringLiteral("plot"), Res(1476), 1440);
  plot->setCheckable(true);
  Command2 = button(QStringLiteral("Command2"), QStringLiteral("\u2221"), 1429);
  Command3 = button(QStringLiteral("Command3"), Res(1430), 1430);
  Label1 = new QLabel(this);
  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setToolTip(Res(1429));
  Label1->setMinimumWidth(32);
  Label3 = new QLabel(Res(1428), this);
  Label3->setObjectName(QStringLiteral("Label3"));
  Label3->setToolTip(Res(1436));
  QFont bold = Label3->font();
  bold.setBold(true);
  Label3->setFont(bold);

  const QStyle::StandardPixmap icons[2] = {QStyle::SP_FileDialogDetailedView, QStyle::SP_MessageBoxWarning};
  for (int i = 0; i < 2; ++i) {
    Image4[i] = new QLabel(this);
    Image4[i]->setObjectName(QStringLiteral("Image4_%1").arg(i));
    Image4[i]->setToolTip(Res(1448 + i));
    Image4[i]->setPixmap(style()->standardIcon(icons[i]).pixmap(18, 18));
  }
  cmdResult->setDefault(true);
  g->addWidget(cmdResult, 0, 0, 1, 2);
  g->addWidget(cmdClear, 1, 0, 1, 2);
  g->addWidget(plot, 2, 0, 1, 2);
  g->addWidget(Command2, 3, 0);
  g->addWidget(Label1, 3, 1);
  g->addWidget(Command3, 4, 0, 1, 2);
  g->setRowStretch(5, 1);
  panel->setFixedWidth(170);

  connect(cmdResult, &QPushButton::clicked, this, [this] { act([&] { table_.cmdResult_Click(); }); });
  connect(cmdClear, &QPushButton::clicked, this, [this] { act([&] { table_.cmdClear_Click(); }); });
  connect(plot, &QPushButton::clicked, this, [this] { act([&] { table_.plot_Click(); }); });
  connect(Command2, &QPushButton::clicked, this, [this] { act([&] { table_.Command2_Click(); }); });
  connect(Command3, &QPushButton::clicked, this, [this] { act([&] { table_.Command3_Click(); }); });
  inputs_ << cmdResult << cmdClear << plot << Command2;
  return panel;
}

void FunctionTableWindow::buildMenus() {
  QMenu* mnuarch = menuBar()->addMenu(Res(500));
  mnuarch->setObjectName(QStringLiteral("mnuarch"));
  auto item = [this](QMenu* menu, const QString& name, const QString& caption, QKeySequence keys, auto handler) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    if (!keys.isEmpty()) a->setShortcut(keys);
    connect(a, &QAction::triggered, this, handler);
    menuActions_ << a;
    return a;
  };
  item(mnuarch, QStringLiteral("mnuabre"), Res(715), QKeySequence::Open, [this] { act([&] { table_.mnuabre_Click(); }); });
  item(mnuarch, QStringLiteral("mnuguard"), Res(60), QKeySequence::Save,
       [this] { act([&] { table_.mnuguard_Click(); }); });
  item(mnuarch, QStringLiteral("imprimEval"), Res(55), QKeySequence::Print, [this] {
    updatePrintRows();
    act([&] { table_.imprimEval_Click(); });
  });
  item(mnuarch, QStringLiteral("importarCSV"), Res(1867), QKeySequence(), [this] { act([&] { importCsv(); }); });
  item(mnuarch, QStringLiteral("exportarCSV"), Res(1868), QKeySequence(),
       [this] { act([&] { TableCsvDialog::exportFrom(table_, this); }); });
  mnuarch->addSeparator();
  item(mnuarch, QStringLiteral("mnusalir"), Res(1430), QKeySequence(), [this] { act([&] { table_.Command3_Click(); }); });

  QMenu* mnuop = menuBar()->addMenu(Res(1400));
  mnuop->setObjectName(QStringLiteral("mnuop"));
  auto* modes = new QActionGroup(this);
  mnufunc = item(mnuop, QStringLiteral("mnufunc"), Res(1401), QKeySequence(), [this] { act([&] { table_.mnufunc_Click(); }); });
  mnuexpr = item(mnuop, QStringLiteral("mnuexpr"), Res(1402), QKeySequence(), [this] { act([&] { table_.mnuexpr_Click(); }); });
  for (QAction* a : {mnufunc, mnuexpr}) {
    a->setCheckable(true);
    modes->addAction(a);
  }
  mnuop->addSeparator();
  item(mnuop, QStringLiteral("mnulistado"), Res(1483), QKeySequence(), [] { ContextHelp(kFunctionListTopic); });
}

void FunctionTableWindow::buildStatusBar() {
  pointsText_ = new QLabel(this);
  progressText_ = new QLabel(Res(1482), this);
  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("progress"));
  progress_->setRange(0, 1000);
  progress_->setMaximumWidth(260);
  progress_->setTextVisible(false);
  stop_ = new QToolButton(this);
  stop_->setText(Res(54));
  connect(stop_, &QToolButton::clicked, this, [this] { act([&] { table_.stopTabulation(); }); });
  statusBar()->addWidget(Label3);
  statusBar()->addWidget(Image4[0]);
  statusBar()->addWidget(Image4[1]);
  statusBar()->addWidget(pointsText_, 1);
  statusBar()->addPermanentWidget(progressText_);
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(stop_);
  for (QWidget* w : {static_cast<QWidget*>(progressText_), static_cast<QWidget*>(progress_), static_cast<QWidget*>(stop_)}) {
    w->hide();
  }
}

// ---- What the model needs of the window -------------------------------------------------

void FunctionTableWindow::installHooks() {
  table_.hooks.fileDialog = [this](const FunctionTable::FileDialogRequest& r) { return askFileName(r); };
  table_.hooks.showPlot = [this] {
    QWidget* plotWindow = OpenWindow(WindowId::Plot);
    if (!plotWindow) return false;
    ArrangeSideBySide(this, plotWindow, 0);
    return true;
  };
  table_.hooks.closePlot = [] {
    if (QWidget* w = findWindow(WindowId::Plot)) w->close();
  };
  table_.hooks.plotVisible = [] {
    QWidget* w = findWindow(WindowId::Plot);
    return w && w->isVisible();
  };
  table_.hooks.redrawPlot = [] {
    if (QWidget* w = findWindow(WindowId::Plot)) QMetaObject::invokeMethod(w, "Command2_Click");
  };
}

// A table read from a CSV file is plotted at once; a plot already shown loads afresh on it.
void FunctionTableWindow::importCsv() {
  if (!TableCsvDialog::importInto(table_, this)) return;
  if (table_.plot) table_.plot_Click();
  table_.plot_Click();
}

bool FunctionTableWindow::openDocument(const QString& path) {
  if (table_.isTabulating()) return false;
  const bool opened = table_.openFile(path);
  refresh();
  return opened;
}

QString FunctionTableWindow::askFileName(const FunctionTable::FileDialogRequest& r) {
  const QString filter = dialogFilter(r.filter);
  if (r.save) return QFileDialog::getSaveFileName(this, r.title, r.folder, filter);
  return QFileDialog::getOpenFileName(this, r.title, r.folder, filter);
}

// Table rows that fit a page of the default printer below the page heading,
// measured as the printing measures them, with a line to spare.
void FunctionTableWindow::updatePrintRows() {
  QPrinter printer(QPrinter::HighResolution);
  const qreal height = printer.pageLayout().paintRectPixels(printer.resolution()).height();
  auto spacing = [&printer](const QString& family, qreal size, bool bold, QFont::StyleHint hint) {
    QFont f(family, -1);
    f.setPointSizeF(size);
    f.setBold(bold);
    f.setStyleHint(hint);
    return QFontMetricsF(QFont(f, &printer)).lineSpacing();
  };
  const qreal title = spacing(QStringLiteral("Arial"), 10, true, QFont::SansSerif);
  const qreal row = spacing(QStringLiteral("Courier New"), 8, false, QFont::TypeWriter);
  if (row <= 0) return;
  table_.printRowsPerPage = std::max(static_cast<int>((height - title - 2 * row) / row), 10);
}

// ---- Events -------------------------------------------------------------------------------

template <typename Handler>
void FunctionTableWindow::act(Handler&& handler) {
  if (destroying_) return;
  const bool wasRunning = table_.isTabulating();
  handler();
  if (table_.closeRequested) {
    table_.closeRequested = false;
    close();
    return;
  }
  if (table_.contextMenuRequested) {
    table_.contextMenuRequested = false;
    QMenu menu(this);
    for (QAction* a : menuBar()->actions()) menu.addAction(a);
    menu.exec(QCursor::pos());
  }
  if (!wasRunning && table_.isTabulating()) {
    sliceRows_ = 2000;
    runSlice();
    return;
  }
  refresh();
  if (!table_.focusRequest.isEmpty()) {
    QWidget* w = findChild<QWidget*>(table_.focusRequest);
    table_.focusRequest.clear();
    if (w) QTimer::singleShot(0, w, [w] { w->setFocus(); });
  }
}

void FunctionTableWindow::runSlice() {
  if (!table_.isTabulating()) {
    finishRun();
    return;
  }
  QElapsedTimer timer;
  timer.start();
  table_.tabulationStep(sliceRows_);
  // Slices of about kSliceTarget ms: the window answers between two of them.
  const qint64 ms = timer.elapsed();
  if (ms < kSliceTarget / 2 && sliceRows_ < (1 << 22)) sliceRows_ *= 2;
  else if (ms > 2 * kSliceTarget && sliceRows_ > 64) sliceRows_ /= 2;
  if (!table_.isTabulating()) {
    finishRun();
    return;
  }
  progress_->setValue(static_cast<int>(table_.tabulationProgress() * 1000));
  refresh();
  QTimer::singleShot(0, this, [this] { runSlice(); });
}

void FunctionTableWindow::finishRun() { refresh(); }

void FunctionTableWindow::takeText(QObject* box) {
  if (refreshing_) return;
  if (box == txtExpression) table_.txtExpression = txtExpression->text();
  else if (box == Text2) table_.Text2 = Text2->text();
  else if (box == txtVariables) table_.txtVariables = txtVariables->text();
  else if (box == txtStart) table_.txtStart = txtStart->text();
  else if (box == txtEnd) table_.txtEnd = txtEnd->text();
  else if (box == Combo2) table_.Combo2 = Combo2->currentText();
  else if (box == Text1) table_.Text1 = Text1->text();
}

void FunctionTableWindow::boxLeft(QObject* box) {
  takeText(box);
  if (box == txtStart) act([&] { table_.txtStart_LostFocus(); });
  else if (box == txtEnd) act([&] { table_.txtEnd_LostFocus(); });
  else if (box == Combo2) act([&] { table_.Combo2_LostFocus(); });
  else if (box == Text1) act([&] { table_.Text1_LostFocus(); });
}

bool FunctionTableWindow::filterBoxKey(QLineEdit* box, QKeyEvent* event) {
  const QString text = event->text();
  if (text.size() != 1 || !text.at(0).isPrint() ||
      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
    return false;
  }
  const int typed = text.at(0).unicode();
  int key = typed;
  if (box == txtStart) key = table_.txtStart_KeyPress(typed);
  else if (box == txtEnd) key = table_.txtEnd_KeyPress(typed);
  else if (box == txtVariables) key = table_.txtVariables_KeyPress(typed);
  if (key == typed) return false;
  if (key != 0) {
    box->insert(QString(QChar(key)));
    takeText(box);
  }
  return true;
}

bool FunctionTableWindow::gridKey(QKeyEvent* event) {
  // Copy: the block of cells the selection spans, for a spreadsheet.
  if (event->matches(QKeySequence::Copy) ||
      (event->key() == Qt::Key_Insert && event->modifiers() == Qt::ControlModifier)) {
    copySelectedCells();
    return true;
  }
  if (!table_.editMode) return false;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
      act([&] { table_.MSFlexGrid1_EnterKey(); });
      return true;
    case Qt::Key_Backspace:
      act([&] { table_.MSFlexGrid1_KeyPress(QLatin1Char('\b')); });
      return true;
    default: break;
  }
  const QString text = event->text();
  if (text.size() != 1 || !text.at(0).isPrint() || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
    return false;
  }
  act([&] { table_.MSFlexGrid1_KeyPress(text.at(0)); });
  return true;
}

void FunctionTableWindow::copySelectedCells() {
  const QModelIndexList cells = MSFlexGrid1->selectionModel()->selectedIndexes();
  QModelIndex current = MSFlexGrid1->currentIndex();
  if (cells.isEmpty() && !current.isValid()) return;
  const QModelIndex start = cells.isEmpty() ? current : cells.first();
  int top = start.row(), bottom = start.row(), left = start.column(), right = start.column();
  for (const QModelIndex& i : cells) {
    top = std::min(top, i.row());
    bottom = std::max(bottom, i.row());
    left = std::min(left, i.column());
    right = std::max(right, i.column());
  }
  // The view's rows are the grid's data rows: row 0 of the grid holds the headings.
  QGuiApplication::clipboard()->setText(table_.cellsText(top + 1, left, bottom + 1, right));
}

bool FunctionTableWindow::eventFilter(QObject* watched, QEvent* event) {
  if (destroying_) return QMainWindow::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (watched == MSFlexGrid1) return gridKey(key);
    const bool leaveOnEnter = watched == txtStart || watched == txtEnd || watched == Text1 || watched == Combo2;
    if (leaveOnEnter && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
      focusNextChild();
      return true;
    }
    if (watched == txtStart || watched == txtEnd || watched == txtVariables) {
      return filterBoxKey(static_cast<QLineEdit*>(watched), key);
    }
  } else if (event->type() == QEvent::FocusOut) {
    // Leaving for a popup or another window is not leaving the box.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && !refreshing_ &&
        !table_.isTabulating()) {
      boxLeft(watched);
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void FunctionTableWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && !table_.isTabulating()) {
    table_.Form_Activate();
    refresh();
  }
}

void FunctionTableWindow::closeEvent(QCloseEvent* event) {
  // Closed from inside a step (a message box keeps events going): the table
  // stops first, the window closes after.
  if (table_.isStepping()) {
    table_.stopTabulation();
    event->ignore();
    QTimer::singleShot(0, this, [this] { close(); });
    return;
  }
  if (!unloaded_) {
    unloaded_ = true;
    table_.Form_Unload();
  }
  QMainWindow::closeEvent(event);
}

// ---- Repaint ------------------------------------------------------------------------------

void FunctionTableWindow::refresh() {
  refreshing_ = true;
  const bool running = table_.isTabulating();
  setWindowTitle(table_.caption);
  fLabel->setText(table_.fLabel);
  setTextKeepingCursor(txtExpression, table_.txtExpression);
  setTextKeepingCursor(Text2, table_.Text2);
  setTextKeepingCursor(txtVariables, table_.txtVariables);
  setTextKeepingCursor(txtStart, table_.txtStart);
  setTextKeepingCursor(txtEnd, table_.txtEnd);
  setTextKeepingCursor(Text1, table_.Text1);
  if (Combo2->currentText() != table_.Combo2) Combo2->setEditText(table_.Combo2);
  Check1->setChecked(table_.Check1 != 0);
  chkLoop->setChecked(table_.chkLoop != 0);
  chkVariables->setChecked(table_.chkVariables != 0);
  Option1[table_.Option1 == 1 ? 1 : 0]->setChecked(true);
  plot->setChecked(table_.plot);
  Label1->setText(table_.Label1);
  Label3->setVisible(table_.Label3);
  Image4[0]->setVisible(table_.Image4[0]);
  Image4[1]->setVisible(table_.Image4[1]);
  mnufunc->setChecked(table_.operationMode == 0);
  mnuexpr->setChecked(table_.operationMode == 1);

  for (QWidget* w : inputs_) w->setEnabled(!running);
  for (QAction* a : menuActions_) a->setEnabled(!running);
  if (!running) {
    Check1->setEnabled(table_.Check1Enabled);
    Text2->setEnabled(table_.Text2Enabled);
    txtVariables->setEnabled(table_.txtVariablesEnabled());
    txtStart->setEnabled(table_.intervalEnabled());
    txtEnd->setEnabled(table_.intervalEnabled());
    Option1[0]->setEnabled(table_.intervalEnabled());
    Option1[1]->setEnabled(table_.intervalEnabled());
    Combo2->setEnabled(table_.Combo2Enabled());
    Text1->setEnabled(table_.Text1Enabled());
    plot->setEnabled(table_.plotEnabled);
    Command1->setEnabled(table_.Command1Enabled);
  }
  for (QWidget* w : {static_cast<QWidget*>(progressText_), static_cast<QWidget*>(progress_), static_cast<QWidget*>(stop_)}) {
    w->setVisible(running);
  }
  const int points = program().pointCount;
  pointsText_->setText(points > 0 ? QString::number(points) + u' ' + Res(1485) : QString());
  MSFlexGrid1->sync();
  refreshing_ = false;
}

// ---- Screenshot tour -------------------------------------------------------------------

void FunctionTableWindow::showScreenshotState(const QString& state) {
  if (state == QLatin1String("function")) {
    act([&] { table_.mnufunc_Click(); });
    // A cubic with three zeros and two extrema inside 0..5, so the plot's pictures show them.
    table_.txtExpression = QStringLiteral("x^3-6*x^2+8*x");
    act([&] { table_.Check1_Click(); });
    act([&] { table_.cmdResult_Click(); });
    while (table_.isTabulating()) runSlice();
  } else if (state == QLatin1String("expression")) {
    act([&] { table_.mnuexpr_Click(); });
    for (const char* e : {"Sqr(2)*Pi", "fac(10)", "BIN(202)", "asin(0.5)", "Division(1,3)"}) {
      table_.txtExpression = QString::fromLatin1(e);
      act([&] { table_.cmdResult_Click(); });
    }
  } else if (state == QLatin1String("plot")) {
    showScreenshotState(QStringLiteral("function"));
    if (!table_.plot) act([&] { table_.plot_Click(); });
  } else if (state == QLatin1String("edit")) {
    act([&] { table_.mnufunc_Click(); });
    act([&] { table_.Form_KeyDown(Qt::Key_F12, Qt::ControlModifier); });
    act([&] { table_.MSFlexGrid1_Select(1, 0); });
    for (QChar c : QStringLiteral("0\r1\r1\r2,5\r2\r4,8\r3")) {
      act([&] {
        if (c == u'\r') table_.MSFlexGrid1_EnterKey();
        else table_.MSFlexGrid1_KeyPress(c);
      });
    }
  }
}
