// calvix-cli eval: the value as the function table stores it, the feed of x
// and constants, the angle mode, and both kinds of failure.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {
CliRun eval(QStringList args) {
  args.prepend(QStringLiteral("eval"));
  args.prepend(QStringLiteral("."));
  args.prepend(QStringLiteral("--decimal"));
  return runCli(args);
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
}  // namespace

TEST(EvalCommand, PrintsTheValueWithXAndConstantsFedAsTheTableDoes) {
  CliRun r = eval({QStringLiteral("--x"), QStringLiteral("0.5"), QStringLiteral("--vars"), QStringLiteral("A=2:B=3"),
                   QStringLiteral("2.23*sin(A*x)*(cos(B*x))^2")});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("0.00938944147131706\n"));
  // x goes in through its 15-digit text.
  r = eval({QStringLiteral("--x"), QStringLiteral("0.1234567890123456789"), QStringLiteral("x*1e15")});
  EXPECT_EQ(r.out, QStringLiteral("123456789012346\n"));
  r = eval({QStringLiteral("--"), QStringLiteral("-2^2")});
  EXPECT_EQ(r.out, QStringLiteral("4\n"));
  r = eval({QStringLiteral("BIN(5) & \"|\" & BTD(121) & \"|\" & (1<2)")});
  EXPECT_EQ(r.out, QStringLiteral("101|5|True\n"));
  r = runCli({QStringLiteral("--decimal"), QStringLiteral(","), QStringLiteral("eval"), QStringLiteral("--x"),
              QStringLiteral("1,5"), QStringLiteral("x/4")});
  EXPECT_EQ(r.out, QStringLiteral("0,375\n"));  // the locale's form on the table's side only
  // The constants box's rule: a typed comma is a point, whatever the locale.
  for (const char* decimal : {".", ","}) {
    r = runCli({QStringLiteral("--decimal"), QLatin1String(decimal), QStringLiteral("eval"), QStringLiteral("--vars"),
                QStringLiteral("A=2,5"), QStringLiteral("A*2")});
    EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, QStringLiteral("5\n")) << decimal;
  }
}

TEST(EvalCommand, AngleModeReachesOnlyTheLibraryFunctions) {
  EXPECT_EQ(eval({QStringLiteral("sinf(90)")}).out, QStringLiteral("1\n"));  // "deg" by default
  EXPECT_EQ(eval({QStringLiteral("--angle"), QStringLiteral("gra"), QStringLiteral("sinf(100)")}).out,
            QStringLiteral("1\n"));
  EXPECT_EQ(eval({QStringLiteral("--angle"), QStringLiteral("rad"), QStringLiteral("acos(-1)")}).out,
            QStringLiteral("3.14159265358979\n"));
  EXPECT_EQ(eval({QStringLiteral("--angle"), QStringLiteral("gra"), QStringLiteral("sin(0.5)")}).out,
            QStringLiteral("0.479425538604203\n"));
  EXPECT_EQ(eval({QStringLiteral("--angle"), QStringLiteral("turns"), QStringLiteral("1")}).exitCode, 2);
  EXPECT_EQ(eval({QStringLiteral("--x"), QStringLiteral("abc"), QStringLiteral("x")}).exitCode, 2);
  EXPECT_EQ(eval({}).exitCode, 2);
}

TEST(EvalCommand, DomainFailureShowsItsMessageAndReturnsZero) {
  CliRun r = eval({QStringLiteral("ln(0)")});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, QStringLiteral("0\n"));
  EXPECT_TRUE(r.err.contains(QStringLiteral("Error:  Imposible calcular el Logaritmo de un número Negativo o Nulo.")))
      << r.err.toStdString();
  EXPECT_TRUE(r.err.contains(QStringLiteral("  -  Cálculo"))) << r.err.toStdString();
  // Answered with "Cancelar", the table's X cell would read "Error".
  r = eval({QStringLiteral("--json"), QStringLiteral("--answer"), QStringLiteral("1"), QStringLiteral("--x"),
            QStringLiteral("-2"), QStringLiteral("BIN(3e9) & fac(x)")});
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value(QStringLiteral("value")).toString(), QStringLiteral("0"));
  EXPECT_EQ(o.value(QStringLiteral("type")).toString(), QStringLiteral("text"));
  EXPECT_EQ(o.value(QStringLiteral("xCell")).toString(), QStringLiteral(""));  // the second answer was "Aceptar"
  EXPECT_EQ(o.value(QStringLiteral("messages")).toArray().size(), 2);
  r = eval({QStringLiteral("--json"), QStringLiteral("--answer"), QStringLiteral("1"), QStringLiteral("--x"),
            QStringLiteral("-2"), QStringLiteral("fac(x)")});
  EXPECT_EQ(json(r).value(QStringLiteral("xCell")).toString(), QStringLiteral("Error"));
}

TEST(EvalCommand, EngineFailurePrintsErrorAndTheDescriptionAndExitsOne) {
  CliRun r = eval({QStringLiteral("1/0")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.out.isEmpty());
  EXPECT_EQ(r.err.trimmed(), QStringLiteral("Error:  División por cero"));
  r = runCli({QStringLiteral("--lang"), QStringLiteral("en"), QStringLiteral("eval"), QStringLiteral("sin(x")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.err.trimmed(), QStringLiteral("Error:  Expected ')'"));
  r = eval({QStringLiteral("--vars"), QStringLiteral("A=(1"), QStringLiteral("A")});
  EXPECT_EQ(r.exitCode, 1);
  r = eval({QStringLiteral("pow(-8, 1/3)")});
  EXPECT_EQ(r.exitCode, 1);  // an engine failure, not a domain failure: no message box
  EXPECT_FALSE(r.err.contains(QStringLiteral("Cálculo")));
}
