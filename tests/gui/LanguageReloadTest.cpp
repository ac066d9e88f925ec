// Changing the language while windows are open: every module window shows
// its captions in the new language at once, the ones with a caption loader
// of their own and the ones that follow through the registry alike.
#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QTest>

#include "bank/BankWindow.h"
#include "calc/CalculatorWindow.h"
#include "calc/NormalCalculatorWindow.h"
#include "calendar/CalendarWindow.h"
#include "chrono/ChronometerWindow.h"
#include "convert/ConverterWindow.h"
#include "elements/PeriodicTableWindow.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotWindow.h"
#include "geometry/GeometryWindow.h"
#include "lottery/LotteryWindow.h"
#include "shell/AboutWindow.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/LanguageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/WindowCaptions.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

namespace {

// Every text the window shows: title, labels, buttons, menu items, tooltips.
QString allTexts(QWidget* window) {
  QStringList texts{window->windowTitle()};
  for (QWidget* w : window->findChildren<QWidget*>()) {
    texts << w->toolTip();
    if (auto* l = qobject_cast<QLabel*>(w)) texts << l->text();
    if (auto* b = qobject_cast<QAbstractButton*>(w)) texts << b->text();
    if (auto* c = qobject_cast<ChameleonButtonWidget*>(w)) texts << c->text();
  }
  for (QAction* a : window->findChildren<QAction*>()) texts << a->text();
  return texts.join(QLatin1Char('\n'));
}

}  // namespace

class LanguageReloadTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void everyOpenWindowReloadsItsCaptions() {
    const struct {
      WindowId id;
      WindowFactory factory;
      int stringId;  // a caption the window shows
    } windows[] = {
        {WindowId::ScientificCalculator, [] { return new CalculatorWindow; }, 4103},
        {WindowId::NormalCalculator, [] { return new NormalCalculatorWindow; }, 4106},
        {WindowId::FunctionTable, [] { return new FunctionTableWindow; }, 1474},
        {WindowId::Plot, [] { return new PlotWindow; }, 1600},
        {WindowId::UnitConverter, [] { return new ConverterWindow; }, 1298},
        {WindowId::Banking, [] { return new BankWindow; }, 724},
        {WindowId::PeriodicTable, [] { return new PeriodicTableWindow; }, 1069},
        {WindowId::Lottery, [] { return new LotteryWindow; }, 522},
        {WindowId::Chronometer, [] { return new ChronometerWindow; }, 423},
        {WindowId::Calendar, [] { return new CalendarWindow; }, 301},
        {WindowId::Geometry, [] { return new GeometryWindow; }, 3501},
        {WindowId::About, [] { return new AboutWindow; }, 5010},
    };
    for (const auto& w : windows) registerWindowFactory(w.id, w.factory);
    for (const auto& w : windows) QVERIFY2(OpenWindow(w.id), qPrintable(windowName(w.id)));
    for (const auto& w : windows) {
      const QString texts = allTexts(findWindow(w.id));
      QVERIFY2(texts.contains(LoadResString(w.stringId)), qPrintable(windowName(w.id) + QStringLiteral(" in Spanish: ") + findWindow(w.id)->windowTitle()));
      QVERIFY2(!texts.contains(LoadResString(20000 + w.stringId)), qPrintable(windowName(w.id)));
    }
    SetProgramLanguage(3);  // French
    for (const auto& w : windows) {
      QWidget* window = findWindow(w.id);
      QVERIFY2(window, qPrintable(windowName(w.id)));
      QVERIFY2(allTexts(window).contains(LoadResString(20000 + w.stringId)), qPrintable(windowName(w.id)));
    }
    // A title set again from the texts of the window's model, computed in Spanish.
    QWidget* plot = findWindow(WindowId::Plot);
    plot->setWindowTitle(LoadResString(1600));
    QCOMPARE(plot->windowTitle(), LoadResString(21600));
    SetProgramLanguage(1);
    for (const auto& w : windows) {
      QVERIFY2(allTexts(findWindow(w.id)).contains(LoadResString(w.stringId)), qPrintable(windowName(w.id) + " back"));
    }
  }

  void compositeTextsAreTranslatedPieceByPiece() {
    const QString spanish = QStringLiteral("GeoKORD  -  ") + LoadResString(3501);
    QCOMPARE(TranslateText(spanish, 0, 10000), QStringLiteral("GeoKORD  -  ") + LoadResString(13501));
    QCOMPARE(TranslateText(QStringLiteral("12,5"), 0, 10000), QStringLiteral("12,5"));
    QCOMPARE(TranslateText(LoadResString(4106), 0, 30000), LoadResString(34106));
  }
};

CALVIX_GUI_TEST_MAIN(LanguageReloadTest)
#include "LanguageReloadTest.moc"
