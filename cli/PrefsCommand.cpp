// calvix-cli prefs: the Preferences window's model, driven by events.
//
//   calvix-cli prefs [--settings FILE] [--file PATH]... [--write FILE] [EVENT]...
//
// Starts from a fresh installation, or from what the settings file FILE
// holds (its language included); the window loads its private copy; each
// EVENT runs in turn; --write then writes FILE from the program-wide
// variables as the program does when it ends. Events:
//   valor=T Text1=T Text2=T Text3=T Text5=T Text6=T   the box emptied, T typed
//       key by key through its filter and length limit, the focus lost
//       (Text6 then gets Enter)
//   Check1 Check2 Check4..Check7 Command1..Command5   a click
//   Check3(i) Option1(i) Text4(i)                     a click on item i
//   List1=i .. List5=i                                item i chosen
//   Label1(5)                                         a press with Ctrl held
// Message boxes take the --answer values (none left: the first button); file
// dialogs take the --file values (none left: cancelled). Sounds, system
// actions and printing are recorded, never done. An event after the window
// has closed opens it again first.
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>
#include <variant>

#include "cli/CliCommand.h"
#include "shell/LanguageService.h"
#include "shell/Platform.h"
#include "shell/Preferences.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Settings.h"
#include "shell/Strings.h"

namespace {

// Records like the test double; a sound plays only when its file exists.
class CliPlatform : public RecordingPlatform {
 public:
  bool playSound(const QString& path, bool async) override {
    RecordingPlatform::playSound(path, async);
    return QFile::exists(path);
  }
};

// Printing is recorded among the system actions.
class CliPrinter : public PrintPresenter {
 public:
  explicit CliPrinter(QStringList& log) : log_(log) {}
  PrintResult print(const PrintDocument& document) override {
    log_ << QStringLiteral("print ") + document.name();
    return PrintResult::Printed;
  }

 private:
  QStringList& log_;
};

// The message box plays its sound when it shows, unless it asks for a text.
class SoundingPresenter : public MessagePresenter {
 public:
  explicit SoundingPresenter(MessagePresenter* inner) : inner_(inner) {}
  MessageReply present(const MessageRequest& request) override {
    if (request.kind != 5) PlayMessageSound();
    return inner_ ? inner_->present(request) : MessageReply{};
  }

 private:
  MessagePresenter* inner_;
};

struct Event {
  QString text;  // as given, for messages
  std::function<void(Preferences&)> run;
};

// The events as closures; false with the usage message when one is wrong.
bool parseEvent(const QString& arg, Event& out, QString& problem) {
  static const QRegularExpression indexed(QStringLiteral("^(\\w+)\\((\\d+)\\)$"));
  using Box = Preferences::Box;
  out.text = arg;
  const qsizetype eq = arg.indexOf(QLatin1Char('='));
  if (eq > 0) {
    const QString name = arg.left(eq);
    const QString value = arg.mid(eq + 1);
    static const QHash<QString, Box> boxes{{QStringLiteral("valor"), Box::valor}, {QStringLiteral("Text1"), Box::Text1},
                                           {QStringLiteral("Text2"), Box::Text2}, {QStringLiteral("Text3"), Box::Text3},
                                           {QStringLiteral("Text5"), Box::Text5}, {QStringLiteral("Text6"), Box::Text6}};
    if (boxes.contains(name)) {
      const Box box = boxes.value(name);
      out.run = [box, value](Preferences& m) {
        // The command box takes keys only while it shows.
        if (box == Box::Text6 && !m.commandBoxVisible) return;
        m.typeInto(box, value);
        if (box == Box::Text6) m.Text6_Enter();
      };
      return true;
    }
    static const QHash<QString, int> lists{{QStringLiteral("List1"), 5}, {QStringLiteral("List2"), 3},
                                           {QStringLiteral("List3"), 2}, {QStringLiteral("List4"), 2},
                                           {QStringLiteral("List5"), 4}};
    if (lists.contains(name)) {
      bool ok = false;
      const int i = value.toInt(&ok);
      if (!ok || i < 0 || i >= lists.value(name)) {
        problem = QStringLiteral("prefs: %1 has no item %2").arg(name, value);
        return false;
      }
      const int which = name.right(1).toInt();
      out.run = [which, i](Preferences& m) {
        switch (which) {
          case 1: m.List1_Click(i); break;
          case 2: m.List2_Click(i); break;
          case 3: m.List3_Click(i); break;
          case 4: m.List4_Click(i); break;
          default: m.List5_Click(i); break;
        }
      };
      return true;
    }
    problem = QStringLiteral("prefs: unknown control ") + name;
    return false;
  }

  static const QHash<QString, void (Preferences::*)()> clicks{
      {QStringLiteral("Check1"), &Preferences::Check1_Click},     {QStringLiteral("Check2"), &Preferences::Check2_Click},
      {QStringLiteral("Check4"), &Preferences::Check4_Click},     {QStringLiteral("Check5"), &Preferences::Check5_Click},
      {QStringLiteral("Check6"), &Preferences::Check6_Click},     {QStringLiteral("Check7"), &Preferences::Check7_Click},
      {QStringLiteral("Command1"), &Preferences::Command1_Click}, {QStringLiteral("Command2"), &Preferences::Command2_Click},
      {QStringLiteral("Command3"), &Preferences::Command3_Click}, {QStringLiteral("Command4"), &Preferences::Command4_Click},
      {QStringLiteral("Command5"), &Preferences::Command5_Click}};
  if (clicks.contains(arg)) {
    const auto handler = clicks.value(arg);
    out.run = [handler](Preferences& m) { (m.*handler)(); };
    return true;
  }
  const auto m = indexed.match(arg);
  if (m.hasMatch()) {
    const QString name = m.captured(1);
    const int i = m.captured(2).toInt();
    struct Range {
      int low, high;
      void (Preferences::*handler)(int);
    };
    static const QHash<QString, Range> arrays{{QStringLiteral("Check3"), {0, 4, &Preferences::Check3_Click}},
                                              {QStringLiteral("Option1"), {0, 5, &Preferences::Option1_Click}},
                                              {QStringLiteral("Text4"), {1, 4, &Preferences::Text4_Click}}};
    if (arrays.contains(name)) {
      const Range r = arrays.value(name);
      if (i < r.low || i > r.high) {
        problem = QStringLiteral("prefs: %1 has no index %2").arg(name).arg(i);
        return false;
      }
      out.run = [r, i](Preferences& model) { (model.*r.handler)(i); };
      return true;
    }
    if (name == QLatin1String("Label1")) {
      if (i < 0 || i > 5) {
        problem = QStringLiteral("prefs: Label1 has no index %1").arg(i);
        return false;
      }
      out.run = [i](Preferences& model) { model.Label1_MouseDown(i, 2); };
      return true;
    }
  }
  problem = QStringLiteral("prefs: unknown control ") + arg;
  return false;
}

QString index(int i) { return QString::number(i); }

int runPrefs(CliContext& ctx) {
  QString settings, write;
  const bool haveSettings = ctx.takeOption(QStringLiteral("--settings"), settings);
  const bool haveWrite = ctx.takeOption(QStringLiteral("--write"), write);
  QStringList files = ctx.takeOptions(QStringLiteral("--file"));

  QList<Event> events;
  for (const QString& a : std::as_const(ctx.args)) {
    if (a.startsWith(QLatin1String("--"))) return ctx.usage(QStringLiteral("prefs: unknown option ") + a);
    Event e;
    QString problem;
    if (!parseEvent(a, e, problem)) return ctx.usage(problem);
    events << e;
  }

  CliPlatform system;
  setPlatform(&system);
  QStringList printed;
  CliPrinter printer(printed);
  setPrintPresenter(&printer);
  SoundingPresenter sounding(messagePresenter());
  PresenterScope scope(&sounding);

  ProgramState& p = program();
  p.AppFolder = rt::Variant(QCoreApplication::applicationDirPath() + QLatin1Char('/'));
  int code = 0;
  if (haveSettings) {
    const SettingsRead r = readSettingsFile(settings, p);
    if (r.error != 0) {
      p.MessageSound = 1;
      MBoxShow(3, Res(2961) + QStringLiteral("\n\n") + Res(2962), 3, 0, 0, QStringLiteral("Calvix Premium  -  ") + Res(2963));
      code = 1;
    } else if (p.Language >= 1 && p.Language <= 4) {
      // The language the program would start in.
      p.LanguageOffset = (p.Language - 1) * 10000;
    }
  }

  Preferences model;
  model.hooks.fileDialog = [&files](const Preferences::FileDialogRequest&) {
    return files.isEmpty() ? QString() : files.takeFirst();
  };
  model.Form_Load();
  for (const Event& e : std::as_const(events)) {
    if (!model.loaded) model.Form_Load();
    e.run(model);
  }
  if (model.failures > 0) code = 1;

  if (haveWrite) {
    if (p.Language == 0) p.Language = 1;
    if (const int error = writeSettingsFile(write, p)) {
      ctx.fail(QStringLiteral("prefs: cannot write %1 (error %2)").arg(write).arg(error));
      code = 1;
    }
  }

  QStringList sounds, actions;
  for (const QString& call : std::as_const(system.calls)) {
    if (call.startsWith(QLatin1String("playSound "))) {
      sounds << QFileInfo(call.section(QLatin1Char(' '), 1, -2)).fileName();
    } else {
      actions << call;
    }
  }
  actions << printed;
  setPrintPresenter(nullptr);
  setPlatform(nullptr);

  const QList<QPair<QString, QVariant>> fields{
      {QStringLiteral("Caption"), model.Caption},
      {QStringLiteral("valor"), model.valor},
      {QStringLiteral("Text1"), model.Text1},
      {QStringLiteral("Text2"), model.Text2},
      {QStringLiteral("labels"), QStringList{model.Label4, model.Label5}},
      {QStringLiteral("Check1"), index(model.Check1)},
      {QStringLiteral("Check2"), index(model.Check2)},
      {QStringLiteral("Check4"), index(model.Check4)},
      {QStringLiteral("Check5"), index(model.Check5)},
      {QStringLiteral("Check6"), index(model.Check6)},
      {QStringLiteral("Check7"), index(model.Check7)},
      {QStringLiteral("Check3"), index(model.Check3)},
      {QStringLiteral("Option1"), index(model.Option1)},
      {QStringLiteral("List1"), index(model.List1)},
      {QStringLiteral("List2"), index(model.List2)},
      {QStringLiteral("List3"), index(model.List3)},
      {QStringLiteral("List4"), index(model.List4)},
      {QStringLiteral("List5"), index(model.List5)},
      {QStringLiteral("Text3"), model.Text3},
      {QStringLiteral("Text4"), QStringList{model.Text4[1], model.Text4[2], model.Text4[3], model.Text4[4]}},
      {QStringLiteral("Text5"), model.Text5},
      {QStringLiteral("Text6"), model.Text6},
      {QStringLiteral("Label2"), model.Label2},
      {QStringLiteral("disabled"), model.disabledControls()},
      {QStringLiteral("loaded"), model.loaded ? QStringLiteral("true") : QStringLiteral("false")},
      {QStringLiteral("sounds"), sounds},
      {QStringLiteral("platform"), actions},
  };
  for (const auto& [name, value] : fields) {
    const bool list = value.typeId() == QMetaType::QStringList;
    if (ctx.jsonOutput) {
      if (list) ctx.json.insert(name, QJsonArray::fromStringList(value.toStringList()));
      else if (name.startsWith(QLatin1String("Check")) || name.startsWith(QLatin1String("List")) ||
               name == QLatin1String("Option1")) ctx.json.insert(name, value.toString().toInt());
      else if (name == QLatin1String("loaded")) ctx.json.insert(name, model.loaded);
      else ctx.json.insert(name, value.toString());
    } else {
      ctx.out << name << '\t' << (list ? value.toStringList().join(QLatin1Char('\t')) : value.toString()) << '\n';
    }
  }
  return code;
}

}  // namespace

CALVIX_CLI_COMMAND("prefs",
                   "the Preferences window: prefs [--settings FILE] [--file PATH]... [--write FILE] [EVENT]...",
                   runPrefs);
