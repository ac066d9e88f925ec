#pragma once
// What the user sets of the plot's look: the 15 colours, the titles and the
// annotations placed on the picture.
//
// The colours are the program-wide palette (program().PlotColours), whose
// entries 1 to 14 travel with the settings file; the defaults are those a
// fresh installation has ("restore"). The titles (PlotModel::Text3) and the
// annotations (PlotModel::Label11, in user units, so a text stays by the
// point it names) live in the model, which the drawing reads for the
// screen, the printer and images alike. What the settings file has no place
// for (the text colour, the titles, the annotations) is kept in cvplot.txt
// beside it, written at each change and read when the plot opens; a damaged
// or foreign file is passed over and changes nothing.
#include <QPointF>
#include <QString>
#include <array>
#include <cstdint>

class PlotModel;

class PlotAppearance {
 public:
  static constexpr int kMaxAnnotations = 200;
  static constexpr int kMaxTextLength = 200;

  explicit PlotAppearance(PlotModel& model);

  // ---- Colours (red in the low byte) -------------------------------------------
  static std::uint32_t defaultColour(int index);
  // The string naming the colour's role ("Fondo", "Ejes", ...).
  static int roleString(int index) { return 1701 + index; }
  std::uint32_t colour(int index) const;
  void setColour(int index, std::uint32_t colour);
  void restoreDefaultColours();

  // ---- Titles (Text3(0..2): F, X, Y; an empty one is the table's) -------------
  void setTitles(const std::array<QString, 3>& titles);

  // ---- Annotations (picture units in, user units kept) ---------------------------
  // The new annotation's index, or -1 when the text is empty or there is no room.
  int addAnnotation(const QString& text, QPointF picture);
  void moveAnnotation(int index, QPointF picture);
  // An empty text deletes the annotation.
  void editAnnotation(int index, const QString& text);
  void deleteAnnotation(int index);
  // Where the annotation's text starts, in picture units.
  QPointF annotationPoint(int index) const;

  // ---- The file --------------------------------------------------------------------
  static QString filePath();
  bool save() const;
  // False (and nothing changed) when there is no file or it is not one of ours.
  bool load();

 private:
  static QString cleanText(const QString& text);
  PlotModel& model_;
};
