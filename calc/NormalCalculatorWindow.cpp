#include "calc/NormalCalculatorWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "calc/HistoryListView.h"
#include "calc/NormalCalculatorKeys.h"
#include "calc/PhysicalConstants.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/LanguageService.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowServices.h"

namespace {

// The character a stroke types, for keys that give no text on some platforms.
QChar typedOf(const QKeyEvent* event) {
  if (!event->text().isEmpty()) return event->text().at(0);
  switch (event->key()) {
    case Qt::Key_Backspace: return QChar(8);
    case Qt::Key_Return:
    case Qt::Key_Enter: return QChar(13);
    default: return {};
  }
}

// Shift+1 to Shift+4 arrive as the layout's shifted symbol; the scan code
// of the X11 digit row tells the digit.
int heldKeyOf(const QKeyEvent* event) {
  const int key = event->key();
  if (event->modifiers().testFlag(Qt::ShiftModifier) && (key < Qt::Key_0 || key > Qt::Key_9)) {
    const quint32 scan = event->nativeScanCode();
    if (scan >= 10 && scan <= 18) return Qt::Key_1 + static_cast<int>(scan - 10);
  }
  return key;
}

QColor settingColour(float value) {
  const auto rgb = static_cast<std::uint32_t>(value);
  return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>((rgb >> 8) & 0xFF),
                static_cast<int>((rgb >> 16) & 0xFF));
}

constexpr int kRegistrosTopic = 20770;

}  // namespace

void SwitchCalculatorWindow(QWidget* current, WindowId target) {
  program().CalculatorMode =
      target == WindowId::NormalCalculator ? NormalCalculatorModel::kModeWord : QStringLiteral("avanzada");
  if (current) current->close();
  OpenCalculator();
}

NormalCalculatorWindow::NormalCalculatorWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("comand2"));
  setAttribute(Qt::WA_DeleteOnClose);
  setProperty("ownCaptionLoader", true);

  auto* central = new QWidget(this);
  auto* v = new QVBoxLayout(central);
  v->setContentsMargins(10, 8, 10, 6);
  v->setSpacing(6);
  v->addWidget(buildDisplay());
  v->addWidget(buildMemories());
  v->addWidget(buildKeys(static_cast<int>(NormalPanel::Vat), central));
  v->addWidget(buildKeys(static_cast<int>(NormalPanel::Functions), central));
  QWidget* pad = buildKeys(static_cast<int>(NormalPanel::Main), central);
  pad->setObjectName(QStringLiteral("keypad"));
  v->addWidget(pad, 1);
  Combo1 = new HistoryListView(central);
  Combo1->setObjectName(QStringLiteral("Combo1"));
  Combo1->setFocusPolicy(Qt::NoFocus);
  Combo1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  Combo1->setFixedHeight(Combo1->fontMetrics().lineSpacing() * 5 + 8);
  Combo1->setLines(&model_.engine.Combo1.lines());
  connect(Combo1, &HistoryListView::currentRowChanged, this, [this](int row) { model_.engine.Combo1.select(row); });
  connect(Combo1, &HistoryListView::rowDoubleClicked, this, [this](int row) {
    if (!model_.engine.Combo1.select(row)) return;
    model_.engine.Combo1_DblClick();
    afterEvent();
  });
  v->addWidget(Combo1);
  setCentralWidget(central);

  QPalette pal = central->palette();
  pal.setColor(QPalette::Window, settingColour(program().BackgroundColour));
  central->setAutoFillBackground(true);
  central->setPalette(pal);

  historyPanel_ = new QLabel(this);
  currencyPanel_ = new QLabel(this);
  statusBar()->addWidget(historyPanel_);
  statusBar()->addPermanentWidget(currencyPanel_);
  buildMenu();

  connect(&registerNotifier(), &RegisterNotifier::registerChanged, this, [this] {
    model_.engine.writeRegisterTooltips();
    refresh();
  });
  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, &NormalCalculatorWindow::loadCaptions);

  installEventFilter(this);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  setProperty("screenshotStates", QStringList{QStringLiteral("history")});
  loadCaptions();
  resize(std::max(minimumSizeHint().width(), 540), sizeHint().height());
  if (ChameleonButtonWidget* equals = keyButton(QStringLiteral("Command19"))) equals->setFocus();
}

NormalCalculatorWindow::~NormalCalculatorWindow() = default;

QWidget* NormalCalculatorWindow::buildDisplay() {
  auto* box = new QWidget(this);
  auto* v = new QVBoxLayout(box);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(4);
  auto field = [this](const char* name, int width) {
    auto* f = new QLineEdit(this);
    f->setObjectName(QString::fromLatin1(name));
    f->setReadOnly(true);
    f->setFocusPolicy(Qt::NoFocus);
    f->setAlignment(Qt::AlignCenter);
    if (width > 0) f->setFixedWidth(width);
    return f;
  };
  auto* top = new QHBoxLayout;
  func = field("func", 0);
  func->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  ivas = field("ivas", 56);
  top->addWidget(func, 1);
  top->addWidget(ivas);
  v->addLayout(top);

  const QString look = QStringLiteral("background: %1; color: %2; border: 1px solid #40506a; border-radius: 3px;")
                           .arg(settingColour(program().DisplayColour).name(), settingColour(program().TextColour).name());
  numero = field("numero", 0);
  numero->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  QFont big = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  big.setPointSizeF(big.pointSizeF() * 1.8);
  big.setBold(true);
  numero->setFont(big);
  numero->setMinimumHeight(42);
  numero->setStyleSheet(QStringLiteral("QLineEdit { %1 padding: 2px 8px; }").arg(look));
  v->addWidget(numero);
  result = field("result", 0);
  result->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  result->setStyleSheet(QStringLiteral("QLineEdit { %1 padding: 1px 8px; }").arg(look));
  v->addWidget(result);

  auto* formats = new QHBoxLayout;
  formats->setSpacing(4);
  dcmLabel_ = new QLabel(QStringLiteral("SET"), this);
  redondLabel_ = new QLabel(QStringLiteral("Rdo"), this);
  dcm = field("dcm", 34);
  redond = field("redond", 34);
  formats->addWidget(dcmLabel_);
  formats->addWidget(dcm);
  formats->addWidget(redondLabel_);
  formats->addWidget(redond);
  formats->addWidget(buildKeys(static_cast<int>(NormalPanel::Formats), this), 1);
  v->addLayout(formats);
  return box;
}

QWidget* NormalCalculatorWindow::buildKeys(int panel, QWidget* parent) {
  auto* pad = new QWidget(parent);
  auto* grid = new QGridLayout(pad);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(4);
  const bool main = panel == static_cast<int>(NormalPanel::Main);
  for (const NormalKey& k : normalCalculatorKeys()) {
    if (static_cast<int>(k.panel) != panel) continue;
    auto* b = new ChameleonButtonWidget(pad);
    b->setObjectName(normalKeyObjectName(k));
    b->setMinimumSize(main ? 56 : 44, main ? 36 : 28);
    b->setSizePolicy(QSizePolicy::Preferred, main ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    const QString control = QString::fromLatin1(k.control);
    const int index = k.index;
    connect(b, &ChameleonButtonWidget::clicked, this, [this, control, index] {
      model_.click(control, index);
      afterEvent();
    });
    grid->addWidget(b, k.row, k.column, k.rowSpan, k.columnSpan);
    keys_.insert(b->objectName(), b);
  }
  return pad;
}

// Each memory: its field m1(i) (a double click recalls it) and its three keys;
// then the register keys.
QWidget* NormalCalculatorWindow::buildMemories() {
  QWidget* strip = buildKeys(static_cast<int>(NormalPanel::Memories), this);
  strip->setObjectName(QStringLiteral("memories"));
  auto* grid = static_cast<QGridLayout*>(strip->layout());
  for (int i = 0; i < 4; ++i) {
    auto* f = new QLineEdit(strip);
    f->setObjectName(QStringLiteral("m1(%1)").arg(i));
    f->setReadOnly(true);
    f->setFocusPolicy(Qt::NoFocus);
    f->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    f->setMinimumWidth(60);
    m1 << f;
    grid->addWidget(f, i / 2, 4 * (i % 2));
    grid->setColumnStretch(4 * (i % 2), 1);
  }
  for (ChameleonButtonWidget* b : strip->findChildren<ChameleonButtonWidget*>()) b->setFixedWidth(34);
  auto* box = new QWidget(this);
  auto* v = new QVBoxLayout(box);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(4);
  v->addWidget(strip);
  auto* registers = new QHBoxLayout;
  registersLabel_ = new QLabel(box);
  registers->addWidget(registersLabel_);
  registers->addWidget(buildKeys(static_cast<int>(NormalPanel::Registers), box), 1);
  v->addLayout(registers);
  return box;
}

void NormalCalculatorWindow::buildMenu() {
  ver_ = menuBar()->addMenu(QString());
  ver_->setObjectName(QStringLiteral("ver"));
  QAction* normal = ver_->addAction(QString());
  normal->setObjectName(QStringLiteral("normalcalc"));
  normal->setCheckable(true);
  normal->setChecked(true);
  normal->setEnabled(false);
  QAction* scientific = ver_->addAction(QString());
  scientific->setObjectName(QStringLiteral("cientificacalc"));
  connect(scientific, &QAction::triggered, this, [this] {
    // After this event: the window goes while its menu is still closing.
    QTimer::singleShot(0, this, [this] { SwitchCalculatorWindow(this, WindowId::ScientificCalculator); });
  });
  ver_->addSeparator();
  QAction* print = ver_->addAction(QString());
  print->setObjectName(QStringLiteral("registros"));
  connect(print, &QAction::triggered, this, [this] {
    if (helpInstead(kRegistrosTopic)) return;
    model_.engine.registros_Click();
    afterEvent();
  });
  QAction* about = ver_->addAction(QString());
  about->setObjectName(QStringLiteral("acerca"));
  connect(about, &QAction::triggered, this, [] { OpenWindow(WindowId::About); });
}

void NormalCalculatorWindow::loadCaptions() {
  setWindowTitle(Res(4105));
  model_.engine.errorPrefix = Res(2800).left(3);
  for (const NormalKey& k : normalCalculatorKeys()) {
    ChameleonButtonWidget* b = keys_.value(normalKeyObjectName(k));
    if (!b) continue;
    b->setText(normalKeyCaption(k));
    if (const int tip = normalKeyTooltipId(k)) b->setToolTip(Res(tip));
  }
  if (ChameleonButtonWidget* sep = keyButton(QStringLiteral("Command11"))) sep->setText(program().DecimalSymbol.toText());
  func->setToolTip(Res(4303));
  numero->setToolTip(Res(4319));
  result->setToolTip(Res(4323));
  dcm->setToolTip(Res(4302));
  redond->setToolTip(Res(4322));
  ivas->setToolTip(Res(4723));
  Combo1->setToolTip(Res(4793));
  for (QLineEdit* f : std::as_const(m1)) f->setToolTip(Res(4790));
  registersLabel_->setText(Res(4795));
  ver_->setTitle(Res(1601));
  const std::pair<const char*, int> items[] = {
      {"normalcalc", 4106}, {"cientificacalc", 4107}, {"registros", 4786}, {"acerca", 16}};
  for (QAction* a : ver_->actions()) {
    for (const auto& [name, id] : items) {
      if (a->objectName() == QLatin1String(name)) a->setText(Res(id));
    }
  }
  model_.engine.Form_Activate();  // the currency captions and register labels
  refresh();
}

void NormalCalculatorWindow::showScreenshotState(const QString& state) {
  if (state != QLatin1String("history")) return;
  for (QChar c : QStringLiteral("1250*1.16=")) model_.typeCharacter(c);
  model_.keyDown(Qt::Key_1, Qt::ShiftModifier);
  for (QChar c : QStringLiteral("81")) model_.typeCharacter(c);
  model_.keyDown(Qt::Key_F5);
  model_.typeCharacter(QLatin1Char('p'));
  afterEvent();
}

ChameleonButtonWidget* NormalCalculatorWindow::keyButton(const QString& control, int index) const {
  return keys_.value(index < 0 ? control : control + QStringLiteral("(%1)").arg(index));
}

void NormalCalculatorWindow::refresh() {
  const CalculatorEngine& e = model_.engine;
  numero->setText(e.numero);
  result->setText(visibleUnitText(e.result).replace(QLatin1Char('\n'), QLatin1Char(' ')));
  func->setText(e.func);
  dcm->setText(e.dcm);
  redond->setText(e.redond);
  ivas->setText(e.ivas);
  for (int i = 0; i < m1.size(); ++i) m1.at(i)->setText(e.m1[static_cast<size_t>(i)]);
  for (int i = 0; i < 4; ++i) {
    if (ChameleonButtonWidget* r = keyButton(QStringLiteral("Command74"), i)) r->setToolTip(e.Command74Tooltip[static_cast<size_t>(i)]);
  }
  if (ChameleonButtonWidget* q = keyButton(QStringLiteral("Command33"))) {
    q->setText(e.Command33Caption);
    q->setToolTip(e.Command33Tooltip);
  }
  if (ChameleonButtonWidget* w = keyButton(QStringLiteral("Command34"))) {
    w->setText(e.Command34Caption);
    w->setToolTip(e.Command34Tooltip);
  }
  refreshHistory();
  historyPanel_->setText(e.historyStatus());
  currencyPanel_->setText(e.currencyStatus());
}

void NormalCalculatorWindow::refreshHistory() {
  const CalculatorHistory& h = model_.engine.Combo1;
  if (h.clears() != shownClears_) {
    shownClears_ = h.clears();
    Combo1->linesChanged(true);
  } else if (h.count() != shownHistory_) {
    Combo1->linesChanged(false);
  }
  shownHistory_ = h.count();
  if (h.ListIndex() != Combo1->currentRow()) Combo1->setCurrentRow(h.ListIndex());
}

void NormalCalculatorWindow::afterEvent() {
  refresh();
  CalculatorEngine& e = model_.engine;
  if (!e.focusRequest.isEmpty()) {
    if (ChameleonButtonWidget* target = keys_.value(e.focusRequest)) target->setFocus();
    e.focusRequest.clear();
  }
  if (e.contextMenuRequested) {
    e.contextMenuRequested = false;
    QWidget* anchor = focusWidget() ? focusWidget() : this;
    ver_->popup(anchor->mapToGlobal(anchor->rect().center()));
  }
}

void NormalCalculatorWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (placed_) return;
  placed_ = true;
  CentreOnScreen(this);
}

void NormalCalculatorWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    model_.Form_Activate();
    refresh();
  }
}

void NormalCalculatorWindow::closeEvent(QCloseEvent* event) {
  if (!unloaded_) {
    unloaded_ = true;
    model_.Form_Unload();
  }
  event->accept();
}

// Key preview: the held key first, then the character it types.
bool NormalCalculatorWindow::takeKey(QKeyEvent* event) {
  const auto mods = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
  if (mods == Qt::ControlModifier && (event->key() == Qt::Key_C || event->key() == Qt::Key_Insert)) {
    QGuiApplication::clipboard()->setText(model_.engine.numero.text());
    return true;
  }
  const bool held = model_.keyDown(heldKeyOf(event), mods);
  const QChar typed = typedOf(event);
  const bool typedTaken = !typed.isNull() && !mods.testFlag(Qt::ControlModifier) && model_.keyPress(typed);
  if (held || typedTaken) afterEvent();
  return held || typedTaken;
}

bool NormalCalculatorWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && qobject_cast<QMenu*>(watched)) return QMainWindow::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent*>(event))) return true;
  if (event->type() == QEvent::MouseButtonDblClick) {
    if (const qsizetype i = m1.indexOf(qobject_cast<QLineEdit*>(watched)); i >= 0) {
      model_.engine.m1_DblClick(static_cast<int>(i));
      afterEvent();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}
