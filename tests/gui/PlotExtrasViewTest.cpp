// The plot window's colour editor, title dialog, annotations and the
// table's CSV dialog, wired to the model: menus under their names, a colour
// picked reaches the picture, titles typed reach the drawing, an annotation
// placed with a click and dragged, the CSV dialog fills the table or names
// the bad line; and a coloured curve and an annotation stand on the printed
// page (PDF, rasterised) where the screen shows them.
#include <QAction>
#include <algorithm>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QtPrintSupport/QPrinter>

#include "funcs/FunctionTable.h"
#include "funcs/PlotAppearance.h"
#include "funcs/PlotColoursDialog.h"
#include "funcs/PlotExtrasView.h"
#include "funcs/PlotPainterView.h"
#include "funcs/PlotPictureView.h"
#include "funcs/PlotTitleDialog.h"
#include "funcs/PlotWindow.h"
#include "funcs/TableCsvDialog.h"
#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/GuiTestSupport.h"

namespace {

int distance(QRgb pixel, const QColor& c) {
  return std::abs(qRed(pixel) - c.red()) + std::abs(qGreen(pixel) - c.green()) + std::abs(qBlue(pixel) - c.blue());
}

// Pixels of a colour inside a rectangle of an image.
int countNear(const QImage& image, const QRect& r, const QColor& c, int tolerance) {
  int n = 0;
  for (int y = std::max(0, r.top()); y <= std::min(image.height() - 1, r.bottom()); ++y) {
    for (int x = std::max(0, r.left()); x <= std::min(image.width() - 1, r.right()); ++x) {
      n += distance(image.pixel(x, y), c) < tolerance;
    }
  }
  return n;
}

// The plot's frame: the bottom axis is the row, the left axis the column,
// with most pixels of the axes' colour; each runs to its last such pixel.
QRect frameOf(const QImage& image, const QColor& axes) {
  std::vector<int> rows(static_cast<size_t>(image.height())), cols(static_cast<size_t>(image.width()));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (distance(image.pixel(x, y), axes) >= 40) continue;
      ++rows[static_cast<size_t>(y)];
      ++cols[static_cast<size_t>(x)];
    }
  }
  const int bottom = static_cast<int>(std::max_element(rows.begin(), rows.end()) - rows.begin());
  const int left = static_cast<int>(std::max_element(cols.begin(), cols.end()) - cols.begin());
  int right = left, top = bottom;
  for (int x = left; x < image.width(); ++x) {
    if (distance(image.pixel(x, bottom), axes) < 40) right = x;
  }
  for (int y = bottom; y >= 0; --y) {
    if (distance(image.pixel(left, y), axes) < 40) top = y;
  }
  return QRect(QPoint(left, top), QPoint(right, bottom));
}

}  // namespace

class PlotExtrasViewTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    QVERIFY(folder_.isValid());
    program().AppFolder = rt::Variant::text(folder_.path() + QStringLiteral("/"));
    QFile::remove(PlotAppearance::filePath());
  }
  void cleanup() { clearWindowRegistry(); }

  void menusReachTheirDialogsAndTheModel() {
    PlotWindow w;
    auto* extras = w.findChild<PlotExtrasView*>(QStringLiteral("PlotExtras"));
    QVERIFY(extras);
    for (const char* name : {"coloresPlot", "titulosPlot", "nuevaAnotacion", "borrarAnotaciones", "importarCSV",
                             "exportarCSV"}) {
      QVERIFY2(w.findChild<QAction*>(QLatin1String(name)), name);
    }
    // The CSV items sit in the file menu.
    QMenu* file = w.menuBar()->actions().first()->menu();
    QVERIFY(file->actions().contains(w.findChild<QAction*>(QStringLiteral("importarCSV"))));

    PlotColoursDialog colours(extras->appearance(), &w);
    colours.pickColour = [](const QColor&, const QString&) { return QColor(10, 20, 30); };
    colours.chooseColour(PlotModel::kCurveF);
    QCOMPARE(w.model().colour(PlotModel::kCurveF), PlotAppearance::defaultColour(PlotModel::kCurveF));  // not yet
    QTest::mouseClick(colours.findChild<QPushButton*>(QStringLiteral("okButton")), Qt::LeftButton);
    QCOMPARE(w.model().colour(PlotModel::kCurveF), 0x1E140Au);
    PlotColoursDialog again(extras->appearance(), &w);
    QTest::mouseClick(again.findChild<QPushButton*>(QStringLiteral("defaultsButton")), Qt::LeftButton);
    QTest::mouseClick(again.findChild<QPushButton*>(QStringLiteral("okButton")), Qt::LeftButton);
    QCOMPARE(w.model().colour(PlotModel::kCurveF), PlotAppearance::defaultColour(PlotModel::kCurveF));

    PlotTitleDialog titles(w.model(), extras->appearance(), &w);
    titles.Text3[1]->setText(QStringLiteral("tiempo"));
    QTest::mouseClick(titles.findChild<QPushButton*>(QStringLiteral("okButton")), Qt::LeftButton);
    QCOMPARE(w.model().Text3[1], QStringLiteral("tiempo"));
    QVERIFY(w.model().Text3[0].isEmpty());
  }

  void anAnnotationIsPlacedWithAClickAndDragged() {
    PlotWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* extras = w.findChild<PlotExtrasView*>(QStringLiteral("PlotExtras"));
    auto* picture = w.findChild<PlotPictureView*>(QStringLiteral("Picture2"));
    extras->placeAnnotation(QStringLiteral("Pico"));
    QVERIFY(extras->isPlacing());
    QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(300, 200));
    QVERIFY(!extras->isPlacing());
    QCOMPARE(w.model().Label11.size(), size_t(1));
    QCOMPARE(extras->annotationAt(QPointF(305, 205)), 0);
    QCOMPARE(extras->annotationAt(QPointF(200, 300)), -1);

    QTest::mousePress(picture, Qt::LeftButton, Qt::NoModifier, QPoint(305, 205));
    QMouseEvent move(QEvent::MouseMove, QPointF(405, 255), picture->mapToGlobal(QPointF(405, 255)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &move);
    QTest::mouseRelease(picture, Qt::LeftButton, Qt::NoModifier, QPoint(405, 255));
    const QPointF at = extras->appearance().annotationPoint(0);
    QVERIFY2(std::abs(at.x() - 400) < 1 && std::abs(at.y() - 250) < 1,
             qPrintable(QStringLiteral("%1, %2").arg(at.x()).arg(at.y())));
    // Kept for the next run at once.
    PlotModel other(w.model().table());
    QVERIFY(PlotAppearance(other).load());
    QCOMPARE(other.Label11.size(), size_t(1));
    QCOMPARE(other.Label11[0].x, w.model().Label11[0].x);

    // Esc gives up a placing; a click then places nothing.
    extras->placeAnnotation(QStringLiteral("otra"));
    QTest::keyClick(picture, Qt::Key_Escape);
    QVERIFY(!extras->isPlacing());
    QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(200, 300));
    QCOMPARE(w.model().Label11.size(), size_t(1));
  }

  void theCsvDialogFillsTheTableOrNamesTheBadLine() {
    FunctionTable table;
    openInRadians(table);
    tabulateAtOnce(table, QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("1"), 4);
    const QString good = folder_.filePath(QStringLiteral("datos.csv"));
    const QString bad = folder_.filePath(QStringLiteral("malo.CSV"));
    QFile f(good);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("t;a;b\r\n0;1,5;7\r\n1;2,5;8\r\n2;3,5;9\r\n");
    f.close();
    QFile g(bad);
    QVERIFY(g.open(QIODevice::WriteOnly));
    g.write("1,2\n3,x\n");
    g.close();

    TableCsvDialog dialog(table, nullptr);
    QVERIFY(dialog.openFile(bad));
    QCOMPARE(dialog.separatorCombo->currentIndex(), 1);  // detected: comma and point
    guiMessages().clear();
    QVERIFY(!dialog.importFile());
    QCOMPARE(guiMessages().shown().size(), size_t(1));
    QVERIFY(guiMessages().shown()[0].text.contains(QStringLiteral(" 2: ")));
    QCOMPARE(program().pointCount, 4);
    QCOMPARE(table.TextMatrix(4, FunctionTable::kF), QStringLiteral("1"));

    QVERIFY(dialog.openFile(good));
    QCOMPARE(dialog.separatorCombo->currentIndex(), 0);
    QCOMPARE(dialog.preview->columnCount(), 3);
    dialog.columnCombo[1]->setCurrentIndex(2);  // F from the third column
    dialog.columnCombo[2]->setCurrentIndex(2);  // G from the second
    QVERIFY(dialog.importFile());
    QCOMPARE(program().pointCount, 3);
    QCOMPARE(program().hasG, std::int16_t(-1));
    QCOMPARE(table.TextMatrix(3, FunctionTable::kF), QStringLiteral("9"));
    QCOMPARE(table.TextMatrix(1, FunctionTable::kG), QStringLiteral("1.5"));

    // Another kind of file is refused before it is read.
    guiMessages().clear();
    QVERIFY(!dialog.openFile(folder_.filePath(QStringLiteral("tabla.evl"))));
    QCOMPARE(guiMessages().shown().size(), size_t(1));
    TableCsv semicolons;
    QVERIFY(TableCsvDialog::exportTo(table, folder_.filePath(QStringLiteral("salida.csv")), semicolons));
    QVERIFY(QFile(folder_.filePath(QStringLiteral("salida.csv"))).size() > 10);
  }

  // The three dialogs show every text whole in every language.
  void dialogsFitTheirTextsInEveryLanguage() {
    PlotWindow w;
    auto* extras = w.findChild<PlotExtrasView*>(QStringLiteral("PlotExtras"));
    const QString csv = folder_.filePath(QStringLiteral("datos.csv"));
    QFile f(csv);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("tiempo;posición;velocidad;aceleración\r\n0;1,5;7;2\r\n1;2,5;8;2\r\n");
    f.close();
    for (int language = 0; language < 4; ++language) {
      setProgramLanguage(language);
      PlotColoursDialog colours(extras->appearance(), nullptr);
      PlotTitleDialog titles(w.model(), extras->appearance(), nullptr);
      TableCsvDialog table(w.model().table(), nullptr);
      QVERIFY(table.openFile(csv));
      for (QDialog* d : std::initializer_list<QDialog*>{&colours, &titles, &table}) {
        d->show();
        QVERIFY(QTest::qWaitForWindowExposed(d));
        const QStringList problems = windowLayoutProblems(d);
        QVERIFY2(problems.isEmpty(), qPrintable(d->objectName() + QLatin1Char(' ') + QString::number(language) +
                                                QLatin1Char('\n') + problems.join(QLatin1Char('\n'))));
        d->hide();
      }
    }
  }

  // A coloured curve and an annotation: on the page of a PDF print,
  // rasterised, where the screen picture has them.
  void colouredCurveAndAnnotationPrintAsShown() {
    PlotWindow w;
    PlotModel& m = w.model();
    m.Form_Resize(760, 520);
    tabulateAtOnce(m.table(), QStringLiteral("sin(x)"), QStringLiteral("-6"), QStringLiteral("6"), 120);
    m.Form_Load();
    auto* extras = w.findChild<PlotExtrasView*>(QStringLiteral("PlotExtras"));
    PlotAppearance& a = extras->appearance();
    a.setColour(PlotModel::kBackground, 0xFFFFFF);
    a.setColour(PlotModel::kCurveF, 0x0080FF);   // orange
    a.setColour(PlotModel::kText, 0xC00000);     // blue text: titles, numbers, the annotation
    a.addAnnotation(QStringLiteral("MMMMMMMM"), QPointF(330, 140));
    const QRect noteBox = extras->annotationRect(0).toAlignedRect().adjusted(-2, -2, 2, 2);
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
    const QImage page = QImage(dir.filePath(QStringLiteral("page.png"))).convertToFormat(QImage::Format_RGB32);
    QVERIFY(!page.isNull());
    // The frame on each image from its two axis lines, the longest row and
    // column of the axes' colour (tick marks stick out on one side or the other).
    const QColor axes = PainterCanvas::toColor(m.colour(PlotModel::kAxes));
    const QRect frameOnPage = frameOf(page, axes), frameOnScreen = frameOf(screen, axes);
    QVERIFY(frameOnPage.width() > 300 && frameOnScreen.width() > 300);
    // Screen point -> page point, through the frames of the axes.
    const double sx = double(frameOnPage.width()) / frameOnScreen.width();
    const double sy = double(frameOnPage.height()) / frameOnScreen.height();
    auto toPage = [&](const QRect& r) {
      return QRect(QPoint(int(frameOnPage.left() + (r.left() - frameOnScreen.left()) * sx),
                          int(frameOnPage.top() + (r.top() - frameOnScreen.top()) * sy)),
                   QSize(int(r.width() * sx) + 1, int(r.height() * sy) + 1));
    };
    const QColor orange = PainterCanvas::toColor(0x0080FF), blue = PainterCanvas::toColor(0xC00000);
    // The annotation's ink, on screen and on paper in the same box.
    const int noteScreen = countNear(screen, noteBox, blue, 150);
    const int notePaper = countNear(page, toPage(noteBox), blue, 150);
    QVERIFY2(noteScreen > 20, qPrintable(QString::number(noteScreen)));
    QVERIFY2(notePaper > noteScreen * sx * sy * 0.3, qPrintable(QStringLiteral("%1 %2").arg(notePaper).arg(noteScreen)));
    // Orange curve pixels of the screen found on paper nearby.
    int onScreen = 0, matched = 0;
    for (int y = 2; y < 518; y += 2) {
      for (int x = 2; x < 758; x += 2) {
        if (distance(screen.pixel(x, y), orange) >= 60) continue;
        ++onScreen;
        matched += countNear(page, toPage(QRect(x - 2, y - 2, 5, 5)), orange, 150) > 0;
      }
    }
    QVERIFY(onScreen > 100);
    QVERIFY2(matched > onScreen * 0.95, qPrintable(QStringLiteral("%1 of %2").arg(matched).arg(onScreen)));
  }

 private:
  QTemporaryDir folder_;
};

QTEST_MAIN(PlotExtrasViewTest)
#include "PlotExtrasViewTest.moc"
