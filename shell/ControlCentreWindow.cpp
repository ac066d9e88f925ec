#include "shell/ControlCentreWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/LanguageService.h"
#include "shell/AlarmIconWidget.h"
#include "shell/PictureHolderView.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"

namespace {

constexpr int kDigitHeight = 44;

WindowId windowOf(CentreModule module) {
  switch (module) {
    case CentreModule::Calculator: return WindowId::ScientificCalculator;
    case CentreModule::FunctionTable: return WindowId::FunctionTable;
    case CentreModule::UnitConverter: return WindowId::UnitConverter;
    case CentreModule::PeriodicTable: return WindowId::PeriodicTable;
    case CentreModule::Banking: return WindowId::Banking;
    case CentreModule::Lottery: return WindowId::Lottery;
    case CentreModule::Chronometer: return WindowId::Chronometer;
    case CentreModule::Calendar: return WindowId::Calendar;
    case CentreModule::Preferences: return WindowId::Preferences;
    case CentreModule::About: return WindowId::About;
  }
  return WindowId::About;
}

QColor colourOf(std::uint32_t rgb) {
  return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>((rgb >> 8) & 0xFF),
                static_cast<int>((rgb >> 16) & 0xFF));
}

}  // namespace

// What the model asks of the window system.
class ControlCentreWindow::Host : public ControlCentreHost {
 public:
  explicit Host(QWidget* window) : window_(window) {}
  bool moduleAvailable(CentreModule module) override {
    if (module == CentreModule::Calculator) {
      return hasWindowFactory(WindowId::ScientificCalculator) || hasWindowFactory(WindowId::NormalCalculator);
    }
    return hasWindowFactory(windowOf(module));
  }
  void openModule(CentreModule module) override {
    if (module == CentreModule::Calculator) OpenCalculator();
    else OpenWindow(windowOf(module));
  }
  void setBusyCursor(bool on) override {
    if (on) QApplication::setOverrideCursor(Qt::WaitCursor);
    else QApplication::restoreOverrideCursor();
  }
  // The module windows close (each saves what it saves); then every window
  // still on the screen, this one included, is hidden, so that nothing
  // lingers while the farewell sound plays.
  void unloadAllWindows() override {
    for (QWidget* w : openWindows()) {
      if (w != window_) w->close();
    }
    for (QWidget* w : QApplication::topLevelWidgets()) {
      if (w->isVisible()) w->hide();
    }
  }
  void endProcess() override { QCoreApplication::quit(); }

 private:
  QWidget* window_;
};

ControlCentreWindow::ControlCentreWindow(QWidget* parent)
    : QWidget(parent), host_(std::make_unique<Host>(this)), model_(*host_) {
  setObjectName(QStringLiteral("ControlCentre"));
  setAttribute(Qt::WA_DeleteOnClose);
  model_.loadBeforeShow();
  buildWidgets();
  takeKeys(this);
  refresh();
  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, [this] {
    model_.loadTexts();
    refresh();
  });
}

ControlCentreWindow::~ControlCentreWindow() = default;

QPushButton* ControlCentreWindow::addModuleButton(const QString& name, void (ControlCentre::*handler)()) {
  auto* b = new ChameleonButtonWidget(this);
  b->setObjectName(name);
  b->setMinimumHeight(34);
  connect(b, &QPushButton::clicked, this, [this, handler] {
    (model_.*handler)();
    refresh();
  });
  moduleButtons_ << b;
  return b;
}

void ControlCentreWindow::buildWidgets() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(18, 14, 18, 14);
  outer->setSpacing(12);

  // Heading: the name, the session counter and the About emblem.
  auto* top = new QHBoxLayout;
  heading_ = new QLabel(QStringLiteral("Calvix Premium"), this);
  QFont hf = heading_->font();
  hf.setPointSizeF(hf.pointSizeF() * 1.7);
  hf.setBold(true);
  heading_->setFont(hf);
  heading_->setStyleSheet(QStringLiteral("color: #f4f4f8;"));
  top->addWidget(heading_, 1);
  auto* digits = new QHBoxLayout;
  digits->setSpacing(2);
  for (int i = 0; i < 5; ++i) {
    auto* d = new QLabel(this);
    d->setObjectName(QStringLiteral("Image1(%1)").arg(i));
    d->setFixedSize(pictures::digit(0, kDigitHeight).size());
    Image1 << d;
    digits->addWidget(d);
  }
  top->addLayout(digits);
  top->addSpacing(10);
  Image4 = new QToolButton(this);
  Image4->setObjectName(QStringLiteral("Image4"));
  Image4->setAutoRaise(true);
  Image4->setIcon(QIcon(pictures::about(44)));
  Image4->setIconSize(QSize(44, 44));
  connect(Image4, &QToolButton::clicked, this, [this] {
    model_.Image4_Click();
    refresh();
  });
  top->addWidget(new AlarmIconWidget(this));  // the chronometer's armed alarm
  top->addWidget(Image4);
  outer->addLayout(top);

  // The module panel, two columns.
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(8);
  const struct {
    const char* name;
    void (ControlCentre::*handler)();
  } modules[] = {
      {"Command1", &ControlCentre::Command1_Click},   {"Command13", &ControlCentre::Command13_Click},
      {"Command5", &ControlCentre::Command5_Click},   {"Command2", &ControlCentre::Command2_Click},
      {"Command3", &ControlCentre::Command3_Click},   {"Command4", &ControlCentre::Command4_Click},
      {"Command6", &ControlCentre::Command6_Click},   {"Command9", &ControlCentre::Command9_Click},
      {"Command10", &ControlCentre::Command10_Click}, {"Command8", &ControlCentre::Command8_Click},
  };
  int cell = 0;
  for (const auto& m : modules) {
    QPushButton* b = addModuleButton(QLatin1String(m.name), m.handler);
    if (b->objectName() == QLatin1String("Command8")) Command8 = b;
    grid->addWidget(b, cell / 2, cell % 2);
    ++cell;
  }
  outer->addLayout(grid);

  // Internet: left click opens the web page, any other click its help.
  auto* bottom = new QHBoxLayout;
  Command7 = new ChameleonButtonWidget(QStringLiteral("www"), this);
  Command7->setObjectName(QStringLiteral("Command7"));
  Command7->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(Command7, &QPushButton::clicked, this, [this] {
    model_.Command7_Click(Qt::LeftButton);
    refresh();
  });
  connect(Command7, &QWidget::customContextMenuRequested, this, [this] {
    model_.Command7_Click(Qt::RightButton);
    refresh();
  });
  bottom->addWidget(Command7);
  bottom->addStretch(1);
  outer->addLayout(bottom);

  // The command row, hidden unless asked for (Shift+F12) or after a damaged
  // settings file.
  commandRow_ = new QWidget(this);
  auto* row = new QHBoxLayout(commandRow_);
  row->setContentsMargins(0, 0, 0, 0);
  Combo1 = new QComboBox(commandRow_);
  Combo1->setObjectName(QStringLiteral("Combo1"));
  Combo1->setEditable(true);
  Combo1->setMinimumWidth(160);
  connect(Combo1, &QComboBox::editTextChanged, this, [this](const QString& text) { model_.Combo1 = text; });
  Command11 = new ChameleonButtonWidget(commandRow_);
  Command11->setObjectName(QStringLiteral("Command11"));
  connect(Command11, &QPushButton::clicked, this, [this] {
    model_.Command11_Click();
    refresh();
  });
  Command12 = new ChameleonButtonWidget(commandRow_);
  Command12->setObjectName(QStringLiteral("Command12"));
  connect(Command12, &QPushButton::clicked, this, [this] {
    model_.Command12_Click();
    refresh();
  });
  row->addWidget(Combo1, 1);
  row->addWidget(Command11);
  row->addWidget(Command12);
  outer->addWidget(commandRow_);
  outer->addStretch(1);

  setMinimumWidth(440);
}

void ControlCentreWindow::refresh() {
  setWindowTitle(model_.Caption);
  auto apply = [this](QWidget* w) {
    const ControlText t = model_.texts.value(w->objectName());
    if (auto* b = qobject_cast<QPushButton*>(w); b && !t.caption.isEmpty()) b->setText(t.caption);
    w->setToolTip(t.tooltip);
  };
  for (QPushButton* b : std::as_const(moduleButtons_)) {
    apply(b);
    // Buttons of modules this build lacks stay disabled (their tooltip says so).
    const QString name = b->objectName();
    bool available = true;
    for (CentreModule m : {CentreModule::Calculator, CentreModule::FunctionTable, CentreModule::UnitConverter,
                           CentreModule::PeriodicTable, CentreModule::Banking, CentreModule::Lottery,
                           CentreModule::Chronometer, CentreModule::Calendar, CentreModule::Preferences}) {
      if (ControlCentre::controlOf(m) == name) available = host_->moduleAvailable(m);
    }
    b->setEnabled(available);
  }
  apply(Command7);
  apply(Image4);
  Image4->setEnabled(host_->moduleAvailable(CentreModule::About));
  apply(Command11);
  apply(Command12);
  Combo1->setToolTip(model_.texts.value(QStringLiteral("Combo1")).tooltip);
  {
    // Filling the list must not overwrite the command text the model holds.
    const QSignalBlocker quiet(Combo1);
    if (Combo1->count() != model_.Combo1List.size()) {
      Combo1->clear();
      Combo1->addItems(model_.Combo1List);
    }
    if (Combo1->currentText() != model_.Combo1) Combo1->setEditText(model_.Combo1);
  }
  const QString counterTip = model_.texts.value(QStringLiteral("Image1")).tooltip;
  for (int i = 0; i < Image1.size(); ++i) {
    Image1[i]->setPixmap(pictures::digit(model_.Image1[static_cast<size_t>(i)], kDigitHeight));
    Image1[i]->setToolTip(counterTip);
  }
  commandRow_->setVisible(model_.commandRowVisible);
}

void ControlCentreWindow::paintEvent(QPaintEvent*) {
  // The background: 129 grey bands from top to bottom.
  QPainter p(this);
  const qreal band = static_cast<qreal>(height()) / ControlCentre::kGradientSteps;
  for (int step = 0; step < ControlCentre::kGradientSteps; ++step) {
    p.fillRect(QRectF(0, step * band, width(), band + 1), colourOf(ControlCentre::gradientColour(step)));
  }
  if (!painted_) {
    painted_ = true;
    // The slow half of the start order runs once the window is on screen.
    QTimer::singleShot(0, this, &ControlCentreWindow::finishLoad);
  }
}

void ControlCentreWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (placed_) return;
  placed_ = true;
  // First shown in the upper middle of the screen, where the modules open below it.
  CentreOnScreen(this, 4);
}

void ControlCentreWindow::finishLoad() {
  model_.loadAfterShow();
  model_.Form_Activate();
  refresh();
  Q_EMIT loaded();
}

void ControlCentreWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !model_.loaded) return;
  if (isActiveWindow()) model_.Form_Activate();
  else model_.Form_Deactivate();
  refresh();
}

void ControlCentreWindow::closeEvent(QCloseEvent* event) {
  if (!unloaded_) {
    unloaded_ = true;
    model_.Form_Unload();
  }
  event->accept();
}

// The window sees every key before its controls.
void ControlCentreWindow::takeKeys(QWidget* root) {
  root->installEventFilter(this);
  for (QWidget* child : root->findChildren<QWidget*>()) child->installEventFilter(this);
}

bool ControlCentreWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    const auto mods = key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (model_.Form_KeyDown(key->key(), mods)) {
      refresh();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}
