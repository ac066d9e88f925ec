#pragma once
// Shared fixture for window tests (Qt Test): call prepareGuiTest() in
// initTestCase/init. It forces the offscreen platform, gives a fresh program
// state on a "." system and installs a scripted presenter, so an unexpected
// message never blocks a test: it is recorded and answered with button 0.
//
// Window geometry: CALVIX_GUI_TEST_MAIN(Class) runs a Qt Test class on an
// offscreen screen of 1280x800, the smallest screen the program is made for.
// windowLayoutProblems(w) lists what a user would see wrong with a shown
// window: its frame off the screen, a control or tab whose text does not fit,
// a control running out of its parent, two controls on top of each other.
// checkWindowInLanguage(id, language) opens a registered window in a language
// (0 Spanish, 1 English, 2 French, 3 Catalan), walks every page of its tab
// widgets, closes it and answers the problems found. A module's window test:
//   QStringList problems = checkWindowInLanguage(WindowId::Banking, 2);
//   QVERIFY2(problems.isEmpty(), qPrintable(problems.join('\n')));
#include <QApplication>
#include <QLocale>
#include <QStringList>
#include <QTest>

#include "shell/MessageService.h"
#include "shell/WindowRegistry.h"

void prepareGuiTest();
ScriptedPresenter& guiMessages();
// The text of a PDF read with pdftotext -layout, pages separated by form
// feeds; empty when pdftotext fails.
QString pdfText(const QString& path);

// Before the application exists: the offscreen platform with one screen of
// 1280x800 (unless the environment already asks for a display of its own).
void useSmallOffscreenScreen();
// The layout faults of a shown window, one readable line each, empty when
// none. A widget with the property "layoutOverlay" set to true (a floating
// readout over a picture) may overlap its siblings.
QStringList windowLayoutProblems(QWidget* window);
// The same over each page of every tab widget of the window in turn.
QStringList windowLayoutProblemsOnEveryPage(QWidget* window);
// Opens the window through the registry in the given language, waits until
// it is on the screen, checks every page, then closes it and forgets it.
// (The control centre takes its language from the settings file beside the
// program: write one with that language first, as WindowGeometryTest does.)
QStringList checkWindowInLanguage(WindowId id, int language);
// Sets the program's language (0 to 3) as the control centre does.
void setProgramLanguage(int language);

#define CALVIX_GUI_TEST_MAIN(TestClass)        \
  int main(int argc, char** argv) {            \
    useSmallOffscreenScreen();                 \
    QApplication app(argc, argv);              \
    TestClass test;                            \
    return QTest::qExec(&test, argc, argv);    \
  }
