// The unit tables: every row against a second transcription of the listed
// tables (unit_reference.txt, one table per line in menu order), the rows the
// program corrects, the reader's refusals, and an outside check of the
// factors against GNU units.
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <cmath>

#include "convert/UnitTables.h"
#include "tests/support/TestSupport.h"

namespace {

struct ReferenceTable {
  QString item;
  QList<QPair<QString, QString>> rows;  // caption, listed factor as text
};

QList<ReferenceTable> readReference() {
  QFile file(sourcePath(QStringLiteral("tests/convert/unit_reference.txt")));
  if (!file.open(QIODevice::ReadOnly)) return {};
  static const QRegularExpression head(QStringLiteral("^`?(\\w+)`?: "));
  static const QRegularExpression row(QStringLiteral("\"([^\"]*)\" ([-0-9.e+]+)"));
  QList<ReferenceTable> tables;
  for (QString line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
    if (line.endsWith(QLatin1Char('.'))) line.chop(1);  // the full stop after a table's last row
    const QRegularExpressionMatch h = head.match(line);
    if (!h.hasMatch()) continue;
    ReferenceTable t{h.captured(1), {}};
    auto it = row.globalMatch(line);
    while (it.hasNext()) {
      const QRegularExpressionMatch m = it.next();
      t.rows.append({m.captured(1), m.captured(2)});
    }
    tables.append(t);
  }
  return tables;
}

// Rows whose listed factor is wrong as a measurement: the program stores the
// right one. Right values as published to 12 significant digits.
struct CorrectedRow {
  const char* table;
  const char* caption;
  double listed;
  double correct;
};
const CorrectedRow kCorrected[] = {
    {"Superficie", "Milla Est.², Miles²", 1609.344, 2589988.11034},
    {"Superficie", "Acres {acre}", 5.0292, 4046.8564224},
    {"Superficie", "Roods {rood}", 5.0292, 1011.7141056},
    {"Superficie", "Varas², Rods² {rd ²}", 5.0292, 25.29285264},
    {"Superficie", "Palmos², Spans²", 0.22860000000000003, 0.05225796},
    {"Superficie", "Pulgadas², Inches² {in ²}", 0.025400000000000002, 0.00064516},
    {"Superficie0", "Fanega (660 Estados x 49 pies²)", 0.278635, 2510.79556070},
    {"Superficie0", "Estados", 0.278635, 3.80423569803},
    {"Superficie0", "Pies²", 0.278635, 0.077637463225},
    {"Superficie0", "Palmos²", 0.20897625, 0.0436710730641},
    {"Superficie0", "Pulgadas²", 0.023219583333333335, 0.000539149050174},
    {"Volumen", "Millas Est.³, Miles³", 1609.344, 4168181825.44},
    {"Volumen", "Barriles de Petroleo (USA)", 0.025400000000000002, 0.158987294928},
    {"Volumen", "Dry Barrels (USA) {bbl}", 0.025400000000000002, 0.115627123584},
    {"Volumen", "Galones, Gallons (USA) {gal}", 0.025400000000000002, 0.003785411784},
    {"Volumen", "Liquid Pints (USA) {liq pt}", 0.7334250000000001, 0.000473176473},
    {"Volumen", "Tazas, Cups (USA)", 0.36671250000000005, 0.0002365882365},
    {"Volumen", "Gills (USA) {gi}", 0.18335625000000003, 0.00011829411825},
    {"Volumen", "Onzas fl.,Fluid Ounces (USA){fl oz}", 0.04583906250000001, 0.0000295735295625},
    {"Volumen", "Pulgadas³, Inches³ {in ³}", 0.025400000000000002, 0.000016387064},
    {"Volumen", "Tablespoon (USA)", 0.022919531250000003, 0.0000147867647813},
    {"Volumen", "Teaspoon (USA)", 0.007639843750000001, 4.92892159375e-06},
    {"Volumen", "Minims (USA) {minim}", 9.549804687500002e-05, 6.16115199219e-08},
    {"flujo", "Barriles de Petroleo/h  (USA)", 0.06845300000000001, 0.00004416313748},
    {"flujo", "Barriles de Petroleo/min (USA)", 4.1071800000000005, 0.0026497882488},
    {"flujo", "Barriles de Petroleo/s (USA)", 0.025400000000000002, 0.158987294928},
    {"flujo", "galones³/día,  {gal³/d} (USA)", 6.790972222222223e-05, 4.38126363889e-08},
    {"flujo", "galones³/h,  {gal³/h} (USA)", 0.0016298333333333336, 1.05150327333e-06},
    {"flujo", "galones³/min,  {gal³/min} (USA)", 0.09779000000000002, 0.0000630901964},
    {"flujo", "galones³/s,  {gal³/s} (USA)", 0.025400000000000002, 0.003785411784},
    {"flujo", "pulgadas³/día, inches³/d  {in³/d}", 2.939814814814815e-07, 1.89665092593e-10},
    {"flujo", "pulgadas³/h, inches³/h {in³/h}", 7.055555555555556e-06, 4.55196222222e-09},
    {"flujo", "pulgad.³/min, inches³/min {in³/min}", 0.0004233333333333334, 2.73117733333e-07},
    {"flujo", "pulgadas³/s, inches³/s  {in³/s}", 0.025400000000000002, 0.000016387064},
    {"velocidadlinear", "Mach (V.sonido a nivel del mar)", 8.769072918420015e+256, 340.294},
    {"velocidadlinear", "Unidades Astronóm./año", 4753.2132, 4740.47046353},
    {"presion", "KiloPSI {kPSI}", 1313.558858601693, 51714.9156930},
    {"presion", "Libras-f/pulgada², Pounds-f/in² {PSI}", 1.3135588586016929, 51.7149156930},
    {"presion", "MiliPSI {mPSI}", 0.0013135588586016928, 0.0517149156930},
    {"presion", "Onzas-f/pulgada², Ounces-f/in²", 0.0820974286626058, 3.23218223081},
    {"presion", "Poundals/pulgada² {pdl/in²}", 0.04082667090437707, 1.60734871778},
    {"potencia", "Foot·pounds/min", -824634, 0.0225969658055},
    {"fuerza", "Poundals {pdl}", -4123169, 0.138254954376},
    {"densidad", "Libras/Galón, Pounds/Gal (USA)", 0.07730721784776902, 119.826427317},
    {"densidad", "Libras/Pulgada³, Pounds/Inch³", 17.857967322834646, 27679.9047102},
    {"intensidadmagnet", "Weber/in² {Wb/in²}", 39.37007874015748, 1550.00310001},
    {"aceleracionlinear", "Nudos/min {knots/smin}", 0.5144444444444445, 0.00857407407407},
    {"Superficie1", "Barcelona. Varas² (cana²=4 Varas²)", 0.7775, 0.60450625},
    {"Superficie2", "Girona. Varas² (cana²=4 Varas²)", 0.7795, 0.60762025},
    {"cinematica", "{m²/h}", 2.7777777777777777, 0.000277777777778},
    {"cinematica", "{m²/min}", 1.6666666666666667, 0.0166666666667},
    {"energia", "Calorías  {cal}", 4.166666666666667, 4.1868},
};

const CorrectedRow* correctionOf(const QString& table, const QString& caption) {
  for (const CorrectedRow& c : kCorrected) {
    if (table == QLatin1String(c.table) && caption == QString::fromUtf8(c.caption)) return &c;
  }
  return nullptr;
}

double relativeDifference(double a, double b) { return std::fabs(a - b) / std::fabs(b); }

}  // namespace

TEST(UnitTables, HoldEveryListedRowInMenuOrder) {
  const QList<ReferenceTable> reference = readReference();
  const UnitTables& tables = UnitTables::builtIn();
  ASSERT_EQ(reference.size(), 48);
  ASSERT_EQ(tables.tables().size(), 48);
  EXPECT_EQ(tables.unitCount(), 905);
  int corrected = 0;
  for (qsizetype t = 0; t < reference.size(); ++t) {
    const ReferenceTable& ref = reference.at(t);
    const UnitTable& table = tables.tables().at(t);
    ASSERT_EQ(table.item, ref.item) << "table " << t;
    ASSERT_EQ(table.rows.size(), ref.rows.size()) << ref.item.toStdString();
    for (qsizetype i = 0; i < ref.rows.size(); ++i) {
      const QString& caption = ref.rows.at(i).first;
      const double listed = ref.rows.at(i).second.toDouble();
      EXPECT_EQ(table.rows.at(i).caption, caption) << ref.item.toStdString() << " row " << i;
      if (const CorrectedRow* c = correctionOf(ref.item, caption)) {
        ++corrected;
        EXPECT_EQ(listed, c->listed) << caption.toStdString();
        EXPECT_LT(relativeDifference(table.rows.at(i).factor, c->correct), 5e-12)
            << ref.item.toStdString() << ": " << caption.toStdString() << " has " << table.rows.at(i).factor;
      } else {
        EXPECT_EQ(table.rows.at(i).factor, listed) << ref.item.toStdString() << ": " << caption.toStdString();
      }
    }
  }
  EXPECT_EQ(corrected, static_cast<int>(std::size(kCorrected)));
}

TEST(UnitTables, BuildAngleAndHistoricSquaresAtRunTime) {
  // The angle units come from Atn(1), the historic areas and volumes from the
  // power of their lengths: the data file says so, and the values agree.
  QFile file(sourcePath(QStringLiteral("convert/units.txt")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(text.contains(QStringLiteral("Grados (sexag.) (Degrees) {º}\t=atn1/45")));
  EXPECT_TRUE(text.contains(QStringLiteral("Codo³\t=0.5229^3")));
  const struct {
    const char* expression;
    double value;
  } rows[] = {
      {"=atn1/45", 0.017453292519943295},  {"=atn1*8/60", 0.10471975511965977},
      {"=atn1/500000", 1.5707963267948967e-06}, {"=0.835905^2", 0.698737169025},
      {"=0.5229^3", 0.14297362398900001},   {"=1/3600", 1.0 / 3600},
      {"=2*3^2/4", 4.5},                    {"1e-06", 1e-06},
  };
  for (const auto& row : rows) {
    double v = 0;
    ASSERT_TRUE(UnitTables::evaluate(QString::fromLatin1(row.expression), v)) << row.expression;
    EXPECT_EQ(v, row.value) << row.expression;
  }
}

TEST(UnitTables, ReaderRefusesDamagedText) {
  const QString good = QStringLiteral("[a]\t1\t0\nx\t1\ny\t=2^2\n");
  UnitTables ok;
  ASSERT_TRUE(UnitTables::parse(good, ok));
  ASSERT_EQ(ok.tables().size(), 1);
  EXPECT_EQ(ok.tables().at(0).rows.at(1).factor, 4);

  QString forty = QStringLiteral("[a]\t1\t0\n");
  for (int i = 0; i < 40; ++i) forty += QStringLiteral("u%1\t1\n").arg(i);
  const struct {
    const char* name;
    QString text;
  } bad[] = {
      {"unit before a table", QStringLiteral("x\t1\n")},
      {"factor not a number", QStringLiteral("[a]\t1\t0\nx\tabc\n")},
      {"no factor", QStringLiteral("[a]\t1\t0\nx\n")},
      {"zero factor", QStringLiteral("[a]\t1\t0\nx\t0\n")},
      {"broken expression", QStringLiteral("[a]\t1\t0\nx\t=2*\n")},
      {"bad string id", QStringLiteral("[a]\tone\t0\nx\t1\n")},
      {"table twice", QStringLiteral("[a]\t1\t0\nx\t1\n[a]\t1\t0\ny\t1\n")},
      {"empty table", QStringLiteral("[a]\t1\t0\n[b]\t1\t0\nx\t1\n")},
      {"more than 39 units", forty},
  };
  for (const auto& row : bad) {
    UnitTables tables = ok;
    QString error;
    EXPECT_FALSE(UnitTables::parse(row.text, tables, &error)) << row.name;
    EXPECT_FALSE(error.isEmpty()) << row.name;
    EXPECT_EQ(tables.tables().size(), 1) << row.name << ": what was read before stays";
  }
}

// ---- Outside check: GNU units ------------------------------------------------

namespace {

constexpr double kNineDigits = 1e-9;

// A unit of a table, its GNU units expression and that of the table's
// reference unit (the "¤" unit, or the base unit of factor 1), and how close
// the two must agree.
struct OutsideRow {
  const char* table;
  const char* caption;
  const char* gnu;
  const char* gnuReference;
  double tolerance;
};

const OutsideRow kOutside[] = {
    {"Longitud", "Parsecs {pc}", "parsec", "m", kNineDigits},
    // the table keeps the light year as 9.460528e15 m, rounded.
    {"Longitud", "Año Luz, Light Year {Ly}", "lightyear", "m", 0.0001},
    // the table keeps the astronomical unit as 1.49598e11 m, rounded.
    {"Longitud", "U. Astronómicas {AU}", "au", "m", 1e-06},
    {"Longitud", "Kilómetros", "km", "m", kNineDigits},
    {"Longitud", "Hectómetros", "hm", "m", kNineDigits},
    {"Longitud", "Decámetros", "dam", "m", kNineDigits},
    {"Longitud", "Decímetros", "dm", "m", kNineDigits},
    {"Longitud", "Centímetros", "cm", "m", kNineDigits},
    {"Longitud", "Milímetros", "mm", "m", kNineDigits},
    {"Longitud", "Micras {µm}", "micron", "m", kNineDigits},
    {"Longitud", "Nanometros {nm} (Milimicras)", "nm", "m", kNineDigits},
    {"Longitud", "Angstroms {Å}", "angstrom", "m", kNineDigits},
    {"Longitud", "Picometros (Micromicras)", "pm", "m", kNineDigits},
    {"Longitud", "Fermis (femtometros)", "fermi", "m", kNineDigits},
    {"Longitud", "Leguas, Leagues (Est.)", "league", "m", kNineDigits},
    {"Longitud", "Leagues (naut)", "3 nmi", "m", kNineDigits},
    {"Longitud", "Millas Estatuto, Miles {mi}", "mile", "m", kNineDigits},
    {"Longitud", "Millas Náuticas, Miles (naut,Int)", "nmi", "m", kNineDigits},
    {"Longitud", "Millas Náuticas, Miles (naut,Ing)", "6080 ft", "m", kNineDigits},
    {"Longitud", "Furlongs {fur}", "furlong", "m", kNineDigits},
    {"Longitud", "Cables (USA)", "120 fathom", "m", kNineDigits},
    {"Longitud", "Cables (naut,Int)", "0.1 nmi", "m", kNineDigits},
    {"Longitud", "Cables Length", "100 fathom", "m", kNineDigits},
    {"Longitud", "Cadenas, Chains {ch}", "chain", "m", kNineDigits},
    {"Longitud", "Ropes", "20 ft", "m", kNineDigits},
    {"Longitud", "Varas, Rods {rd}", "rod", "m", kNineDigits},
    {"Longitud", "Brazas, Fathoms {fath}", "fathom", "m", kNineDigits},
    {"Longitud", "Yardas, Yards {yd}", "yard", "m", kNineDigits},
    {"Longitud", "Pasos, Paces", "pace", "m", kNineDigits},
    {"Longitud", "Codos, Cubits", "18 inch", "m", kNineDigits},
    {"Longitud", "Pies, Feet {ft}", "ft", "m", kNineDigits},
    {"Longitud", "Palmos, Spans", "9 inch", "m", kNineDigits},
    {"Longitud", "Manos, Hands", "hand", "m", kNineDigits},
    {"Longitud", "Palmas, Palms", "3 inch", "m", kNineDigits},
    {"Longitud", "Pulgadas, Inches {in}", "inch", "m", kNineDigits},
    {"Longitud", "Picas", "12 point", "m", kNineDigits},
    {"Longitud", "Puntos, Points", "point", "m", kNineDigits},
    {"Longitud", "Mils", "mil", "m", kNineDigits},
    {"masa", "Megatoneladas", "megatonne", "kg", kNineDigits},
    {"masa", "Kilotoneladas", "kilotonne", "kg", kNineDigits},
    {"masa", "Toneladas {t,ton}", "tonne", "kg", kNineDigits},
    {"masa", "Quintales métricos", "quintal", "kg", kNineDigits},
    {"masa", "Hectogramos {hg}", "hectogram", "kg", kNineDigits},
    {"masa", "Decagramos {dag}", "dag", "kg", kNineDigits},
    {"masa", "Gramos {g}", "g", "kg", kNineDigits},
    {"masa", "Decigramos {dg}", "dg", "kg", kNineDigits},
    {"masa", "Centigramos {cg}", "cg", "kg", kNineDigits},
    {"masa", "Miligramos {mg}", "mg", "kg", kNineDigits},
    {"masa", "Microgramos, Gammas", "microgram", "kg", kNineDigits},
    {"masa", "Nanogramos", "ng", "kg", kNineDigits},
    {"masa", "Picogramos", "pg", "kg", kNineDigits},
    {"masa", "UTM", "hyl", "kg", kNineDigits},
    {"masa", "Long Tons (UK) {ton}", "longton", "kg", kNineDigits},
    {"masa", "Short Tons (UK) {sh ton}", "shortton", "kg", kNineDigits},
    {"masa", "Hundredweights long {cwt}", "longhundredweight", "kg", kNineDigits},
    {"masa", "Hundredweights short (quintal US) ", "shorthundredweight", "kg", kNineDigits},
    {"masa", "Cuartos, Quarters {quarter}", "28 lb", "kg", kNineDigits},
    {"masa", "Stones {stone}", "stone", "kg", kNineDigits},
    {"masa", "Libras, Pounds avoirdupois {lb}", "lb", "kg", kNineDigits},
    {"masa", "Libras Troy, Troy Pounds  {lb t} ", "troypound", "kg", kNineDigits},
    {"masa", "Onzas Troy, Troy Ounces  {oz tr}", "troyounce", "kg", kNineDigits},
    {"masa", "Onzas, Ounces avoirdupois {oz}", "oz", "kg", kNineDigits},
    {"masa", "Dracmas, Drams avoirdupois {dr}", "dram", "kg", kNineDigits},
    {"masa", "Pennyweights {dwt}", "pennyweight", "kg", kNineDigits},
    {"masa", "Scruples", "scruple", "kg", kNineDigits},
    {"masa", "Carat", "carat", "kg", kNineDigits},
    {"masa", "Granos, Grains {gr}", "grain", "kg", kNineDigits},
    {"tiempo", "Milenios (Gregoriano)", "1000 gregorianyear", "s", kNineDigits},
    {"tiempo", "Siglos (Gregoriano)", "100 gregorianyear", "s", kNineDigits},
    {"tiempo", "Décadas (Gregoriano)", "10 gregorianyear", "s", kNineDigits},
    {"tiempo", "Años (Gregoriano o Calendario)", "gregorianyear", "s", kNineDigits},
    {"tiempo", "Años (365)", "365 day", "s", kNineDigits},
    {"tiempo", "Años (366)", "366 day", "s", kNineDigits},
    {"tiempo", "Meses (30d)", "30 day", "s", kNineDigits},
    {"tiempo", "Quincenas", "15 day", "s", kNineDigits},
    {"tiempo", "Semanas", "week", "s", kNineDigits},
    {"tiempo", "Días", "day", "s", kNineDigits},
    {"tiempo", "Horas {h}", "hour", "s", kNineDigits},
    {"tiempo", "Minutos {min}", "min", "s", kNineDigits},
    {"tiempo", "Milisegundos", "ms", "s", kNineDigits},
    {"tiempo", "Microsegundos", "us", "s", kNineDigits},
    {"tiempo", "Nanosegundos", "ns", "s", kNineDigits},
    {"tiempo", "Picosegundos", "ps", "s", kNineDigits},
    {"tiempo", "Femtosegundos", "fs", "s", kNineDigits},
    {"tiempo", "Attosegundos", "as", "s", kNineDigits},
    {"tiempo", "Shakes", "shake", "s", kNineDigits},
    {"Superficie", "Kilómetros²", "km^2", "m^2", kNineDigits},
    {"Superficie", "Hectáreas {ha}", "hectare", "m^2", kNineDigits},
    {"Superficie", "Areas {a}", "are", "m^2", kNineDigits},
    {"Superficie", "Milla², (naut, Int)", "nmi^2", "m^2", kNineDigits},
    {"Superficie", "Milla Est.², Miles²", "mile^2", "m^2", kNineDigits},
    {"Superficie", "Acres {acre}", "acre", "m^2", kNineDigits},
    {"Superficie", "Roods {rood}", "rood", "m^2", kNineDigits},
    {"Superficie", "Varas², Rods² {rd ²}", "rod^2", "m^2", kNineDigits},
    {"Superficie", "Yardas², Yards² {yd ²}", "yd^2", "m^2", kNineDigits},
    {"Superficie", "Pies², Feet² {ft ²}", "ft^2", "m^2", kNineDigits},
    {"Superficie", "Palmos², Spans²", "(9 inch)^2", "m^2", kNineDigits},
    {"Superficie", "Pulgadas², Inches² {in ²}", "inch^2", "m^2", kNineDigits},
    {"Superficie", "Barns {b}", "barn", "m^2", kNineDigits},
    // seven digits in the table.
    {"Superficie", "Darcys", "darcy", "m^2", 1e-07},
    {"Superficie", "Micras²", "micron^2", "m^2", kNineDigits},
    {"Volumen", "Kilómetros³", "km^3", "m^3", kNineDigits},
    {"Volumen", "Decímetros³ (Litros)", "liter", "m^3", kNineDigits},
    {"Volumen", "Centímetros³ (Mililitros)", "ml", "m^3", kNineDigits},
    {"Volumen", "Millas Est.³, Miles³", "mile^3", "m^3", kNineDigits},
    {"Volumen", "Cords", "cord", "m^3", kNineDigits},
    {"Volumen", "Yardas³, Yards³ {yd ³}", "yd^3", "m^3", kNineDigits},
    {"Volumen", "Barriles de Petroleo (USA)", "42 gallon", "m^3", kNineDigits},
    {"Volumen", "Dry Barrels (USA) {bbl}", "drybarrel", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Kilderkins (UK)", "kilderkin", "m^3", 1e-08},
    // US dry measures from a bushel rounded to 0.035239072 m³.
    {"Volumen", "Bushel (USA) {bu}", "bushel", "m^3", 1e-07},
    {"Volumen", "Pies³, Feet³ {ft ³}", "ft^3", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Pecks (UK) {pk}", "brpeck", "m^3", 1e-08},
    // US dry measures from a bushel rounded to 0.035239072 m³.
    {"Volumen", "Pecks (USA) {dry pk}", "peck", "m^3", 1e-07},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Galones Imperiales, Gallons (UK)", "brgallon", "m^3", 1e-08},
    // US dry measures from a bushel rounded to 0.035239072 m³.
    {"Volumen", "Galones áridos, Dry Gallons (USA)", "drygallon", "m^3", 1e-07},
    {"Volumen", "Galones, Gallons (USA) {gal}", "gallon", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Cuartos, Quartes (UK) {qt}", "brquart", "m^3", 1e-08},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Pintas, Pints (UK) {pt}", "brpint", "m^3", 1e-08},
    // US dry measures from a bushel rounded to 0.035239072 m³.
    {"Volumen", "Dry Pints (USA) {dry pt}", "drypint", "m^3", 1e-07},
    {"Volumen", "Liquid Pints (USA) {liq pt}", "pint", "m^3", kNineDigits},
    {"Volumen", "Tazas, Cups (USA)", "cup", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Gills (UK) {gi}", "brgill", "m^3", 1e-08},
    {"Volumen", "Gills (USA) {gi}", "gill", "m^3", kNineDigits},
    {"Volumen", "Onzas fl.,Fluid Ounces (USA){fl oz}", "floz", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Onzas fluidas, Fluid Ounces (UK)", "brfloz", "m^3", 1e-08},
    {"Volumen", "Pulgadas³, Inches³ {in ³}", "inch^3", "m^3", kNineDigits},
    {"Volumen", "Tablespoon (USA)", "tablespoon", "m^3", kNineDigits},
    {"Volumen", "Teaspoon (USA)", "teaspoon", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Dramos Fl., Fluid Drams (UK) {fl dr}", "brfloz/8", "m^3", 1e-08},
    {"Volumen", "Minims (USA) {minim}", "minim", "m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"Volumen", "Minims (UK) {minim}", "brminim", "m^3", 1e-08},
    {"velocidadlinear", "Velocidad Luz en el vacío", "c", "m/s", kNineDigits},
    {"velocidadlinear", "Kilómetros/h", "km/hr", "m/s", kNineDigits},
    {"velocidadlinear", "Millas Est./h, Miles/h {mph}", "mph", "m/s", kNineDigits},
    {"velocidadlinear", "Nudos {knots/s, mph naut.Int.}", "knot", "m/s", kNineDigits},
    {"velocidadlinear", "Pies/s, Feet/s", "ft/s", "m/s", kNineDigits},
    {"velocidadlinear", "Pulgadas/min, Inches/min", "inch/min", "m/s", kNineDigits},
    {"velocidadlinear", "Unidades Astronóm./año", "au/julianyear", "m/s", kNineDigits},
    {"velocidadlinear", "Rods/s", "rod/s", "m/s", kNineDigits},
    {"velocidadlinear", "Yardas/h, Yards/h", "yd/hr", "m/s", kNineDigits},
    {"aceleracionlinear", "g (gravedad)", "gravity", "m/s^2", kNineDigits},
    {"aceleracionlinear", "Gal (Galileo)", "galileo", "m/s^2", kNineDigits},
    {"aceleracionlinear", "Millas Est./h², Miles/h²", "mile/hr^2", "m/s^2", kNineDigits},
    {"aceleracionlinear", "Nudos/min {knots/smin}", "knot/min", "m/s^2", kNineDigits},
    {"aceleracionlinear", "Pies/s², Feet/s²", "ft/s^2", "m/s^2", kNineDigits},
    {"aceleracionlinear", "Yardas/min², Yards/min²", "yd/min^2", "m/s^2", kNineDigits},
    {"energia", "Kilocalorías  {kcal th}", "kcal_th", "J", kNineDigits},
    {"energia", "Calorías (Termoquímica) {cal th}", "thermcalorie", "J", kNineDigits},
    {"energia", "Calorías  {cal}", "calorie_IT", "J", kNineDigits},
    // the table rounds the IT BTU to 1055.056 J.
    {"energia", "B.T.U. IT  (Internacional)", "btu", "J", 1e-06},
    {"energia", "Kilowatios-hora  {kWh}", "kWh", "J", kNineDigits},
    {"energia", "Ergios  {erg} (din·cm)", "erg", "J", kNineDigits},
    {"energia", "Atmósferas-litro", "atm liter", "J", kNineDigits},
    {"energia", "kpondios·metros  {kpm}", "kgf m", "J", kNineDigits},
    {"energia", "Tonelada Eq. Nuclear {Ton of TNT}", "tnt ton", "J", kNineDigits},
    // metric horsepower rounded to 735.499 W.
    {"energia", "C.vapor-s  (métrico)", "735.49875 J", "J", 1e-06},
    // the quad rounded to 1.055e18 J.
    {"energia", "Quads", "quad", "J", 0.0001},
    {"energia", "Megatones", "1e6 tnt ton", "J", kNineDigits},
    // metric horsepower rounded to 735.499 W.
    {"potencia", "Caballos de vapor (métrico){cv,hp}", "735.49875 W", "W", 1e-06},
    {"potencia", "Kilopondio·m/s {kpm/s}", "kgf m/s", "W", kNineDigits},
    {"potencia", "Calorías/s {cal/s}", "thermcalorie/s", "W", kNineDigits},
    {"potencia", "Ergios/s {erg/s}", "erg/s", "W", kNineDigits},
    {"potencia", "Foot·pounds/min", "ft lbf/min", "W", kNineDigits},
    {"fuerza", "Kilogramo-f., Kilopondios {kgf, kp}", "kgf", "N", kNineDigits},
    {"fuerza", "Gramo-fuerza, Pondios {gf, p}", "gram force", "N", kNineDigits},
    {"fuerza", "Dinas {din, dyn}", "dyne", "N", kNineDigits},
    {"fuerza", "Kilolibras-fuerza, kPounds-f. {Kips}", "kip", "N", kNineDigits},
    {"fuerza", "Libras-fuerza (slug·foot/s²) {lbf}", "lbf", "N", kNineDigits},
    {"fuerza", "Onzas-fuerza, Ounce-force {ozf}", "oz force", "N", kNineDigits},
    {"fuerza", "Poundals {pdl}", "poundal", "N", kNineDigits},
    // the pressure table counts in torr of 133.3224 Pa.
    {"presion", "Atmósferas (normal) {atm}", "atm", "Pa", 1e-06},
    {"presion", "Bares {bar}", "bar", "Pa", kNineDigits},
    {"presion", "Milibares (hectopascales) {mbar}", "mbar", "Pa", kNineDigits},
    {"presion", "KiloPascales {kPa}", "kPa", "Pa", kNineDigits},
    {"presion", "Newtons/cm²", "N/cm^2", "Pa", kNineDigits},
    {"presion", "dinas/cm²", "dyne/cm^2", "Pa", kNineDigits},
    {"presion", "Libras-f/pulgada², Pounds-f/in² {PSI}", "psi", "Pa", kNineDigits},
    {"presion", "KiloPSI {kPSI}", "1000 psi", "Pa", kNineDigits},
    {"presion", "Libras-fuerza/pie², Pounds-force/ft²", "lbf/ft^2", "Pa", kNineDigits},
    {"presion", "Onzas-f/pulgada², Ounces-f/in²", "oz force/inch^2", "Pa", kNineDigits},
    {"presion", "Poundals/pulgada² {pdl/in²}", "poundal/inch^2", "Pa", kNineDigits},
    // the pressure table counts in torr of 133.3224 Pa.
    {"presion", "Poundals/pie² {pdl/ft²}", "poundal/ft^2", "Pa", 1e-06},
    {"presion", "kpondios/cm² {at,kgf/cm²,kp/cm²}", "kgf/cm^2", "Pa", kNineDigits},
    // the pressure table counts in torr of 133.3224 Pa.
    {"presion", "Torricellis {Torr, mmHg 0°C}", "torr", "Pa", 1e-06},
    {"densidad", "Libras/Pie³, Pounds/foot³", "lb/ft^3", "kg/m^3", kNineDigits},
    {"densidad", "Libras/Galón, Pounds/Gal (USA)", "lb/gallon", "kg/m^3", kNineDigits},
    {"densidad", "Libras/Pulgada³, Pounds/Inch³", "lb/inch^3", "kg/m^3", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"densidad", "Libras/Galón, Pounds/Gal (UK)", "lb/brgallon", "kg/m^3", 1e-08},
    {"densidad", "g/cm³", "g/cm^3", "kg/m^3", kNineDigits},
    {"flujo", "galones³/min,  {gal³/min} (USA)", "gallon/min", "m^3/s", kNineDigits},
    {"flujo", "pies³/min, feet³/min {ft³/min}", "ft^3/min", "m^3/s", kNineDigits},
    {"flujo", "pulgad.³/min, inches³/min {in³/min}", "inch^3/min", "m^3/s", kNineDigits},
    {"flujo", "Barriles de Petroleo/h  (USA)", "42 gallon/hr", "m^3/s", kNineDigits},
    // UK measures from the old imperial gallon of 277.42 in³.
    {"flujo", "galones³/h,  {gal³/h} (UK)", "brgallon/hr", "m^3/s", 1e-08},
    {"flujo", "decímetros³/min, litros/min {l/min}", "liter/min", "m^3/s", kNineDigits},
    {"anbidimensional", "Grados (sexag.) (Degrees) {º}", "degree", "radian", kNineDigits},
    {"anbidimensional", "Minutos (sexagesimal) {'}", "arcmin", "radian", kNineDigits},
    {"anbidimensional", "Segundos (sexagesimal) {''}", "arcsec", "radian", kNineDigits},
    {"anbidimensional", "Grados (centesimal) {g}", "gon", "radian", kNineDigits},
    {"anbidimensional", "Revoluciones {r}", "revolution", "radian", kNineDigits},
    {"velocidadangular", "Revoluciones/min {rpm}", "rpm", "radian/s", kNineDigits},
    {"velocidadangular", "Degrees/s", "degree/s", "radian/s", kNineDigits},
    {"aceleracionangular", "rpm/s", "rpm/s", "radian/s^2", kNineDigits},
    {"informat", "Kilobytes", "kibibyte", "bit", kNineDigits},
    {"informat", "Megabytes", "mebibyte", "bit", kNineDigits},
    {"informat", "Bytes", "byte", "bit", kNineDigits},
    {"informat", "Nibbles", "nibble", "bit", kNineDigits},
    {"intensidadmagnet", "Gausses {Gs, G}", "gauss", "tesla", kNineDigits},
    {"intensidadmagnet", "Weber/in² {Wb/in²}", "Wb/inch^2", "tesla", kNineDigits},
    {"flujomag", "Maxwell {Mx}", "maxwell", "weber", kNineDigits},
    {"cinematica", "Stokes {St}", "stokes", "m^2/s", kNineDigits},
    {"cinematica", "{m²/h}", "m^2/hr", "m^2/s", kNineDigits},
    {"dinamica", "Poises {P}", "poise", "Pa s", kNineDigits},
    {"dinamica", "centipoises {cP}", "centipoise", "Pa s", kNineDigits},
    {"radiactiv", "Curios {Ci}", "curie", "Bq", kNineDigits},
    {"dosisabs", "Rad {rad}", "rad", "gray", kNineDigits},
    // the electron volt of the 1973 constants, 1.6021892e-19 J.
    {"energia", "Electrón-voltio  {eV}", "eV", "J", 1e-05},
    {"capacidadelectrica", "Abfaradios", "abfarad", "farad", kNineDigits},
    {"cargaelectrica", "Abculombios", "abcoulomb", "coulomb", kNineDigits},
    {"cargaelectrica", "Amperios-hora", "ampere hour", "coulomb", kNineDigits},
    {"inductanciaelec", "Abhenrios", "abhenry", "henry", kNineDigits},
    {"potencial", "Abvóltios", "abvolt", "volt", kNineDigits},
    {"resistenciaelectrica", "Abóhmios", "abohm", "ohm", kNineDigits},
};

// The table's reference unit: its "¤" row, else the row of factor 1.
double referenceFactor(const UnitTable& table) {
  for (const UnitRow& r : table.rows) {
    if (r.caption.trimmed().startsWith(QStringLiteral("¤"))) return r.factor;
  }
  for (const UnitRow& r : table.rows) {
    if (r.factor == 1) return 1;
  }
  return 0;
}

}  // namespace

TEST(UnitTables, AgreeWithGnuUnits) {
  const QString units = QStandardPaths::findExecutable(QStringLiteral("units"));
  if (units.isEmpty()) GTEST_SKIP() << "GNU units is not installed (Debian package units): outside check skipped";
  const UnitTables& tables = UnitTables::builtIn();
  int nineDigits = 0;
  for (const OutsideRow& row : kOutside) {
    const UnitTable* table = tables.find(QLatin1String(row.table));
    ASSERT_NE(table, nullptr) << row.table;
    const QString caption = QString::fromUtf8(row.caption);
    double factor = 0;
    for (const UnitRow& r : table->rows) {
      if (r.caption == caption) factor = r.factor;
    }
    ASSERT_NE(factor, 0) << row.table << ": " << row.caption;
    QProcess p;
    p.start(units, {QStringLiteral("-t"), QStringLiteral("-d"), QStringLiteral("15"), QString::fromUtf8(row.gnu),
                    QString::fromUtf8(row.gnuReference)});
    ASSERT_TRUE(p.waitForFinished(10000));
    bool ok = false;
    const double expected = QString::fromUtf8(p.readAllStandardOutput()).trimmed().toDouble(&ok);
    ASSERT_TRUE(ok) << row.gnu;
    EXPECT_LT(relativeDifference(factor / referenceFactor(*table), expected), row.tolerance)
        << row.table << ": " << row.caption << " against " << row.gnu;
    if (row.tolerance == kNineDigits) ++nineDigits;
  }
  EXPECT_GE(nineDigits, 150);
}
