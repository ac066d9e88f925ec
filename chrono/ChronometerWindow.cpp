#include "chrono/ChronometerWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "chrono/PowerWarningDialog.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/Clock.h"
#include "shell/LanguageService.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

const QColor kPanel(0x10, 0x1c, 0x14);
const QColor kDigits(0x7c, 0xf0, 0x9c);

// The symbols of the five buttons, drawn: start (a triangle; a circular
// arrow while running, as "start again"), stop, pause, zero, the list.
enum class Glyph { Start, Restart, Stop, Pause, Zero, List, Bell };

QIcon glyphIcon(Glyph g, const QColor& colour = QColor(0x20, 0x20, 0x20)) {
  QPixmap pm(48, 48);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(colour, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(colour);
  switch (g) {
    case Glyph::Start: {
      QPainterPath path;
      path.moveTo(14, 8);
      path.lineTo(40, 24);
      path.lineTo(14, 40);
      path.closeSubpath();
      p.drawPath(path);
      break;
    }
    case Glyph::Restart: {
      p.setBrush(Qt::NoBrush);
      p.drawArc(QRectF(9, 9, 30, 30), 100 * 16, 290 * 16);
      p.setBrush(colour);
      QPainterPath head;
      head.moveTo(22, 2);
      head.lineTo(32, 9);
      head.lineTo(22, 16);
      head.closeSubpath();
      p.drawPath(head);
      break;
    }
    case Glyph::Stop:
      p.drawRect(QRectF(12, 12, 24, 24));
      break;
    case Glyph::Pause:
      p.drawRect(QRectF(12, 10, 8, 28));
      p.drawRect(QRectF(28, 10, 8, 28));
      break;
    case Glyph::Zero:
      p.setBrush(Qt::NoBrush);
      p.drawEllipse(QRectF(14, 8, 20, 32));
      break;
    case Glyph::List:
      for (int y : {12, 24, 36}) p.drawLine(10, y, 38, y);
      break;
    case Glyph::Bell: {
      QPainterPath bell;
      bell.moveTo(10, 36);
      bell.cubicTo(14, 30, 12, 10, 24, 9);
      bell.cubicTo(36, 10, 34, 30, 38, 36);
      bell.closeSubpath();
      p.drawPath(bell);
      p.drawEllipse(QPointF(24, 40), 4, 4);
      break;
    }
  }
  return QIcon(pm);
}

QFont lcdFont(int pixelSize) {
  QFont f(ExtendedDisplayWindow::lcdFamily());
  f.setPixelSize(pixelSize);
  return f;
}

QLabel* lcdLabel(QWidget* parent, const char* name, int pixelSize) {
  auto* l = new QLabel(parent);
  l->setObjectName(QString::fromLatin1(name));
  l->setFont(lcdFont(pixelSize));
  l->setStyleSheet(QStringLiteral("color: %1;").arg(kDigits.name()));
  return l;
}

QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList out;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) out << parts.at(i);
  return out.join(QStringLiteral(";;"));
}

// A menu item that runs f when chosen.
template <typename F>
QAction* addItem(QMenu* menu, const QString& text, QObject* context, F f) {
  QAction* a = menu->addAction(text);
  QObject::connect(a, &QAction::triggered, context, std::move(f));
  return a;
}

void setTextKeepingCursor(QLineEdit* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

}  // namespace

ChronometerWindow::ChronometerWindow(QWidget* parent, Clock* clock)
    : QMainWindow(parent), model_(clock ? *clock : programClock()) {
  setObjectName(QStringLiteral("Horavi"));
  setAttribute(Qt::WA_DeleteOnClose);
  model_.hooks.fileDialog = [this](const Chronometer::FileDialogRequest& r) { return askFileName(r); };
  model_.hooks.changed = [this] { refresh(); };

  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  rows->setContentsMargins(10, 8, 10, 8);
  rows->setSpacing(8);
  rows->addWidget(buildPanel());
  rows->addWidget(buildButtons());
  List1 = new QListWidget(this);
  List1->setObjectName(QStringLiteral("List1"));
  List1->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 11));
  List1->setMinimumHeight(110);
  rows->addWidget(List1, 1);
  rows->addWidget(buildAlarm());
  setCentralWidget(central);
  buildMenus();

  warning_ = new PowerWarningDialog(this);
  connect(warning_, &PowerWarningDialog::cancelled, this, [this] { act([this] { model_.warning_Close(); }); });
  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, [this] { model_.loadCaptions(); });

  // The keyboard: F5 starts, F6 stops or continues, F7 takes a lap, F8 sets to zero.
  auto key = [this](QKeySequence keys, int button) {
    auto* s = new QShortcut(keys, this);
    connect(s, &QShortcut::activated, this, [this, button] { act([&] { model_.crono1_Click(button); }); });
  };
  key(QKeySequence(Qt::Key_F5), 0);
  key(QKeySequence(Qt::Key_F6), 1);
  key(QKeySequence(Qt::Key_F7), 2);
  key(QKeySequence(Qt::Key_F8), 3);

  setProperty("screenshotStates",
              QStringList{QStringLiteral("running"), QStringLiteral("alarm"), QStringLiteral("warning")});
  model_.Form_Load();
  refresh();
}

ChronometerWindow::~ChronometerWindow() {
  model_.hooks = {};
  if (!unloaded_) model_.Form_Unload();
}

// ---- Building -----------------------------------------------------------------------

QWidget* ChronometerWindow::buildPanel() {
  auto* panel = new QFrame(this);
  panel->setObjectName(QStringLiteral("panel"));
  panel->setFrameShape(QFrame::StyledPanel);
  panel->setAutoFillBackground(true);
  QPalette pal = panel->palette();
  pal.setColor(QPalette::Window, kPanel);
  pal.setColor(QPalette::WindowText, kDigits);
  panel->setPalette(pal);

  lblTime = lcdLabel(panel, "lblTime", 30);
  auto* timeCaption = new QLabel(Res(413), panel);
  timeCaption->setObjectName(QStringLiteral("timeCaption"));
  Label2 = new QLabel(panel);
  Label2->setObjectName(QStringLiteral("Label2"));
  QFont modeFont = Label2->font();
  modeFont.setBold(true);
  modeFont.setPointSizeF(modeFont.pointSizeF() * 1.3);
  Label2->setFont(modeFont);
  lblAux = lcdLabel(panel, "lblAux", 64);
  Label19 = lcdLabel(panel, "Label19", 32);
  Image3 = new QLabel(panel);
  Image3->setObjectName(QStringLiteral("Image3"));
  Image3->setToolTip(Res(578));
  Image3->setPixmap(glyphIcon(Glyph::Bell, kDigits).pixmap(24, 24));

  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(16, 10, 16, 12);
  grid->setHorizontalSpacing(12);
  grid->addWidget(Label2, 0, 0, Qt::AlignLeft | Qt::AlignVCenter);
  auto* clock = new QHBoxLayout;
  clock->addWidget(Image3);
  clock->addWidget(timeCaption);
  clock->addWidget(lblTime);
  grid->addLayout(clock, 0, 1, Qt::AlignRight);
  auto* measure = new QHBoxLayout;
  measure->addStretch();
  measure->addWidget(lblAux);
  measure->addWidget(Label19, 0, Qt::AlignBottom);
  measure->addStretch();
  grid->addLayout(measure, 1, 0, 1, 2);
  return panel;
}

QWidget* ChronometerWindow::buildButtons() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  const Glyph glyphs[] = {Glyph::Start, Glyph::Stop, Glyph::Pause, Glyph::Zero, Glyph::List};
  row->addStretch();
  for (int i = 0; i < 5; ++i) {
    auto* b = new ChameleonButtonWidget(box);
    b->setObjectName(QStringLiteral("crono1_%1").arg(i));
    b->setIcon(glyphIcon(glyphs[i]));
    b->setIconSize(QSize(32, 32));
    b->setMinimumSize(64, 48);
    b->setToolTip(Res(433 + i));
    b->setAccessibleName(Res(433 + i));
    connect(b, &QPushButton::clicked, this, [this, i] { act([&] { model_.crono1_Click(i); }); });
    crono1[static_cast<size_t>(i)] = b;
    row->addWidget(b);
  }
  row->addStretch();
  return box;
}

QWidget* ChronometerWindow::buildAlarm() {
  auto* frame = new QGroupBox(Res(410), this);
  frame->setObjectName(QStringLiteral("alarmFrame"));
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(8);

  auto* time = new QHBoxLayout;
  time->setSpacing(4);
  const char* names[] = {"Text1_0", "Text1_1", "Text1_2"};
  const int maxima[] = {23, 59, 59};
  for (int i = 0; i < 3; ++i) {
    auto* t = new QLineEdit(frame);
    t->setObjectName(QString::fromLatin1(names[i]));
    t->setMaxLength(2);
    t->setValidator(new QIntValidator(0, maxima[i], t));
    t->setAlignment(Qt::AlignCenter);
    t->setFixedWidth(t->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 14);
    connect(t, &QLineEdit::textEdited, this, [this] { takeBoxes(); });
    Text1[static_cast<size_t>(i)] = t;
    if (i > 0) time->addWidget(new QLabel(QStringLiteral(":"), frame));
    time->addWidget(t);
  }
  Command4 = new ChameleonButtonWidget(Res(412), frame);
  Command4->setObjectName(QStringLiteral("Command4"));
  connect(Command4, &QPushButton::clicked, this, [this] { act([this] { model_.Command4_Click(); }); });
  time->addSpacing(8);
  time->addWidget(Command4);
  time->addStretch();
  grid->addLayout(time, 0, 0, 1, 2);
  Label18 = new QLabel(frame);
  Label18->setObjectName(QStringLiteral("Label18"));
  grid->addWidget(Label18, 0, 2, Qt::AlignRight);

  Check1 = new QCheckBox(Res(423), frame);
  Check1->setObjectName(QStringLiteral("Check1"));
  connect(Check1, &QCheckBox::clicked, this, [this](bool on) { act([&] { model_.Check1_Click(on ? 1 : 0); }); });
  grid->addWidget(Check1, 1, 0);

  auto* repeat = new QHBoxLayout;
  Check2 = new QCheckBox(Res(424), frame);
  Check2->setObjectName(QStringLiteral("Check2"));
  connect(Check2, &QCheckBox::clicked, this, [this](bool on) { act([&] { model_.Check2_Click(on ? 1 : 0); }); });
  Text2 = new QLineEdit(frame);
  Text2->setObjectName(QStringLiteral("Text2"));
  Text2->setValidator(new QIntValidator(0, 1440, Text2));
  Text2->setFixedWidth(Text2->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 14);
  connect(Text2, &QLineEdit::textEdited, this, [this] { takeBoxes(); });
  repeat->addWidget(Check2);
  repeat->addWidget(Text2);
  repeat->addSpacing(4);
  repeat->addWidget(new QLabel(Res(425), frame));
  repeat->addStretch();
  grid->addLayout(repeat, 1, 1, 1, 2);

  Check3 = new QCheckBox(Res(426), frame);
  Check3->setObjectName(QStringLiteral("Check3"));
  connect(Check3, &QCheckBox::clicked, this, [this](bool on) { act([&] { model_.Check3_Click(on ? 1 : 0); }); });
  grid->addWidget(Check3, 2, 0);
  Label15 = new QLabel(frame);
  Label15->setObjectName(QStringLiteral("Label15"));
  QFont bold = Label15->font();
  bold.setBold(true);
  Label15->setFont(bold);
  grid->addWidget(Label15, 2, 1);
  grid->setColumnStretch(2, 1);
  return frame;
}

void ChronometerWindow::buildMenus() {
  QMenu* file = menuBar()->addMenu(Res(500));
  QAction* save = addItem(file, Res(405), this, [this] { act([this] { model_.GuardaTiempos_Click(); }); });
  save->setObjectName(QStringLiteral("GuardaTiempos"));
  save->setShortcut(QKeySequence::Save);
  QAction* print = addItem(file, Res(406), this, [this] { act([this] { model_.ImprimeTiempos_Click(); }); });
  print->setObjectName(QStringLiteral("ImprimeTiempos"));
  print->setShortcut(QKeySequence::Print);
  file->addSeparator();
  addItem(file, Res(59), this, [this] { close(); });

  QMenu* modes = menuBar()->addMenu(Res(407));
  auto* modeGroup = new QActionGroup(this);
  for (int i = 0; i < 5; ++i) {
    QAction* a = addItem(modes, Res(400 + i), this, [this, i] { act([&] { model_.menutiempo1_Click(i); }); });
    a->setObjectName(QStringLiteral("menutiempo1_%1").arg(i));
    a->setCheckable(true);
    a->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + i)));
    modeGroup->addAction(a);
    menutiempo1[static_cast<size_t>(i)] = a;
  }

  alarfav = menuBar()->addMenu(Res(408));
  alarfav->setObjectName(QStringLiteral("alarfav"));
  connect(alarfav, &QMenu::aboutToShow, this, [this] { fillPresets(); });
  fillPresets();

  QMenu* actions = menuBar()->addMenu(Res(409));
  auto* actionGroup = new QActionGroup(this);
  const int names[] = {427, 428, 439};
  for (int i = 0; i < 3; ++i) {
    QAction* a = addItem(actions, Res(names[i]), this, [this, i] { act([&] { model_.menuaccion_Click(i); }); });
    a->setObjectName(QStringLiteral("menuaccion_%1").arg(i));
    a->setCheckable(true);
    actionGroup->addAction(a);
    menuaccion[static_cast<size_t>(i)] = a;
  }
}

void ChronometerWindow::fillPresets() {
  alarfav->clear();
  const QStringList items = model_.alarfavItems();
  for (qsizetype i = 0; i < items.size(); ++i) {
    const int index = static_cast<int>(i);
    addItem(alarfav, items[i], this, [this, index] { act([&] { model_.alarfav_Click(index); }); });
  }
  alarfav->setEnabled(!items.isEmpty());
}

// ---- Events -------------------------------------------------------------------------

template <typename Handler>
void ChronometerWindow::act(Handler&& handler) {
  if (unloaded_) return;
  takeBoxes();
  handler();
  refresh();
}

void ChronometerWindow::takeBoxes() {
  if (refreshing_) return;
  for (size_t i = 0; i < 3; ++i) model_.Text1[i] = Text1[i]->text();
  model_.Text2 = Text2->text();
}

QString ChronometerWindow::askFileName(const Chronometer::FileDialogRequest& r) {
  return QFileDialog::getSaveFileName(this, r.title, r.folder, dialogFilter(r.filter));
}

void ChronometerWindow::closeEvent(QCloseEvent* event) {
  if (!unloaded_) {
    unloaded_ = true;
    model_.Form_Unload();
    warning_->dismiss();
  }
  QMainWindow::closeEvent(event);
}

// ---- Repaint ------------------------------------------------------------------------

void ChronometerWindow::refresh() {
  refreshing_ = true;
  setWindowTitle(model_.caption);
  lblTime->setText(model_.lblTime);
  lblAux->setText(model_.lblAux);
  Label19->setText(model_.Label19);
  Label19->setVisible(model_.hasTenths());
  Label2->setText(model_.Label2);
  Label15->setText(model_.Label15);
  Label18->setText(model_.Label18);
  Image3->setVisible(model_.armedState() > 0);
  if (startShowsRestart_ != model_.running()) {
    startShowsRestart_ = model_.running();
    crono1[0]->setIcon(glyphIcon(startShowsRestart_ ? Glyph::Restart : Glyph::Start));
  }
  if (List1->count() != model_.List1.size() ||
      (List1->count() > 0 && List1->item(List1->count() - 1)->text() != model_.List1.last())) {
    List1->clear();
    List1->addItems(model_.List1);
    List1->scrollToBottom();
  }
  List1->setVisible(model_.List1Visible);
  for (size_t i = 0; i < 3; ++i) setTextKeepingCursor(Text1[i], model_.Text1[i]);
  setTextKeepingCursor(Text2, model_.Text2);
  Check1->setChecked(model_.Check1 != 0);
  Check2->setChecked(model_.Check2 != 0);
  Check3->setChecked(model_.Check3 != 0);
  menutiempo1[static_cast<size_t>(model_.mode())]->setChecked(true);
  menuaccion[static_cast<size_t>(Chronometer::actionOf(program().accion))]->setChecked(true);
  refreshWarning();
  refreshing_ = false;
}

void ChronometerWindow::refreshWarning() {
  if (model_.warning.open) warning_->showWarning(model_.warning);
  else if (warning_->isVisible() && !warningPicture_) warning_->dismiss();
}

// ---- Screenshot states ----------------------------------------------------------------

void ChronometerWindow::showScreenshotState(const QString& state) {
  if (state == QLatin1String("running")) {
    act([this] {
      model_.menutiempo1_Click(Chronometer::kPowerChrono);
      model_.List1 = {QStringLiteral("00:00:12  37"), QStringLiteral("00:01:05  02"), QStringLiteral("00:02:41  90")};
      model_.List1Visible = true;
      model_.crono1_Click(0);
    });
  } else if (state == QLatin1String("alarm")) {
    act([this] {
      model_.Text1 = {QStringLiteral("07"), QStringLiteral("30"), QStringLiteral("00")};
      model_.Text2 = QStringLiteral("10");
      model_.Check2_Click(1);
      model_.Check3_Click(1);
      model_.Command4_Click();
    });
  } else if (state == QLatin1String("warning")) {
    Chronometer::PowerWarning w;
    w.open = true;
    w.title = Res(421);
    w.heading = Res(418);
    w.seconds = QStringLiteral("45");
    w.secondsLabel = Res(419);
    w.footer = Res(451);
    // A picture only: the model has no action pending, so nothing can follow.
    warningPicture_ = true;
    warning_->showWarning(w);
  }
}
