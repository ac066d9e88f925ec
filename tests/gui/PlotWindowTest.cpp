// The plot window: it opens from the table's plot button on the table's
// data with its controls under their names, a limit typed and validated
// with Enter moves the scale, the menus reach the model, the asymptote rule
// shows in the pixels of the picture, and the printed page (PDF) carries the
// same picture as the screen.
#include <QAction>
#include <QClipboard>
#include <QApplication>
#include <QMouseEvent>
#include <QImage>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QtPrintSupport/QPrinter>
#include <cmath>

#include "funcs/FunctionTable.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotPainterView.h"
#include "funcs/PlotWindow.h"
#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/GuiTestSupport.h"

namespace {

// Tabulates F (radians) into a table, at once.
void tabulate(FunctionTable& t, const QString& f, const QString& start, const QString& end, int points) {
  openInRadians(t);
  tabulateAtOnce(t, f, start, end, points);
}

// Pixels near a palette colour (red in the low byte), as antialiasing leaves them.
bool near(QRgb pixel, std::uint32_t colour, int tolerance = 60) {
  const QColor c = PainterCanvas::toColor(colour);
  return std::abs(qRed(pixel) - c.red()) + std::abs(qGreen(pixel) - c.green()) + std::abs(qBlue(pixel) - c.blue()) <
         tolerance;
}

}  // namespace

class PlotWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
  }
  void cleanup() { clearWindowRegistry(); }

  void opensFromTheTablesPlotButtonWithItsControls() {
    registerWindowFactory(WindowId::FunctionTable, [] { return new FunctionTableWindow; });
    registerWindowFactory(WindowId::Plot, [] { return new PlotWindow; });
    auto* table = qobject_cast<FunctionTableWindow*>(OpenWindow(WindowId::FunctionTable));
    QVERIFY(table);
    tabulate(table->table(), QStringLiteral("x*x-1"), QStringLiteral("-2"), QStringLiteral("3"), 51);
    table->refresh();
    table->findChild<QPushButton*>(QStringLiteral("plot"))->click();
    auto* plot = qobject_cast<PlotWindow*>(findWindow(WindowId::Plot));
    QVERIFY(plot && plot->isVisible());
    QCOMPARE(plot->objectName(), QStringLiteral("Form100"));
    for (const char* name : {"Picture2", "Label1", "Image4", "Picture1", "MSFlexGrid1", "Picture5", "Text5_0",
                             "Command12", "Command13", "Command14", "Command15"}) {
      QVERIFY2(plot->findChild<QWidget*>(QLatin1String(name)), name);
    }
    // The limit boxes show the table's extremes; the derivative's boxes wait for a derivative.
    auto box = [plot](int i) { return plot->findChild<QLineEdit*>(QStringLiteral("Text1_%1").arg(i)); };
    QCOMPARE(box(1)->text(), QStringLiteral("-2"));
    QCOMPARE(box(2)->text(), QStringLiteral("3"));
    QCOMPARE(box(4)->text(), QStringLiteral("8"));
    QVERIFY(box(1)->isVisible() && !box(5)->isVisible());

    // Enter in a box validates it: the scale follows.
    const double top = plot->model().ScaleTop;
    box(4)->setFocus();
    box(4)->selectAll();
    QTest::keyClicks(box(4), QStringLiteral("20"));
    QTest::keyClick(box(4), Qt::Key_Return);
    QCOMPARE(plot->model().Text1[4], QStringLiteral("20"));
    QVERIFY(plot->model().ScaleTop > top);

    // Menus reach the model and the overlays follow.
    plot->findChild<QAction*>(QStringLiteral("menumderiv_1"))->trigger();
    QVERIFY(plot->model().DerivON);
    QVERIFY(box(5)->isVisible());
    plot->findChild<QAction*>(QStringLiteral("cerosfunc1_0"))->trigger();
    QVERIFY(plot->findChild<QWidget*>(QStringLiteral("Picture1"))->isVisible());
    auto* list = plot->findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
    QVERIFY(plot->model().list.rows.size() >= 2);  // near -1 and 1
    QCOMPARE(list->rowCount(), plot->model().list.rows.size());
    QCOMPARE(list->item(0, 0)->text(), plot->model().list.rows[0][0]);

    // Closing the plot lets the table's toggle up again.
    plot->close();
    QVERIFY(!table->table().plot);
    QVERIFY(!table->findChild<QPushButton*>(QStringLiteral("plot"))->isChecked());
  }

  // The integral panel's cursors: shown at the boxes' values, dragged, they write their X into the boxes.
  void integralCursorsAreDraggedOverThePicture() {
    PlotWindow w;
    w.resize(820, 600);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    PlotModel& m = w.model();
    tabulate(m.table(), QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("10"), 11);
    m.Form_Load();
    w.findChild<QAction*>(QStringLiteral("integRange"))->trigger();
    auto* panel = w.findChild<QWidget*>(QStringLiteral("Picture5"));
    QVERIFY(panel->isVisible());
    w.findChild<QPushButton*>(QStringLiteral("Command14"))->click();
    auto* bar = w.findChild<QWidget*>(QStringLiteral("Picture6_0"));
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->geometry().center().x(), PlotModel::kMarginX);  // at X Ini = 0, the frame's left side

    auto* picture = w.findChild<QWidget*>(QStringLiteral("Picture2"));
    const QPoint target = picture->mapToGlobal(QPoint(picture->width() / 2, 200));
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), bar->mapToGlobal(QPointF(2, 2)), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QMouseEvent move(QEvent::MouseMove, bar->mapFromGlobal(QPointF(target)), QPointF(target), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, bar->mapFromGlobal(QPointF(target)), QPointF(target),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(bar, &press);
    QApplication::sendEvent(bar, &move);
    QApplication::sendEvent(bar, &release);
    // The middle of the picture is the middle of the interval.
    QCOMPARE(m.Text5[0], QStringLiteral("5"));
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("Text5_0"))->text(), QStringLiteral("5"));
    QCOMPARE(bar->geometry().center().x(), picture->width() / 2);
    w.findChild<QPushButton*>(QStringLiteral("Command15"))->click();
    QVERIFY(m.integralGRAF);
    QCOMPARE(m.Text5Tag[0], 5.0);
  }

  // tan(x) over -3..3 with 200 points: the samples either side of pi/2 are
  // about 55 and -82. Between them, the middle of the picture's height holds
  // curve pixels only when the two are joined.
  void asymptoteRuleShowsInThePixels() {
    FunctionTable t;
    tabulate(t, QStringLiteral("tan(x)"), QStringLiteral("-3"), QStringLiteral("3"), 200);
    PlotModel m(t);
    m.Form_Resize(760, 520);
    m.Form_Load();
    // Y limits typed one unit beyond the rounded extremes, so the samples by the poles are inside.
    for (size_t i : {size_t{3}, size_t{4}}) m.Text1[i] = QString::number(m.Text1[i].toDouble() + (i == 3 ? -1 : 1));
    m.Text1_Enter();
    auto strokePixels = [&m] {
      const QImage image = renderPlotImage(m, 760, 520).convertToFormat(QImage::Format_RGB32);
      const double step = 6.0 / 199;
      const int row = static_cast<int>(std::floor((M_PI / 2 + 3) / step));
      const double x1 = -3 + row * step, x2 = x1 + step;
      int count = 0;
      for (double pole : {M_PI / 2, -M_PI / 2}) {
        const double a = pole > 0 ? x1 : -x2, b = pole > 0 ? x2 : -x1;
        const int left = static_cast<int>(std::ceil((a - m.ScaleLeft) / m.unitX)) + 1;
        const int right = static_cast<int>(std::floor((b - m.ScaleLeft) / m.unitX)) - 1;
        for (int px = left; px <= right; ++px) {
          for (int py = 200; py <= 320; ++py) count += near(image.pixel(px, py), m.colour(PlotModel::kCurveF));
        }
      }
      return count;
    };
    QCOMPARE(strokePixels(), 0);
    m.NoUnirPolos_Click();
    QVERIFY(strokePixels() > 100);
  }

  void ctrlCCopiesThePicture() {
    PlotWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&w, Qt::Key_C, Qt::ControlModifier);
    const QImage copied = QGuiApplication::clipboard()->image();
    QVERIFY(!copied.isNull());
    QCOMPARE(copied.convertToFormat(QImage::Format_RGB32), w.picture().convertToFormat(QImage::Format_RGB32));
  }

  // The page of a PDF print, rasterised, shows the curve where the screen shows it.
  void printsTheScreenPictureToPdf() {
    PlotWindow w;
    PlotModel& m = w.model();
    m.Form_Resize(760, 520);
    // The window works on a table of its own here: load it with the curve.
    tabulate(m.table(), QStringLiteral("sin(x)*x"), QStringLiteral("-6"), QStringLiteral("6"), 120);
    m.Form_Load();
    const QImage screen = renderPlotImage(m, 760, 520).convertToFormat(QImage::Format_RGB32);

    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("plot.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    QVERIFY(w.printTo(printer));
    QProcess p;
    p.start(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("100"),
                                         QStringLiteral("-singlefile"), pdf, dir.filePath(QStringLiteral("page"))});
    QVERIFY(p.waitForFinished(30000));
    QImage page = QImage(dir.filePath(QStringLiteral("page.png"))).convertToFormat(QImage::Format_RGB32);
    QVERIFY(!page.isNull());

    // The picture on the page: the box of background-coloured pixels, scaled to screen size.
    const std::uint32_t background = m.colour(PlotModel::kBackground);
    QRect area;
    for (int y = 0; y < page.height(); y += 2) {
      for (int x = 0; x < page.width(); x += 2) {
        if (near(page.pixel(x, y), background, 10)) area |= QRect(x, y, 1, 1);
      }
    }
    QVERIFY(area.width() > 300);
    QVERIFY(std::abs(double(area.width()) / area.height() - 760.0 / 520) < 0.02);
    const QImage printed = page.copy(area).scaled(760, 520, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

    // Curve pixels of the screen found on paper within two pixels, and as many of them.
    const std::uint32_t curve = m.colour(PlotModel::kCurveF);
    int onScreen = 0, matched = 0, onPaper = 0;
    for (int y = 2; y < 518; ++y) {
      for (int x = 2; x < 758; ++x) {
        onPaper += near(printed.pixel(x, y), curve, 120);
        if (!near(screen.pixel(x, y), curve)) continue;
        ++onScreen;
        bool found = false;
        for (int dy = -2; dy <= 2 && !found; ++dy) {
          for (int dx = -2; dx <= 2 && !found; ++dx) found = near(printed.pixel(x + dx, y + dy), curve, 120);
        }
        matched += found;
      }
    }
    QVERIFY(onScreen > 500);
    QVERIFY2(matched > onScreen * 0.95, qPrintable(QStringLiteral("%1 of %2").arg(matched).arg(onScreen)));
    QVERIFY2(onPaper < onScreen * 2, qPrintable(QStringLiteral("%1 against %2").arg(onPaper).arg(onScreen)));
  }
};

QTEST_MAIN(PlotWindowTest)
#include "PlotWindowTest.moc"
