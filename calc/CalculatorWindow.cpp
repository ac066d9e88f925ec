#include "calc/CalculatorWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMenu>
#include <QToolButton>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorMenus.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ChartWindowRequest.h"
#include "calc/HistoryListView.h"
#include "calc/NumberToolsView.h"
#include "calc/NormalCalculatorWindow.h"
#include "calc/MatrixPanelView.h"
#include "calc/StatisticsGridView.h"
#include "calc/PhysicalConstants.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/runtime/NumberText.h"
#include "shell/PictureHolderView.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"

namespace {

constexpr int kStateSize = 30;

// The key a held stroke means. Shift+1 to Shift+4 arrive as the shifted
// symbol of the keyboard layout; the key's position tells the digit.
int heldKeyOf(const QKeyEvent* event) {
  const int key = event->key();
  if (event->modifiers().testFlag(Qt::ShiftModifier) && (key < Qt::Key_0 || key > Qt::Key_9)) {
    const quint32 scan = event->nativeScanCode();
    if (scan >= 10 && scan <= 18) return Qt::Key_1 + static_cast<int>(scan - 10);  // X11 digit row
  }
  return key;
}

// The character a stroke types, for keys that give no text on some platforms.
QChar typedOf(const QKeyEvent* event) {
  if (!event->text().isEmpty()) return event->text().at(0);
  switch (event->key()) {
    case Qt::Key_Backspace: return QChar(8);
    case Qt::Key_Return:
    case Qt::Key_Enter: return QChar(13);
    case Qt::Key_Escape: return QChar(27);
    default: return {};
  }
}

// Picture1: a thin bar, red for the share of the history in use.
class FillBar : public QWidget {
 public:
  explicit FillBar(QWidget* parent) : QWidget(parent) { setFixedSize(120, 10); }
  void setFill(double fill) {
    if (fill == fill_) return;
    fill_ = fill;
    update();
  }
  double fill() const { return fill_; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    // Rounded down: the bar is whole only when the list is full.
    const int w = static_cast<int>(fill_ * (width() - 2));
    if (w > 0) p.fillRect(1, 1, w, height() - 2, Qt::red);
    p.setPen(Qt::gray);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  double fill_ = -1;
};

constexpr int kChameleonTopic = 20230;

// The large display, when it is open on the screen.
QWidget* shownDisplay() {
  QWidget* display = findWindow(WindowId::ExtendedDisplay);
  return display && display->isVisible() ? display : nullptr;
}

}  // namespace

CalculatorWindow::CalculatorWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("comand1"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Res(4103));

  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  columns->setContentsMargins(10, 10, 10, 6);
  columns->setSpacing(10);
  auto* left = new QVBoxLayout;
  left->setSpacing(8);
  left->addWidget(buildDisplay());
  left->addWidget(buildMemories());
  auto* pads = new QHBoxLayout;
  pads->setSpacing(10);
  pads->addWidget(buildFunctionKeys(), 5);
  pads->addWidget(buildKeypad(), 6);
  left->addLayout(pads, 1);
  columns->addLayout(left, 11);
  columns->addWidget(buildPanels(), 4);
  setCentralWidget(central);
  central->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(central, &QWidget::customContextMenuRequested, this, [this] { showWindowMenu(); });

  historyPanel_ = new QLabel(this);
  currencyPanel_ = new QLabel(this);
  Picture1 = new FillBar(this);
  Picture1->setObjectName(QStringLiteral("Picture1"));
  statusBar()->addWidget(historyPanel_);
  statusBar()->addWidget(Picture1);
  statusBar()->addWidget(numberTools_->progressBar());
  numberTools_->attachRandomKey(keyButton(QStringLiteral("Command51")));
  statusBar()->addPermanentWidget(currencyPanel_);
  // A register written by any module shows in the keys' tooltips at once.
  connect(&registerNotifier(), &RegisterNotifier::registerChanged, this, [this] {
    engine_.writeRegisterTooltips();
    refreshMemories();
  });

  central->setAutoFillBackground(true);
  applyColours();
  buildModuleMenus();

  installEventFilter(this);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  resize(1160, 560);
  setProperty("screenshotStates", QStringList{QStringLiteral("statistics")} + NumberToolsView::screenshotStates());
  setProperty("screenshotScreenStates", QStringList{QStringLiteral("ascii")} + moduleMenuScreenshotStates());
  setProperty("screenshotStates", QStringList{QStringLiteral("statistics"), QStringLiteral("matrices"),
                                              QStringLiteral("system")} + moduleMenuScreenshotStates());
  refresh();
  if (QPushButton* equals = keyButton(QStringLiteral("Command19"))) equals->setFocus();
}

CalculatorWindow::~CalculatorWindow() = default;

QLineEdit* CalculatorWindow::addField(const QString& name, int tooltipId, int width) {
  auto* field = new QLineEdit(this);
  field->setObjectName(name);
  field->setReadOnly(true);
  field->setFocusPolicy(Qt::NoFocus);
  field->setAlignment(Qt::AlignCenter);
  if (tooltipId) field->setToolTip(Res(tooltipId));
  if (width > 0) field->setFixedWidth(width);
  return field;
}

QWidget* CalculatorWindow::buildDisplay() {
  auto* box = new QWidget(this);
  auto* v = new QVBoxLayout(box);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(4);

  auto* modes = new QHBoxLayout;
  modes->setSpacing(4);
  func = addField(QStringLiteral("func"), 4303, 0);
  func->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  HexDec = addField(QStringLiteral("HexDec"), 4724, 44);
  angulo = addField(QStringLiteral("angulo"), 4721, 40);
  temperat = addField(QStringLiteral("temperat"), 4722, 82);
  ivas = addField(QStringLiteral("ivas"), 4723, 50);
  Image3 = new QLabel(this);
  Image3->setObjectName(QStringLiteral("Image3"));
  Image3->setFixedSize(kStateSize, kStateSize);
  Image3->setToolTip(Res(4720));
  modes->addWidget(func, 1);
  modes->addWidget(HexDec);
  modes->addWidget(angulo);
  modes->addWidget(temperat);
  modes->addWidget(ivas);
  // Text5 lights up while the next trigonometric key is hyperbolic.
  Text5 = new QLabel(QStringLiteral("hyp"), this);
  Text5->setObjectName(QStringLiteral("Text5"));
  Text5->setToolTip(Res(4774));
  Text5->setAlignment(Qt::AlignCenter);
  Text5->setFixedWidth(40);
  Text5->setStyleSheet(QStringLiteral("QLabel { background: #c00000; color: white; font-weight: bold; "
                                      "border-radius: 3px; }"));
  Text5->setVisible(false);
  modes->addWidget(Text5);
  modes->addWidget(Image3);
  v->addLayout(modes);

  numero = addField(QStringLiteral("numero"), 4319, 0);
  numero->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QFont big = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  big.setPointSizeF(big.pointSizeF() * 1.9);
  big.setBold(true);
  numero->setFont(big);
  numero->setMinimumHeight(44);
  v->addWidget(numero);

  result = new QPlainTextEdit(this);
  result->setObjectName(QStringLiteral("result"));
  result->setReadOnly(true);
  result->setFocusPolicy(Qt::NoFocus);
  result->setToolTip(Res(4323));
  result->setFixedHeight(result->fontMetrics().lineSpacing() * 3 + 12);
  v->addWidget(result);

  auto* formats = new QHBoxLayout;
  formats->setSpacing(4);
  dcm = addField(QStringLiteral("dcm"), 4302, 40);
  redond = addField(QStringLiteral("redond"), 4322, 40);
  auto* dcmLabel = new QLabel(QStringLiteral("SET"), this);
  auto* redondLabel = new QLabel(QStringLiteral("Rdo"), this);
  formats->addWidget(dcmLabel);
  formats->addWidget(dcm);
  formats->addSpacing(10);
  formats->addWidget(redondLabel);
  formats->addWidget(redond);
  formats->addStretch(1);
  // The register keys, the history panel key and the large display's key.
  formats->addWidget(new QLabel(Res(4795), this));
  formats->addWidget(buildKeyGrid(KeypadPanel::Registers, this));
  chameleonButton1 = new ChameleonButtonWidget(QStringLiteral("XL"), this);
  chameleonButton1->setObjectName(QStringLiteral("chameleonButton1"));
  chameleonButton1->setToolTip(Res(4789));
  chameleonButton1->setMinimumSize(44, 28);
  connect(chameleonButton1, &QPushButton::clicked, this, [this] { chameleonButton1_Click(Qt::LeftButton); });
  formats->addWidget(chameleonButton1);
  v->addLayout(formats);
  return box;
}

// One row: for each memory its field m1(i) (double click recalls it), then
// its three keys.
QWidget* CalculatorWindow::buildMemories() {
  QWidget* strip = buildKeyGrid(KeypadPanel::Memories, this);
  strip->setObjectName(QStringLiteral("memories"));
  auto* grid = static_cast<QGridLayout*>(strip->layout());
  for (int i = 0; i < 4; ++i) {
    auto* field = addField(QStringLiteral("m1(%1)").arg(i), 4790, 0);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setMinimumWidth(70);
    m1 << field;
    grid->addWidget(field, 0, 4 * i);
    grid->setColumnStretch(4 * i, 1);
  }
  // The keys keep their width; the fields take the rest.
  for (QPushButton* b : strip->findChildren<QPushButton*>()) b->setFixedWidth(36);
  return strip;
}

QWidget* CalculatorWindow::buildKeyGrid(KeypadPanel panel, QWidget* parent) {
  auto* pad = new QWidget(parent);
  auto* grid = new QGridLayout(pad);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(4);
  for (const KeypadKey& k : calculatorKeys()) {
    if (k.panel != panel) continue;
    auto* b = new ChameleonButtonWidget(keyCaption(k), pad);
    b->setObjectName(keyObjectName(k));
    // Seven statistics keys share a row of the side panel.
    const int minWidth = panel == KeypadPanel::Main ? 48 : panel == KeypadPanel::Statistics ? 38 : 44;
    b->setMinimumSize(minWidth, panel == KeypadPanel::Main ? 34 : 28);
    // The conversion groups keep their height when a row of keys hides.
    const bool conversion = panel != KeypadPanel::Main && panel != KeypadPanel::Functions &&
                            panel != KeypadPanel::Constants;
    b->setSizePolicy(QSizePolicy::Preferred, conversion ? QSizePolicy::Fixed : QSizePolicy::Preferred);
    if (k.tooltipId) b->setToolTip(Res(k.tooltipId));
    const QString control = QString::fromLatin1(k.control);
    const int index = k.index;
    connect(b, &QPushButton::clicked, this, [this, control, index] {
      if (engine_.listingRunning) return;  // events run inside the prime listing
      engine_.click(control, index);
      afterEvent();
    });
    grid->addWidget(b, k.row, k.column, k.rowSpan, k.columnSpan);
    keys_.insert(b->objectName(), b);
    if (control == QLatin1String("Command30")) hexKeys_ << b;
    if (control == QLatin1String("Command33") || control == QLatin1String("Command34")) currencyKeys_ << b;
  }
  return pad;
}

QWidget* CalculatorWindow::buildKeypad() {
  QWidget* pad = buildKeyGrid(KeypadPanel::Main, this);
  pad->setObjectName(QStringLiteral("keypad"));
  // The separator key shows the system's own decimal symbol.
  if (QPushButton* sep = keyButton(QStringLiteral("Command11"))) sep->setText(program().DecimalSymbol.toText());
  if (QPushButton* equals = keyButton(QStringLiteral("Command19"))) equals->setDefault(true);
  return pad;
}

QWidget* CalculatorWindow::buildFunctionKeys() {
  QWidget* pad = buildKeyGrid(KeypadPanel::Functions, this);
  pad->setObjectName(QStringLiteral("functionKeys"));
  return pad;
}

QWidget* CalculatorWindow::buildConversions() {
  auto* page = new QWidget(this);
  page->setObjectName(QStringLiteral("conversions"));
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(6, 6, 6, 6);
  v->setSpacing(6);
  const struct {
    KeypadPanel panel;
    int titleId;
  } groups[] = {{KeypadPanel::Vat, 4783},
                {KeypadPanel::Temperature, 4780},
                {KeypadPanel::Angles, 4781},
                {KeypadPanel::Bases, 4782}};
  for (const auto& g : groups) {
    auto* box = new QGroupBox(Res(g.titleId), page);
    auto* inner = new QVBoxLayout(box);
    inner->setContentsMargins(6, 4, 6, 6);
    inner->addWidget(buildKeyGrid(g.panel, box));
    v->addWidget(box);
  }
  v->addStretch(1);
  return page;
}

QWidget* CalculatorWindow::buildPanels() {
  // The panel area: one page per tool family; the history is the first.
  panels_ = new QTabWidget(this);
  panels_->setObjectName(QStringLiteral("panels"));
  panels_->setFocusPolicy(Qt::NoFocus);
  // The tabs run down the side: there every caption shows whole in each
  // language, and the pages keep the width the statistics keys need.
  panels_->setTabPosition(QTabWidget::West);
  panels_->setUsesScrollButtons(false);
  panels_->setElideMode(Qt::ElideNone);
  historyPage_ = buildHistoryPage();
  panels_->addTab(historyPage_, Res(4719));
  conversionsPage_ = buildConversions();
  panels_->addTab(conversionsPage_, Res(4775));
  viewerPage_ = buildViewerPage();
  panels_->addTab(viewerPage_, Res(4543));
  statisticsPage_ = buildStatisticsPage();
  panels_->addTab(statisticsPage_, Res(4207));
  numberTools_ = new NumberToolsView(engine_, this, [this] { refresh(); });
  // The number tools, matrices, equations and the expression field share one
  // side tab, with a page each, so that every side tab shows whole.
  algebraPages_ = new QTabWidget(panels_);
  algebraPages_->setObjectName(QStringLiteral("algebraPages"));
  algebraPages_->setDocumentMode(true);
  algebraPages_->setFocusPolicy(Qt::NoFocus);
  algebraPages_->setUsesScrollButtons(false);
  algebraPages_->setElideMode(Qt::ElideNone);
  algebraPages_->addTab(numberTools_->buildPage(buildKeyGrid(KeypadPanel::NumberTools, algebraPages_), algebraPages_),
                        Res(4820));
  matrixPage_ = new MatrixPanelView(engine_, [this] { afterEvent(); }, algebraPages_);
  algebraPages_->addTab(matrixPage_, Res(4307));
  equationsPage_ = new EquationsPanelView(engine_, buildKeyGrid(KeypadPanel::Equations, algebraPages_),
                                          [this] { afterEvent(); }, algebraPages_);
  algebraPages_->addTab(equationsPage_, Res(4946));
  algebraPages_->addTab(buildProgramsPage(), Res(4407));
  panels_->addTab(algebraPages_, Res(4978));
  // Frame2: the constants, a page of its own that Command8 shows or hides.
  Frame2 = buildKeyGrid(KeypadPanel::Constants, panels_);
  Frame2->setObjectName(QStringLiteral("Frame2"));
  Frame2->layout()->setContentsMargins(6, 6, 6, 6);
  panels_->addTab(Frame2, Res(4776));
  panels_->setTabVisible(panels_->indexOf(Frame2), false);
  // Wide enough for the statistics keys and for every tools page's tab.
  panels_->setMinimumWidth(std::max(330, algebraPages_->tabBar()->sizeHint().width() +
                                             panels_->tabBar()->sizeHint().width() + 8));
  // A tab picked by hand opens or closes the history panel as Command62 does.
  connect(panels_, &QTabWidget::currentChanged, this, [this] {
    historyShown_ = engine_.historyPanelVisible = panels_->currentWidget() == historyPage_;
  });
  return panels_;
}

QWidget* CalculatorWindow::buildToolRow(KeypadPanel panel, QWidget* parent, QPushButton* print) {
  auto* row = new QWidget(parent);
  auto* h = new QHBoxLayout(row);
  h->setContentsMargins(0, 0, 0, 0);
  h->addWidget(buildKeyGrid(panel, row));
  h->addStretch(1);
  print->setParent(row);
  print->setMinimumSize(44, 28);
  h->addWidget(print);
  return row;
}

QWidget* CalculatorWindow::buildHistoryPage() {
  auto* page = new QWidget(this);
  page->setObjectName(QStringLiteral("historyPage"));
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(4);
  Combo1 = new HistoryListView(page);
  Combo1->setObjectName(QStringLiteral("Combo1"));
  Combo1->setFocusPolicy(Qt::NoFocus);
  Combo1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  Combo1->setToolTip(Res(4793));
  Combo1->setLines(&engine_.Combo1.lines());
  connect(Combo1, &HistoryListView::currentRowChanged, this, [this](int row) { engine_.Combo1.select(row); });
  connect(Combo1, &HistoryListView::rowDoubleClicked, this, [this](int row) {
    if (!engine_.Combo1.select(row)) return;
    engine_.Combo1_DblClick();
    afterEvent();
  });
  v->addWidget(Combo1, 1);
  registros = new ChameleonButtonWidget(Res(4792));
  registros->setObjectName(QStringLiteral("registros"));
  registros->setToolTip(Res(4786));
  connect(registros, &QPushButton::clicked, this, [this] {
    engine_.registros_Click();
    afterEvent();
  });
  v->addWidget(buildToolRow(KeypadPanel::HistoryTools, page, registros));
  return page;
}

QWidget* CalculatorWindow::buildViewerPage() {
  auto* page = new QWidget(this);
  page->setObjectName(QStringLiteral("viewerPage"));
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(4);
  auto* lists = new QHBoxLayout;
  lists->setSpacing(4);
  auto makeList = [this, page, lists](const char* name, void (CalculatorEngine::*take)(int)) {
    auto* list = new QListWidget(page);
    list->setObjectName(QString::fromLatin1(name));
    list->setFocusPolicy(Qt::NoFocus);
    list->setToolTip(Res(4793));
    list->setUniformItemSizes(true);  // a listing of primes fills thousands of rows
    connect(list, &QListWidget::itemDoubleClicked, this, [this, list, take](QListWidgetItem* item) {
      (engine_.*take)(list->row(item));
      afterEvent();
    });
    lists->addWidget(list, 1);
    return list;
  };
  List3 = makeList("List3", &CalculatorEngine::List3_DblClick);
  List4 = makeList("List4", &CalculatorEngine::List4_DblClick);
  v->addLayout(lists, 1);
  imprimeAux = new ChameleonButtonWidget(Res(4792));
  imprimeAux->setObjectName(QStringLiteral("imprimeAux"));
  imprimeAux->setToolTip(Res(4787));
  connect(imprimeAux, &QPushButton::clicked, this, [this] {
    engine_.imprimeAux_Click();
    afterEvent();
  });
  v->addWidget(buildToolRow(KeypadPanel::ViewerTools, page, imprimeAux));
  return page;
}

bool CalculatorWindow::openDocument(const QString& path) {
  const bool opened = engine_.abrirestFile(path);
  afterEvent();
  return opened;
}

QMenu* CalculatorWindow::buildMenu(const char* name, QWidget* parent) {
  auto* menu = new QMenu(parent);
  menu->setObjectName(QString::fromLatin1(name));
  for (const MenuItem* item : menuItems(name)) {
    QAction* action = menu->addAction(menuCaption(*item));
    const QString control = QString::fromUtf8(item->control);
    action->setObjectName(item->index < 0 ? control : control + QStringLiteral("(%1)").arg(item->index));
    action->setCheckable(QLatin1String(name) == QLatin1String("TipoRegresion"));
    const int index = item->index;
    connect(action, &QAction::triggered, this, [this, control, index] {
      engine_.click(control, index);
      afterEvent();
    });
  }
  menus_.insert(QString::fromLatin1(name), menu);
  return menu;
}

// The statistics panel: the X and Y grids with their counts side by side
// (Command23 swaps them), the file and sort menus, and the keys.
QWidget* CalculatorWindow::buildStatisticsPage() {
  auto* page = new QWidget(this);
  page->setObjectName(QStringLiteral("statisticsPage"));
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(4);
  gridsRow_ = new QHBoxLayout;
  gridsRow_->setSpacing(4);
  for (int list = 0; list < 2; ++list) {
    auto* column = new QWidget(page);
    auto* c = new QVBoxLayout(column);
    c->setContentsMargins(0, 0, 0, 0);
    c->setSpacing(2);
    auto* count = new QLabel(column);
    count->setObjectName(list == 0 ? QStringLiteral("numnx") : QStringLiteral("numny"));
    (list == 0 ? numnx : numny) = count;
    auto* grid = new StatisticsGridView(list, column);
    grid->setFocusPolicy(Qt::NoFocus);
    grid->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(grid, &StatisticsGridView::rowSelected, this, [this, list](int row) { engine_.selectCell(list, row); });
    connect(grid, &QWidget::customContextMenuRequested, this, [this, grid, list](const QPoint& at) {
      engine_.selectCell(list, grid->rowAt(at.y()) + 1);
      afterEvent();
      menus_.value(QStringLiteral("grid"))->popup(grid->viewport()->mapToGlobal(at));
    });
    MSFlexGrid1[static_cast<std::size_t>(list)] = grid;
    c->addWidget(count);
    c->addWidget(grid, 1);
    gridColumns_[static_cast<std::size_t>(list)] = column;
    gridsRow_->addWidget(column, 1);
  }
  v->addLayout(gridsRow_, 1);

  auto* menuRow = new QHBoxLayout;
  menuRow->setSpacing(4);
  auto addMenuButton = [&](const char* name, int captionId) {
    auto* button = new QToolButton(page);
    button->setObjectName(QString::fromLatin1(name) + QStringLiteral("Button"));
    button->setText(Res(captionId));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMenu(buildMenu(name, button));
    menuRow->addWidget(button);
  };
  addMenuButton("archivo", 4584);
  addMenuButton("ordenaEstad", 4567);
  // The CSV tool and the chart are windows of their own, opened through the shell.
  if (QMenu* file = menus_.value(QStringLiteral("archivo"))) {
    file->addSeparator();
    QAction* csv = file->addAction(Res(1937));
    csv->setObjectName(QStringLiteral("imporcsv"));
    connect(csv, &QAction::triggered, this, [] { OpenWindow(WindowId::CsvTool); });
    QAction* chart = file->addAction(Res(3429));
    chart->setObjectName(QStringLiteral("graficoest"));
    connect(chart, &QAction::triggered, this, [this] {
      if (chartStoreAllowed(program().stats)) showChart(chartDataOfStore(program().stats, engine_.regType));
    });
  }
  menuRow->addStretch(1);
  v->addLayout(menuRow);
  QMenu* grid = buildMenu("grid", page);
  grid->addSeparator();
  for (const MenuItem* item : menuItems("ordenaEstad")) {
    QAction* action = grid->addAction(menuCaption(*item));
    const int index = item->index;
    connect(action, &QAction::triggered, this, [this, index] {
      engine_.ordenaEstad_Click(index);
      afterEvent();
    });
  }
  buildMenu("TipoRegresion", page);
  buildMenu("MnuClrSTD", page);
  v->addWidget(buildKeyGrid(KeypadPanel::Statistics, page));
  engine_.fileDialog = [this](const CalculatorEngine::FileDialogRequest& r) { return askFileName(r); };
  return page;
}

void CalculatorWindow::showScreenshotState(const QString& state) {
  if (showModuleMenu(state)) return;
  if (numberTools_->showScreenshotState(state)) return;
  if (state == QLatin1String("matrices") || state == QLatin1String("system")) {
    showMatrixScreenshotState(engine_, state);
    panels_->setCurrentWidget(algebraPages_);
    algebraPages_->setCurrentWidget(state == QLatin1String("system") ? static_cast<QWidget*>(equationsPage_) : matrixPage_);
    afterEvent();
    return;
  }
  if (state != QLatin1String("statistics")) return;
  const double x[] = {1.5, 2.25, 3, 4.75, 5.5, 7, 8.25, 9.5, 11, 12.5, 14, 15.25};
  for (double v : x) {
    engine_.numero = rt::NumberToText(v);
    engine_.Command76_Click(0);
    engine_.numero = rt::NumberToText(2.1 * v + 0.4);
    engine_.Command76_Click(1);
  }
  engine_.Command16_Click(4);
  afterEvent();
}

QString CalculatorWindow::askFileName(const CalculatorEngine::FileDialogRequest& r) {
  QStringList filters;
  const QStringList parts = r.filter.split(QLatin1Char('|'));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters << parts.at(i);
  const QString filter = filters.join(QStringLiteral(";;"));
  if (r.save) return QFileDialog::getSaveFileName(this, r.title, r.folder, filter);
  return QFileDialog::getOpenFileName(this, r.title, r.folder, filter);
}

void CalculatorWindow::refreshStatistics() {
  numnx->setText(engine_.numnx());
  numny->setText(engine_.numny());
  for (int list = 0; list < 2; ++list) {
    const auto i = static_cast<std::size_t>(list);
    MSFlexGrid1[i]->refreshData(engine_.scrollToLast[i]);
    engine_.scrollToLast[i] = false;
    if (MSFlexGrid1[i]->selectedRow() != engine_.MSFlexGrid1Row[i]) MSFlexGrid1[i]->selectRow1(engine_.MSFlexGrid1Row[i]);
  }
  if (engine_.gridsSwapped != gridsSwappedShown_) {
    gridsSwappedShown_ = engine_.gridsSwapped;
    gridsRow_->removeWidget(gridColumns_[0]);
    gridsRow_->insertWidget(gridsSwappedShown_ ? 1 : 0, gridColumns_[0], 1);
  }
  for (QAction* a : menus_.value(QStringLiteral("TipoRegresion"))->actions()) {
    a->setChecked(a->objectName() == QStringLiteral("Regresion(%1)").arg(engine_.regType));
  }
  if (engine_.statisticsPanelRequested) {
    engine_.statisticsPanelRequested = false;
    panels_->setCurrentWidget(statisticsPage_);
  }
  if (!engine_.menuRequest.isEmpty()) {
    const QString name = engine_.menuRequest;
    engine_.menuRequest.clear();
    const QString key = name == QLatin1String("TipoRegresion") ? QStringLiteral("Command78") : QStringLiteral("Command82");
    QWidget* anchor = keyButton(key);
    if (QMenu* menu = menus_.value(name); menu && anchor) menu->popup(anchor->mapToGlobal(QPoint(0, anchor->height())));
  }
}

QPushButton* CalculatorWindow::keyButton(const QString& control, int index) const {
  const QString name = index < 0 ? control : control + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
  return keys_.value(name);
}

void CalculatorWindow::refresh() {
  numero->setText(engine_.numero);
  const QString resultText = visibleUnitText(engine_.result);
  if (result->toPlainText() != resultText) result->setPlainText(resultText);
  func->setText(engine_.func);
  dcm->setText(engine_.dcm);
  redond->setText(engine_.redond);
  angulo->setText(engine_.angulo);
  temperat->setText(engine_.temperat);
  ivas->setText(engine_.ivas);
  HexDec->setText(engine_.HexDec);
  Image3->setPixmap(pictures::calculatorState(engine_.image3Failure, kStateSize));
  for (QPushButton* b : std::as_const(hexKeys_)) b->setVisible(engine_.hexKeysVisible);
  for (QPushButton* b : std::as_const(currencyKeys_)) b->setVisible(!engine_.hexKeysVisible);
  if (QPushButton* q = keyButton(QStringLiteral("Command33"))) {
    q->setText(engine_.Command33Caption);
    q->setToolTip(engine_.Command33Tooltip);
  }
  if (QPushButton* w = keyButton(QStringLiteral("Command34"))) {
    w->setText(engine_.Command34Caption);
    w->setToolTip(engine_.Command34Tooltip);
  }
  Text5->setVisible(engine_.Text5Visible());
  if (engine_.Frame2Visible != frame2Shown_) {
    frame2Shown_ = engine_.Frame2Visible;
    panels_->setTabVisible(panels_->indexOf(Frame2), frame2Shown_);
    if (frame2Shown_) panels_->setCurrentWidget(Frame2);
  }
  refreshMemories();
  refreshHistory();
  refreshPanels();
  refreshStatistics();
  matrixPage_->refresh();
  equationsPage_->refresh();
  refreshPrograms();
  historyPanel_->setText(engine_.historyStatus());
  static_cast<FillBar*>(Picture1)->setFill(engine_.Combo1.fill());
  currencyPanel_->setText(engine_.currencyStatus());
  // The large display repeats numero and result, when it is open.
  if (shownDisplay()) ExtendedDisplayRefresh(this, kExtendedDisplayMargin);
}

void CalculatorWindow::refreshMemories() {
  for (int i = 0; i < m1.size(); ++i) m1.at(i)->setText(engine_.m1[static_cast<size_t>(i)]);
  for (int i = 0; i < 4; ++i) {
    if (QPushButton* r = keyButton(QStringLiteral("Command74"), i)) {
      r->setToolTip(engine_.Command74Tooltip[static_cast<size_t>(i)]);
    }
  }
}

void CalculatorWindow::refreshPanels() {
  if (engine_.viewerPanelRequested) {
    engine_.viewerPanelRequested = false;
    panels_->setCurrentWidget(viewerPage_);
  }
  if (engine_.historyPanelVisible != historyShown_) {
    historyShown_ = engine_.historyPanelVisible;
    if (historyShown_) panels_->setCurrentWidget(historyPage_);
    else if (panels_->currentWidget() == historyPage_) panels_->setCurrentWidget(conversionsPage_);
  }
  // The viewer lists only grow between two clears.
  auto sync = [](QListWidget* view, const QStringList& lines) {
    if (view->count() > lines.size()) view->clear();
    const int first = view->count();
    if (first < lines.size()) view->addItems(lines.mid(first));
    // A line wider than the list (a Tartaglia line) shows whole in its tooltip.
    for (int i = first; i < view->count(); ++i) {
      if (view->item(i)->text().size() > 24) view->item(i)->setToolTip(view->item(i)->text());
    }
  };
  sync(List3, engine_.List3);
  sync(List4, engine_.List4);
}

void CalculatorWindow::chameleonButton1_Click(Qt::MouseButton button) {
  if (helpInstead(kChameleonTopic)) return;
  QWidget* open = shownDisplay();
  if (button == Qt::RightButton) {
    if (auto* display = qobject_cast<ExtendedDisplayWindow*>(open)) display->switchFont();
    return;
  }
  if (open) {
    open->close();
    return;
  }
  QWidget* display = OpenWindow(WindowId::ExtendedDisplay);
  if (!display) return;
  // Stacked above the calculator, the pair fits a 1280x800 screen.
  ArrangeSideBySide(this, display, 1);
  ExtendedDisplayRefresh(this, kExtendedDisplayMargin);
}

// The list view only looks at the lines added since the last repaint, so a
// line costs the same at any length of the list.
void CalculatorWindow::refreshHistory() {
  const int lines = engine_.Combo1.count();
  if (engine_.Combo1.clears() != shownClears_) {
    shownClears_ = engine_.Combo1.clears();
    Combo1->linesChanged(true);
  } else if (lines != shownHistory_) {
    Combo1->linesChanged(false);
  }
  shownHistory_ = lines;
  if (engine_.Combo1.ListIndex() != Combo1->currentRow()) Combo1->setCurrentRow(engine_.Combo1.ListIndex());
}

void CalculatorWindow::afterEvent() {
  refresh();
  openRequestedWindow();
  numberTools_->afterEvent();
  if (!engine_.focusRequest.isEmpty()) {
    if (QPushButton* target = keys_.value(engine_.focusRequest)) target->setFocus();
    engine_.focusRequest.clear();
  }
  if (engine_.contextMenuRequested) {
    engine_.contextMenuRequested = false;
    showWindowMenu();
  }
}

// Shift+F10: the window's menus gathered in one popup, opened where the focus is,
// so every menu item can be reached from the keyboard.
void CalculatorWindow::showWindowMenu() {
  QMenu* menu = menus_.value(QStringLiteral("window"));
  if (!menu) {
    menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("window"));
    const std::pair<const char*, int> parts[] = {{"archivo", 4584}, {"ordenaEstad", 4567}};
    for (const auto& [name, captionId] : parts) {
      if (QMenu* sub = menus_.value(QString::fromLatin1(name))) {
        sub->setTitle(Res(captionId));
        menu->addMenu(sub);
      }
    }
    // normalcalc: this window gives way to the normal calculator.
    QAction* normal = menu->addAction(Res(4106));
    normal->setObjectName(QStringLiteral("normalcalc"));
    connect(normal, &QAction::triggered, this, [this] {
      QTimer::singleShot(0, this, [this] { SwitchCalculatorWindow(this, WindowId::NormalCalculator); });
    });
    // The grid menu of the matrices, on the last grid clicked (A at first).
    QMenu* matrices = matrixPage_->gridMenu();
    matrices->setTitle(Res(4307));
    menu->addMenu(matrices);
    for (QMenu* module : std::as_const(moduleMenus_)) menu->addMenu(module);
    menus_.insert(QStringLiteral("window"), menu);
  }
  QWidget* anchor = focusWidget() ? focusWidget() : this;
  menu->popup(anchor->mapToGlobal(anchor->rect().center()));
}

void CalculatorWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (placed_) return;
  placed_ = true;
  CentreOnScreen(this);
}

void CalculatorWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    engine_.Form_Activate();
    refresh();
    refreshStatistics();  // the CSV tool may have filled the store meanwhile
  }
}

void CalculatorWindow::closeEvent(QCloseEvent* event) {
  // A listing of primes runs events inside its loop: stop it before closing.
  if (engine_.listingRunning) {
    engine_.stopRequested = true;
    event->ignore();
    return;
  }
  if (!unloaded_) {
    unloaded_ = true;
    engine_.Form_Unload();
    // The large display is this window's companion.
    if (QWidget* display = shownDisplay()) display->close();
  }
  event->accept();
}

// The window takes every key before its controls (key preview): the held key
// first, then the character it types.
bool CalculatorWindow::takeKey(QKeyEvent* event) {
  const auto mods = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
  // The desktop's copy and paste keys; Ctrl+V keeps the calculator's meaning.
  if ((mods == Qt::ControlModifier && (event->key() == Qt::Key_C || event->key() == Qt::Key_Insert))) {
    QGuiApplication::clipboard()->setText(engine_.numero.text());
    return true;
  }
  if (mods == Qt::ShiftModifier && event->key() == Qt::Key_Insert) {
    if (engine_.pasteNumber(QGuiApplication::clipboard()->text())) afterEvent();
    else QApplication::beep();
    return true;
  }
  // While the primes are listed only Esc, the stop, is taken.
  if (engine_.listingRunning) {
    if (event->key() == Qt::Key_Escape) engine_.stopRequested = true;
    return true;
  }
  const bool held = engine_.keyDown(heldKeyOf(event), mods);
  const QChar typed = typedOf(event);
  const bool typedTaken = !typed.isNull() && !mods.testFlag(Qt::ControlModifier) && engine_.keyPress(typed);
  if (held || typedTaken) afterEvent();
  return held || typedTaken;
}

bool CalculatorWindow::eventFilter(QObject* watched, QEvent* event) {
  // An open menu keeps its own keys: Escape closes it, arrows and Enter pick.
  if (event->type() == QEvent::KeyPress && qobject_cast<QMenu*>(watched)) return QMainWindow::eventFilter(watched, event);
  // A box the user types into (the matrix sizes) keeps its keys too.
  if (auto* box = qobject_cast<QLineEdit*>(watched); box && !box->isReadOnly() && event->type() == QEvent::KeyPress) {
    return QMainWindow::eventFilter(watched, event);
  }
  if (watched == Text4 && event->type() == QEvent::KeyPress) return false;  // the expression takes its own keys
  if (event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent*>(event))) return true;
  if (event->type() == QEvent::MouseButtonDblClick) {
    if (const qsizetype i = m1.indexOf(qobject_cast<QLineEdit*>(watched)); i >= 0) {
      engine_.m1_DblClick(static_cast<int>(i));
      afterEvent();
      return true;
    }
  }
  // The right button on chameleonButton1 changes the large display's face.
  if (watched == chameleonButton1 && event->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
    chameleonButton1_Click(Qt::RightButton);
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}
