#pragma once
// MBoxShow and the presenters behind it. The logic asks for a message through
// MBoxShow; a presenter shows it and answers with the button pressed and the
// value of the field. The windows install the MBox presenter; tests and
// calvix-cli install a ScriptedPresenter that records each message and answers
// from a script.
#include <QString>
#include <QStringList>
#include <QVariant>
#include <deque>
#include <memory>
#include <vector>

struct MessageRequest {
  int style = 0;
  QString text;
  int kind = 0;        // colour scheme and field: 1 list, 5 input line, ...
  int buttonSet = 0;   // 0..18
  int defaultButton = 0;
  QString title;
  QStringList buttons;      // captions of the set, in the current language
  QStringList listEntries;  // kind 1
  QString listText;         // kind 1: text above the list
  QString defaultText;      // kind 5: MessageDefault
  int sound = 0;            // MessageSound at the time of the call
  bool datePicker = false;  // the date field shows instead of the others
  double date = 0;          // its first date (a date serial)
};

struct MessageReply {
  int result = 0;   // index of the button pressed (0, 1 or 2); 0 when closed by the timer
  QVariant value;   // input text, list position + 1, or date (a date serial as double)
};

class MessagePresenter {
 public:
  virtual ~MessagePresenter() = default;
  virtual MessageReply present(const MessageRequest& request) = 0;
};

// The string ids of the buttons of a set (0..18); an unknown set gives set 0.
std::vector<int> buttonSetStrings(int buttonSet);

// Entries of the list of the next kind-1 message; cleared when it closes.
void setMessageList(const QStringList& entries, const QString& listText);
// The next message asks for a date, starting at this one (a date serial);
// MessageValue then holds the date chosen. Cleared when it closes.
void setMessageDate(double date);

// Shows a message through the installed presenter, sets MessageResult and
// MessageValue, empties MessageDefault. With no presenter the first button is
// taken. An empty title is the application's title.
void MBoxShow(int style, const QString& text, int kind, int buttonSet, int defaultButton = 0,
              const QString& title = QString());

// Installs the presenter used from now on (not owned); nullptr uninstalls.
void setMessagePresenter(MessagePresenter* presenter);
MessagePresenter* messagePresenter();

// Records every message and answers from a queue of answers: a number is the
// index of the button pressed; any other text is typed into the field (input,
// list position or entry text, or a date "dd/mm/yyyy") and the first button
// pressed. With no answer left the
// first button is pressed, as the box's timer would.
class ScriptedPresenter : public MessagePresenter {
 public:
  struct Answer {
    int button = 0;
    QVariant value;
    bool hasValue = false;
    bool byKind = false;  // decided by the message that takes it (queueAnswer)
  };
  void queueButton(int button);
  void queueText(const QString& text);
  // An answer as calvix-cli's --answer gives it, taken by the next message:
  // a message with a field (input line, list, date) gets the text typed and
  // its first button pressed; any other gets the button of that index (0, 1
  // or 2; anything else presses the first). "button:N" presses button N of
  // either kind, so an input box can be cancelled.
  void queueAnswer(const QString& answer);

  MessageReply present(const MessageRequest& request) override;

  const std::vector<MessageRequest>& shown() const { return shown_; }
  void clear() { shown_.clear(); answers_.clear(); }

 private:
  std::deque<Answer> answers_;
  std::vector<MessageRequest> shown_;
};

// Installs a presenter for the lifetime of the object, then restores the old one.
class PresenterScope {
 public:
  explicit PresenterScope(MessagePresenter* presenter);
  ~PresenterScope();
  PresenterScope(const PresenterScope&) = delete;
  PresenterScope& operator=(const PresenterScope&) = delete;

 private:
  MessagePresenter* previous_;
};
