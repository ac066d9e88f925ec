#include "funcs/PlotColoursDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "funcs/PlotAppearance.h"
#include "funcs/PlotPainterView.h"
#include "shell/Strings.h"

namespace {

QColor qtColour(std::uint32_t bgr) { return PainterCanvas::toColor(bgr); }
std::uint32_t bgrOf(const QColor& c) {
  return static_cast<std::uint32_t>(c.red()) | (static_cast<std::uint32_t>(c.green()) << 8) |
         (static_cast<std::uint32_t>(c.blue()) << 16);
}

}  // namespace

PlotColoursDialog::PlotColoursDialog(PlotAppearance& appearance, QWidget* parent)
    : QDialog(parent), appearance_(appearance) {
  setObjectName(QStringLiteral("PlotColoursDialog"));
  setWindowTitle(Res(1859));
  pickColour = [this](const QColor& initial, const QString& title) {
    return QColorDialog::getColor(initial, this, title);
  };
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(10);
  constexpr int kRows = 8;  // two columns of swatches
  for (int i = 0; i < PlotModel::kColours; ++i) {
    colours[static_cast<size_t>(i)] = appearance.colour(i);
    auto* swatch = new QToolButton(this);
    swatch->setObjectName(QStringLiteral("swatch_%1").arg(i));
    swatch->setIconSize(QSize(36, 18));
    swatch->setToolTip(Res(PlotAppearance::roleString(i)));
    connect(swatch, &QToolButton::clicked, this, [this, i] { chooseColour(i); });
    swatches_[static_cast<size_t>(i)] = swatch;
    auto* label = new QLabel(QString::number(i) + QStringLiteral("  ") + Res(PlotAppearance::roleString(i)), this);
    label->setBuddy(swatch);
    const int row = i % kRows, col = (i / kRows) * 2;
    grid->addWidget(swatch, row, col);
    grid->addWidget(label, row, col + 1);
    paintSwatch(i);
  }
  grid->setColumnMinimumWidth(2, 0);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* defaults = buttons->addButton(Res(1860), QDialogButtonBox::ResetRole);
  defaults->setObjectName(QStringLiteral("defaultsButton"));
  QPushButton* ok = buttons->addButton(Res(51), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("okButton"));
  ok->setDefault(true);
  buttons->addButton(Res(54), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cancelButton"));
  connect(defaults, &QPushButton::clicked, this, &PlotColoursDialog::restoreDefaults);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    apply();
    accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addSpacing(8);
  layout->addWidget(buttons);
}

void PlotColoursDialog::paintSwatch(int index) {
  QPixmap pixmap(36, 18);
  pixmap.fill(qtColour(colours[static_cast<size_t>(index)]));
  QPainter p(&pixmap);
  p.setPen(Qt::black);
  p.drawRect(0, 0, 35, 17);
  swatches_[static_cast<size_t>(index)]->setIcon(QIcon(pixmap));
}

void PlotColoursDialog::chooseColour(int index) {
  if (index < 0 || index >= PlotModel::kColours || !pickColour) return;
  const QColor chosen = pickColour(qtColour(colours[static_cast<size_t>(index)]), Res(PlotAppearance::roleString(index)));
  if (!chosen.isValid()) return;
  colours[static_cast<size_t>(index)] = bgrOf(chosen);
  paintSwatch(index);
}

void PlotColoursDialog::restoreDefaults() {
  for (int i = 0; i < PlotModel::kColours; ++i) {
    colours[static_cast<size_t>(i)] = PlotAppearance::defaultColour(i);
    paintSwatch(i);
  }
}

void PlotColoursDialog::apply() {
  for (int i = 0; i < PlotModel::kColours; ++i) appearance_.setColour(i, colours[static_cast<size_t>(i)]);
}
