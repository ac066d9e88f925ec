#include "funcs/PlotAppearance.h"

#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cmath>

#include "funcs/PlotModel.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

const QString kSignature = QStringLiteral("VelozPlot");
constexpr std::int16_t kVersion = 1;

bool validIndex(int index) { return index >= 0 && index < PlotModel::kColours; }

}  // namespace

PlotAppearance::PlotAppearance(PlotModel& model) : model_(model) {}

// ---- Colours -----------------------------------------------------------------------

std::uint32_t PlotAppearance::defaultColour(int index) {
  ProgramState defaults;
  applyDefaultSettings(defaults);
  const rt::Variant& v = defaults.PlotColours[static_cast<size_t>(std::clamp(index, 0, PlotModel::kColours - 1))];
  return static_cast<std::uint32_t>(v.toDouble());
}

std::uint32_t PlotAppearance::colour(int index) const { return model_.colour(index); }

void PlotAppearance::setColour(int index, std::uint32_t colour) {
  if (!validIndex(index)) return;
  program().PlotColours[static_cast<size_t>(index)] = rt::Variant::longValue(static_cast<std::int32_t>(colour & 0xFFFFFF));
  // Entry 0 is not in the settings file: it goes with our own.
  if (index == PlotModel::kText) save();
}

void PlotAppearance::restoreDefaultColours() {
  for (int i = 0; i < PlotModel::kColours; ++i) {
    program().PlotColours[static_cast<size_t>(i)] = rt::Variant::longValue(static_cast<std::int32_t>(defaultColour(i)));
  }
  save();
}

// ---- Titles ---------------------------------------------------------------------------

void PlotAppearance::setTitles(const std::array<QString, 3>& titles) {
  for (size_t i = 0; i < 3; ++i) model_.Text3[i] = cleanText(titles[i]);
  save();
}

// ---- Annotations ------------------------------------------------------------------------

QString PlotAppearance::cleanText(const QString& text) {
  // The file form has no escape for a double quote; one line, of a sensible length.
  QString t = text;
  t.replace(QLatin1Char('"'), QLatin1Char('\''));
  t.replace(QLatin1Char('\r'), QLatin1Char(' '));
  t.replace(QLatin1Char('\n'), QLatin1Char(' '));
  return t.trimmed().left(kMaxTextLength);
}

int PlotAppearance::addAnnotation(const QString& text, QPointF picture) {
  const QString t = cleanText(text);
  if (t.isEmpty() || static_cast<int>(model_.Label11.size()) >= kMaxAnnotations) return -1;
  model_.Label11.push_back({t, model_.ScaleLeft + picture.x() * model_.unitX, model_.ScaleTop - picture.y() * model_.unitY});
  save();
  return static_cast<int>(model_.Label11.size()) - 1;
}

void PlotAppearance::moveAnnotation(int index, QPointF picture) {
  if (index < 0 || index >= static_cast<int>(model_.Label11.size())) return;
  PlotModel::Annotation& a = model_.Label11[static_cast<size_t>(index)];
  a.x = model_.ScaleLeft + picture.x() * model_.unitX;
  a.y = model_.ScaleTop - picture.y() * model_.unitY;
  save();
}

void PlotAppearance::editAnnotation(int index, const QString& text) {
  if (index < 0 || index >= static_cast<int>(model_.Label11.size())) return;
  const QString t = cleanText(text);
  if (t.isEmpty()) {
    deleteAnnotation(index);
    return;
  }
  model_.Label11[static_cast<size_t>(index)].text = t;
  save();
}

void PlotAppearance::deleteAnnotation(int index) {
  if (index < 0 || index >= static_cast<int>(model_.Label11.size())) return;
  model_.Label11.erase(model_.Label11.begin() + index);
  save();
}

QPointF PlotAppearance::annotationPoint(int index) const {
  if (index < 0 || index >= static_cast<int>(model_.Label11.size())) return {};
  const PlotModel::Annotation& a = model_.Label11[static_cast<size_t>(index)];
  return {(a.x - model_.ScaleLeft) / model_.unitX, (model_.ScaleTop - a.y) / model_.unitY};
}

// ---- The file ------------------------------------------------------------------------------

QString PlotAppearance::filePath() { return program().AppFolder.toText() + QStringLiteral("cvplot.txt"); }

bool PlotAppearance::save() const {
  // No program folder (a bare test, the command-line tool): nothing is kept.
  if (program().AppFolder.toText().isEmpty()) return false;
  rt::SequentialWriter w;
  w.write({rt::Variant::text(kSignature), rt::Variant::integer(kVersion)});
  w.write({rt::Variant::longValue(static_cast<std::int32_t>(model_.colour(PlotModel::kText)))});
  w.write({rt::Variant::text(model_.Text3[0]), rt::Variant::text(model_.Text3[1]), rt::Variant::text(model_.Text3[2])});
  w.write({rt::Variant::integer(static_cast<std::int16_t>(model_.Label11.size()))});
  for (const PlotModel::Annotation& a : model_.Label11) {
    w.write({rt::Variant::text(a.text), rt::Variant::dbl(a.x), rt::Variant::dbl(a.y)});
  }
  QSaveFile file(filePath());
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(w.bytes());
  return file.commit();
}

bool PlotAppearance::load() {
  if (program().AppFolder.toText().isEmpty()) return false;
  QFile file(filePath());
  if (!file.open(QIODevice::ReadOnly)) return false;
  rt::SequentialReader r(file.readAll());
  // Everything is read into locals first: a file that stops half-way changes nothing.
  std::int32_t text = 0;
  std::array<QString, 3> titles;
  std::vector<PlotModel::Annotation> notes;
  try {
    if (r.readText() != kSignature || r.readInteger() != kVersion) return false;
    text = r.readLong();
    for (QString& t : titles) t = r.readText();
    const int n = r.readInteger();
    if (n < 0 || n > kMaxAnnotations || text < 0 || text > 0xFFFFFF) return false;
    for (int i = 0; i < n; ++i) {
      PlotModel::Annotation a;
      a.text = r.readText();
      a.x = r.readDouble();
      a.y = r.readDouble();
      if (!r.lastFieldComplete() || !std::isfinite(a.x) || !std::isfinite(a.y)) return false;
      notes.push_back(a);
    }
  } catch (const rt::RuntimeError&) {
    return false;
  }
  program().PlotColours[PlotModel::kText] = rt::Variant::longValue(text);
  model_.Text3 = titles;
  model_.Label11 = std::move(notes);
  return true;
}
