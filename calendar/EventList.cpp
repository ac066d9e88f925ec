#include "calendar/EventList.h"

#include <QFileInfo>
#include <algorithm>

#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/runtime/Variant.h"

namespace calendar {

namespace {

constexpr int kMessageSound = 3;
constexpr int kMessageStyle = 4;
constexpr int kYesNoCancel = 7;
constexpr int kOkCancel = 3;
constexpr int kYesNo = 6;
constexpr int kQuestionKind = 2;  // a question: buttons only, no field

bool hasAgeExtension(const QString& path) { return path.right(3).toLower() == QLatin1String("age"); }

// Month and day of a line: its "mm/dd" head as one number mmdd, -1 when the
// line does not start with one.
int headOf(const QString& line) {
  if (line.size() < 5 || line.at(2) != QLatin1Char('/')) return -1;
  bool okMonth = false, okDay = false;
  const int month = line.left(2).toInt(&okMonth);
  const int day = line.mid(3, 2).toInt(&okDay);
  return okMonth && okDay ? month * 100 + day : -1;
}

// The titles of the list's messages: "Calvix  -  Calendario  -  Archivos".
void enterSection() {
  ProgramState& p = program();
  p.MainMenuTitle = Res(3766);
  p.SectionTitle = Res(2915);
}

// A sorted list box orders its lines without regard to case.
bool lessIgnoringCase(const QString& a, const QString& b) { return QString::compare(a, b, Qt::CaseInsensitive) < 0; }

QString title(int id) {
  enterSection();
  return QStringLiteral("Calvix  -  ") + program().SectionTitle + QStringLiteral("  -  ") + Res(id);
}

}  // namespace

QByteArray writeAgeFile(const QStringList& lines) {
  if (lines.size() > 32767) throw rt::RuntimeError(rt::kOverflow);
  rt::SequentialWriter w;
  w.write({rt::Variant::integer(static_cast<std::int16_t>(lines.size()))});
  for (const QString& line : lines) w.write({rt::Variant::text(line)});
  return w.bytes();
}

std::optional<QStringList> readAgeFile(const QByteArray& bytes) {
  try {
    rt::SequentialReader r(bytes);
    const float count = r.readSingle();
    if (!r.lastFieldComplete()) return std::nullopt;
    QStringList lines;
    // The classic "For i = 1 To count" on a float count.
    for (float i = 1; i <= count; ++i) {
      lines << r.readText();
      // Lines are written quoted with no escapes: a quote in one is damage.
      if (!r.lastFieldComplete() || lines.last().contains(QLatin1Char('"'))) return std::nullopt;
    }
    return lines;
  } catch (const rt::RuntimeError&) {
    return std::nullopt;
  }
}

QString eventKey(double date) {
  return QStringLiteral("%1/%2").arg(rt::Month(date), 2, 10, QLatin1Char('0')).arg(rt::Day(date), 2, 10, QLatin1Char('0'));
}

EventList::EventList() : selected_(std::floor(rt::Today())) {}

void EventList::report(int code) {
  failure_ = code;
  ReportError(code, kMessageSound, kMessageStyle, 0);
}

bool EventList::matches(const QString& line, int view) const {
  const int head = headOf(line);
  const int month = rt::Month(selected_);
  const int today = month * 100 + rt::Day(selected_);
  switch (view) {
    case kMonth: return head / 100 == month;
    case kDate: return head == today;
    case kPendingMonth: return head / 100 == month && head >= today;
    case kPendingAll: return head >= today;
    default: return true;
  }
}

QStringList EventList::List1() const {
  QStringList shown;
  for (const QString& line : events_)
    if (matches(line, view_)) shown << line;
  return shown;
}

QString EventList::Caption() const {
  QString caption = Res(301);
  if (!fileName_.isEmpty()) caption += QStringLiteral("  -  ") + QFileInfo(fileName_).fileName();
  return caption;
}

int EventList::countForDate() const {
  return static_cast<int>(std::count_if(events_.begin(), events_.end(), [&](const QString& l) { return matches(l, kDate); }));
}

int EventList::countForMonth() const {
  return static_cast<int>(std::count_if(events_.begin(), events_.end(), [&](const QString& l) { return matches(l, kMonth); }));
}

int EventList::pendingForMonth() const {
  return static_cast<int>(
      std::count_if(events_.begin(), events_.end(), [&](const QString& l) { return matches(l, kPendingMonth); }));
}

QString EventList::forDateText() const {
  const int n = countForDate();
  if (n == 0) return Res(281);
  return Res(266) + QLatin1Char(' ') + QString::number(n) + QLatin1Char(' ') + Res(267);
}

void EventList::insertSorted(const QString& line) {
  auto at = std::upper_bound(events_.begin(), events_.end(), line, lessIgnoringCase);
  events_.insert(at, line);
}

void EventList::addEvent(double date, const QString& text) {
  insertSorted(eventKey(date) + QStringLiteral("  ") + text);
  changed_ = true;
}

bool EventList::offerSave(const QString& boxTitle) {
  if (!changed_) return true;
  program().MessageSound = kMessageSound;
  MBoxShow(kMessageStyle,
           Res(2800) + QStringLiteral(":  ") + Res(2917) + QLatin1Char('\n') + Res(2918) + QLatin1Char('\n') + Res(2919),
           kQuestionKind, kYesNoCancel, 0, boxTitle);
  switch (program().MessageResult) {
    case 0: return FileGuarda_Click();
    case 1: return true;
    default: return false;
  }
}

bool EventList::FileAbre_Click() {
  enterSection();
  if (!offerSave(title(253)) || !fileDialog) return false;
  const QString path = fileDialog({Res(253), Res(254), program().AppFolder.toText() + QStringLiteral("datos/"), false});
  return !path.isEmpty() && openFile(path);
}

bool EventList::FileGuarda_Click() {
  enterSection();
  if (!fileDialog) return false;
  const QString path = fileDialog({Res(255), Res(254), program().AppFolder.toText() + QStringLiteral("datos/"), true});
  return !path.isEmpty() && saveFile(path);
}

bool EventList::NuevoFile_Click() {
  enterSection();
  if (!offerSave(title(282))) return false;
  events_.clear();
  fileName_.clear();
  program().EventsFile.clear();
  changed_ = false;
  return true;
}

bool EventList::queryClose() { return offerSave(title(263)); }

bool EventList::openFile(const QString& path) {
  enterSection();
  if (!hasAgeExtension(path)) {
    report(901);
    return false;
  }
  std::optional<QStringList> lines;
  try {
    lines = readAgeFile(rt::readWholeFile(path));
  } catch (const rt::RuntimeError&) {
  }
  if (!lines) {
    report(906);
    return false;
  }
  // Sorted as the list box sorts its lines; equal lines keep the file's order.
  events_ = std::move(*lines);
  std::stable_sort(events_.begin(), events_.end(), lessIgnoringCase);
  fileName_ = path;
  program().EventsFile = path;
  changed_ = false;
  return true;
}

bool EventList::saveFile(const QString& path) {
  enterSection();
  if (!hasAgeExtension(path)) {
    report(900);
    return false;
  }
  try {
    rt::writeWholeFile(path, writeAgeFile(events_));
  } catch (const rt::RuntimeError&) {
    report(907);
    return false;
  }
  fileName_ = path;
  program().EventsFile = path;
  changed_ = false;
  return true;
}

bool EventList::MonthView1_DblClick(double date) {
  enterSection();
  selected_ = std::floor(date);
  MBoxShow(0, rt::FormatDate(date, QStringLiteral("dd - mmmm")) + QStringLiteral("  ") + Res(265), 5, kOkCancel, 0,
           title(264));
  const ProgramState& p = program();
  const QString text = p.MessageValue.toText();
  if (p.MessageResult != 0 || text.trimmed().isEmpty()) return false;
  addEvent(date, text);
  return true;
}

bool EventList::editEvent(int shownIndex) {
  const QStringList shown = List1();
  if (shownIndex < 0 || shownIndex >= shown.size()) return false;
  const QString line = shown.at(shownIndex);
  const QString head = line.left(7);  // "mm/dd  "
  enterSection();
  program().MessageDefault = rt::Variant::text(line.mid(7));
  MBoxShow(0, Res(260), 5, kOkCancel, 0, title(258));
  const ProgramState& p = program();
  const QString text = p.MessageValue.toText();
  if (p.MessageResult != 0 || text.trimmed().isEmpty()) return false;
  events_.removeAt(events_.indexOf(line));
  insertSorted(head + text);
  changed_ = true;
  return true;
}

bool EventList::deleteEvent(int shownIndex) {
  const QStringList shown = List1();
  if (shownIndex < 0 || shownIndex >= shown.size()) return false;
  enterSection();
  program().MessageSound = kMessageSound;
  MBoxShow(kMessageStyle, Res(262), kQuestionKind, kYesNo, 0, title(259));
  if (program().MessageResult != 0) return false;
  events_.removeAt(events_.indexOf(shown.at(shownIndex)));
  changed_ = true;
  return true;
}

}  // namespace calendar
