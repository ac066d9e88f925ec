// The events list: the *.age file form (round trip, damaged and foreign
// files), the sorted list, its views and figures, and the handlers with their
// messages.
#include <QFile>

#include "calendar/EventList.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/SequentialFile.h"
#include "tests/support/TestSupport.h"

using calendar::EventList;

namespace {
double serial(int y, int m, int d) { return rt::DateSerial(y, m, d); }

class EventListTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    list.fileDialog = [this](const EventList::FileDialogRequest& r) {
      requests.push_back(r);
      return nextPath;
    };
  }
  QString file(const char* name) const { return appFolder.filePath(QString::fromLatin1(name)); }
  void write(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  void fill() {
    list.addEvent(serial(2000, 3, 19), QStringLiteral("Santo de Pepe"));
    list.addEvent(serial(2000, 1, 6), QStringLiteral("Reyes"));
    list.addEvent(serial(2000, 3, 2), QStringLiteral("Dentista"));
    list.addEvent(serial(2000, 3, 19), QStringLiteral("comida"));
    list.addEvent(serial(2000, 12, 25), QStringLiteral("Navidad"));
  }
  EventList list;
  QString nextPath;
  std::vector<EventList::FileDialogRequest> requests;
};
}  // namespace

TEST_F(EventListTest, FileFormAndRoundTripByteForByte) {
  EXPECT_EQ(calendar::writeAgeFile({}), QByteArray("0\r\n"));
  EXPECT_EQ(calendar::writeAgeFile({QStringLiteral("01/06  Reyes")}), QByteArray("1\r\n\"01/06  Reyes\"\r\n"));
  fill();
  nextPath = file("agenda.age");
  ASSERT_TRUE(list.FileGuarda_Click());
  EXPECT_EQ(requests.back().title, QStringLiteral("Calendario  -  Guardar Fichero"));
  EXPECT_TRUE(requests.back().folder.endsWith(QStringLiteral("datos/")));
  const QByteArray saved = rt::readWholeFile(nextPath);

  EventList other;
  ASSERT_TRUE(other.openFile(nextPath));
  EXPECT_EQ(other.events(), list.events());
  ASSERT_TRUE(other.saveFile(file("again.AGE")));
  EXPECT_EQ(rt::readWholeFile(file("again.AGE")), saved);
  EXPECT_EQ(other.Caption(), QStringLiteral("Calvix Premium  -  Calendario  -  again.AGE"));
  EXPECT_EQ(program().EventsFile, file("again.AGE"));

  // A file written in another order opens sorted, without regard to case.
  write(file("unsorted.age"), "3\r\n\"12/25  b\"\r\n\"01/06  Zeta\"\r\n\"01/06  alfa\"\r\n");
  ASSERT_TRUE(other.openFile(file("unsorted.age")));
  EXPECT_EQ(other.events(), QStringList({"01/06  alfa", "01/06  Zeta", "12/25  b"}));
}

TEST_F(EventListTest, ReadsOnlyTheStatedCountAndAFractionalCountAsAForLoop) {
  EXPECT_EQ(calendar::readAgeFile("1\r\n\"03/01  a\"\r\n\"03/02  b\"\r\n"), QStringList{QStringLiteral("03/01  a")});
  EXPECT_EQ(calendar::readAgeFile("2.5\r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n")->size(), 2);
  EXPECT_EQ(calendar::readAgeFile("-3\r\n")->size(), 0);
  EXPECT_EQ(calendar::readAgeFile("0\r\n")->size(), 0);
}

TEST_F(EventListTest, DamagedAndForeignFilesAreRefusedAndTheListKept) {
  fill();
  const QStringList before = list.events();
  struct Row {
    const char* name;
    QByteArray bytes;
    int code;
  } rows[] = {
      {"short.age", "3\r\n\"01/01  a\"\r\n\"01/02  b\"\r\n", 906},  // fewer lines than the count
      {"cut.age", "1\r\n\"01/01  a", 906},                         // cut inside the text
      {"empty.age", "", 906},
      {"text.age", "\"TIPO IVA\",16\r\n", 906},  // a settings file renamed
      {"data.csv", "0\r\n", 901},                // not an events file by its name
      {"quote.age", "4\r\rs\"\n\n\n", 906},          // an unquoted line holding a quote
      {"missing.age", QByteArray(), 906},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.name);
    if (QString::fromLatin1(r.name) != QLatin1String("missing.age")) write(file(r.name), r.bytes);
    messages.clear();
    EXPECT_FALSE(list.openFile(file(r.name)));
    EXPECT_EQ(list.events(), before);
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_TRUE(messages.shown()[0].text.contains(r.code == 901 ? QStringLiteral("tipo Diferente")
                                                                : QStringLiteral("error al intentar abrir")));
  }
  EXPECT_TRUE(list.fileName().isEmpty());
  messages.clear();
  EXPECT_FALSE(list.saveFile(file("agenda.txt")));
  EXPECT_TRUE(messages.shown()[0].text.contains(QStringLiteral("Guardar un Fichero de un tipo Diferente")));
  messages.clear();
  EXPECT_FALSE(list.saveFile(file("no/such/folder/agenda.age")));
  EXPECT_TRUE(messages.shown()[0].text.contains(QStringLiteral("error al intentar guardar")));
}

TEST_F(EventListTest, ViewsAndFiguresOfTheSelectedDate) {
  fill();
  list.select(serial(2010, 3, 10));
  struct Row {
    int view;
    QStringList shown;
  } rows[] = {
      {0, {"01/06  Reyes", "03/02  Dentista", "03/19  comida", "03/19  Santo de Pepe", "12/25  Navidad"}},
      {1, {"03/02  Dentista", "03/19  comida", "03/19  Santo de Pepe"}},
      {2, {}},
      {3, {"03/19  comida", "03/19  Santo de Pepe"}},
      {4, {"03/19  comida", "03/19  Santo de Pepe", "12/25  Navidad"}},
  };
  for (const Row& r : rows) {
    list.setView(r.view);
    EXPECT_EQ(list.List1(), r.shown) << r.view;
  }
  EXPECT_EQ(list.forDateText(), QStringLiteral("No hay Eventos Programados para esta Fecha"));
  EXPECT_EQ(list.countForMonth(), 3);
  EXPECT_EQ(list.pendingForMonth(), 2);
  list.select(serial(1999, 3, 19));
  EXPECT_EQ(list.forDateText(), QStringLiteral("Hay 2 Eventos Programados para esta Fecha"));
}

TEST_F(EventListTest, NewEditAndDeleteThroughTheirMessages) {
  messages.queueText(QStringLiteral("Cumpleaños"));
  ASSERT_TRUE(list.MonthView1_DblClick(serial(2004, 2, 29)));
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Calvix  -  Archivos  -  Nuevo Evento"));
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("29 - February  Introduzca Evento"));
  EXPECT_EQ(list.events(), QStringList{QStringLiteral("02/29  Cumpleaños")});
  messages.queueAnswer(QStringLiteral("button:1"));  // cancelled: nothing added
  EXPECT_FALSE(list.MonthView1_DblClick(serial(2004, 3, 1)));
  EXPECT_EQ(list.events().size(), 1);

  messages.queueText(QStringLiteral("Fiesta"));
  ASSERT_TRUE(list.editEvent(0));
  EXPECT_EQ(messages.shown().back().defaultText, QStringLiteral("Cumpleaños"));
  EXPECT_EQ(list.events(), QStringList{QStringLiteral("02/29  Fiesta")});

  messages.queueAnswer(QStringLiteral("1"));  // "No", as calvix-cli answers: the question has no field
  EXPECT_FALSE(list.deleteEvent(0));
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("¿ Eliminar Evento ?"));
  messages.queueButton(0);
  EXPECT_TRUE(list.deleteEvent(0));
  EXPECT_TRUE(list.events().isEmpty());
  EXPECT_FALSE(list.deleteEvent(0));
}

TEST_F(EventListTest, TheSaveOfferComesBeforeOpeningAndNew) {
  fill();
  nextPath = file("kept.age");
  messages.queueAnswer(QStringLiteral("2"));  // cancel: nothing happens
  EXPECT_FALSE(list.NuevoFile_Click());
  EXPECT_EQ(list.events().size(), 5);
  EXPECT_TRUE(messages.shown().back().text.contains(QStringLiteral("Lista de Eventos ha sido modificada")));
  messages.queueButton(0);  // yes: saved first, then emptied
  EXPECT_TRUE(list.NuevoFile_Click());
  EXPECT_TRUE(list.events().isEmpty());
  EXPECT_TRUE(list.fileName().isEmpty());
  EXPECT_EQ(calendar::readAgeFile(rt::readWholeFile(nextPath))->size(), 5);
  messages.clear();
  EXPECT_TRUE(list.FileAbre_Click());  // nothing changed: no offer
  EXPECT_EQ(messages.shown().size(), 0u);
  EXPECT_EQ(list.events().size(), 5);
  EXPECT_EQ(requests.back().title, QStringLiteral("Calendario  -  Abrir Fichero"));
}
