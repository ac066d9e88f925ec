#pragma once
// Shared fixture for window tests (Qt Test): call prepareGuiTest() in
// initTestCase/init. It forces the offscreen platform, gives a fresh program
// state on a "." system and installs a scripted presenter, so an unexpected
// message never blocks a test: it is recorded and answered with button 0.
#include <QLocale>

#include "shell/MessageService.h"

void prepareGuiTest();
ScriptedPresenter& guiMessages();
// The text of a PDF read with pdftotext -layout, pages separated by form
// feeds; empty when pdftotext fails.
QString pdfText(const QString& path);
