// calvix_startup_timing: how long the control centre and the calculator take
// to reach the screen, each beside a reference window measured the same way.
//
//   calvix_startup_timing [--runs N]
//
// Each sample is a fresh process (the program re-runs itself with --child):
//   reference  main() -> first paint of a plain main window holding a table
//              and 20 buttons; then the time from "click" to the first paint
//              of a second such window.
//   centre     main() -> first paint of the control centre, registered and
//              opened as the program does; then the time from the Command1
//              click to the first paint of the calculator.
// A window counts as painted when the event loop has come back after its
// first paint event, so every child widget has been drawn too. The report
// gives medians over the samples and the ratios to the reference.
#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <QTextStream>
#include <QTimer>
#include <QVBoxLayout>
#include <QGridLayout>
#include <algorithm>
#include <functional>

#include "calc/CalculatorWindow.h"
#include "shell/ControlCentreWindow.h"
#include "shell/WindowRegistry.h"

namespace {

QElapsedTimer g_sinceMain;

// Calls done() once, after the window's first paint has been carried out.
class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget* window, std::function<void()> done) : done_(std::move(done)) { window->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && !seen_) {
      seen_ = true;
      watched->removeEventFilter(this);
      QTimer::singleShot(0, this, [this] { done_(); });
    }
    return false;
  }

 private:
  std::function<void()> done_;
  bool seen_ = false;
};

QWidget* referenceWindow() {
  auto* w = new QMainWindow;
  auto* central = new QWidget(w);
  auto* v = new QVBoxLayout(central);
  auto* table = new QTableWidget(12, 6, central);
  v->addWidget(table);
  auto* grid = new QGridLayout;
  for (int i = 0; i < 20; ++i) grid->addWidget(new QPushButton(QStringLiteral("Key %1").arg(i), central), i / 5, i % 5);
  v->addLayout(grid);
  w->setCentralWidget(central);
  w->resize(640, 480);
  return w;
}

void report(const char* key, double ms) {
  QTextStream(stdout) << key << ' ' << QString::number(ms, 'f', 2) << Qt::endl;
}

double msSince(const QElapsedTimer& t) { return static_cast<double>(t.nsecsElapsed()) / 1e6; }

int runReferenceChild() {
  QWidget* first = referenceWindow();
  auto* probe = new FirstPaint(first, [] {
    report("start", msSince(g_sinceMain));
    QElapsedTimer click;
    click.start();
    QWidget* second = referenceWindow();
    new FirstPaint(second, [click] {
      report("open", msSince(click));
      QApplication::exit(0);
    });
    second->show();
  });
  Q_UNUSED(probe);
  first->show();
  return QApplication::exec();
}

int runCentreChild() {
  registerWindowFactory(WindowId::ControlCentre, [] { return new ControlCentreWindow; });
  registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
  QWidget* centre = OpenWindow(WindowId::ControlCentre);
  new FirstPaint(centre, [] { report("start", msSince(g_sinceMain)); });
  auto* cc = qobject_cast<ControlCentreWindow*>(centre);
  QObject::connect(cc, &ControlCentreWindow::loaded, cc, [cc] {
    report("loaded", msSince(g_sinceMain));
    // The click: time from pressing Command1 to the calculator on screen.
    QTimer::singleShot(0, cc, [cc] {
      QElapsedTimer click;
      click.start();
      cc->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
      QWidget* calc = findWindow(WindowId::ScientificCalculator);
      if (!calc) {
        QApplication::exit(1);
        return;
      }
      new FirstPaint(calc, [click] {
        report("open", msSince(click));
        QApplication::exit(0);
      });
    });
  });
  return QApplication::exec();
}

struct Samples {
  QList<double> start, open, loaded;
};

double median(QList<double> v) {
  if (v.isEmpty()) return 0;
  std::sort(v.begin(), v.end());
  const qsizetype n = v.size();
  return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

bool sample(const QString& kind, Samples& into) {
  QProcess p;
  p.setProgram(QCoreApplication::applicationFilePath());
  p.setArguments({QStringLiteral("--child"), kind});
  p.start();
  if (!p.waitForFinished(30000) || p.exitCode() != 0) return false;
  for (const QString& line : QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'))) {
    const QStringList parts = line.split(QLatin1Char(' '));
    if (parts.size() != 2) continue;
    const double v = parts[1].toDouble();
    if (parts[0] == QLatin1String("start")) into.start << v;
    else if (parts[0] == QLatin1String("open")) into.open << v;
    else if (parts[0] == QLatin1String("loaded")) into.loaded << v;
  }
  return true;
}

int runParent(int runs) {
  Samples reference, centre;
  // Alternate the two kinds so that a busy spell of the machine hits both.
  for (int i = 0; i < runs; ++i) {
    if (!sample(QStringLiteral("reference"), reference) || !sample(QStringLiteral("centre"), centre)) {
      QTextStream(stderr) << "a sample failed" << Qt::endl;
      return 1;
    }
  }
  QTextStream out(stdout);
  const double refStart = median(reference.start), ccStart = median(centre.start);
  const double refOpen = median(reference.open), calcOpen = median(centre.open);
  out << "platform " << QGuiApplication::platformName() << ", " << runs << " samples each, medians in ms\n";
  out << QStringLiteral("reference window, main() to first paint   %1\n").arg(refStart, 8, 'f', 1);
  out << QStringLiteral("control centre,   main() to first paint   %1   ratio %2\n")
             .arg(ccStart, 8, 'f', 1)
             .arg(ccStart / refStart, 0, 'f', 2);
  out << QStringLiteral("control centre,   main() to start done    %1\n").arg(median(centre.loaded), 8, 'f', 1);
  out << QStringLiteral("reference window, click to first paint    %1\n").arg(refOpen, 8, 'f', 1);
  out << QStringLiteral("calculator,       click to first paint    %1   ratio %2\n")
             .arg(calcOpen, 8, 'f', 1)
             .arg(calcOpen / refOpen, 0, 'f', 2);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  g_sinceMain.start();
  QApplication app(argc, argv);
  const QStringList args = app.arguments();
  const qsizetype child = args.indexOf(QStringLiteral("--child"));
  if (child >= 0 && child + 1 < args.size()) {
    return args[child + 1] == QLatin1String("centre") ? runCentreChild() : runReferenceChild();
  }
  int runs = 7;
  const qsizetype r = args.indexOf(QStringLiteral("--runs"));
  if (r >= 0 && r + 1 < args.size()) runs = std::max(1, args[r + 1].toInt());
  return runParent(runs);
}
