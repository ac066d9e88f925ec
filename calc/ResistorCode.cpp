#include "calc/ResistorCode.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "shell/ProgramState.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"

namespace {

const char* const kWords[kColourCount] = {"black", "brown", "red",  "orange", "yellow", "green", "blue",
                                          "violet", "grey", "white", "gold", "silver", "none"};

// The multiplier colours reach from silver (10^-2) to white (10^9).
constexpr int kLowestExponent = -2;
constexpr int kHighestExponent = 9;

int exponentOf(int colour) {
  if (colour >= 0 && colour <= 9) return colour;
  if (colour == kGold) return -1;
  if (colour == kSilver) return -2;
  return 99;  // none, unpainted: no multiplier
}

int colourOfExponent(int exponent) {
  if (exponent == -1) return kGold;
  if (exponent == -2) return kSilver;
  return exponent;
}

// The coefficient colours in the order of the list: brown 100, red 50,
// yellow 25, orange 15, blue 10, violet 5, grey 1 ppm/ºC.
constexpr int kCoefficientColours[] = {1, 2, 4, 3, 6, 7, 8};

}  // namespace

QString colourWord(int colour) {
  if (colour < 0 || colour >= kColourCount) return QStringLiteral("x");
  return QString::fromLatin1(kWords[colour]);
}

int colourFromWord(const QString& word) {
  for (int i = 0; i < kColourCount; ++i) {
    if (word.compare(QLatin1String(kWords[i]), Qt::CaseInsensitive) == 0) return i;
  }
  if (word.compare(QLatin1String("gray"), Qt::CaseInsensitive) == 0) return 8;
  return -1;
}

std::optional<double> toleranceOf(int colour) {
  switch (colour) {
    case 1: return 1;      // brown F
    case 2: return 2;      // red G
    case 3: return 0.05;   // orange W
    case 4: return 0.02;   // yellow P
    case 5: return 0.5;    // green D
    case 6: return 0.25;   // blue C
    case 7: return 0.1;    // violet B
    case 8: return 0.01;   // grey L
    case kGold: return 5;  // J
    case kSilver: return 10;     // K
    case kNoColour: return 20;   // M: no band
    default: return std::nullopt;  // black and white mark no tolerance
  }
}

int coefficientIndexOf(int colour) {
  for (int i = 0; i < static_cast<int>(std::size(kCoefficientColours)); ++i) {
    if (kCoefficientColours[i] == colour) return i;
  }
  return -1;
}

const QStringList& coefficientList() {
  static const QStringList list{QStringLiteral("(Z) 100 ppm/ºC"), QStringLiteral("(C) 50 ppm/ºC"),
                                QStringLiteral("(D) 25 ppm/ºC"),  QStringLiteral("(Y) 15 ppm/ºC"),
                                QStringLiteral("10 ppm/ºC"),      QStringLiteral("5 ppm/ºC"),
                                QStringLiteral("1 ppm/ºC")};
  return list;
}

// ---- ResistorCode -------------------------------------------------------------------

ResistorCode::ResistorCode() { Command89_Click(); }

const QList<int>& ResistorCode::toleranceColours() {
  static const QList<int> colours{kGold, kSilver, kNoColour, 1, 2, 5, 6, 7, 8, 3, 4};
  return colours;
}

void ResistorCode::Command89_Click() {
  bands.fill(kUnpainted);
  Check2 = 0;
  Text8.clear();
  tolerance.clear();
  Combo3 = -1;
}

void ResistorCode::Option1_Click(int index) {
  bandCount = 3 + std::clamp(index, 0, 3);
  if (Check2 >= bandCount) Check2 = 0;
}

void ResistorCode::Check2_Click(int band) {
  if (band >= 0 && band < bandCount) Check2 = band;
}

void ResistorCode::Command86_Click(int colour) {
  if (colour < 0 || colour >= kColourCount) return;
  bands.at(static_cast<size_t>(Check2)) = colour;
  Check2 = (Check2 + 1) % bandCount;
}

void ResistorCode::Command88_Click(int index) { reverseMode = index == 1; }

void ResistorCode::Command87_Click() {
  Text8.clear();
  tolerance.clear();
  Combo3 = -1;
  if (hasToleranceBand()) {
    if (const auto t = toleranceOf(bands.at(static_cast<size_t>(multiplierBand() + 1)))) {
      tolerance = rt::NumberToText(*t);
    }
  } else {
    tolerance = rt::NumberToText(*toleranceOf(kNoColour));
  }
  if (hasCoefficientBand()) Combo3 = coefficientIndexOf(bands[5]);
  int mantissa = 0;
  for (int i = 0; i < digitBands(); ++i) {
    const int d = bands.at(static_cast<size_t>(i));
    if (d < 0 || d > 9) return;  // an unpainted band (or no digit colour) stops the reading
    mantissa = mantissa * 10 + d;
  }
  const int exponent = exponentOf(bands.at(static_cast<size_t>(multiplierBand())));
  if (exponent > kHighestExponent) return;
  // Dividing for the small multipliers keeps 0.47 exact to the last digit.
  const double value = exponent >= 0 ? mantissa * std::pow(10.0, exponent) : mantissa / std::pow(10.0, -exponent);
  Text8 = rt::NumberToText(value);
}

namespace {
// A value the multiplier colours cannot show: code 8 under the tool's title.
void reportOutOfRange() {
  ProgramState& p = program();
  p.MainMenuTitle = QStringLiteral("VelozCalc");
  p.SectionTitle = Res(4345);
  ReportError(8, 3, 3, 0);
}
}  // namespace

bool ResistorCode::Command97_Click() {
  double value = 0;
  if (!rt::tryTextToDouble(Text9.trimmed(), value) || value < 0) {
    reportOutOfRange();
    return false;
  }
  // "00e+00" or "000e+00": the mantissa already holds the band's digits, so
  // the exponent is the multiplier's.
  const QString pattern = digitBands() == 2 ? QStringLiteral("00e+00") : QStringLiteral("000e+00");
  const QString text = rt::Format(value, pattern);
  const qsizetype e = text.indexOf(QLatin1Char('e'));
  const QString digits = text.left(e);
  const int exponent = text.mid(e + 1).toInt();
  if (exponent < kLowestExponent || exponent > kHighestExponent) {
    reportOutOfRange();
    return false;
  }
  const int chosenCoefficient = Combo3;
  Command89_Click();
  for (int i = 0; i < digitBands(); ++i) bands.at(static_cast<size_t>(i)) = digits.at(i).digitValue();
  bands.at(static_cast<size_t>(multiplierBand())) = colourOfExponent(exponent);
  if (hasToleranceBand()) {
    const QList<int>& tol = toleranceColours();
    bands.at(static_cast<size_t>(multiplierBand() + 1)) = tol.at(std::clamp(Combo2, 0, static_cast<int>(tol.size()) - 1));
  }
  if (hasCoefficientBand()) {
    const int c = chosenCoefficient >= 0 ? chosenCoefficient : 0;
    bands[5] = kCoefficientColours[std::clamp(c, 0, static_cast<int>(std::size(kCoefficientColours)) - 1)];
  }
  Command87_Click();
  if (!hasCoefficientBand()) Combo3 = chosenCoefficient;
  return true;
}

PrintDocument ResistorCode::sheet() const {
  PrintDocument doc(Res(4345));
  printHeader(doc, Res(4423) + QStringLiteral("  -  ") + Res(4345));
  doc.setFont(QStringLiteral("Courier New"), 10);
  for (int i = 0; i < bandCount; ++i) {
    const int c = bands.at(static_cast<size_t>(i));
    QString text = QStringLiteral(" %1. ").arg(i + 1) + (c < 0 ? QStringLiteral("x") : Res(4347 + c));
    if (i < digitBands()) text += QLatin1Char(' ') + Res(4373);
    if (i == multiplierBand()) text += QLatin1Char(' ') + Res(4374);
    doc.line(9, text);
  }
  doc.emptyLines();
  doc.line(9, Res(4361) + QStringLiteral(": ") + Text8);
  doc.line(9, Res(4362) + QStringLiteral(": ") + tolerance);
  if (hasCoefficientBand()) doc.line(9, Res(4363) + QStringLiteral(": ") + Combo3Text());
  doc.emptyLines();
  return doc;
}

void ResistorCode::Image7_Click() const { printDocument(sheet()); }

QString ResistorCode::Combo3Text() const {
  return Combo3 >= 0 && Combo3 < coefficientList().size() ? coefficientList().at(Combo3) : QString();
}

QString ResistorCode::bandWords() const {
  QStringList words;
  for (int i = 0; i < bandCount; ++i) words << colourWord(bands.at(static_cast<size_t>(i)));
  return words.join(QLatin1Char(' '));
}
