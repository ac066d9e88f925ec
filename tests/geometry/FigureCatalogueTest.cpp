// The geometry catalogue: its rows and order, the Tags, labels, titles and
// formula texts, every figure's results against the textbook formula worked
// out here independently (two parameter sets each), and the limits.
#include <cmath>
#include <functional>
#include <numbers>

#include "geometry/FigureCatalogue.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

using namespace geometry;

namespace {

const FigureRow& byName(const QString& name) {
  for (const FigureRow& r : catalogue()) {
    if (figureName(r) == name) return r;
  }
  throw std::runtime_error("no figure " + name.toStdString());
}

constexpr double kPi = std::numbers::pi;
double deg(double d) { return d * kPi / 180; }
double heron(double a, double b, double c) {
  // The quarter form of Heron's formula, not the semi-perimeter one.
  return std::sqrt((a + b + c) * (-a + b + c) * (a - b + c) * (a + b - c)) / 4;
}

using Params = std::array<double, kMaxParameters>;
using Expect = std::function<std::array<double, 3>(const Params&)>;

struct TextbookCase {
  const char* name;
  Params first;
  Params second;
  Expect expect;  // perimeter (or lateral area), area, volume; unshown lines ignored
};

const TextbookCase kTextbook[] = {
    {"Círculo", {2}, {0.35}, [](const Params& p) { return std::array{kPi * 2 * p[0], kPi * p[0] * p[0], 0.0}; }},
    {"Cilindro", {2, 5}, {0.5, 12}, [](const Params& p) {
       const double side = 2 * kPi * p[0] * p[1];
       return std::array{side, side + 2 * kPi * p[0] * p[0], kPi * p[0] * p[0] * p[1]};
     }},
    {"Cilindro Oblícuo", {3, 4}, {1.5, 0.2}, [](const Params& p) { return std::array{0.0, 0.0, kPi * p[0] * p[0] * p[1]}; }},
    {"Casquete Esférico", {5, 2}, {3, 3}, [](const Params& p) {
       const double R = p[0], h = p[1];
       return std::array{0.0, 2 * kPi * R * h, kPi * h * h * (R - h / 3)};
     }},
    {"Cono 1", {3, 4}, {1, 10}, [](const Params& p) {
       const double g = std::hypot(p[0], p[1]);
       return std::array{kPi * p[0] * g, kPi * p[0] * g + kPi * p[0] * p[0], kPi * p[0] * p[0] * p[1] / 3};
     }},
    {"Cono 2", {3, 5}, {2, 2.5}, [](const Params& p) {
       const double h = std::sqrt(p[1] * p[1] - p[0] * p[0]);
       return std::array{kPi * p[0] * p[1], kPi * p[0] * p[1] + kPi * p[0] * p[0], kPi * p[0] * p[0] * h / 3};
     }},
    {"Cono Oblícuo", {3, 4}, {0.5, 7}, [](const Params& p) { return std::array{0.0, 0.0, kPi * p[0] * p[0] * p[1] / 3}; }},
    {"Corona Circular", {5, 3}, {2, 2}, [](const Params& p) {
       return std::array{0.0, kPi * p[0] * p[0] - kPi * p[1] * p[1], 0.0};
     }},
    {"Cuadrado", {3}, {0.7}, [](const Params& p) { return std::array{4 * p[0], p[0] * p[0], 0.0}; }},
    {"Cuadrilátero", {6, 8, 90}, {5, 4, 30}, [](const Params& p) {
       return std::array{0.0, p[0] * p[1] * std::sin(deg(p[2])) / 2, 0.0};
     }},
    {"Cubo - Hexaedro", {2}, {1.5}, [](const Params& p) {
       const double face = p[0] * p[0];
       return std::array{4 * face, 6 * face, face * p[0]};
     }},
    {"Cuña Cilíndrica", {2, 5, 90}, {1, 3, 45}, [](const Params& p) {
       return std::array{0.0, 0.0, kPi * p[0] * p[0] * p[1] * (p[2] / 360)};
     }},
    {"Huso - Cuña Esférica", {2, 90}, {3, 30}, [](const Params& p) {
       const double share = p[1] / 360;
       return std::array{0.0, 4 * kPi * p[0] * p[0] * share, 4.0 / 3 * kPi * std::pow(p[0], 3) * share};
     }},
    {"Dodecaedro", {1}, {2.5}, [](const Params& p) {
       // Surface 20.6457288070676 a², volume 7.66311896062463 a³.
       return std::array{0.0, 20.6457288070676 * p[0] * p[0], 7.66311896062463 * std::pow(p[0], 3)};
     }},
    {"Elipse 1", {5, 3}, {4, 4}, [](const Params& p) {
       const double a = p[0], b = p[1];
       return std::array{kPi * (3 * (a + b) / 2 - std::sqrt(a * b)),
                         kPi * (3 * (a + b) - std::sqrt((3 * a + b) * (a + 3 * b))), kPi * a * b};
     }},
    {"Elipse 2", {5, 3}, {4, 4}, [](const Params& p) {
       const double a = p[0], b = p[1];
       const double rms = std::sqrt((a * a + b * b) / 2);
       return std::array{(kPi * (a + b) + 2 * kPi * rms) / 2, 2 * kPi * rms, kPi * a * b};
     }},
    {"Elipsoide", {1, 2, 3}, {0.5, 4, 2}, [](const Params& p) {
       return std::array{0.0, 0.0, 4 * kPi * p[0] * p[1] * p[2] / 3};
     }},
    {"Esfera", {1}, {2.5}, [](const Params& p) {
       return std::array{0.0, 4 * kPi * p[0] * p[0], 4 * kPi * std::pow(p[0], 3) / 3};
     }},
    {"Icosaedro", {1}, {2}, [](const Params& p) {
       // Surface 8.66025403784439 a², volume 2.18169499062491 a³.
       return std::array{0.0, 8.66025403784439 * p[0] * p[0], 2.18169499062491 * std::pow(p[0], 3)};
     }},
    {"Octaedro Regular", {1}, {3}, [](const Params& p) {
       return std::array{0.0, 8 * (std::sqrt(3.0) / 4) * p[0] * p[0], std::pow(p[0], 3) * 0.471404520791032};
     }},
    {"Ortoedro - Paralelepípedo", {2, 3, 4}, {1, 1.5, 10}, [](const Params& p) {
       const double side = 2 * p[0] * p[2] + 2 * p[1] * p[2];
       return std::array{side, side + 2 * p[0] * p[1], p[0] * p[1] * p[2]};
     }},
    {"Paraboloide", {2, 3}, {1, 8}, [](const Params& p) { return std::array{0.0, 0.0, kPi * p[0] * p[0] * p[1] / 2}; }},
    {"Paralelepípedo Oblícuo", {2, 3, 4, 3.5}, {5, 1, 2, 1}, [](const Params& p) {
       const double a = p[0], b = p[1], c = p[2], h = p[3];
       const double side = 2 * a * h + 2 * b * c;
       return std::array{side, side + 2 * a * b, a * b * h};
     }},
    {"Paralelogramo - Romboide", {4, 3}, {2.5, 10}, [](const Params& p) { return std::array{0.0, p[0] * p[1], 0.0}; }},
    {"Pirámide Cuadrada Oblícua", {2, 3}, {5, 1}, [](const Params& p) {
       return std::array{4 * p[0], 0.0, p[0] * p[0] * p[1] / 3};
     }},
    {"Pirámide Oblícua", {10, 3}, {4.5, 2}, [](const Params& p) { return std::array{0.0, 0.0, p[0] * p[1] / 3}; }},
    {"Pirámide Regular Obl. (n lados)", {5, 2, 3, 4}, {6, 1, 1.5, 10}, [](const Params& p) {
       const double base = p[0] * p[2] * p[1] / 2;  // n triangles of side b and height a
       return std::array{p[0] * p[2], 0.0, base * p[3] / 3};
     }},
    {"Pirámide Regular Cuadrada 1", {6, 4}, {2, 10}, [](const Params& p) {
       const double a = p[0], slant = std::hypot(p[1], a / 2);
       return std::array{4 * (a * slant / 2), a * a + 4 * (a * slant / 2), a * a * p[1] / 3};
     }},
    {"Pirámide Regular Cuadrada 2", {6, 5}, {2, 10}, [](const Params& p) {
       const double a = p[0], slant = p[1], h = std::sqrt(slant * slant - a * a / 4);
       return std::array{4 * (a * slant / 2), a * a + 4 * (a * slant / 2), a * a * h / 3};
     }},
    {"Pirámide Recta", {6, 4, 5}, {2, 8, 1}, [](const Params& p) {
       const double a = p[0], b = p[1], h = p[2];
       const double faces = 2 * (a * std::hypot(h, b / 2) / 2) + 2 * (b * std::hypot(h, a / 2) / 2);
       return std::array{faces, faces + a * b, a * b * h / 3};
     }},
    {"Pirámide Regular (n lados) 1", {6, 3, 2, 5}, {4, 1, 2, 1.5}, [](const Params& p) {
       const double n = p[0], a = p[1], b = p[2], c = p[3];
       const double base = n * a * b / 2, side = n * b * c / 2;
       return std::array{side, side + base, base * std::sqrt(c * c - a * a) / 3};
     }},
    {"Pirámide Regular (n lados) 2", {6, 3, 2, 4}, {4, 1, 2, 1.5}, [](const Params& p) {
       const double n = p[0], a = p[1], b = p[2], h = p[3];
       const double base = n * a * b / 2, side = n * b * std::hypot(h, a) / 2;
       return std::array{side, side + base, base * h / 3};
     }},
    {"Polígono Irregular Pentagonal", {4, 5, 6, 1, 2, 3}, {1, 1, 1, 0.5, 0.5, 0.5}, [](const Params& p) {
       return std::array{0.0, p[0] * p[3] / 2 + p[1] * p[4] / 2 + p[2] * p[5] / 2, 0.0};
     }},
    {"Polígono Regular (n lados)", {6, 0.866025403784439, 1}, {3, 2, 7}, [](const Params& p) {
       return std::array{p[0] * p[2], p[0] * (p[2] * p[1] / 2), 0.0};
     }},
    {"Prisma Regular Recto (n lados)", {6, 2, 3, 10}, {8, 1.2, 1, 0.5}, [](const Params& p) {
       const double n = p[0], a = p[1], b = p[2], h = p[3];
       const double base = n * a * b / 2;
       return std::array{n * b * h, n * b * h + 2 * base, base * h};
     }},
    {"Prisma Triangular Oblícuo", {3, 4, 5, 2}, {2, 2, 2, 10}, [](const Params& p) {
       return std::array{0.0, 0.0, heron(p[0], p[1], p[2]) * p[3]};
     }},
    {"Prisma Triangular Recto", {3, 4, 5, 2}, {2, 2, 2, 10}, [](const Params& p) {
       const double side = (p[0] + p[1] + p[2]) * p[3], base = heron(p[0], p[1], p[2]);
       return std::array{side, side + 2 * base, base * p[3]};
     }},
    {"Rectángulo", {4, 3}, {0.5, 20}, [](const Params& p) { return std::array{2 * p[0] + 2 * p[1], p[0] * p[1], 0.0}; }},
    {"Rombo", {6, 8}, {2, 2}, [](const Params& p) {
       return std::array{4 * std::hypot(p[0] / 2, p[1] / 2), p[0] * p[1] / 2, 0.0};
     }},
    {"Sector Circular", {2, 90}, {5, 360}, [](const Params& p) {
       const double theta = deg(p[1]);
       return std::array{2 * p[0] + p[0] * theta, p[0] * p[0] * theta / 2, 0.0};
     }},
    {"Sector Esférico", {5, 2}, {3, 3}, [](const Params& p) { return std::array{0.0, 0.0, 2 * kPi * p[0] * p[0] * p[1] / 3}; }},
    {"Segmento Circular", {2, 90}, {5, 60}, [](const Params& p) {
       const double theta = deg(p[1]);
       return std::array{p[0] * theta + 2 * p[0] * std::sin(theta / 2), p[0] * p[0] * (theta - std::sin(theta)) / 2, 0.0};
     }},
    {"Tetraedro Regular", {1}, {3}, [](const Params& p) {
       return std::array{0.0, 4 * (std::sqrt(3.0) / 4) * p[0] * p[0], std::pow(p[0], 3) / (6 * std::sqrt(2.0))};
     }},
    {"Tonel", {2}, {0.5}, [](const Params& p) { return std::array{0.0, 0.0, 0.625 * std::pow(p[0], 3)}; }},
    {"Toro", {5, 2}, {3, 3}, [](const Params& p) {
       const double ring = 2 * kPi * p[0];
       return std::array{0.0, ring * 2 * kPi * p[1], ring * kPi * p[1] * p[1]};
     }},
    {"Trapecio", {6, 4, 3}, {2, 2, 1}, [](const Params& p) { return std::array{0.0, (p[0] + p[1]) / 2 * p[2], 0.0}; }},
    {"Trapecio Circular", {5, 3, 90}, {2, 1, 180}, [](const Params& p) {
       return std::array{0.0, (kPi * p[0] * p[0] - kPi * p[1] * p[1]) * p[2] / 360, 0.0};
     }},
    {"Triángulo 1", {4, 3}, {10, 0.5}, [](const Params& p) { return std::array{0.0, p[0] * p[1] / 2, 0.0}; }},
    {"Triángulo 2", {3, 4, 5}, {2, 2, 2}, [](const Params& p) {
       return std::array{p[0] + p[1] + p[2], heron(p[0], p[1], p[2]), 0.0};
     }},
    {"Triángulo Equilátero", {2}, {6}, [](const Params& p) {
       return std::array{3 * p[0], heron(p[0], p[0], p[0]), 0.0};
     }},
    {"Tronco Cilíndrico", {2, 5, 3}, {1, 1, 0}, [](const Params& p) {
       return std::array{0.0, 0.0, kPi * p[0] * p[0] * (p[1] + p[2]) / 2};
     }},
    {"Tronco de Cono", {5, 3, 4, 4.47213595499958}, {2, 2, 3, 3}, [](const Params& p) {
       const double R = p[0], r = p[1], h = p[2], g = p[3];
       const double side = kPi * (R + r) * g;
       return std::array{side, side + kPi * R * R + kPi * r * r, kPi * h * (R * R + R * r + r * r) / 3};
     }},
    {"Tronco de Pirámide", {16, 4, 16, 8, 3, 2}, {9, 9, 12, 12, 1, 1}, [](const Params& p) {
       const double B = p[0], b = p[1], P = p[2], q = p[3], a = p[4], h = p[5];
       const double side = (P + q) * a / 2;
       return std::array{side, side + B + b, h * (B + b + std::sqrt(B * b)) / 3};
     }},
    {"Zona Esférica", {5, 4, 3, 1}, {2, 2, 1, 1.5}, [](const Params& p) {
       const double R = p[0], r1 = p[1], r2 = p[2], h = p[3];
       return std::array{0.0, 2 * kPi * R * h, kPi * h * (3 * r1 * r1 + 3 * r2 * r2 + h * h) / 6};
     }},
};

void PrintTo(const TextbookCase& c, std::ostream* os) { *os << c.name; }

class FigureCatalogueTest : public CalvixTest {};
class FigureTextbookFormulas : public CalvixTest, public ::testing::WithParamInterface<TextbookCase> {};

}  // namespace

TEST_F(FigureCatalogueTest, CatalogueHasFiftyFourRowsInItsOrder) {
  ASSERT_EQ(catalogueSize(), 54);
  const auto& rows = catalogue();
  EXPECT_EQ(figureName(rows.front()), QStringLiteral("Círculo"));
  EXPECT_EQ(figureName(rows[4]), QStringLiteral("Cono 1"));
  EXPECT_EQ(figureName(rows[5]), QStringLiteral("Cono 2"));
  EXPECT_EQ(figureName(rows[9]), QStringLiteral("Cuadrilátero"));
  EXPECT_EQ(figureName(rows[12]), QStringLiteral("Huso - Cuña Esférica"));
  EXPECT_EQ(figureName(rows[47]), QStringLiteral("Triángulo 1"));
  EXPECT_EQ(figureName(rows[50]), QStringLiteral("Tronco Cilíndrico"));
  EXPECT_EQ(figureName(rows.back()), QStringLiteral("Zona Esférica"));
  // Every row has its formula texts exactly where the Tag shows a line, a
  // name in all four languages, and is one of the textbook cases below.
  QStringList names;
  for (const FigureRow& r : rows) {
    for (int i = 0; i < kLines; ++i) EXPECT_EQ(r.shows[i], !r.formulas[i].isEmpty()) << r.tag.toStdString();
    EXPECT_TRUE(strings::hasAllLanguages(r.nameId)) << r.nameId;
    names << figureName(r);
  }
  EXPECT_EQ(names.removeDuplicates(), 0);
  EXPECT_EQ(std::size(kTextbook), rows.size());
}

TEST_F(FigureCatalogueTest, TagsAreReadPositionByPosition) {
  const FigureRow cone = parseTag(QStringLiteral("SSS2rg-23560"));
  EXPECT_EQ(cone.shows, (std::array{true, true, true}));
  EXPECT_EQ(cone.parameterCount, 2);
  EXPECT_EQ(cone.letters, QStringLiteral("rg"));
  EXPECT_EQ(cone.form, u'2');
  EXPECT_EQ(cone.nameId, 3560);
  const FigureRow frustum = parseTag(QStringLiteral("SSS6BbPpah-3601"));
  EXPECT_EQ(frustum.letters, QStringLiteral("BbPpah"));
  EXPECT_EQ(frustum.form, u'-');
  EXPECT_EQ(frustum.nameId, 3601);
  const FigureRow cap = parseTag(QStringLiteral("NSS2Rh-3559"));
  EXPECT_EQ(cap.shows, (std::array{false, true, true}));
  for (const char* bad : {"SSN1r3556", "XSN1r-3556", "SSN7abcdefg-3556", "SSN2r-3556", "SSN1r-3x56", "SSN1r-33556"}) {
    EXPECT_THROW(parseTag(QString::fromLatin1(bad)), std::invalid_argument) << bad;
  }
}

TEST_F(FigureCatalogueTest, FormulaTextsKeepTheirBlanks) {
  struct Row {
    const char* figure;
    int line;
    const char16_t* text;
  };
  const Row rows[] = {
      {"Corona Circular", 1, u" ¶  (R² - r²)"},
      {"Dodecaedro", 1, u" 3 a²  Sqr(25 + 10 Sqr(5))"},
      {"Elipse 1", 0, u" ¶ (1.5 (a + b) - Sqr(a  b))"},
      {"Elipse 2", 1, u" 2 ¶ Sqr[½ (a² +  b²)]"},
      {"Elipse 2", 2, u" ¶  a  b"},
      {"Pirámide Regular Cuadrada 2", 0, u" 2 a b "},
      {"Pirámide Regular (n lados) 2", 2, u" (1/6) n a b h "},
      {"Prisma Triangular Oblícuo", 2, u"h Sqr(s(s-a)(s-b)(s-c)) ; s =½(a+b+c)"},
      {"Prisma Triangular Recto", 0, u" 2 s h ;  s = ½ (a + b + c)"},
      {"Triángulo 2", 0, u" 2 s ;  s = ½ ( a + b + c)"},
      {"Toro", 1, u" 4 ¶² R r"},
      {"Tonel", 2, u" 0.625 D³"},
      {"Icosaedro", 2, u" (5/12) a³ (3 + Sqr(5))"},  // the correct volume
  };
  for (const Row& r : rows) {
    EXPECT_EQ(byName(QString::fromUtf8(r.figure)).formulas[r.line], QString::fromUtf16(r.text)) << r.figure;
  }
}

TEST_F(FigureCatalogueTest, LabelsAreTheTagLettersSaveTheFiguresOwn) {
  struct Row {
    const char* figure;
    const char* labels;
  };
  const Row rows[] = {
      {"Cuadrilátero", "a b nº"},     {"Segmento Circular", "r nº"},  {"Huso - Cuña Esférica", "r nº"},
      {"Sector Circular", "r n"},     {"Cuña Cilíndrica", "r h n"},   {"Trapecio Circular", "R r n"},
      {"Rombo", "d1 d2"},             {"Zona Esférica", "R r1 r2 h"}, {"Polígono Irregular Pentagonal", "a b c h1 h2 h3"},
      {"Tronco Cilíndrico", "r H h"}, {"Tronco de Pirámide", "B b P p a h"},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(parameterLabels(byName(QString::fromUtf8(r.figure))).join(u' '), QString::fromUtf8(r.labels)) << r.figure;
  }
}

TEST_F(FigureCatalogueTest, LineTitlesChangeOnlyForTheListedFigures) {
  struct Row {
    const char* figure;
    const char* titles;
  };
  const Row rows[] = {
      {"Círculo", "Perímetro|Área|Volumen"},
      {"Cilindro", "Area Lateral|Área Total|Volumen"},
      {"Cono 2", "Area Lateral|Área Total|Volumen"},
      {"Cubo - Hexaedro", "Area Lateral|Área Total|Volumen"},
      {"Pirámide Regular (n lados) 1", "Area Lateral|Área Total|Volumen"},
      {"Pirámide Regular Obl. (n lados)", "Perímetro|Área|Volumen"},
      {"Prisma Triangular Oblícuo", "Perímetro|Área|Volumen"},
      {"Paralelepípedo Oblícuo", "Area Lateral|Área Total|Volumen"},
      {"Tronco de Pirámide", "Area Lateral|Área Total|Volumen"},
      {"Huso - Cuña Esférica", "Perímetro|Area Superficial|Volumen"},
      {"Elipse 1", "Perímetro Aproximado 1|Perímetro Aproximado 2|Área"},
      {"Elipse 2", "Perímetro Aproximado 3|Perímetro Aproximado 4|Área"},
  };
  for (const Row& r : rows) {
    const auto t = lineTitles(byName(QString::fromUtf8(r.figure)));
    EXPECT_EQ(QStringList({t[0], t[1], t[2]}).join(u'|'), QString::fromUtf8(r.titles)) << r.figure;
  }
}

TEST_F(FigureCatalogueTest, NotesBelongToTheAngleAndBaseFigures) {
  auto notes = [](const char* figure) {
    QStringList out;
    for (const FigureNote& n : figureNotes(byName(QString::fromUtf8(figure)))) out << n.label + n.text;
    return out.join(u'|');
  };
  EXPECT_EQ(notes("Sector Circular"), QStringLiteral("nº expresado en grados sexagesimales"));
  EXPECT_EQ(notes("Pirámide Oblícua"), QStringLiteral("B = Área de la Base"));
  EXPECT_EQ(notes("Polígono Regular (n lados)"), QStringLiteral("n = Número de lados de la Base|a = Apotema"));
  EXPECT_EQ(notes("Tronco de Pirámide"), QStringLiteral("B, b = Áreas de las Bases|P, p = Perímetros de las Bases"));
  EXPECT_EQ(notes("Esfera"), QString());
}

TEST_P(FigureTextbookFormulas, AgreeWithTheFigureForTwoParameterSets) {
  const TextbookCase& c = GetParam();
  const FigureRow& row = byName(QString::fromUtf8(c.name));
  for (const Params& p : {c.first, c.second}) {
    const FigureOutcome out = computeFigure(row, p);
    ASSERT_FALSE(out.refused) << out.reason.toStdString();
    const auto expected = c.expect(p);
    for (int i = 0; i < kLines; ++i) {
      if (!row.shows[i]) continue;
      EXPECT_NEAR(out.values[i], expected[i], 1e-12 * std::max(1.0, std::abs(expected[i]))) << c.name << " line " << i + 1;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryFigure, FigureTextbookFormulas, ::testing::ValuesIn(kTextbook),
                         [](const ::testing::TestParamInfo<TextbookCase>& info) {
                           // "Pirámide Regular (n lados) 1" -> "PiramideRegularnlados1"
                           std::string name;
                           for (QChar c : QString::fromUtf8(info.param.name).normalized(QString::NormalizationForm_D)) {
                             if (c.isLetterOrNumber() && c.unicode() < 128) name += static_cast<char>(c.unicode());
                           }
                           return name;
                         });

TEST_F(FigureCatalogueTest, LimitsRefuseWithTheLabelsAndTheirSign) {
  struct Row {
    const char* figure;
    Params values;
    const char* reason;  // "" allowed
  };
  const Row rows[] = {
      {"Casquete Esférico", {2, 2}, ""},       {"Casquete Esférico", {2, 2.5}, "h > R"},
      {"Sector Esférico", {2, 2}, ""},         {"Sector Esférico", {2, 3}, "h > R"},
      {"Cono 2", {3, 3}, "g <= r"},            {"Cono 2", {4, 3}, "g <= r"},
      {"Cono 2", {3, 3.0000001}, ""},          {"Corona Circular", {2, 2}, ""},
      {"Corona Circular", {2, 2.5}, "r > R"},  {"Toro", {2, 3}, "r > R"},
      {"Trapecio Circular", {2, 3, 10}, "r > R"}, {"Tronco de Cono", {2, 2, 1, 1}, ""},
      {"Tronco de Cono", {2, 3, 1, 1}, "r > R"},  {"Tronco de Pirámide", {4, 4, 1, 1, 1, 1}, ""},
      {"Tronco de Pirámide", {3, 4, 1, 1, 1, 1}, "B < b"}, {"Zona Esférica", {3, 3, 3, 1}, ""},
      {"Zona Esférica", {3, 4, 1, 1}, "R < r1"}, {"Zona Esférica", {3, 1, 4, 1}, "R < r2"},
      {"Pirámide Regular (n lados) 1", {4, 2, 1, 2}, "a >= c"}, {"Pirámide Regular (n lados) 1", {4, 3, 1, 2}, "a >= c"},
      {"Polígono Regular (n lados)", {3.5, 1, 1}, "Número Decimal."},
      {"Polígono Regular (n lados)", {2, 1, 1}, "n < 3 "}, {"Polígono Regular (n lados)", {2.5, 1, 1}, "n < 3 "},
      {"Polígono Regular (n lados)", {3, 1, 1}, ""},   {"Prisma Regular Recto (n lados)", {4.2, 1, 1, 1}, "Número Decimal."},
      {"Pirámide Regular Obl. (n lados)", {0, 1, 1, 1}, "n < 3 "}, {"Pirámide Regular (n lados) 2", {7.5, 1, 1, 1}, "Número Decimal."},
      // The n of an angle figure has no limit.
      {"Sector Circular", {1, 2.5}, ""},
  };
  for (const Row& r : rows) {
    const FigureOutcome out = computeFigure(byName(QString::fromUtf8(r.figure)), r.values);
    EXPECT_EQ(out.reason, QString::fromUtf8(r.reason)) << r.figure;
    EXPECT_EQ(out.refused, *r.reason != 0) << r.figure;
    if (out.refused) {
      EXPECT_EQ(out.values, (std::array{0.0, 0.0, 0.0}));
    }
  }
}

TEST_F(FigureCatalogueTest, ImpossibleRootsFailAsTheRuntimeDoes) {
  // A triangle that does not close, a slant shorter than half the side.
  EXPECT_EQ(errorOf([] { computeFigure(byName(QStringLiteral("Triángulo 2")), {1, 1, 5}); }), 5);
  EXPECT_EQ(errorOf([] { computeFigure(byName(QStringLiteral("Pirámide Regular Cuadrada 2")), {6, 2}); }), 5);
}

TEST_F(FigureCatalogueTest, AnglesGoToRadiansOnlyInsideSinAndCos) {
  // Quadrilateral with diagonals 2 and 3 at 30 degrees: ½·2·3·½.
  EXPECT_NEAR(computeFigure(byName(QStringLiteral("Cuadrilátero")), {2, 3, 30}).values[1], 1.5, 1e-14);
  // The sector's n is used as typed: a quarter circle of radius 2.
  EXPECT_NEAR(computeFigure(byName(QStringLiteral("Sector Circular")), {2, 90}).values[1], kPi, 1e-14);
}
