// The calendar's printouts: the month with its week column, the date's
// information, the events list, and the refusal with 278 when nothing but the
// header would print.
#include "calendar/CalendarModel.h"
#include "calendar/CalendarPrint.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/TestSupport.h"

namespace {

QStringList texts(const PrintDocument& doc) {
  QStringList out;
  for (const PrintLine& l : doc.lines()) {
    QStringList parts;
    for (const PrintSpan& s : l.spans) parts << s.text;
    out << parts.join(QLatin1Char('|'));
  }
  return out;
}

class RecordingPrinter : public PrintPresenter {
 public:
  PrintResult print(const PrintDocument& document) override {
    printed.push_back(document);
    return PrintResult::Printed;
  }
  std::vector<PrintDocument> printed;
};

class CalendarPrintTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    useComma();
    setPrintPresenter(&printer);
    model.select(rt::DateSerial(2024, 3, 19));
  }
  void TearDown() override {
    setPrintPresenter(nullptr);
    CalvixTest::TearDown();
  }
  RecordingPrinter printer;
  calendar::CalendarModel model;
};

}  // namespace

TEST_F(CalendarPrintTest, MonthPrintsItsWeeksAndDaysInArial) {
  const PrintDocument doc = calendar::monthDocument(model);
  const QStringList lines = texts(doc);
  EXPECT_TRUE(lines.at(0).endsWith(QStringLiteral("marzo-24")));
  EXPECT_EQ(lines.at(3), QStringLiteral("9|1|2|3"));  // Monday grid: 1 March is a Friday
  EXPECT_EQ(lines.at(7), QStringLiteral("13|25|26|27|28|29|30|31"));
  EXPECT_EQ(lines.size(), 8);
  for (const PrintLine& l : doc.lines())
    for (const PrintSpan& s : l.spans) EXPECT_EQ(s.font.family, QStringLiteral("Arial"));
}

TEST_F(CalendarPrintTest, DateAndEventsPrintouts) {
  program().CalendarInfo = {};
  EXPECT_FALSE(calendar::PrintFecha_Click(model));
  EXPECT_TRUE(printer.printed.empty());
  EXPECT_EQ(messages.shown().back().text,
            QStringLiteral("No se ha seleccionado ningún tipo de Información para imprimir."));

  program().CalendarInfo = {false, true, false, false, true, true};
  ASSERT_TRUE(calendar::PrintFecha_Click(model));
  const QStringList date = texts(printer.printed.back());
  EXPECT_TRUE(date.at(0).endsWith(QStringLiteral("19-marzo-24")));
  EXPECT_EQ(date.last(), QStringLiteral("Signo Zodiacal|Piscis"));

  EXPECT_TRUE(texts(calendar::eventsDocument(model)).contains(QStringLiteral("No hay Eventos Programados para esta Fecha")));
  model.events.addEvent(rt::DateSerial(2024, 3, 19), QStringLiteral("Santo de Pepe"));
  ASSERT_TRUE(calendar::imprimeLista_Click(model));
  EXPECT_EQ(texts(printer.printed.back()).last(), QStringLiteral("03/19  Santo de Pepe"));
}

TEST_F(CalendarPrintTest, ColourMonthInksSundaysAndEventDaysBlackAndWhiteStaysBlack) {
  model.events.addEvent(rt::DateSerial(2024, 3, 19), QStringLiteral("Santo de Pepe"));
  auto inkOf = [](const PrintDocument& doc, const QString& text) {
    for (const PrintLine& l : doc.lines())
      for (const PrintSpan& s : l.spans)
        if (s.text == text) return std::pair{s.colour, s.font.bold};
    return std::pair{0xFFFFFFFFu, false};
  };
  const PrintDocument colour = calendar::monthDocument(model, true);
  EXPECT_EQ(inkOf(colour, QStringLiteral("17")).first, 0xC00000u);  // a Sunday
  EXPECT_EQ(inkOf(colour, QStringLiteral("19")), std::pair(0x900000u, true));
  EXPECT_EQ(inkOf(colour, QStringLiteral("20")), std::pair(0u, false));  // default day ink
  program().CalendarColours[3] = rt::Variant::longValue(0x00FF00);      // stored blue-green-red: green
  EXPECT_EQ(inkOf(calendar::monthDocument(model, true), QStringLiteral("20")).first, 0x00FF00u);
  program().CalendarColours[3] = rt::Variant::longValue(0x0000FF);  // red in the low byte
  EXPECT_EQ(inkOf(calendar::monthDocument(model, true), QStringLiteral("20")).first, 0xFF0000u);
  const PrintDocument blackAndWhite = calendar::monthDocument(model, false);
  for (const PrintLine& l : blackAndWhite.lines())
    for (const PrintSpan& s : l.spans) EXPECT_EQ(s.colour, 0u) << s.text.toStdString();
}

TEST_F(CalendarPrintTest, GeneralInformationIsItsOwnSwitch) {
  program().CalendarInfo = {false, false, false, false, false, true};
  const auto rows = model.panelRows();
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].second, QStringLiteral("Piscis"));
  EXPECT_TRUE(calendar::PrintFecha_Click(model));
  program().CalendarInfo = {false, true, false, false, false, false};
  EXPECT_TRUE(calendar::PrintFecha_Click(model));  // the header alone is a kind of information
}

namespace {
class NoDesktopSettings : public RecordingPlatform {
 public:
  bool runCommand(const QString& program, const QStringList& arguments) override {
    RecordingPlatform::runCommand(program, arguments);
    return false;
  }
};
}  // namespace

TEST_F(CalendarPrintTest, SystemDateOpensTheDesktopPanelOrTellsTheDateAndTime) {
  RecordingPlatform desktop;
  setPlatform(&desktop);
  EXPECT_TRUE(calendar::SysDate_Click());
  EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("runCommand gnome-control-center datetime")});
  const auto shownBefore = messages.shown().size();

  NoDesktopSettings bare;
  setPlatform(&bare);
  EXPECT_FALSE(calendar::SysDate_Click());
  setPlatform(nullptr);
  EXPECT_EQ(bare.calls.size(), 2);
  ASSERT_EQ(messages.shown().size(), shownBefore + 1);
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Fecha / Hora del Sistema"));
}
