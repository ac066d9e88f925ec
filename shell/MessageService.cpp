#include "shell/MessageService.h"

#include "shell/runtime/DateTime.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"

namespace {
MessagePresenter* g_presenter = nullptr;
QStringList g_listEntries;
QString g_listText;
bool g_dateAsked = false;
double g_date = 0;

const std::vector<std::vector<int>>& buttonSets() {
  static const std::vector<std::vector<int>> sets = {
      {51},         {52},         {51, 53},     {51, 54},     {51, 55},     {51, 54, 56}, {57, 58},
      {57, 58, 54}, {59, 53},     {59, 53, 54}, {60, 61},     {62, 63},     {55, 64},     {65, 59},
      {65, 59, 54}, {52, 66},     {67, 54},     {51, 68},     {118, 67},
  };
  return sets;
}
}  // namespace

std::vector<int> buttonSetStrings(int buttonSet) {
  const auto& sets = buttonSets();
  if (buttonSet < 0 || buttonSet >= static_cast<int>(sets.size())) return sets.front();
  return sets[static_cast<size_t>(buttonSet)];
}

void setMessageList(const QStringList& entries, const QString& listText) {
  g_listEntries = entries;
  g_listText = listText;
}

void setMessageDate(double date) {
  g_dateAsked = true;
  g_date = date;
}

void setMessagePresenter(MessagePresenter* presenter) { g_presenter = presenter; }
MessagePresenter* messagePresenter() { return g_presenter; }

void MBoxShow(int style, const QString& text, int kind, int buttonSet, int defaultButton, const QString& title) {
  ProgramState& p = program();
  MessageRequest req;
  req.style = style;
  req.text = text;
  req.kind = kind;
  req.buttonSet = buttonSet;
  req.defaultButton = defaultButton;
  req.title = title.isEmpty() ? QStringLiteral("Calvix Premium") : title;
  for (int id : buttonSetStrings(buttonSet)) req.buttons << Res(id);
  if (kind == 1) {
    req.listEntries = g_listEntries;
    req.listText = g_listText;
  }
  if (kind == 5) req.defaultText = p.MessageDefault.toText();
  req.datePicker = g_dateAsked;
  req.date = g_date;
  // The fields belong to this message only, even if another one opens while
  // it is shown.
  g_listEntries.clear();
  g_listText.clear();
  g_dateAsked = false;
  g_date = 0;
  req.sound = p.MessageSound;
  p.MessageTitle = req.title;
  p.MessageText = req.text;

  MessageReply reply;
  if (g_presenter) reply = g_presenter->present(req);
  if (reply.result < 0 || reply.result >= req.buttons.size()) reply.result = 0;

  p.MessageResult = static_cast<std::int16_t>(reply.result);
  if (req.datePicker) {
    p.MessageValue = rt::Variant::date(reply.value.isValid() ? reply.value.toDouble() : req.date);
  } else if (kind == 1) {
    p.MessageValue = rt::Variant::integer(static_cast<std::int16_t>(reply.value.toInt()));
  } else if (kind == 5) {
    p.MessageValue = rt::Variant(reply.value.toString());
  } else if (reply.value.isValid()) {
    p.MessageValue = rt::Variant(reply.value.toString());
  } else {
    p.MessageValue = rt::Variant();
  }
  p.MessageDefault = rt::Variant();
}

void ScriptedPresenter::queueButton(int button) { answers_.push_back({button, {}, false}); }

void ScriptedPresenter::queueText(const QString& text) { answers_.push_back({0, text, true}); }

void ScriptedPresenter::queueAnswer(const QString& answer) {
  if (answer.startsWith(QLatin1String("button:"))) {
    queueButton(answer.mid(7).toInt());
    return;
  }
  answers_.push_back({0, answer, true, true});
}

MessageReply ScriptedPresenter::present(const MessageRequest& request) {
  shown_.push_back(request);
  MessageReply reply;
  if (request.datePicker) reply.value = request.date;
  else if (request.kind == 5) reply.value = request.defaultText;
  if (answers_.empty()) return reply;
  Answer a = answers_.front();
  answers_.pop_front();
  if (a.byKind && !(request.datePicker || request.kind == 1 || request.kind == 5)) {
    // No field to type into: the answer names the button.
    bool ok = false;
    const int button = a.value.toString().toInt(&ok);
    a.button = ok && button >= 0 && button <= 2 ? button : 0;
    a.hasValue = false;
  }
  reply.result = a.button;
  if (a.hasValue) {
    if (request.datePicker) {
      try {
        reply.value = rt::DateValue(a.value.toString());
      } catch (const rt::RuntimeError&) {
        reply.value = request.date;  // not a date: the picker keeps its date
      }
    } else if (request.kind == 1) {
      // A list is answered by position (1-based) or by the text of an entry.
      bool ok = false;
      const int pos = a.value.toString().toInt(&ok);
      reply.value = ok ? pos : static_cast<int>(request.listEntries.indexOf(a.value.toString()) + 1);
    } else {
      reply.value = a.value;
    }
  }
  return reply;
}

PresenterScope::PresenterScope(MessagePresenter* presenter) : previous_(messagePresenter()) {
  setMessagePresenter(presenter);
}
PresenterScope::~PresenterScope() { setMessagePresenter(previous_); }
