#pragma once
// The help viewer: pages of help built into the program (one per module and
// language, shell/help/<lang>/<page>.html), a topic being an anchor "t<id>" on
// its module's page (Services.h tells how ids map to pages). HelpWindowPresenter
// makes ContextHelp open it, and shows the help pointer while the program is in
// help-cursor mode.
#include <QUrl>
#include <QWidget>

#include "shell/Services.h"

class QTextBrowser;
class QToolButton;

class HelpWindow : public QWidget {
  Q_OBJECT
 public:
  explicit HelpWindow(QWidget* parent = nullptr);
  // Shows the page of the topic at its anchor, in the current language.
  void showTopic(int topic);
  // The address of a topic: the page in the current language, or in Spanish
  // when that language has none, or the contents page when no page exists.
  static QUrl topicUrl(int topic);

  QTextBrowser* browser = nullptr;
  QToolButton* backButton = nullptr;
  QToolButton* forwardButton = nullptr;
  QToolButton* contentsButton = nullptr;

 private:
  void loadCaptions();
};

class HelpWindowPresenter : public HelpPresenter {
 public:
  void showTopic(int topic) override;
  void helpCursorChanged(bool on) override;

 private:
  bool cursorSet_ = false;
};
