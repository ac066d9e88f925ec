#include "shell/AboutWindow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ControlCentre.h"
#include "shell/LanguageService.h"
#include "shell/PictureHolderView.h"
#include "shell/Strings.h"
#include "shell/WindowServices.h"

AboutWindow::AboutWindow(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Form6"));
  setAttribute(Qt::WA_DeleteOnClose);
  setProperty("ownCaptionLoader", true);

  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(20, 16, 20, 16);
  outer->setSpacing(10);
  auto* top = new QHBoxLayout;
  auto* emblem = new QLabel(this);
  emblem->setPixmap(pictures::about(56));
  top->addWidget(emblem, 0, Qt::AlignTop);
  auto* titles = new QVBoxLayout;
  heading_ = new QLabel(QStringLiteral("Calvix Premium"), this);
  QFont hf = heading_->font();
  hf.setPointSizeF(hf.pointSizeF() * 1.8);
  hf.setBold(true);
  heading_->setFont(hf);
  subtitle_ = new QLabel(this);
  version_ = new QLabel(this);
  version_->setObjectName(QStringLiteral("version"));
  user_ = new QLabel(this);
  user_->setObjectName(QStringLiteral("user"));
  for (QLabel* l : {heading_, subtitle_, version_, user_}) titles->addWidget(l);
  top->addLayout(titles, 1);
  outer->addLayout(top);

  note_ = new QLabel(this);
  note_->setObjectName(QStringLiteral("sampleNote"));
  note_->setWordWrap(true);
  outer->addWidget(note_);

  Label5 = new QLabel(this);
  Label5->setObjectName(QStringLiteral("Label5"));
  Label5->setCursor(Qt::PointingHandCursor);
  Label5->setStyleSheet(QStringLiteral("color: #10307a; text-decoration: underline;"));
  Label5->installEventFilter(this);
  outer->addWidget(Label5, 0, Qt::AlignHCenter);

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  auto button = [this, buttons](const char* name, void (AboutModel::*handler)()) {
    auto* b = new ChameleonButtonWidget(this);
    b->setObjectName(QLatin1String(name));
    b->setMinimumSize(120, 32);
    connect(b, &ChameleonButtonWidget::clicked, this, [this, handler] { (model_.*handler)(); });
    buttons->addWidget(b);
    return b;
  };
  Command1 = button("Command1", &AboutModel::Command1_Click);
  Command3 = button("Command3", &AboutModel::Command3_Click);
  Command4 = button("Command4", &AboutModel::Command4_Click);
  Command5 = button("Command5", &AboutModel::Command5_Click);
  outer->addLayout(buttons);
  for (QLabel* l : findChildren<QLabel*>()) {
    if (l != Label5) l->setStyleSheet(QStringLiteral("color: #14141e;"));
  }

  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, &AboutWindow::loadCaptions);
  loadCaptions();
  setFixedWidth(std::max(sizeHint().width(), 560));
  note_->setMinimumHeight(note_->heightForWidth(width() - 40));
  adjustSize();
}

void AboutWindow::loadCaptions() {
  model_.Form_Load();
  setWindowTitle(model_.Caption);
  subtitle_->setText(Res(5024));
  version_->setText(model_.version);
  user_->setText(Res(5019) + QLatin1Char(' ') + model_.user);
  note_->setText(model_.sampleNote);
  Label5->setText(model_.Label5);
  Label5->setToolTip(Res(5025));
  const struct {
    ChameleonButtonWidget* button;
    int caption;
    int tooltip;
  } texts[] = {{Command1, 5020, 5012}, {Command3, 5021, 5013}, {Command4, 5022, 5014}, {Command5, 5023, 5015}};
  for (const auto& t : texts) {
    t.button->setText(Res(t.caption));
    t.button->setToolTip(Res(t.tooltip));
  }
}

void AboutWindow::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const qreal band = static_cast<qreal>(height()) / ControlCentre::kGradientSteps;
  for (int step = 0; step < ControlCentre::kGradientSteps; ++step) {
    // The control centre's bands, from light at the top to lighter below.
    const std::uint32_t c = ControlCentre::gradientColour(ControlCentre::kGradientSteps - 1 - step / 3);
    p.fillRect(QRectF(0, step * band, width(), band + 1),
               QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF), static_cast<int>((c >> 16) & 0xFF)));
  }
}

void AboutWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
    close();
    return;
  }
  if (model_.Form_KeyDown(event->key(), event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))) return;
  QWidget::keyPressEvent(event);
}

bool AboutWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Label5 && event->type() == QEvent::MouseButtonRelease) {
    model_.Label5_Click();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void AboutWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (placed_) return;
  placed_ = true;
  CentreOnScreen(this);
}
