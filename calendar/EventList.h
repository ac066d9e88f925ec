#pragma once
// The calendar's events: the sorted list List1 of lines "mm/dd  text" (an
// event has no year and returns every year), the *.age file it is kept in,
// the figures for the selected date and the five views of the list.
//
// File form (sequential text): the count written from a 16-bit integer, then
// each line as a quoted text. A reader takes the count into a 32-bit float
// and reads only that many lines; anything after them is ignored.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace calendar {

// The file's bytes for these lines; error 6 when there are more than a
// 16-bit count can hold.
QByteArray writeAgeFile(const QStringList& lines);
// The lines of a file; nothing when it is damaged or not an events file.
std::optional<QStringList> readAgeFile(const QByteArray& bytes);
// "mm/dd" of a date serial.
QString eventKey(double date);

class EventList {
 public:
  enum View { kAll = 0, kMonth = 1, kDate = 2, kPendingMonth = 3, kPendingAll = 4 };

  struct FileDialogRequest {
    QString title;
    QString filter;
    QString folder;
    bool save = false;
  };
  // The file dialog as the window shows it: the chosen path, empty when cancelled.
  std::function<QString(const FileDialogRequest&)> fileDialog;

  EventList();

  // Every event, sorted (the list's contents under view 0).
  const QStringList& events() const { return events_; }
  // List1 as shown under the current view.
  QStringList List1() const;
  QString Caption() const;
  const QString& fileName() const { return fileName_; }
  bool changed() const { return changed_; }

  double selectedDate() const { return selected_; }
  void select(double date) { selected_ = date; }
  int view() const { return view_; }
  void setView(int view) { view_ = view < kAll || view > kPendingAll ? kAll : view; }

  int countForDate() const;
  int countForMonth() const;
  int pendingForMonth() const;
  // "Hay n Eventos Programados para esta Fecha", or string 281 when none.
  QString forDateText() const;

  // Menu handlers. Each returns false when it did not complete (refused,
  // failed, or cancelled); the list keeps what it had.
  bool FileAbre_Click();
  bool FileGuarda_Click();
  bool NuevoFile_Click();
  // Double click on a date: asks for the event's text and adds it.
  bool MonthView1_DblClick(double date);
  // Edit and delete the line at index of List1 as shown (0-based).
  bool editEvent(int shownIndex);
  bool deleteEvent(int shownIndex);
  // At closing: the save offer under title 263. False when cancelled.
  bool queryClose();

  // The error code (900, 901, 906, 907) of the last refused or failed file
  // action since clearFailure, 0 when none.
  int failure() const { return failure_; }
  void clearFailure() { failure_ = 0; }

  // Open and save without the dialog (extension rule, reading, writing).
  bool openFile(const QString& path);
  bool saveFile(const QString& path);
  // Adds one line "mm/dd  text" in its sorted place.
  void addEvent(double date, const QString& text);

 private:
  bool offerSave(const QString& title);
  bool matches(const QString& line, int view) const;
  void insertSorted(const QString& line);
  void report(int code);

  QStringList events_;
  QString fileName_;
  bool changed_ = false;
  double selected_ = 0;
  int view_ = kAll;
  int failure_ = 0;
};

}  // namespace calendar
