// calvix-cli date: the contract of each action (fields, lines, exit codes)
// over the calendar's models.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "calendar/EventList.h"
#include "shell/runtime/SequentialFile.h"
#include "tests/support/TestSupport.h"

namespace {
QStringList args(std::initializer_list<const char*> list) {
  QStringList out;
  for (const char* a : list) out << QString::fromUtf8(a);
  return out;
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
}  // namespace

TEST(DateCommand, InfoGivesEveryLineOfThePanel) {
  const CliRun r = runCli(args({"--json", "--decimal", ",", "date", "info", "2000-06-16", "--date1", "2000-06-26"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("dayOfYear").toInt(), 168);
  EXPECT_EQ(o.value("week").toInt(), 25);
  EXPECT_EQ(o.value("illumination").toInt(), 98);
  EXPECT_EQ(o.value("picture").toInt(), 16);
  EXPECT_EQ(o.value("phase").toString(), QStringLiteral("Luna Llena"));
  EXPECT_EQ(o.value("moon").toString(), QStringLiteral("Fase Lunar: Luna Llena  (98% Iluminación)"));
  EXPECT_EQ(o.value("zodiac").toString(), QStringLiteral("Géminis"));
  EXPECT_TRUE(o.value("saints").toString().contains(QStringLiteral("Regis")));
  EXPECT_TRUE(o.value("header").toString().endsWith(QStringLiteral(" (Día: 168 / Semana: 25)")));
  const QJsonArray remaining = o.value("remaining").toArray();
  ASSERT_EQ(remaining.size(), 2);
  EXPECT_EQ(remaining[0].toString(), QStringLiteral("Faltan 10 Días para el 26/06/2000"));
  EXPECT_EQ(remaining[1].toString(), QStringLiteral("No Definida."));

  const CliRun plain = runCli(args({"date", "info", "2000-06-16"}));
  EXPECT_EQ(lines(plain).size(), 11);
  EXPECT_TRUE(lines(plain).contains(QStringLiteral("zodiac\tGéminis")));
}

TEST(DateCommand, DiffAndAdd) {
  const CliRun d = runCli(args({"date", "diff", "2000-12-31", "2001-01-01"}));
  ASSERT_EQ(d.exitCode, 0);
  EXPECT_EQ(lines(d), QStringList({"Años:      1", "Meses:     1", "Semanas:   0", "Días:      1", "Horas:     24",
                                   "Minutos:   1440", "Segundos:  86400"}));
  const QJsonObject dj = json(runCli(args({"--json", "date", "diff", "2000-01-10", "2000-01-01"})));
  EXPECT_EQ(dj.value("w").toInt(), -1);
  EXPECT_EQ(dj.value("d").toInt(), -9);
  EXPECT_TRUE(dj.value("text").toString().startsWith(QStringLiteral("La Diferencia entre las dos Fechas Seleccionadas, ")));

  EXPECT_EQ(runCli(args({"date", "add", "2000-01-31", "1", "m"})).out, QStringLiteral("2000-02-29\n"));
  EXPECT_EQ(runCli(args({"date", "add", "2000-01-01", "3", "w"})).out, QStringLiteral("2000-01-04\n"));
  const QJsonObject aj = json(runCli(args({"--json", "--decimal", ",", "date", "add", "2000-03-31", "-1", "yyyy"})));
  EXPECT_EQ(aj.value("date").toString(), QStringLiteral("1999-03-31"));
  EXPECT_EQ(aj.value("text").toString(), QStringLiteral("31/03/2000 menos 1 Años da como resultado: 31/03/1999"));
}

TEST(DateCommand, BadDatesAndUnitsAreBadUsage) {
  for (const QStringList& a : {args({"date", "add", "2001-02-29", "1", "d"}), args({"date", "add", "2000-01-01", "1", "q"}),
                               args({"date", "info", "1/6/2000"}), args({"date", "diff", "2000-13-01", "2000-01-01"}),
                               args({"date", "events", "--add", "2000-02-30"})}) {
    EXPECT_EQ(runCli(a).exitCode, 2) << a.join(' ').toStdString();
  }
}

TEST(DateCommand, SaintsSearchPrintsTheFindsThenFailsWhenNoneIsLeft) {
  EXPECT_EQ(runCli(args({"date", "saints", "2010-03-19"})).out, QStringLiteral("San José, esposo de la Virgen María\n"));
  const CliRun r = runCli(args({"date", "saints", "--search", "Isidoro", "--next", "5"}));
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(lines(r).size(), 2);
  EXPECT_TRUE(r.out.startsWith(QStringLiteral("04/04\tSan Isidoro")));
  EXPECT_TRUE(r.err.contains(QStringLiteral("No se encontraron más coincidencias que contengan el texto: Isidoro")));
  const CliRun none = runCli(args({"--json", "date", "saints", "--search", "Zzyzx"}));
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_TRUE(json(none).value("found").toArray().isEmpty());
  EXPECT_TRUE(none.err.contains(QStringLiteral("No se encontraron coincidencias")));
}

TEST(DateCommand, EventsAddSaveOpenAndAFailedOpenKeepsTheList) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("agenda.age"));
  const CliRun saved = runCli(QStringList{"date", "events", "--add", "2024-03-19", "--answer", "Santo de Pepe", "--add",
                                          "2024-01-06", "--answer", "Reyes", "--save", file});
  ASSERT_EQ(saved.exitCode, 0) << saved.err.toStdString();
  EXPECT_EQ(lines(saved), QStringList({"01/06  Reyes", "03/19  Santo de Pepe"}));
  EXPECT_EQ(rt::readWholeFile(file), QByteArray("2\r\n\"01/06  Reyes\"\r\n\"03/19  Santo de Pepe\"\r\n"));

  const QString foreign = dir.filePath(QStringLiteral("notes.txt"));
  const CliRun r = runCli(QStringList{"--json", "date", "events", "--date", "2024-03-19", "--open", file, "--open",
                                      foreign, "--show", "2"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("Está intentando Abrir un Fichero de un tipo Diferente.")));
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("List1").toArray(), QJsonArray({"03/19  Santo de Pepe"}));
  EXPECT_EQ(o.value("forDate").toString(), QStringLiteral("Hay 1 Eventos Programados para esta Fecha"));
  EXPECT_EQ(o.value("Caption").toString(), QStringLiteral("Calvix Premium  -  Calendario  -  agenda.age"));
  EXPECT_EQ(o.value("file").toString(), file);

  // Delete line 1 confirmed, then the save offer of New answered "No".
  const CliRun d = runCli(QStringList{"--json", "date", "events", "--date", "2024-05-01", "--open", file, "--delete",
                                      "1", "--answer", "0"});
  EXPECT_EQ(json(d).value("List1").toArray(), QJsonArray({"03/19  Santo de Pepe"}));
  EXPECT_EQ(json(d).value("forDate").toString(), QStringLiteral("No hay Eventos Programados para esta Fecha"));
  // Actions run in order: line 1 of the date's view is 03/19; a double click selects its date.
  const CliRun v = runCli(QStringList{"--json", "date", "events", "--open", file, "--date", "2024-03-19", "--show", "2",
                                      "--delete", "1", "--answer", "0", "--show", "0", "--add", "2024-05-05",
                                      "--answer", "Mayo"});
  EXPECT_EQ(json(v).value("List1").toArray(), QJsonArray({"01/06  Reyes", "05/05  Mayo"}));
  EXPECT_EQ(json(v).value("forDate").toString(), QStringLiteral("Hay 1 Eventos Programados para esta Fecha"));
  const CliRun n = runCli(QStringList{"date", "events", "--open", file, "--delete", "1", "--answer", "0", "--new",
                                      "--answer", "1"});
  EXPECT_EQ(n.exitCode, 0);
  EXPECT_TRUE(n.out.isEmpty());
  EXPECT_EQ(calendar::readAgeFile(rt::readWholeFile(file))->size(), 2);  // "No": the file unchanged

  // "Yes" to the offer before opening saves the changed list over its own file first.
  const QString other = dir.filePath(QStringLiteral("other.age"));
  rt::writeWholeFile(other, QByteArray("1\r\n\"12/25  Navidad\"\r\n"));
  const CliRun y = runCli(QStringList{"date", "events", "--open", file, "--delete", "1", "--answer", "0", "--open",
                                      other, "--answer", "0"});
  EXPECT_EQ(y.exitCode, 0) << y.err.toStdString();
  EXPECT_EQ(lines(y), QStringList({"12/25  Navidad"}));
  EXPECT_EQ(calendar::readAgeFile(rt::readWholeFile(file))->size(), 1);
}
