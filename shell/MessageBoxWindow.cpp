#include "shell/MessageBoxWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "shell/runtime/DateTime.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/WindowServices.h"

namespace {

std::vector<MBox*>& openBoxes() {
  static std::vector<MBox*> boxes;
  return boxes;
}
int g_timerInterval = 250;

QColor fromLong(std::uint32_t v) {
  return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF), static_cast<int>((v >> 16) & 0xFF));
}

// Two lines along the edges of r: light on top and left, dark on the bottom
// and right, as a raised bevel.
void bevel(QPainter& p, const QRect& r, const QColor& light, const QColor& dark, int width) {
  p.setPen(QPen(light, width, Qt::SolidLine, Qt::SquareCap));
  p.drawLine(r.topLeft(), r.topRight());
  p.drawLine(r.topLeft(), r.bottomLeft());
  p.setPen(QPen(dark, width, Qt::SolidLine, Qt::SquareCap));
  p.drawLine(r.bottomLeft(), r.bottomRight());
  p.drawLine(r.topRight(), r.bottomRight());
}

QStyle::StandardPixmap iconOfKind(int kind) {
  switch (kind) {
    case 1:
    case 5: return QStyle::SP_MessageBoxQuestion;
    case 2:
    case 7: return QStyle::SP_MessageBoxWarning;
    case 3: return QStyle::SP_MessageBoxCritical;
    default: return QStyle::SP_MessageBoxInformation;
  }
}

constexpr int kMinTextWidth = 260;
constexpr int kMaxTextWidth = 520;

}  // namespace

// ---- MBoxButton ---------------------------------------------------------------

MBoxButton::MBoxButton(int index, QWidget* parent) : QWidget(parent), index_(index), caption_(new QLabel(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setObjectName(QStringLiteral("But1_%1").arg(index));
  caption_->setObjectName(QStringLiteral("Label1_%1").arg(index));
  caption_->setAlignment(Qt::AlignCenter);
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette pal = caption_->palette();
  pal.setColor(QPalette::WindowText, Qt::black);
  caption_->setPalette(pal);
}

void MBoxButton::setDefaultMark(bool on) {
  defaultMark_ = on;
  QFont f = caption_->font();
  f.setBold(on);
  caption_->setFont(f);
  update();
}

QSize MBoxButton::sizeHint() const {
  QFont bold = caption_->font();
  bold.setBold(true);
  const int text = QFontMetrics(bold).horizontalAdvance(caption_->text());
  return {std::max(96, text + 28), 30};
}

void MBoxButton::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const QRect r = rect().adjusted(0, 0, -1, -1);
  QLinearGradient face(0, 0, 0, height());
  face.setColorAt(0, sunken_ ? QColor(0xD0, 0xD0, 0xD0) : QColor(0xF8, 0xF8, 0xF8));
  face.setColorAt(1, sunken_ ? QColor(0xE8, 0xE8, 0xE8) : QColor(0xD4, 0xD4, 0xD4));
  p.fillRect(r, face);
  p.setPen(QColor(0x30, 0x30, 0x30));
  p.drawRect(r);
  const QRect inner = r.adjusted(1, 1, -1, -1);
  if (sunken_) bevel(p, inner, QColor(0x80, 0x80, 0x80), QColor(0xF0, 0xF0, 0xF0), 1);
  else bevel(p, inner, Qt::white, QColor(0x90, 0x90, 0x90), 1);
  if (defaultMark_) {
    p.setPen(QPen(QColor(0x10, 0x10, 0x60), 2));
    p.drawRect(rect().adjusted(1, 1, -1, -1));
  }
  if (hasFocus()) {
    p.setPen(QPen(QColor(0x20, 0x20, 0x20), 1, Qt::DotLine));
    p.drawRect(r.adjusted(4, 4, -4, -4));
  }
  caption_->setGeometry(rect().translated(sunken_ ? 1 : 0, sunken_ ? 1 : 0));
}

void MBoxButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  sunken_ = true;
  setFocus(Qt::MouseFocusReason);
  update();
}

void MBoxButton::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton)) return;
  const bool over = rect().contains(event->position().toPoint());
  if (over != sunken_) {
    sunken_ = over;
    update();
  }
}

void MBoxButton::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const bool over = rect().contains(event->position().toPoint());
  sunken_ = false;
  update();
  if (over) Q_EMIT clicked(index_);
}

void MBoxButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space: Q_EMIT clicked(index_); return;
    case Qt::Key_Left: focusPreviousChild(); return;
    case Qt::Key_Right: focusNextChild(); return;
    default: QWidget::keyPressEvent(event);
  }
}

// ---- MBox -----------------------------------------------------------------------

MBox::MBox(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
  setObjectName(QStringLiteral("MBox"));
  openBoxes().push_back(this);

  Label3 = new QLabel(this);
  Label3->setObjectName(QStringLiteral("Label3"));
  Label3->setContentsMargins(8, 4, 8, 4);
  Label3->setCursor(Qt::SizeAllCursor);
  Label3->installEventFilter(this);
  QFont titleFont = Label3->font();
  titleFont.setBold(true);
  Label3->setFont(titleFont);
  QPalette titlePal = Label3->palette();
  titlePal.setColor(QPalette::WindowText, Qt::white);
  Label3->setPalette(titlePal);

  Pic1 = new QLabel(this);
  Pic1->setObjectName(QStringLiteral("Pic1"));
  Pic1->setFixedSize(40, 40);
  Pic1->setAlignment(Qt::AlignCenter);

  Label2 = new QLabel(this);
  Label2->setObjectName(QStringLiteral("Label2"));
  Label2->setTextFormat(Qt::PlainText);
  Label2->setWordWrap(true);
  Label2->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

  mboxlist = new QComboBox(this);
  mboxlist->setObjectName(QStringLiteral("mboxlist"));
  mboxlist->installEventFilter(this);
  inputtxt = new QLineEdit(this);
  inputtxt->setObjectName(QStringLiteral("inputtxt"));
  inputtxt->installEventFilter(this);
  DTPicker1 = new QDateEdit(this);
  DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
  DTPicker1->setCalendarPopup(true);
  DTPicker1->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
  for (QWidget* field : {static_cast<QWidget*>(mboxlist), static_cast<QWidget*>(inputtxt),
                         static_cast<QWidget*>(DTPicker1)}) {
    field->hide();
  }

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  buttons->addStretch(1);
  for (int i = 0; i < 3; ++i) {
    But1[static_cast<size_t>(i)] = new MBoxButton(i, this);
    Label1[static_cast<size_t>(i)] = But1[static_cast<size_t>(i)]->caption();
    buttons->addWidget(But1[static_cast<size_t>(i)]);
    connect(But1[static_cast<size_t>(i)], &MBoxButton::clicked, this, &MBox::Label1_Click);
  }
  buttons->addStretch(1);

  auto* body = new QHBoxLayout;
  body->setSpacing(12);
  body->addWidget(Pic1, 0, Qt::AlignTop);
  body->addWidget(Label2, 1);

  auto* root = new QVBoxLayout(this);
  root->setContentsMargins(6, 6, 6, 14);
  root->setSpacing(10);
  root->addWidget(Label3);
  auto* inner = new QVBoxLayout;
  inner->setContentsMargins(12, 2, 12, 0);
  inner->setSpacing(10);
  inner->addLayout(body);
  inner->addWidget(mboxlist);
  inner->addWidget(inputtxt);
  inner->addWidget(DTPicker1);
  inner->addLayout(buttons);
  root->addLayout(inner);
  root->setSizeConstraint(QLayout::SetFixedSize);

  Timer1 = new QTimer(this);
  Timer1->setObjectName(QStringLiteral("Timer1"));
  Timer1->setInterval(g_timerInterval);
  connect(Timer1, &QTimer::timeout, this, &MBox::Timer1_Timer);

  // Shift+F10 starts the screen saver here as in the control centre.
  auto* screenSaver = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), this);
  connect(screenSaver, &QShortcut::activated, this, [] { SystemAction(1, program().OsFamily); });
}

MBox::~MBox() {
  auto& boxes = openBoxes();
  boxes.erase(std::remove(boxes.begin(), boxes.end(), this), boxes.end());
}

MBox* MBox::current() {
  const auto& boxes = openBoxes();
  for (auto it = boxes.rbegin(); it != boxes.rend(); ++it) {
    if ((*it)->isVisible()) return *it;
  }
  return nullptr;
}

void MBox::setTimerInterval(int ms) { g_timerInterval = std::max(1, ms); }

void MBox::fill(const MessageRequest& request) {
  scheme_ = messageKindScheme(request.kind);
  Label3->setText(request.title);
  Label2->setText(request.text);
  setWindowTitle(request.title);

  const QIcon icon = style()->standardIcon(iconOfKind(request.kind));
  Pic1->setPixmap(icon.pixmap(32, 32));
  Pic1->setVisible(request.kind != 0 && !icon.isNull());

  // Light text on a dark gradient, dark text on a light one.
  const int r = (scheme_.red[0] + scheme_.red[1]) / 2;
  const int g = (scheme_.green[0] + scheme_.green[1]) / 2;
  const int b = (scheme_.blue[0] + scheme_.blue[1]) / 2;
  textDark_ = (299 * r + 587 * g + 114 * b) / 1000 >= 128;
  QPalette textPal = Label2->palette();
  textPal.setColor(QPalette::WindowText, textDark_ ? Qt::black : Qt::white);
  Label2->setPalette(textPal);

  mboxlist->hide();
  inputtxt->hide();
  DTPicker1->hide();
  if (request.datePicker) {
    DTPicker1->setDate(rt::toQDate(request.date));
    DTPicker1->show();
  } else if (scheme_.list) {
    mboxlist->clear();
    mboxlist->addItems(request.listEntries);
    mboxlist->setPlaceholderText(request.listText);
    mboxlist->setCurrentIndex(-1);
    mboxlist->show();
  } else if (scheme_.input) {
    inputtxt->clear();
    if (!request.defaultText.isEmpty()) inputtxt->setText(request.defaultText);
    inputtxt->show();
  }

  buttonCount_ = static_cast<int>(std::min<qsizetype>(3, std::max<qsizetype>(1, request.buttons.size())));
  const int defaultButton = request.defaultButton >= 0 && request.defaultButton < buttonCount_ ? request.defaultButton : 0;
  for (int i = 0; i < 3; ++i) {
    MBoxButton* button = But1[static_cast<size_t>(i)];
    button->setVisible(i < buttonCount_);
    Label1[static_cast<size_t>(i)]->setText(request.buttons.value(i));
    button->setDefaultMark(i == defaultButton);
  }
  // Buttons of one row share the widest caption's width.
  int width = 0;
  for (int i = 0; i < buttonCount_; ++i) width = std::max(width, But1[static_cast<size_t>(i)]->sizeHint().width());
  for (int i = 0; i < 3; ++i) But1[static_cast<size_t>(i)]->setFixedSize(width, 30);
  defaultButton_ = defaultButton;
  But1[static_cast<size_t>(defaultButton)]->setFocus();

  sizeToText();
  result_ = 0;
  shown_ = false;
  activated_ = false;
}

void MBox::sizeToText() {
  const QFontMetrics fm(Label2->font());
  int natural = 0;
  for (const QString& line : Label2->text().split(QLatin1Char('\n'))) natural = std::max(natural, fm.horizontalAdvance(line));
  const int buttonsWidth = buttonCount_ * (But1[0]->width() + 10) - 52;  // beside the icon column
  const int width = std::clamp(std::max(natural + 6, buttonsWidth), kMinTextWidth, kMaxTextWidth);
  Label2->setFixedWidth(width);
  Label2->setMinimumHeight(std::max(Pic1->height(), Label2->heightForWidth(width)));
  adjustSize();
}

MessageReply MBox::reply() const {
  MessageReply r;
  r.result = result_;
  if (!DTPicker1->isHidden()) r.value = rt::fromQDateTime(DTPicker1->date().startOfDay());
  else if (!mboxlist->isHidden()) r.value = mboxlist->currentIndex() + 1;
  else if (!inputtxt->isHidden()) r.value = inputtxt->text();
  return r;
}

void MBox::Label1_Click(int index) {
  if (index < 0 || index >= buttonCount_) return;
  result_ = index;
  Timer1->stop();
  accept();
}

void MBox::Timer1_Timer() {
  if (rt::Now() < closeAt_) return;
  result_ = 0;  // closing by time stands for the first button
  Timer1->stop();
  accept();
}

void MBox::reject() {}

void MBox::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  activateWindow();
  if (!shown_) {
    shown_ = true;
    // Once the box is painted: the sound may hold the thread until its end.
    QTimer::singleShot(0, this, &MBox::activate);
  }
}

void MBox::activate() {
  // Ask again once the box is on screen: a request made while it was still
  // being mapped can be lost, and the keyboard must reach the box.
  activateWindow();
  ProgramState& p = program();
  p.MessageTitle = Label3->text();
  p.MessageText = Label2->text();
  const bool input = !inputtxt->isHidden();
  if (!input && p.SoundOn == 1) PlayMessageSound();
  if (input) {
    inputtxt->selectAll();
    inputtxt->setFocus(Qt::ActiveWindowFocusReason);
  } else if (mboxlist->isVisible()) {
    mboxlist->setFocus(Qt::ActiveWindowFocusReason);
  } else if (!DTPicker1->isVisible()) {
    But1[static_cast<size_t>(defaultButton_)]->setFocus(Qt::ActiveWindowFocusReason);
  }
  const int seconds = autoCloseSeconds(Label3->text(), input, p.AutoCloseMessages);
  if (seconds > 0) {
    closeAt_ = rt::Now() + seconds / 86400.0;
    Timer1->setInterval(g_timerInterval);
    Timer1->start();
  }
  activated_ = true;
}

bool MBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Label3 && event->type() == QEvent::MouseButtonPress) {
    if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) DragWindow(this);
    return true;
  }
  // Enter on the list answers with the item chosen, as the first button does.
  if (watched == mboxlist && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && mboxlist->currentIndex() >= 0) {
      Label1_Click(0);
      return true;
    }
  }
  if (watched == inputtxt && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      Label1_Click(0);  // Enter in the input line answers with the first button
      return true;
    }
    const QString typed = key->text();
    if (typed.size() == 1 && (typed == QLatin1String(",") || typed == QLatin1String("."))) {
      inputtxt->insert(QString(inputKey(typed.at(0), program().DecimalSymbol.toText())));
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void MBox::paintEvent(QPaintEvent*) {
  QPainter p(this);
  QLinearGradient gradient(0, 0, 0, height());
  gradient.setColorAt(0, QColor(scheme_.red[0], scheme_.green[0], scheme_.blue[0]));
  gradient.setColorAt(1, QColor(scheme_.red[1], scheme_.green[1], scheme_.blue[1]));
  p.fillRect(rect(), gradient);
  // The title bar: a darker band under Label3.
  p.fillRect(Label3->geometry(), QColor(0, 0, 0, 90));
  const QRect r = rect().adjusted(0, 0, -1, -1);
  p.setPen(QColor(0x20, 0x20, 0x20));
  p.drawRect(r);
  bevel(p, r.adjusted(2, 2, -2, -2), fromLong(scheme_.lines[0]), fromLong(scheme_.lines[1]), 2);
  bevel(p, r.adjusted(4, 4, -4, -4), fromLong(scheme_.lines[2]), fromLong(scheme_.lines[3]), 2);
}

// ---- Presenter ----------------------------------------------------------------------

MessageReply MBoxPresenter::present(const MessageRequest& request) {
  Delay(0.1f);
  // On the heap and deleted later: a box born at the address of the one just
  // closed could be taken for it by the window activation.
  // Centred over the active window, unless that is a box already closing.
  QWidget* parent = QApplication::activeWindow();
  if (parent && (!parent->isVisible() || parent->testAttribute(Qt::WA_DontShowOnScreen))) parent = nullptr;
  auto* box = new MBox(parent);
  box->fill(request);
  box->exec();
  const MessageReply reply = box->reply();
  box->hide();
  box->deleteLater();
  return reply;
}
