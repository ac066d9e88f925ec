#include "shell/PreferencesWindow.h"

#include <QCheckBox>
#include <algorithm>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/LanguageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/WindowServices.h"

namespace {

// A small flag of the language shown.
QPixmap flagPicture(const QString& code) {
  QPixmap pm(30, 20);
  pm.fill(Qt::white);
  QPainter p(&pm);
  if (code == QLatin1String("es")) {
    p.fillRect(0, 0, 30, 20, QColor(198, 11, 30));
    p.fillRect(0, 5, 30, 10, QColor(255, 196, 0));
  } else if (code == QLatin1String("fr")) {
    p.fillRect(0, 0, 10, 20, QColor(0, 85, 164));
    p.fillRect(20, 0, 10, 20, QColor(239, 65, 53));
  } else if (code == QLatin1String("ca")) {
    p.fillRect(0, 0, 30, 20, QColor(252, 221, 9));
    for (int i = 0; i < 4; ++i) p.fillRect(0, 2 + i * 4 + (i > 0 ? i / 2 : 0), 30, 2, QColor(218, 18, 26));
  } else {
    p.fillRect(0, 0, 30, 20, QColor(1, 33, 105));
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Qt::white, 4));
    p.drawLine(0, 0, 30, 20);
    p.drawLine(30, 0, 0, 20);
    p.setPen(QPen(QColor(200, 16, 46), 1.5));
    p.drawLine(0, 0, 30, 20);
    p.drawLine(30, 0, 0, 20);
    p.fillRect(12, 0, 6, 20, Qt::white);
    p.fillRect(0, 7, 30, 6, Qt::white);
    p.fillRect(13, 0, 4, 20, QColor(200, 16, 46));
    p.fillRect(0, 8, 30, 4, QColor(200, 16, 46));
  }
  p.setPen(QColor(90, 90, 90));
  p.setRenderHint(QPainter::Antialiasing, false);
  p.drawRect(0, 0, 29, 19);
  return pm;
}

// "Sonidos (*.wav)|*.wav|" as a file dialog wants it: "Sonidos (*.wav)".
QString dialogFilter(const QString& filter) { return filter.section(QLatin1Char('|'), 0, 0); }

}  // namespace

PreferencesWindow::PreferencesWindow(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Form9"));
  setAttribute(Qt::WA_DeleteOnClose);
  model_.hooks.fileDialog = [this](const Preferences::FileDialogRequest& r) { return askFileName(r); };
  model_.hooks.close = [this] { close(); };
  model_.hooks.focusCommandBox = [this] {
    commandRow_->setVisible(true);
    Text6->setFocus();
  };
  model_.Form_Load();
  buildWidgets();
  loadCaptions();
  refresh();
  // Another window (or this one's Command2) changed the program's language.
  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, [this] {
    if (!model_.loaded) return;
    model_.List5_Click(program().LanguageOffset / 10000);
    loadCaptions();
    refresh();
  });
  setProperty("screenshotStates", QStringList{QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("ca"),
                                              QStringLiteral("commandbox")});
  adjustSize();
  CentreOnScreen(this, 3);
}

template <typename Handler>
void PreferencesWindow::act(Handler&& handler) {
  if (refreshing_) return;
  const std::int32_t shown = model_.offset;
  handler();
  if (!model_.loaded) return;  // the window is closing
  if (model_.offset != shown) loadCaptions();
  refresh();
}

QLineEdit* PreferencesWindow::addBox(Preferences::Box box, const QString& name) {
  auto* e = new QLineEdit(this);
  e->setObjectName(name);
  if (const int limit = Preferences::maxLength(box)) e->setMaxLength(limit);
  e->installEventFilter(this);
  boxes_.append({e, box});
  connect(e, &QLineEdit::textEdited, this, [this, e, box](const QString& t) {
    if (refreshing_) return;
    model_.boxText(box) = t;
    model_.textChanged(box);
    const int cursor = e->cursorPosition();
    refresh();
    e->setCursorPosition(cursor);
  });
  return e;
}

void PreferencesWindow::buildWidgets() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(12, 12, 12, 12);
  outer->setSpacing(10);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  outer->addLayout(columns);

  // ---- Left: currency, switches, calendar file, counter and web address.
  auto* left = new QVBoxLayout;
  columns->addLayout(left, 5);
  frameCurrency_ = new QGroupBox(this);
  auto* cur = new QGridLayout(frameCurrency_);
  labelCurrency1_ = new QLabel(frameCurrency_);
  labelCurrency2_ = new QLabel(frameCurrency_);
  Text1 = addBox(Preferences::Box::Text1, QStringLiteral("Text1"));
  Text2 = addBox(Preferences::Box::Text2, QStringLiteral("Text2"));
  Text1->setMaximumWidth(90);
  Text2->setMaximumWidth(90);
  cur->addWidget(labelCurrency1_, 0, 0);
  cur->addWidget(Text1, 0, 1);
  cur->addWidget(labelCurrency2_, 0, 2);
  cur->addWidget(Text2, 0, 3);
  Label4 = new QLabel(frameCurrency_);
  Label4->setObjectName(QStringLiteral("Label4"));
  Label4->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  valor = addBox(Preferences::Box::valor, QStringLiteral("valor"));
  Label5 = new QLabel(frameCurrency_);
  Label5->setObjectName(QStringLiteral("Label5"));
  cur->addWidget(Label4, 1, 0, 1, 2);
  cur->addWidget(valor, 1, 2);
  cur->addWidget(Label5, 1, 3);
  left->addWidget(frameCurrency_);

  frameGeneral_ = new QGroupBox(this);
  auto* gen = new QVBoxLayout(frameGeneral_);
  auto check = [this, gen](const char* name, void (Preferences::*handler)()) {
    auto* c = new QCheckBox(frameGeneral_);
    c->setObjectName(QLatin1String(name));
    connect(c, &QCheckBox::clicked, this, [this, handler] { act([&] { (model_.*handler)(); }); });
    gen->addWidget(c);
    return c;
  };
  Check1 = check("Check1", &Preferences::Check1_Click);
  Check5 = check("Check5", &Preferences::Check5_Click);
  Check2 = check("Check2", &Preferences::Check2_Click);
  Check4 = check("Check4", &Preferences::Check4_Click);
  Check7 = check("Check7", &Preferences::Check7_Click);
  Check6 = check("Check6", &Preferences::Check6_Click);
  auto* fileRow = new QHBoxLayout;
  Command5 = new ChameleonButtonWidget(frameGeneral_);
  Command5->setObjectName(QStringLiteral("Command5"));
  connect(Command5, &ChameleonButtonWidget::clicked, this, [this] { act([&] { model_.Command5_Click(); }); });
  Label2 = new QLabel(frameGeneral_);
  Label2->setObjectName(QStringLiteral("Label2"));
  Label2->setMinimumWidth(200);
  Label2->setFrameShape(QFrame::StyledPanel);
  Label2->setTextInteractionFlags(Qt::TextSelectableByMouse);
  fileRow->addWidget(Command5);
  fileRow->addWidget(Label2, 1);
  gen->addLayout(fileRow);
  left->addWidget(frameGeneral_);

  auto* misc = new QGridLayout;
  Label1[5] = new QLabel(this);
  Text3 = addBox(Preferences::Box::Text3, QStringLiteral("Text3"));
  Text3->setMaximumWidth(90);
  labelWeb_ = new QLabel(this);
  Text5 = addBox(Preferences::Box::Text5, QStringLiteral("Text5"));
  misc->addWidget(Label1[5], 0, 0);
  misc->addWidget(Text3, 0, 1, Qt::AlignLeft);
  misc->addWidget(labelWeb_, 1, 0);
  misc->addWidget(Text5, 1, 1);
  misc->setColumnStretch(1, 1);
  left->addLayout(misc);
  left->addStretch(1);

  // ---- Middle: the lists, the system and the flag.
  frameLists_ = new QGroupBox(this);
  auto* lists = new QGridLayout(frameLists_);
  auto list = [this, lists](int row, const char* name, void (Preferences::*handler)(int)) {
    Label1[static_cast<size_t>(row)] = new QLabel(frameLists_);
    Label1[static_cast<size_t>(row)]->setObjectName(QStringLiteral("Label1(%1)").arg(row));
    auto* c = new QComboBox(frameLists_);
    c->setObjectName(QLatin1String(name));
    connect(c, &QComboBox::activated, this, [this, handler](int i) { act([&] { (model_.*handler)(i); }); });
    lists->addWidget(Label1[static_cast<size_t>(row)], row * 2, 0, 1, 2);
    lists->addWidget(c, row * 2 + 1, 0);
    return c;
  };
  List1 = list(0, "List1", &Preferences::List1_Click);
  List2 = list(1, "List2", &Preferences::List2_Click);
  List3 = list(2, "List3", &Preferences::List3_Click);
  List4 = list(3, "List4", &Preferences::List4_Click);
  List5 = list(4, "List5", &Preferences::List5_Click);
  Image1 = new QLabel(frameLists_);
  Image1->setObjectName(QStringLiteral("Image1"));
  lists->addWidget(Image1, 9, 1);
  Label21 = new QLabel(frameLists_);
  Label21->setObjectName(QStringLiteral("Label21"));
  Label21->setWordWrap(true);
  lists->addWidget(Label21, 10, 0, 1, 2);
  lists->setRowStretch(11, 1);
  columns->addWidget(frameLists_, 3);

  // ---- Right: the alarm sound and the preset alarms.
  auto* right = new QVBoxLayout;
  columns->addLayout(right, 4);
  frameAlarm_ = new QGroupBox(this);
  auto* alarm = new QGridLayout(frameAlarm_);
  for (int i = 0; i < 6; ++i) {
    auto* o = new QRadioButton(frameAlarm_);
    o->setObjectName(QStringLiteral("Option1(%1)").arg(i));
    o->setAutoExclusive(false);
    connect(o, &QRadioButton::clicked, this, [this, i] { act([&] { model_.Option1_Click(i); }); });
    Option1[static_cast<size_t>(i)] = o;
    alarm->addWidget(o, i % 3, i / 3);
  }
  Command4 = new ChameleonButtonWidget(frameAlarm_);
  Command4->setObjectName(QStringLiteral("Command4"));
  connect(Command4, &ChameleonButtonWidget::clicked, this, [this] { act([&] { model_.Command4_Click(); }); });
  alarm->addWidget(Command4, 3, 1);
  right->addWidget(frameAlarm_);

  framePreset_ = new QGroupBox(this);
  auto* preset = new QGridLayout(framePreset_);
  for (int i = 0; i < 5; ++i) {
    auto* r = new QRadioButton(framePreset_);
    r->setObjectName(QStringLiteral("Check3(%1)").arg(i));
    r->setAutoExclusive(false);
    connect(r, &QRadioButton::clicked, this, [this, i] { act([&] { model_.Check3_Click(i); }); });
    Check3[static_cast<size_t>(i)] = r;
    preset->addWidget(r, i, 0);
    if (i == 0) continue;
    auto* t = new QLineEdit(framePreset_);
    t->setObjectName(QStringLiteral("Text4(%1)").arg(i));
    t->setReadOnly(true);
    t->setMaximumWidth(100);
    t->installEventFilter(this);
    Text4[static_cast<size_t>(i)] = t;
    preset->addWidget(t, i, 1);
  }
  right->addWidget(framePreset_);
  right->addStretch(1);

  // ---- The hidden command box.
  commandRow_ = new QWidget(this);
  auto* cmd = new QHBoxLayout(commandRow_);
  cmd->setContentsMargins(0, 0, 0, 0);
  Label3 = new QLabel(commandRow_);
  Label3->setObjectName(QStringLiteral("Label3"));
  Text6 = addBox(Preferences::Box::Text6, QStringLiteral("Text6"));
  Text6->setParent(commandRow_);
  connect(Text6, &QLineEdit::returnPressed, this, [this] { act([&] { model_.Text6_Enter(); }); });
  cmd->addWidget(Label3);
  cmd->addWidget(Text6, 1);
  outer->addWidget(commandRow_);

  // ---- The buttons.
  auto* buttons = new QHBoxLayout;
  auto button = [this, buttons](const char* name, void (Preferences::*handler)()) {
    auto* b = new ChameleonButtonWidget(this);
    b->setObjectName(QLatin1String(name));
    b->setMinimumSize(110, 30);
    connect(b, &ChameleonButtonWidget::clicked, this, [this, handler] { act([&] { (model_.*handler)(); }); });
    buttons->addWidget(b);
    return b;
  };
  Command1 = button("Command1", &Preferences::Command1_Click);
  buttons->addStretch(1);
  Command2 = button("Command2", &Preferences::Command2_Click);
  Command3 = button("Command3", &Preferences::Command3_Click);
  outer->addLayout(buttons);

  Label1[5]->setObjectName(QStringLiteral("Label1(5)"));
  Label1[5]->installEventFilter(this);
}

void PreferencesWindow::loadCaptions() {
  const Preferences& m = model_;
  setWindowTitle(m.Caption);
  frameCurrency_->setTitle(m.text(122));
  labelCurrency1_->setText(m.text(178));
  labelCurrency2_->setText(m.text(179));
  Text1->setToolTip(m.text(133));
  Text2->setToolTip(m.text(134));
  valor->setToolTip(m.text(135));
  Check1->setText(m.text(119));
  Check2->setText(m.text(120));
  Check2->setToolTip(m.text(126));
  Check4->setText(m.text(121));
  Check5->setText(m.text(158));
  Check6->setText(m.text(159));
  Check7->setText(m.text(172));
  Command5->setText(m.text(180));
  Command5->setToolTip(m.text(175));
  Label1[5]->setText(m.text(127));
  Text3->setToolTip(m.text(124));
  labelWeb_->setText(m.text(125));
  Text5->setToolTip(m.text(128));
  frameLists_->setTitle(m.text(10));
  for (int i = 0; i < 5; ++i) Label1[static_cast<size_t>(i)]->setText(m.text(164 + i));
  frameAlarm_->setTitle(m.text(169));
  for (int i = 0; i < 5; ++i) Option1[static_cast<size_t>(i)]->setText(QStringLiteral("alarma%1.wav").arg(i + 1));
  Option1[5]->setToolTip(m.text(141));
  Command4->setText(m.text(142));
  Command4->setToolTip(m.text(141));
  framePreset_->setTitle(m.text(170));
  Check3[0]->setText(m.text(138));
  for (int i = 0; i < 5; ++i) Check3[static_cast<size_t>(i)]->setToolTip(m.text(140));
  for (int i = 1; i < 5; ++i) Check3[static_cast<size_t>(i)]->setText(m.text(139) + QLatin1Char(' ') + QString::number(i));
  Label3->setText(m.text(176));
  Command1->setText(m.text(129));
  Command1->setToolTip(m.text(130));
  Command2->setText(m.text(131));
  Command2->setToolTip(m.text(132));
  Command3->setText(m.text(136));
  Command3->setToolTip(m.text(137));
  const QSignalBlocker b1(List1), b2(List2), b3(List3), b4(List4), b5(List5);
  List1->clear();
  List1->addItems(m.List1Items());
  List2->clear();
  List2->addItems(m.List2Items());
  List3->clear();
  List3->addItems(m.List3Items());
  List4->clear();
  List4->addItems(m.List4Items());
  List5->clear();
  List5->addItems(m.List5Items());
}

void PreferencesWindow::refresh() {
  refreshing_ = true;
  const Preferences& m = model_;
  setWindowTitle(m.Caption);
  for (const auto& [edit, box] : std::as_const(boxes_)) {
    const QString t = model_.boxText(box);
    if (edit->text() != t) edit->setText(t);
  }
  Label4->setText(m.Label4);
  Label5->setText(m.Label5);
  Check1->setChecked(m.Check1 != 0);
  Check2->setChecked(m.Check2 != 0);
  Check4->setChecked(m.Check4 != 0);
  Check5->setChecked(m.Check5 != 0);
  Check6->setChecked(m.Check6 != 0);
  Check7->setChecked(m.Check7 != 0);
  Check5->setEnabled(m.isEnabled(QStringLiteral("Check5")));
  Check6->setEnabled(m.isEnabled(QStringLiteral("Check6")));
  Label2->setText(fontMetrics().elidedText(QDir::toNativeSeparators(m.Label2), Qt::ElideMiddle, 260));
  Label2->setToolTip(m.Label2);
  for (int i = 0; i < 5; ++i) Check3[static_cast<size_t>(i)]->setChecked(m.Check3 == i);
  for (int i = 0; i < 6; ++i) Option1[static_cast<size_t>(i)]->setChecked(m.Option1 == i);
  Option1[5]->setText(m.userAlarmName);
  for (int i = 1; i < 5; ++i) Text4[static_cast<size_t>(i)]->setText(m.Text4[static_cast<size_t>(i)]);
  List1->setCurrentIndex(m.List1);
  List2->setCurrentIndex(m.List2);
  List3->setCurrentIndex(m.List3);
  List4->setCurrentIndex(m.List4);
  List5->setCurrentIndex(m.List5);
  Label21->setText(m.text(177) + QLatin1Char(' ') + m.Label21);
  Image1->setPixmap(flagPicture(m.flag()));
  commandRow_->setVisible(m.commandBoxVisible);
  refreshing_ = false;
}

void PreferencesWindow::showScreenshotState(const QString& state) {
  const QStringList languages{QStringLiteral("es"), QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("ca")};
  if (languages.contains(state)) {
    act([&] { model_.List5_Click(static_cast<int>(languages.indexOf(state))); });
  } else if (state == QLatin1String("commandbox")) {
    model_.commandBoxVisible = true;
    model_.Text6 = QStringLiteral("cvxinfo");
    refresh();
  }
}

QString PreferencesWindow::askFileName(const Preferences::FileDialogRequest& r) {
  QDir().mkpath(r.folder);
  return QFileDialog::getOpenFileName(this, r.title, r.folder, dialogFilter(r.filter));
}

void PreferencesWindow::closeEvent(QCloseEvent* event) {
  // Closed by its title bar or Escape: as "Salir", nothing is kept.
  if (model_.loaded) model_.Form_Unload();
  event->accept();
}

void PreferencesWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    if (model_.commandBoxVisible) {
      model_.commandBoxVisible = false;
      model_.Text6.clear();
      refresh();
    } else {
      close();
    }
    return;
  }
  QWidget::keyPressEvent(event);
}

bool PreferencesWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    auto* mouse = static_cast<QMouseEvent*>(event);
    if (watched == Label1[5]) {
      int shift = 0;
      if (mouse->modifiers() & Qt::ShiftModifier) shift |= 1;
      if (mouse->modifiers() & Qt::ControlModifier) shift |= 2;
      if (mouse->modifiers() & Qt::AltModifier) shift |= 4;
      act([&] { model_.Label1_MouseDown(5, shift); });
      return true;
    }
    for (int i = 1; i < 5; ++i) {
      if (watched == Text4[static_cast<size_t>(i)] && mouse->button() == Qt::LeftButton) {
        act([&] { model_.Text4_Click(i); });
        return true;
      }
    }
  }
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    for (const auto& [edit, box] : std::as_const(boxes_)) {
      if (watched != edit) continue;
      const QString t = key->text();
      if (t.size() != 1 || !t.at(0).isPrint()) return false;
      const int kept = model_.filterKey(box, t.at(0).unicode());
      if (kept == 0) return true;  // the filter drops it
      if (kept != t.at(0).unicode()) {
        // The filter changed the key (a separator into the system's one).
        edit->insert(QString(QChar(kept)));
        Q_EMIT edit->textEdited(edit->text());
        return true;
      }
      return false;
    }
  }
  if (event->type() == QEvent::FocusOut) {
    for (const auto& [edit, box] : std::as_const(boxes_)) {
      if (watched == edit && model_.loaded) {
        act([&] { model_.lostFocus(box); });
        break;
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}
