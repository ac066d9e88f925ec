#include "elements/PeriodicTable.h"

#include <QStringList>

#include "elements/ElementTooltips.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr double kJoulesPerCalorie = 4.184;

struct Translation {
  const char* stored;
  int stringId;
};

// The stored acid-base texts, in the order of AcidBase.
constexpr Translation kAcidBase[] = {{"Acido", 1070},         {"Acido fuerte", 1071}, {"Básico", 1072},
                                     {"Básico fuerte", 1073}, {"Anfótero", 1074},     {"--", 1075}};
// The stored crystal systems, in the order of CrystalSystem.
constexpr Translation kCrystal[] = {{"Cúbico CC", 1085},    {"Cúbico CE", 1086},    {"Hexagonal", 1078},
                                    {"Cúbico", 1079},       {"Tetragonal", 1080},   {"Rómbico", 1081},
                                    {"Ortorrómbico", 1082}, {"Monoclínico", 1083},  {"Romboédrico", 1084},
                                    {"--", 1075}};

// Caption strings of the sheet's labels; the energy labels have one per unit
// (Julios, Calorías).
int captionId(ElementField f, int energyUnit) {
  const bool joules = energyUnit == 0;
  switch (f) {
    case ElementField::numat: return 1001;
    case ElementField::nombres: return 1002;
    case ElementField::ebulliciones: return 1003;
    case ElementField::fusiones: return 1004;
    case ElementField::densidades: return 1005;
    case ElementField::simbolos: return 1007;
    case ElementField::pesos: return 1008;
    case ElementField::volumenes: return 1011;
    case ElementField::radioas: return 1016;
    case ElementField::radiocs: return 1012;
    case ElementField::radiois: return 1013;
    case ElementField::electronegs: return 1026;
    case ElementField::electronegs1: return 1027;
    case ElementField::calores: return joules ? 1029 : 1028;
    case ElementField::calorfs: return joules ? 1031 : 1030;
    case ElementField::calorvs: return joules ? 1033 : 1032;
    case ElementField::energias: return joules ? 1037 : 1036;
    case ElementField::condutes: return joules ? 1038 : 1034;
    case ElementField::caracteres: return 1066;
    case ElementField::estructura: return 1006;
    case ElementField::valencias: return 1009;
    case ElementField::cristal: return 1014;
  }
  return 0;
}

bool isEnergyField(int index) {
  switch (static_cast<ElementField>(index)) {
    case ElementField::calores:
    case ElementField::calorfs:
    case ElementField::calorvs:
    case ElementField::energias:
    case ElementField::condutes:
      return true;
    default:
      return false;
  }
}

template <std::size_t N>
int translationIndex(const Translation (&table)[N], const QString& stored) {
  for (std::size_t i = 0; i < N; ++i) {
    if (stored == QString::fromUtf8(table[i].stored)) return static_cast<int>(i);
  }
  return static_cast<int>(N) - 1;  // anything else reads as unknown
}

}  // namespace

const QList<NoteItem>& noteItems() {
  static const QList<NoteItem> items{
      {"cuadernotabla", 911, 77200, false},   {"cuadernoprim", 912, 77201, false},
      {"cuadernoevoluc", 913, 77202, false},  {"cuadernoetapa", 914, 77203, false},
      {"cuadernohidrog", 915, 77204, false},  {"cuadernonuev", 916, 77205, false},
      {"cuadernolarga", 917, 77206, false},   {"cuadernotipo1", 942, 77207, false},
      {"cuadernotipo2", 943, 77208, false},   {"cuadernoestruc", 919, 77209, false},
      {"cuadernoelectro", 920, 77210, false}, {"cuadernoenerg", 922, 77211, false},
      {"cuadernoafin", 923, 77212, false},    {"cuadernovol", 925, 77213, false},
      {"cuadernoox", 926, 77215, false},      {"cuadernoacido", 927, 77214, false},
      {"lewis", 930, 77220, true},            {"caracionico", 931, 77221, true},
      {"concentro", 932, 77222, true},        {"densagua", 933, 77223, true},
      {"energidiso", 934, 77224, true},       {"enlageno", 935, 77225, true},
      {"espectro", 936, 77226, true},         {"isotopocadmio", 937, 77227, true},
      {"longiangulo", 938, 77228, true},      {"mezclacon", 939, 77229, true},
      {"selectroquim", 940, 77230, true},     {"solubili", 941, 77231, true},
  };
  return items;
}

// ---- Load and texts -------------------------------------------------------------

void PeriodicTable::Form_Load() {
  // A missing or damaged table leaves the labels empty.
  records_ = readElementTable(elementTablePath());
  Label2 = currentGroupHeads();
  loadTexts();
}

void PeriodicTable::loadTexts() {
  caption = Res(1069);
  setCaptions();
  if (current > 0) showElement(current);
}

void PeriodicTable::setCaptions() {
  for (int i = 0; i < kElementFieldCount; ++i) {
    captions[static_cast<std::size_t>(i)] = Res(captionId(static_cast<ElementField>(i), EnergyUnit));
  }
}

// ---- Element click ----------------------------------------------------------------

QString PeriodicTable::zetaToolTip(int z) {
  if (z < 1 || z > kElementCount) return {};
  return QString::fromUtf8(elementTooltips()[static_cast<std::size_t>(z - 1)]);
}

QString PeriodicTable::elementName(int z) {
  const QStringList parts = zetaToolTip(z).split(QLatin1Char(','));
  const int index = program().LanguageOffset / 10000 + 1;
  if (index < 1 || index >= parts.size()) return {};
  QString name = parts.at(index);
  name.remove(QLatin1Char(' '));
  return name;
}

int PeriodicTable::atomicNumberOf(const QString& symbol) {
  const auto& symbols = elementSymbols();
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    if (symbol == QLatin1String(symbols[i])) return static_cast<int>(i) + 1;
  }
  return 0;
}

QString PeriodicTable::buttonSymbol(int z) {
  if (z < 1 || z > kElementCount) return {};
  return QString::fromLatin1(elementSymbols()[static_cast<std::size_t>(z - 1)]);
}

QString PeriodicTable::symbolOf(int z) const {
  const ElementRecord* r = record(z);
  return r ? (*r)[static_cast<std::size_t>(fieldIndex(ElementField::simbolos))] : QString();
}

const ElementRecord* PeriodicTable::record(int z) const {
  if (z < 1 || z > records_.size()) return nullptr;
  return &records_.at(z - 1);
}

QString PeriodicTable::shownNumber(int field, const QString& stored) const {
  QString text = stored;
  if (EnergyUnit == 1 && isEnergyField(field) && text != QLatin1String("--") && !text.isEmpty()) {
    // Stored in joules; calories worked out to four significant digits.
    const double calories = rt::Val(text) / kJoulesPerCalorie;
    return rt::NumberToText(rt::Val(QString::number(calories, 'g', 4)));
  }
  const QString decimal = program().DecimalSymbol.toText();
  if (decimal != QLatin1String(".")) text.replace(QLatin1Char('.'), decimal);
  return text;
}

void PeriodicTable::showElement(int z) {
  if (z < 1 || z > kElementCount) return;
  current = z;
  sheetShown = true;
  const ElementRecord* r = record(z);
  for (int i = 0; i < kElementFieldCount; ++i) {
    const QString stored = r ? (*r)[static_cast<std::size_t>(i)] : QString();
    sheet[static_cast<std::size_t>(i)] = isNumericField(i) ? shownNumber(i, stored) : stored;
  }
  simbolosColor = symbolColour(z);
  label(ElementField::nombres) = elementName(z);

  if (r) {
    const int acid = translationIndex(kAcidBase, (*r)[static_cast<std::size_t>(fieldIndex(ElementField::caracteres))]);
    Image2 = static_cast<AcidBase>(acid);
    label(ElementField::caracteres) = Res(1066) + QStringLiteral(": ") + Res(kAcidBase[acid].stringId);
    const int crystal = translationIndex(kCrystal, (*r)[static_cast<std::size_t>(fieldIndex(ElementField::cristal))]);
    crystalPicture = static_cast<CrystalSystem>(crystal);
    label(ElementField::cristal) = Res(kCrystal[crystal].stringId);
  } else {
    Image2 = AcidBase::Unknown;
    crystalPicture = CrystalSystem::Unknown;
  }
  zText = QStringLiteral("z = ") + QString::number(z);
}

void PeriodicTable::zeta_Click(int z) {
  if (helpInstead(kHelpTopic + 1)) return;
  showElement(z);
  if (calculo) Command111_Click();
}

// ---- Molecular weight -----------------------------------------------------------------

void PeriodicTable::Command111_Click() {
  const ElementRecord* r = record(current);
  const QString stored = r ? (*r)[static_cast<std::size_t>(fieldIndex(ElementField::pesos))] : QString();
  if (stored.isEmpty() || stored == QLatin1String("--")) {
    // An element without data adds nothing; its energy labels say so.
    for (ElementField f : {ElementField::energias, ElementField::calorvs, ElementField::calorfs,
                           ElementField::condutes, ElementField::calores}) {
      label(f) = QStringLiteral("--");
    }
    return;
  }
  weight.Command111_Click(symbolOf(current), stored);
}

void PeriodicTable::Command123_Click() {
  if (helpInstead(kHelpTopic + 2)) return;
  weight.Command123_Click();
}

void PeriodicTable::Command1_Click(int digit) {
  if (helpInstead(kHelpTopic + 2)) return;
  weight.Command1_Click(digit);
}

void PeriodicTable::Command112_Click() {
  if (helpInstead(kHelpTopic + 2)) return;
  weight.Command112_Click();
}

void PeriodicTable::calculo_Click() {
  if (helpInstead(kHelpTopic + 2)) return;
  calculo = true;
}

void PeriodicTable::Command124_Click() {
  if (helpInstead(kHelpTopic + 2)) return;
  calculo = false;
  weight.Command112_Click();
}

// ---- Switches ----------------------------------------------------------------------------

void PeriodicTable::EnergyUnit_Click(int unit) {
  if (helpInstead(kHelpTopic + 3) || unit < 0 || unit > 1) return;
  EnergyUnit = static_cast<std::int16_t>(unit);
  setCaptions();
  if (current > 0) showElement(current);
}

void PeriodicTable::pauling_Click() {
  if (helpInstead(kHelpTopic + 4)) return;
  pauling = true;
  paulingno = false;
  if (current > 0) showElement(current);
}

void PeriodicTable::paulingno_Click() {
  if (helpInstead(kHelpTopic + 4)) return;
  pauling = false;
  paulingno = true;
  if (current > 0) showElement(current);
}

void PeriodicTable::Command3_Click() {
  if (helpInstead(kHelpTopic + 5)) return;
  Label2 = oldGroupNumbering() ? currentGroupHeads() : oldGroupHeads();
}

void PeriodicTable::tipotabla1_Click() {
  if (helpInstead(kHelpTopic + 6)) return;
  tableLayout = 1;
}

void PeriodicTable::tipotabla2_Click() {
  if (helpInstead(kHelpTopic + 6)) return;
  tableLayout = 2;
}

// ---- Notes and printing --------------------------------------------------------------------

void PeriodicTable::note_Click(int topic) { ContextHelp(topic); }

PrintDocument PeriodicTable::sheetDocument() const {
  PrintDocument doc(Res(1069));
  doc.emptyLines(2);
  doc.setFont(QStringLiteral("Arial"), 14, true);
  doc.line(6, Res(1067));
  doc.setFont(QStringLiteral("Arial"), 10);
  doc.emptyLines(1);
  if (current > 0) doc.line(6, zText);
  doc.emptyLines(1);
  for (int i = 0; i < kElementFieldCount; ++i) {
    const auto f = static_cast<std::size_t>(i);
    doc.printAt(6, captions[f]);
    doc.printAt(58, sheet[f]);
    doc.endLine();
  }
  doc.emptyLines(1);
  return doc;
}

bool PeriodicTable::Command4_Click() {
  if (helpInstead(kHelpTopic + 7)) return false;
  return printDocument(sheetDocument());
}
