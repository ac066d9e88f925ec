// calvix: the desktop program. The control centre is the first window and
// the last to go; it opens every module window.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvix"));
  QLabel placeholder(QStringLiteral("Calvix"));
  placeholder.show();
  return QApplication::exec();
}
