#pragma once
// The plot's colour editor: the 15 colours of the palette as swatches with
// their roles; a click on a swatch opens the colour dialog, "Colores por
// Defecto" brings back those of a fresh installation. Nothing is applied
// until Accept; Escape or Cancel leave the palette as it was.
#include <QDialog>
#include <array>
#include <cstdint>
#include <functional>

#include "funcs/PlotModel.h"

class PlotAppearance;
class QToolButton;

class PlotColoursDialog : public QDialog {
  Q_OBJECT

 public:
  PlotColoursDialog(PlotAppearance& appearance, QWidget* parent);

  // The colours being edited (red in the low byte).
  std::array<std::uint32_t, PlotModel::kColours> colours{};
  // Asks for a colour; the default opens the colour dialog. Tests replace it.
  std::function<QColor(const QColor& initial, const QString& title)> pickColour;

  void chooseColour(int index);
  void restoreDefaults();
  // Writes the colours into the palette.
  void apply();

 private:
  void paintSwatch(int index);
  PlotAppearance& appearance_;
  std::array<QToolButton*, PlotModel::kColours> swatches_{};
};
