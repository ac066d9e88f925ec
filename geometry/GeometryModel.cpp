#include "geometry/GeometryModel.h"

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

constexpr int kHelpTopic = 110000;
constexpr int kCalculatorTopic = 110010;
constexpr int kErrorSound = 1;
constexpr int kHelpSound = 5;

QString title(const QString& tail) { return QStringLiteral("GeoKORD  -  ") + tail; }

int clampIndex(int index) {
  const int n = geometry::catalogueSize();
  return index < 1 || index > n ? 1 : index;
}

}  // namespace

const QString GeometryModel::kDefaultText3 = QStringLiteral("2^2*3.5*(sin(0.25*pi)+cos(0.25*pi))");

GeometryModel::GeometryModel() = default;

void GeometryModel::Form_Load() {
  Combo1Items.clear();
  for (const geometry::FigureRow& r : geometry::catalogue()) Combo1Items << geometry::figureName(r);
  Text3 = kDefaultText3;
  Check1Caption = QStringLiteral("OFF");
  redraw();
}

int GeometryModel::figureIndex() const { return clampIndex(program().FigureIndex); }

const geometry::FigureRow& GeometryModel::row() const { return geometry::catalogue().at(figureIndex() - 1); }

void GeometryModel::redraw() {
  program().FigureIndex = static_cast<std::int16_t>(figureIndex());
  const geometry::FigureRow& r = row();
  Label4 = geometry::figureName(r);
  Combo1ListIndex = figureIndex() - 1;
  visibleBoxes = r.parameterCount;
  const QStringList labels = geometry::parameterLabels(r);
  for (int i = 0; i < kBoxes; ++i) Label1[i] = i < visibleBoxes ? labels.at(i) : QString();
  const auto titles = geometry::lineTitles(r);
  for (int i = 0; i < kLines; ++i) {
    lineVisible[i] = r.shows[i];
    Label2[i] = titles[i];
  }
  notes = geometry::figureNotes(r);
  clearResults();
}

void GeometryModel::clearResults() {
  Text2.fill(QString());
  Picture3.fill(QString());
  values_.fill(0);
  hasResults_ = false;
}

void GeometryModel::message(const QString& text, int sound) {
  program().MessageSound = static_cast<std::int16_t>(sound);
  MBoxShow(3, text, 3, 0, 0, title(Res(2800)));
}

int GeometryModel::boxOf(const QString& label) const {
  for (int i = 0; i < visibleBoxes; ++i) {
    if (Label1[i] == label) return i;
  }
  return -1;
}

// ---- Navigation ------------------------------------------------------------------

void GeometryModel::chameleonButton1_Click(bool forward) {
  if (helpInstead(kHelpTopic)) return;
  const int n = geometry::catalogueSize();
  int index = figureIndex() + (forward ? 1 : -1);
  if (index > n) index = 1;
  if (index < 1) index = n;
  program().FigureIndex = static_cast<std::int16_t>(index);
  redraw();
}

// The list holds every row in catalogue order, so its position is the row.
void GeometryModel::Combo1_Click(int listIndex) {
  if (helpInstead(kHelpTopic)) return;
  if (listIndex < 0 || listIndex >= geometry::catalogueSize()) return;
  program().FigureIndex = static_cast<std::int16_t>(listIndex + 1);
  redraw();
}

// ---- Calculation -----------------------------------------------------------------

void GeometryModel::chameleonButton2_Click() {
  if (helpInstead(kHelpTopic)) return;
  const geometry::FigureRow& r = row();
  std::array<double, kBoxes> values{};
  for (int i = 0; i < visibleBoxes; ++i) {
    if (Text1[i].isEmpty()) {
      message(Res(3524) + QStringLiteral(":  ") + Label1[i], kErrorSound);
      Text1[i] = QStringLiteral("0");
    }
    double v = 0;
    values[i] = rt::tryTextToDouble(Text1[i], v) ? v : 0;  // not a number: 0
  }
  geometry::FigureOutcome outcome;
  try {
    outcome = geometry::computeFigure(r, values);
  } catch (const rt::RuntimeError&) {
    // A root of a negative number: parameters that cannot make the figure.
    outcome.refused = true;
    outcome.reason = Res(3611);
  }
  refusal = outcome.reason;
  if (outcome.refused) {
    clearResults();
    message(Res(2800) + QStringLiteral(":  ") + outcome.reason, kErrorSound);
    return;
  }
  values_ = outcome.values;
  hasResults_ = true;
  for (int i = 0; i < kLines; ++i) Picture3[i] = r.shows[i] ? r.formulas[i] : QString();
  showResults();
}

void GeometryModel::showResults() {
  for (int i = 0; i < kLines; ++i) {
    if (!hasResults_ || !lineVisible[i]) {
      Text2[i].clear();
    } else if (Check1) {
      const QString pattern = UpDown1 > 0 ? QStringLiteral("0.") + QString(UpDown1, u'0') : QStringLiteral("0");
      Text2[i] = rt::Format(rt::Round(values_[i], UpDown1), pattern);
    } else {
      Text2[i] = rt::NumberToText(values_[i]);
    }
  }
}

void GeometryModel::Check1_Click(bool ticked) {
  if (helpInstead(kHelpTopic)) return;
  Check1 = ticked;
  Check1Caption = Check1 ? QString::number(UpDown1) : QStringLiteral("OFF");
  showResults();
}

void GeometryModel::UpDown1_Change(int places) {
  if (helpInstead(kHelpTopic)) return;
  UpDown1 = qBound(0, places, 15);
  if (Check1) Check1Caption = QString::number(UpDown1);
  showResults();
}

void GeometryModel::chameleonButton3_Click() {
  if (helpInstead(kHelpTopic)) return;
  bool any = false;
  for (int i = 0; i < kLines; ++i) any = any || (lineVisible[i] && !Text2[i].isEmpty());
  if (!any) {
    message(Res(3527), kErrorSound);
    return;
  }
  for (int i = 0; i < kLines; ++i) {
    if (!lineVisible[i] || Text2[i].isEmpty()) continue;
    double v = 0;
    if (!rt::tryTextToDouble(Text2[i], v)) v = values_[i];
    WriteRegister(i, v, Label4 + QStringLiteral(" - ") + Label2[i]);
  }
}

void GeometryModel::chameleonButton4_Click() {
  if (helpInstead(kHelpTopic)) return;
  formulaView = !formulaView;
}

void GeometryModel::chameleonButton5_Click() {
  if (helpInstead(kHelpTopic)) return;
  Text1.fill(QString());
  clearResults();
}

// ---- Boxes -----------------------------------------------------------------------

QChar GeometryModel::Text1_KeyPress(int, QChar key) const {
  if (key == u',' || key == u'.') return program().DecimalSymbol.toText().at(0);
  return key;
}

void GeometryModel::typeText1(int index, const QString& text) {
  if (index < 0 || index >= kBoxes) return;
  QString typed;
  for (QChar c : text) typed += Text1_KeyPress(index, c);
  Text1[index] = typed;
}

void GeometryModel::Text1_DblClick(int index) {
  if (helpInstead(kCalculatorTopic) || index < 0 || index >= kBoxes) return;
  Text1[index] = Text3;
}

void GeometryModel::FromCalc_Click(int index, const QString& calculatorDisplay) {
  if (helpInstead(kCalculatorTopic) || index < 0 || index >= kBoxes) return;
  if (Text1[index].isEmpty() || Text1[index] == QLatin1String("0")) Text1[index] = calculatorDisplay;
}

// ---- Inline calculator -----------------------------------------------------------

bool GeometryModel::Text3_KeyPress(int key, bool shift) {
  if (shift) return true;  // keys with Shift held are dropped
  if (key != kKeyEnter) return false;
  if (helpInstead(kCalculatorTopic)) return true;
  QString result;
  if (calculator_.evaluate(Text3, result, calcError)) {
    Text3 = result;
    calcError.clear();
  }
  return true;
}

void GeometryModel::Command1_Click() {
  if (helpInstead(kCalculatorTopic)) return;
  const QStringList lines{
      Res(3526),
      Res(3528),
      Res(3530) + QStringLiteral(" ") + kDefaultText3,
      QString(),
      Res(3532),
      Res(3534),
      Res(3536) + QStringLiteral(": sin( ), cos( ), tan( )"),
      Res(3538) + QStringLiteral(": sqr( )"),
      Res(4189) + QStringLiteral(": ^"),
      Res(3540) + QStringLiteral(": lg( )"),
      Res(3542) + QStringLiteral(": log( )"),
      QStringLiteral("π: pi"),
      QStringLiteral("e :exp(1)"),
      QStringLiteral("..."),
  };
  program().MessageSound = kHelpSound;
  MBoxShow(3, lines.join(u'\n'), 2, 0, 0, title(Res(104)));
}
