#include "geometry/FigureCatalogue.h"

#include <cmath>
#include <stdexcept>

#include "shell/Strings.h"
#include "shell/runtime/Numeric.h"

namespace geometry {

namespace {

struct RawRow {
  const char16_t* tag;
  std::array<const char16_t*, kLines> formulas;
};

// The catalogue as the window lists it.
const RawRow kRows[] = {
    {u"SSN1r-3556", {u" 2 ¶ r", u" ¶ r²", nullptr}},  // Círculo
    {u"SSS2rh-3557", {u" 2 ¶ r h", u" 2 ¶ r (r + h)", u" ¶ r² h"}},  // Cilindro
    {u"NNS2rh-3558", {nullptr, nullptr, u" ¶ r² h"}},  // Cilindro Oblícuo
    {u"NSS2Rh-3559", {nullptr, u" 2 ¶ R h", u" (1/3) ¶ h² (3R - h)"}},  // Casquete Esférico
    {u"SSS2rh-13560", {u" ¶ r g ; g = Sqr(h² + r²)", u" ¶ r (r + g)", u" (1/3) ¶ r² h"}},  // Cono 1
    {u"SSS2rg-23560", {u" ¶ r g", u" ¶ r (r + g)", u" (1/3) ¶ r² h ; h = Sqr(g² - r²)"}},  // Cono 2
    {u"NNS2rh-3561", {nullptr, nullptr, u" (1/3) ¶ r² h"}},  // Cono Oblícuo
    {u"NSN2Rr-3562", {nullptr, u" ¶  (R² - r²)", nullptr}},  // Corona Circular
    {u"SSN1a-3563", {u" 4 a", u" a²", nullptr}},  // Cuadrado
    {u"NSN3abn-3602", {nullptr, u" ½ a b sin(n)", nullptr}},  // Cuadrilátero
    {u"SSS1a-3564", {u" 4 a²", u" 6 a²", u" a³"}},  // Cubo - Hexaedro
    {u"NNS3rhn-3565", {nullptr, nullptr, u" (1/360) ¶ r² h n"}},  // Cuña Cilíndrica
    {u"NSS2rn-3566", {nullptr, u" (1/90) ¶ r² n", u" (1/270) ¶ r³ n"}},  // Huso - Cuña Esférica
    {u"NSS1a-3567", {nullptr, u" 3 a²  Sqr(25 + 10 Sqr(5))", u" ¼ a³ (15 + 7 Sqr(5))"}},  // Dodecaedro
    {u"SSS2ab-13568", {u" ¶ (1.5 (a + b) - Sqr(a  b))", u" ¶ (3 (a + b) - Sqr[(3a + b)(a + 3b)])", u" ¶  a  b"}},  // Elipse 1
    {u"SSS2ab-23568", {u" ¶ [½ (a + b) + Sqr(½ (a² + b²))]", u" 2 ¶ Sqr[½ (a² +  b²)]", u" ¶  a  b"}},  // Elipse 2
    {u"NNS3abc-3569", {nullptr, nullptr, u" (4/3) ¶ a b c"}},  // Elipsoide
    {u"NSS1r-3570", {nullptr, u" 4 ¶ r²", u" (4/3) ¶ r³"}},  // Esfera
    {u"NSS1a-3571", {nullptr, u" 5 a² Sqr(3)", u" (5/12) a³ (3 + Sqr(5))"}},  // Icosaedro: volume 5(3+√5)/12 a³, the regular icosahedron's
    {u"NSS1a-3572", {nullptr, u" 2 a² Sqr(3)", u" (1/3) a³ Sqr(2)"}},  // Octaedro Regular
    {u"SSS3abc-3573", {u" 2 (a + b) c", u" 2 (a b + a c + b c)", u" a b c"}},  // Ortoedro - Paralelepípedo
    {u"NNS2rh-3574", {nullptr, nullptr, u" ½ ¶ r² h"}},  // Paraboloide
    {u"SSS4abch-3575", {u" 2 (a h + b c)", u" 2 (a b + a h + b c)", u" a b h"}},  // Paralelepípedo Oblícuo
    {u"NSN2bh-3576", {nullptr, u" b h", nullptr}},  // Paralelogramo - Romboide
    {u"SNS2ah-3577", {u" 4 a", nullptr, u" (1/3) a² h"}},  // Pirámide Cuadrada Oblícua
    {u"NNS2Bh-3578", {nullptr, nullptr, u" (1/3) B h"}},  // Pirámide Oblícua
    {u"SNS4nabh-3579", {u" n b", nullptr, u" (1/6) n a b h"}},  // Pirámide Regular Obl. (n lados)
    {u"SSS2ah-13580", {u" 2 a b ; b = Sqr(h² + (½ a)²)", u" a² + 2 a b", u" (1/3) a² h"}},  // Pirámide Regular Cuadrada 1
    {u"SSS2ab-23580", {u" 2 a b ", u" a² + 2 a b", u" (1/3) a² h ; h = Sqr(b² - (½ a)²)"}},  // Pirámide Regular Cuadrada 2
    {u"SSS3abh-3581", {u" a Sqr(h²+(½b)²) + b Sqr(h²+(½a)²)", u" ab+a Sqr(h²+(½b)²)+b Sqr(h²+(½a)²)", u" (1/3) a b h"}},  // Pirámide Recta
    {u"SSS4nabc-13582", {u" ½ n b c", u" ½ n b (c + a)", u" (1/6) n a b h ; h = Sqr(c² - a²)"}},  // Pirámide Regular (n lados) 1
    {u"SSS4nabh-23582", {u" ½ n b c ; c = Sqr(h² + a²)", u" ½ n b (c + a)", u" (1/6) n a b h "}},  // Pirámide Regular (n lados) 2
    {u"NSN6abchhh-3583", {nullptr, u" ½ (a h1 + b h2 + c h3)", nullptr}},  // Polígono Irregular Pentagonal
    {u"SSN3nab-3584", {u" n b", u" ½ n a b", nullptr}},  // Polígono Regular (n lados)
    {u"SSS4nabh-3585", {u" n b h", u" n b (a + h)", u" ½ n a b h"}},  // Prisma Regular Recto (n lados)
    {u"NNS4abch-3586", {nullptr, nullptr, u"h Sqr(s(s-a)(s-b)(s-c)) ; s =½(a+b+c)"}},  // Prisma Triangular Oblícuo
    {u"SSS4abch-3587", {u" 2 s h ;  s = ½ (a + b + c)", u" 2 s h + 2 Sqr(s (s - a) (s - b) (s - c))", u" h Sqr (s (s - a) (s - b) (s - c))"}},  // Prisma Triangular Recto
    {u"SSN2bh-3588", {u" 2 (b + h)", u" b h", nullptr}},  // Rectángulo
    {u"SSN2dd-3589", {u" 2 Sqr(d1² + d2²)", u" ½ d1 d2", nullptr}},  // Rombo
    {u"SSN2rn-3593", {u" 2 r (1 + (¶ n / 360))", u" (1/360) ¶ r² n", nullptr}},  // Sector Circular
    {u"NNS2Rh-3594", {nullptr, nullptr, u" (2/3) ¶ R² h"}},  // Sector Esférico
    {u"SSN2rn-3595", {u" r ((2 ¶ n / 360) + Sqr(2 - 2 Cos(n)))", u" ½ r² ((2 ¶ n / 360) - Sin(n))", nullptr}},  // Segmento Circular
    {u"NSS1a-3596", {nullptr, u" a² Sqr(3)", u" (1/12) a³ Sqr(2)"}},  // Tetraedro Regular
    {u"NNS1D-3597", {nullptr, nullptr, u" 0.625 D³"}},  // Tonel
    {u"NSS2Rr-3598", {nullptr, u" 4 ¶² R r", u" 2 ¶² r² R"}},  // Toro
    {u"NSN3Bbh-3599", {nullptr, u" ½ (B + b) h", nullptr}},  // Trapecio
    {u"NSN3Rrn-3600", {nullptr, u" (1/360) ¶ (R² - r²) n", nullptr}},  // Trapecio Circular
    {u"NSN2bh-13590", {nullptr, u" ½ b h", nullptr}},  // Triángulo 1
    {u"SSN3abc-23590", {u" 2 s ;  s = ½ ( a + b + c)", u" Sqr (s (s - a) (s - b) (s - c))", nullptr}},  // Triángulo 2
    {u"SSN1a-3591", {u" 3 a", u" ¼ a² Sqr(3)", nullptr}},  // Triángulo Equilátero
    {u"NNS3rHh-3604", {nullptr, nullptr, u" ½ ¶ r² (H + h)"}},  // Tronco Cilíndrico
    {u"SSS4Rrhg-3592", {u" (R + r) ¶ g", u" ¶ [g (R + r) + R² + r²]", u" (1/3) ¶ h (R² + r² + R r)"}},  // Tronco de Cono
    {u"SSS6BbPpah-3601", {u" ½ (P + p) a", u" [½ (P + p) a] + B + b", u" (1/3) h (B + b + Sqr(B b))"}},  // Tronco de Pirámide
    {u"NSS4Rrrh-3607", {nullptr, u" 2 ¶ R h", u" (1/6) ¶ h (h² + 3 r1² + 3 r2²)"}},  // Zona Esférica
};

// A figure in the switches below: its name's string id and its form (0 when
// it has one form).
constexpr int key(int nameId, int form = 0) { return nameId * 10 + form; }

int keyOf(const FigureRow& row) { return key(row.nameId, row.form.isDigit() ? row.form.digitValue() : 0); }

constexpr int kNotWholeId = 3610;  // "Número Decimal."

double pi() { return 4 * rt::Atn(1); }
// Degrees as typed, to radians, for Sin and Cos only.
double radians(double degrees) { return 2 * pi() * degrees / 360; }
double sqr(double x) { return rt::Sqr(x); }

// Heron's root: the area of the triangle of sides a, b, c.
double heron(double a, double b, double c) {
  const double s = (a + b + c) / 2;
  return sqr(s * (s - a) * (s - b) * (s - c));
}

// The n of a regular figure: not below 3, whole.
template <typename Label>
bool refuseSides(double n, const Label& label, FigureOutcome& out) {
  if (n < 3) {
    out.reason = label(0) + QStringLiteral(" < 3 ");
  } else if (n != std::floor(n)) {
    out.reason = Res(kNotWholeId);
  } else {
    return false;
  }
  out.refused = true;
  return true;
}

}  // namespace

FigureRow parseTag(const QString& tag) {
  FigureRow row;
  row.tag = tag;
  auto bad = [&] { throw std::invalid_argument("bad figure tag: " + tag.toStdString()); };
  if (tag.size() < 10) bad();
  for (int i = 0; i < kLines; ++i) {
    if (tag[i] != u'S' && tag[i] != u'N') bad();
    row.shows[i] = tag[i] == u'S';
  }
  if (!tag[3].isDigit()) bad();
  row.parameterCount = tag[3].digitValue();
  if (row.parameterCount < 1 || row.parameterCount > kMaxParameters) bad();
  row.letters = tag.mid(4, row.parameterCount);
  const qsizetype dash = 4 + row.parameterCount;
  if (tag.size() <= dash || tag[dash] != u'-') bad();
  // The last five: the form character and the four digits of the name.
  const QString tail = tag.right(5);
  bool ok = false;
  row.nameId = tail.mid(1).toInt(&ok);
  row.form = tail[0];
  if (!ok || (row.form != u'-' && row.form != u'1' && row.form != u'2')) bad();
  if (tag.size() != dash + (row.form == u'-' ? 5 : 6)) bad();
  return row;
}

const std::vector<FigureRow>& catalogue() {
  static const std::vector<FigureRow> rows = [] {
    std::vector<FigureRow> list;
    for (const RawRow& raw : kRows) {
      FigureRow row = parseTag(QString::fromUtf16(raw.tag));
      for (int i = 0; i < kLines; ++i) {
        if (raw.formulas[i]) row.formulas[i] = QString::fromUtf16(raw.formulas[i]);
      }
      list.push_back(row);
    }
    return list;
  }();
  return rows;
}

int catalogueSize() { return static_cast<int>(catalogue().size()); }

QString figureName(const FigureRow& row) {
  const QString name = Res(row.nameId);
  return row.form == u'-' ? name : name + u' ' + row.form;
}

QStringList parameterLabels(const FigureRow& row) {
  QStringList labels;
  for (QChar c : row.letters) labels << QString(c);
  switch (row.nameId) {
    case 3602:  // Cuadrilátero
    case 3595:  // Segmento Circular
    case 3566:  // Huso
      labels.last() = QStringLiteral("nº");
      break;
    case 3583:  // Polígono Irregular Pentagonal
      labels[3] = QStringLiteral("h1");
      labels[4] = QStringLiteral("h2");
      labels[5] = QStringLiteral("h3");
      break;
    case 3589:  // Rombo
      labels[0] = QStringLiteral("d1");
      labels[1] = QStringLiteral("d2");
      break;
    case 3607:  // Zona Esférica
      labels[1] = QStringLiteral("r1");
      labels[2] = QStringLiteral("r2");
      break;
    default:
      break;
  }
  return labels;
}

std::array<QString, kLines> lineTitles(const FigureRow& row) {
  std::array<QString, kLines> titles{Res(3514), Res(3516), Res(3518)};
  switch (row.nameId) {
    case 3557: case 3560: case 3564: case 3573: case 3581: case 3580:
    case 3582: case 3585: case 3587: case 3592: case 3601: case 3575:
      titles[0] = Res(3544);  // "Area Lateral"
      titles[1] = Res(3546);  // "Área Total"
      break;
    case 3566:  // Huso
      titles[1] = Res(3545);
      break;
    case 3568: {  // Elipse: four estimates of the perimeter, two per form
      const int first = row.form == u'1' ? 1 : 3;
      titles[0] = Res(3548) + u' ' + QString::number(first);
      titles[1] = Res(3548) + u' ' + QString::number(first + 1);
      titles[2] = Res(3516);  // the third line holds the area
      break;
    }
    default:
      break;
  }
  return titles;
}

std::vector<FigureNote> figureNotes(const FigureRow& row) {
  switch (row.nameId) {
    case 3602: case 3565: case 3566: case 3593: case 3595: case 3600:  // an angle n
      return {{QString(), Res(3552)}};
    case 3578:  // Pirámide Oblícua
      return {{QStringLiteral("B = "), Res(3543)}};
    case 3579: case 3582: case 3584: case 3585:  // n sides
      return {{QStringLiteral("n = "), Res(3551)}, {QStringLiteral("a = "), Res(3549)}};
    case 3601:  // Tronco de Pirámide
      return {{QStringLiteral("B, b = "), Res(3547)}, {QStringLiteral("P, p = "), Res(3541)}};
    default:
      return {};
  }
}

FigureOutcome computeFigure(const FigureRow& row, const std::array<double, kMaxParameters>& v) {
  FigureOutcome out;
  // The labels are only needed for a reason, so they are built then.
  auto label = [&row](int i) { return parameterLabels(row).at(i); };
  // Refuses when the condition holds; the reason names the two boxes.
  auto refuse = [&](bool condition, int i, const char* sign, int j) {
    if (!out.refused && condition) {
      out.refused = true;
      out.reason = label(i) + u' ' + QLatin1String(sign) + u' ' + label(j);
    }
    return out.refused;
  };
  const double PI = pi();
  double& P = out.values[0];
  double& A = out.values[1];
  double& V = out.values[2];
  switch (keyOf(row)) {
    case key(3556): {  // Círculo r
      const double r = v[0];
      P = 2 * PI * r;
      A = PI * r * r;
      break;
    }
    case key(3557): {  // Cilindro r h
      const double r = v[0], h = v[1];
      P = 2 * PI * r * h;
      A = 2 * PI * r * (r + h);
      V = PI * r * r * h;
      break;
    }
    case key(3558):    // Cilindro Oblícuo r h
      V = PI * v[0] * v[0] * v[1];
      break;
    case key(3559): {  // Casquete Esférico R h
      const double R = v[0], h = v[1];
      if (refuse(h > R, 1, ">", 0)) break;
      A = 2 * PI * R * h;
      V = PI * h * h * (3 * R - h) / 3;
      break;
    }
    case key(3560, 1): {  // Cono 1: r h
      const double r = v[0], h = v[1];
      const double g = sqr(h * h + r * r);
      P = PI * r * g;
      A = PI * r * (r + g);
      V = PI * r * r * h / 3;
      break;
    }
    case key(3560, 2): {  // Cono 2: r g
      const double r = v[0], g = v[1];
      if (refuse(g <= r, 1, "<=", 0)) break;
      const double h = sqr(g * g - r * r);
      P = PI * r * g;
      A = PI * r * (r + g);
      V = PI * r * r * h / 3;
      break;
    }
    case key(3561):  // Cono Oblícuo r h
      V = PI * v[0] * v[0] * v[1] / 3;
      break;
    case key(3562): {  // Corona Circular R r
      const double R = v[0], r = v[1];
      if (refuse(r > R, 1, ">", 0)) break;
      A = PI * (R * R - r * r);
      break;
    }
    case key(3563):  // Cuadrado a
      P = 4 * v[0];
      A = v[0] * v[0];
      break;
    case key(3602):  // Cuadrilátero: diagonals a b, angle n between them
      A = v[0] * v[1] * rt::Sin(radians(v[2])) / 2;
      break;
    case key(3564): {  // Cubo a
      const double a = v[0];
      P = 4 * a * a;
      A = 6 * a * a;
      V = a * a * a;
      break;
    }
    case key(3565):  // Cuña Cilíndrica r h n
      V = PI * v[0] * v[0] * v[1] * v[2] / 360;
      break;
    case key(3566): {  // Huso r n
      const double r = v[0], n = v[1];
      A = PI * r * r * n / 90;
      V = PI * r * r * r * n / 270;
      break;
    }
    case key(3567): {  // Dodecaedro a
      const double a = v[0];
      A = 3 * a * a * sqr(25 + 10 * sqr(5));
      V = a * a * a * (15 + 7 * sqr(5)) / 4;
      break;
    }
    case key(3568, 1): {  // Elipse 1: a b
      const double a = v[0], b = v[1];
      P = PI * (1.5 * (a + b) - sqr(a * b));
      A = PI * (3 * (a + b) - sqr((3 * a + b) * (a + 3 * b)));
      V = PI * a * b;
      break;
    }
    case key(3568, 2): {  // Elipse 2: a b
      const double a = v[0], b = v[1];
      P = PI * ((a + b) / 2 + sqr((a * a + b * b) / 2));
      A = 2 * PI * sqr((a * a + b * b) / 2);
      V = PI * a * b;
      break;
    }
    case key(3569):  // Elipsoide a b c
      V = 4 * PI * v[0] * v[1] * v[2] / 3;
      break;
    case key(3570): {  // Esfera r
      const double r = v[0];
      A = 4 * PI * r * r;
      V = 4 * PI * r * r * r / 3;
      break;
    }
    case key(3571): {  // Icosaedro a
      const double a = v[0];
      A = 5 * a * a * sqr(3);
      // The regular icosahedron's volume, 5(3 + √5)/12 a³.
      V = 5 * (3 + sqr(5)) * a * a * a / 12;
      break;
    }
    case key(3572): {  // Octaedro Regular a
      const double a = v[0];
      A = 2 * a * a * sqr(3);
      V = a * a * a * sqr(2) / 3;
      break;
    }
    case key(3573): {  // Ortoedro a b c
      const double a = v[0], b = v[1], c = v[2];
      P = 2 * (a + b) * c;
      A = 2 * (a * b + a * c + b * c);
      V = a * b * c;
      break;
    }
    case key(3574):  // Paraboloide r h
      V = PI * v[0] * v[0] * v[1] / 2;
      break;
    case key(3575): {  // Paralelepípedo Oblícuo a b c h
      const double a = v[0], b = v[1], c = v[2], h = v[3];
      P = 2 * (a * h + b * c);
      A = 2 * (a * b + a * h + b * c);
      V = a * b * h;
      break;
    }
    case key(3576):  // Paralelogramo b h
      A = v[0] * v[1];
      break;
    case key(3577):  // Pirámide Cuadrada Oblícua a h
      P = 4 * v[0];
      V = v[0] * v[0] * v[1] / 3;
      break;
    case key(3578):  // Pirámide Oblícua B h
      V = v[0] * v[1] / 3;
      break;
    case key(3579): {  // Pirámide Regular Obl.: n a b h
      const double n = v[0], a = v[1], b = v[2], h = v[3];
      if (refuseSides(n, label, out)) break;
      P = n * b;
      V = n * a * b * h / 6;
      break;
    }
    case key(3580, 1): {  // Pirámide Regular Cuadrada 1: a h
      const double a = v[0], h = v[1];
      const double b = sqr(h * h + (a / 2) * (a / 2));
      P = 2 * a * b;
      A = a * a + 2 * a * b;
      V = a * a * h / 3;
      break;
    }
    case key(3580, 2): {  // Pirámide Regular Cuadrada 2: a b
      const double a = v[0], b = v[1];
      const double h = sqr(b * b - (a / 2) * (a / 2));
      P = 2 * a * b;
      A = a * a + 2 * a * b;
      V = a * a * h / 3;
      break;
    }
    case key(3581): {  // Pirámide Recta a b h
      const double a = v[0], b = v[1], h = v[2];
      const double slantA = sqr(h * h + (b / 2) * (b / 2));
      const double slantB = sqr(h * h + (a / 2) * (a / 2));
      P = a * slantA + b * slantB;
      A = a * b + a * slantA + b * slantB;
      V = a * b * h / 3;
      break;
    }
    case key(3582, 1): {  // Pirámide Regular (n lados) 1: n a b c
      const double n = v[0], a = v[1], b = v[2], c = v[3];
      if (refuseSides(n, label, out) || refuse(a >= c, 1, ">=", 3)) break;
      const double h = sqr(c * c - a * a);
      P = n * b * c / 2;
      A = n * b * (c + a) / 2;
      V = n * a * b * h / 6;
      break;
    }
    case key(3582, 2): {  // Pirámide Regular (n lados) 2: n a b h
      const double n = v[0], a = v[1], b = v[2], h = v[3];
      if (refuseSides(n, label, out)) break;
      const double c = sqr(h * h + a * a);
      P = n * b * c / 2;
      A = n * b * (c + a) / 2;
      V = n * a * b * h / 6;
      break;
    }
    case key(3583):  // Polígono Irregular Pentagonal a b c h1 h2 h3
      A = (v[0] * v[3] + v[1] * v[4] + v[2] * v[5]) / 2;
      break;
    case key(3584): {  // Polígono Regular n a b
      const double n = v[0], a = v[1], b = v[2];
      if (refuseSides(n, label, out)) break;
      P = n * b;
      A = n * a * b / 2;
      break;
    }
    case key(3585): {  // Prisma Regular Recto n a b h
      const double n = v[0], a = v[1], b = v[2], h = v[3];
      if (refuseSides(n, label, out)) break;
      P = n * b * h;
      A = n * b * (a + h);
      V = n * a * b * h / 2;
      break;
    }
    case key(3586):  // Prisma Triangular Oblícuo a b c h
      V = v[3] * heron(v[0], v[1], v[2]);
      break;
    case key(3587): {  // Prisma Triangular Recto a b c h
      const double s = (v[0] + v[1] + v[2]) / 2, h = v[3];
      const double base = heron(v[0], v[1], v[2]);
      P = 2 * s * h;
      A = 2 * s * h + 2 * base;
      V = h * base;
      break;
    }
    case key(3588):  // Rectángulo b h
      P = 2 * (v[0] + v[1]);
      A = v[0] * v[1];
      break;
    case key(3589):  // Rombo d1 d2
      P = 2 * sqr(v[0] * v[0] + v[1] * v[1]);
      A = v[0] * v[1] / 2;
      break;
    case key(3593): {  // Sector Circular r n
      const double r = v[0], n = v[1];
      P = 2 * r * (1 + PI * n / 360);
      A = PI * r * r * n / 360;
      break;
    }
    case key(3594): {  // Sector Esférico R h
      const double R = v[0], h = v[1];
      if (refuse(h > R, 1, ">", 0)) break;
      V = 2 * PI * R * R * h / 3;
      break;
    }
    case key(3595): {  // Segmento Circular r n
      const double r = v[0], n = v[1];
      P = r * ((2 * PI * n / 360) + sqr(2 - 2 * rt::Cos(radians(n))));
      A = r * r * ((2 * PI * n / 360) - rt::Sin(radians(n))) / 2;
      break;
    }
    case key(3596): {  // Tetraedro Regular a
      const double a = v[0];
      A = a * a * sqr(3);
      V = a * a * a * sqr(2) / 12;
      break;
    }
    case key(3597):  // Tonel D: the program's own estimate
      V = 0.625 * v[0] * v[0] * v[0];
      break;
    case key(3598): {  // Toro R r
      const double R = v[0], r = v[1];
      if (refuse(r > R, 1, ">", 0)) break;
      A = 4 * PI * PI * R * r;
      V = 2 * PI * PI * r * r * R;
      break;
    }
    case key(3599):  // Trapecio B b h
      A = (v[0] + v[1]) * v[2] / 2;
      break;
    case key(3600): {  // Trapecio Circular R r n
      const double R = v[0], r = v[1], n = v[2];
      if (refuse(r > R, 1, ">", 0)) break;
      A = PI * (R * R - r * r) * n / 360;
      break;
    }
    case key(3590, 1):  // Triángulo 1: b h
      A = v[0] * v[1] / 2;
      break;
    case key(3590, 2):  // Triángulo 2: a b c
      P = v[0] + v[1] + v[2];
      A = heron(v[0], v[1], v[2]);
      break;
    case key(3591):  // Triángulo Equilátero a
      P = 3 * v[0];
      A = v[0] * v[0] * sqr(3) / 4;
      break;
    case key(3604):  // Tronco Cilíndrico r H h
      V = PI * v[0] * v[0] * (v[1] + v[2]) / 2;
      break;
    case key(3592): {  // Tronco de Cono R r h g
      const double R = v[0], r = v[1], h = v[2], g = v[3];
      if (refuse(r > R, 1, ">", 0)) break;
      P = (R + r) * PI * g;
      A = PI * (g * (R + r) + R * R + r * r);
      V = PI * h * (R * R + r * r + R * r) / 3;
      break;
    }
    case key(3601): {  // Tronco de Pirámide B b P p a h
      const double B = v[0], b = v[1], Pb = v[2], pb = v[3], a = v[4], h = v[5];
      if (refuse(B < b, 0, "<", 1)) break;
      P = (Pb + pb) * a / 2;
      A = (Pb + pb) * a / 2 + B + b;
      V = h * (B + b + sqr(B * b)) / 3;
      break;
    }
    case key(3607): {  // Zona Esférica R r1 r2 h
      const double R = v[0], r1 = v[1], r2 = v[2], h = v[3];
      if (refuse(R < r1, 0, "<", 1) || refuse(R < r2, 0, "<", 2)) break;
      A = 2 * PI * R * h;
      V = PI * h * (h * h + 3 * r1 * r1 + 3 * r2 * r2) / 6;
      break;
    }
    default:
      throw std::logic_error("figure without formulas: " + row.tag.toStdString());
  }
  if (out.refused) out.values = {};
  return out;
}

}  // namespace geometry
