#include "shell/ExtendedDisplayWindow.h"

#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "shell/Strings.h"

namespace {

QFont displayFont(int pixelSize, bool bold) {
  QFont f(QStringLiteral("DejaVu Sans Mono"));
  f.setStyleHint(QFont::Monospace);
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
  Text1 = makeBox(this, "Text1", displayFont(44, true));
  Text2 = new QPlainTextEdit(this);
  Text2->setObjectName(QStringLiteral("Text2"));
  Text2->setReadOnly(true);
  Text2->setFocusPolicy(Qt::NoFocus);
  Text2->setFont(displayFont(22, false));
  Text2->setFixedHeight(Text2->fontMetrics().lineSpacing() * 3 + 12);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(8);
  layout->addWidget(Text1);
  layout->addWidget(Text2);
  fitWidth(420);
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
