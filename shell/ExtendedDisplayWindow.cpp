#include "shell/ExtendedDisplayWindow.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/Strings.h"

namespace {

// The face installed as fonts/LCDfont.ttf (DSEG7 Classic).
const QString kLcdFamily = QStringLiteral("DSEG7 Classic");

// Pixel sizes of Text1 and Text2 in each face; the LCD digits are wider.
constexpr int kArialSizes[] = {40, 18};
constexpr int kLcdSizes[] = {34, 16};

QFont displayFont(const QString& family, int pixelSize, bool bold) {
  QFont f(family);
  f.setStyleHint(QFont::SansSerif);
  f.setPixelSize(pixelSize);
  f.setBold(bold);
  return f;
}

QLineEdit* makeBox(QWidget* parent, const char* name, const QFont& font) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(QString::fromLatin1(name));
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  box->setFont(font);
  return box;
}

}  // namespace

ExtendedDisplayWindow::ExtendedDisplayWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), frame_(0x00, 0x00, 0xC0) {
  setObjectName(QStringLiteral("ExtendedDisplay"));
  setWindowTitle(Res(3025));
  Text1 = makeBox(this, "Text1", QFont());
  Text2 = new QPlainTextEdit(this);
  Text2->setObjectName(QStringLiteral("Text2"));
  Text2->setReadOnly(true);
  Text2->setFocusPolicy(Qt::NoFocus);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(8);
  layout->addWidget(Text1);
  layout->addWidget(Text2);
  applyFont();
  fitWidth(420);
}

QString ExtendedDisplayWindow::lcdFamily() {
  if (!QFontDatabase::families().contains(kLcdFamily)) {
    platform().registerFont(sharedFile(QStringLiteral("fonts/LCDfont.ttf")));
  }
  return kLcdFamily;
}

void ExtendedDisplayWindow::switchFont() {
  lcd_ = !lcd_;
  applyFont();
}

void ExtendedDisplayWindow::applyFont() {
  const QString family = lcd_ ? lcdFamily() : QStringLiteral("Arial");
  const int* sizes = lcd_ ? kLcdSizes : kArialSizes;
  Text1->setFont(displayFont(family, sizes[0], true));
  Text2->setFont(displayFont(family, sizes[1], false));
  // Three lines of result, whatever the face.
  Text1->setFixedHeight(Text1->fontMetrics().height() + 12);
  Text2->setFixedHeight(Text2->fontMetrics().lineSpacing() * 3 + 10);
  adjustSize();
}

void ExtendedDisplayWindow::setFrameColour(const QColor& colour) {
  frame_ = colour;
  update();
}

void ExtendedDisplayWindow::fitWidth(int width) {
  const int w = std::max(120, width);
  Text1->setFixedWidth(w);
  Text2->setFixedWidth(w);
  adjustSize();
}

void ExtendedDisplayWindow::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().color(QPalette::Window));
  p.setPen(QPen(frame_, 6));
  p.drawRect(rect().adjusted(3, 3, -3, -3));
}
