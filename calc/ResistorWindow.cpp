#include "calc/ResistorWindow.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

// The colours of the code as painted (x: unpainted, drawn as the body).
QColor paintColour(int colour) {
  static const QColor colours[kColourCount] = {
      QColor(0, 0, 0),       QColor(139, 69, 19),   QColor(220, 0, 0),     QColor(255, 140, 0),
      QColor(255, 230, 0),   QColor(0, 160, 0),     QColor(0, 70, 220),    QColor(140, 0, 200),
      QColor(128, 128, 128), QColor(255, 255, 255), QColor(212, 175, 55),  QColor(192, 192, 192),
      QColor(230, 210, 170)};
  return colour >= 0 && colour < kColourCount ? colours[colour] : QColor(230, 210, 170);
}

// The resistor: leads, a beige body and the bands in use; the selected band
// is marked under the body.
class ResistorDrawing : public QWidget {
 public:
  ResistorDrawing(const ResistorCode& model, QWidget* parent) : QWidget(parent), model_(model) {
    setMinimumSize(360, 90);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const int cy = height() / 2;
    p.setPen(QPen(QColor(120, 120, 120), 4));
    p.drawLine(0, cy, width(), cy);
    const QRectF body(width() * 0.15, cy - 28, width() * 0.7, 56);
    p.setPen(QPen(QColor(120, 100, 70), 1));
    p.setBrush(QColor(230, 210, 170));
    p.drawRoundedRect(body, 20, 20);
    const int n = model_.bandCount;
    const double step = body.width() / (n + 1.5);
    for (int i = 0; i < n; ++i) {
      // The last band (tolerance) stands apart, as on a real part.
      const double x = body.left() + step * (i + 0.6) + (i == n - 1 && n > 3 ? step * 0.5 : 0);
      const QRectF band(x, body.top() + 2, step * 0.45, body.height() - 4);
      const int c = model_.bands.at(static_cast<size_t>(i));
      p.setPen(c < 0 ? QPen(QColor(120, 100, 70), 1, Qt::DashLine) : Qt::NoPen);
      p.setBrush(c < 0 || c == kNoColour ? Qt::NoBrush : QBrush(paintColour(c)));
      p.drawRect(band);
      if (i == model_.Check2) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0));
        const QPointF tip(band.center().x(), body.bottom() + 4);
        const QPointF pts[] = {tip, tip + QPointF(-6, 10), tip + QPointF(6, 10)};
        p.drawPolygon(pts, 3);
      }
    }
  }

 private:
  const ResistorCode& model_;
};

QString toleranceText(int colour) {
  const auto t = toleranceOf(colour);
  return Res(4347 + colour) + QStringLiteral(u" \u00B1") + (t ? rt::NumberToText(*t) : QString()) + QStringLiteral(" %");
}

}  // namespace

ResistorWindow::ResistorWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("ResistorWindow"));
  setWindowTitle(Res(4345));
  auto* v = new QVBoxLayout(this);
  v->addWidget(buildBands());
  v->addWidget(buildColourKeys());
  v->addWidget(buildResults());
  refresh();
}

QWidget* ResistorWindow::buildBands() {
  auto* box = new QGroupBox(Res(4360), this);
  auto* v = new QVBoxLayout(box);
  auto* counts = new QHBoxLayout;
  auto* group = new QButtonGroup(box);
  for (int i = 0; i < 4; ++i) {
    auto* r = new QRadioButton(QString::number(3 + i), box);
    r->setObjectName(QStringLiteral("Option1(%1)").arg(i));
    group->addButton(r, i);
    Option1 << r;
    counts->addWidget(r);
  }
  counts->addStretch(1);
  connect(group, &QButtonGroup::idClicked, this, [this](int i) {
    model_.Option1_Click(i);
    refresh();
  });
  v->addLayout(counts);
  drawing_ = new ResistorDrawing(model_, box);
  drawing_->setObjectName(QStringLiteral("Picture2"));
  v->addWidget(drawing_);
  auto* selectors = new QHBoxLayout;
  auto* selection = new QButtonGroup(box);
  for (int i = 0; i < 6; ++i) {
    auto* c = new QCheckBox(QString::number(i + 1), box);
    c->setObjectName(QStringLiteral("Check2(%1)").arg(i));
    selection->addButton(c, i);
    Check2 << c;
    selectors->addWidget(c);
  }
  selection->setExclusive(true);
  connect(selection, &QButtonGroup::idClicked, this, [this](int i) {
    model_.Check2_Click(i);
    refresh();
  });
  v->addLayout(selectors);
  return box;
}

QWidget* ResistorWindow::buildColourKeys() {
  auto* keys = new QWidget(this);
  auto* grid = new QGridLayout(keys);
  grid->setContentsMargins(0, 0, 0, 0);
  for (int i = 0; i < kColourCount; ++i) {
    auto* b = new ChameleonButtonWidget(Res(4347 + i), keys);
    b->setObjectName(QStringLiteral("Command86(%1)").arg(i));
    b->setFocusPolicy(Qt::TabFocus);
    const QColor c = paintColour(i);
    b->setColours(c, c.lightness() < 110 ? Qt::white : Qt::black);
    connect(b, &QPushButton::clicked, this, [this, i] {
      model_.Command86_Click(i);
      refresh();
    });
    Command86 << b;
    grid->addWidget(b, i / 7, i % 7);
  }
  return keys;
}

QWidget* ResistorWindow::buildResults() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  // The normal way: the bands read.
  Command87 = new ChameleonButtonWidget(Res(4367), box);
  Command87->setObjectName(QStringLiteral("Command87"));
  connect(Command87, &QPushButton::clicked, this, [this] {
    model_.Command87_Click();
    refresh();
  });
  Text8 = new QLineEdit(box);
  Text8->setObjectName(QStringLiteral("Text8"));
  Text8->setReadOnly(true);
  tolerance_ = new QLabel(box);
  tolerance_->setObjectName(QStringLiteral("Label8"));
  grid->addWidget(new QLabel(Res(4361), box), 0, 0);
  grid->addWidget(Text8, 0, 1);
  grid->addWidget(Command87, 0, 2);
  grid->addWidget(new QLabel(Res(4362), box), 1, 0);
  grid->addWidget(tolerance_, 1, 1);
  // The reverse way: a value and the tolerance and coefficient wanted.
  Text9 = new QLineEdit(box);
  Text9->setObjectName(QStringLiteral("Text9"));
  connect(Text9, &QLineEdit::textEdited, this, [this](const QString& t) { model_.Text9 = t; });
  Command97 = new ChameleonButtonWidget(Res(4368), box);
  Command97->setObjectName(QStringLiteral("Command97"));
  Command97->setToolTip(Res(4369));
  connect(Command97, &QPushButton::clicked, this, [this] {
    model_.Combo2 = Combo2->currentIndex();
    model_.Combo3 = Combo3->currentIndex();
    model_.Command97_Click();
    refresh();
  });
  connect(Text9, &QLineEdit::returnPressed, Command97, &QPushButton::click);
  grid->addWidget(new QLabel(Res(4369), box), 2, 0);
  grid->addWidget(Text9, 2, 1);
  grid->addWidget(Command97, 2, 2);
  Combo2 = new QComboBox(box);
  Combo2->setObjectName(QStringLiteral("Combo2"));
  for (int c : ResistorCode::toleranceColours()) Combo2->addItem(toleranceText(c));
  grid->addWidget(new QLabel(Res(4365), box), 3, 0);
  grid->addWidget(Combo2, 3, 1);
  Combo3 = new QComboBox(box);
  Combo3->setObjectName(QStringLiteral("Combo3"));
  Combo3->addItems(coefficientList());
  grid->addWidget(new QLabel(Res(4363), box), 4, 0);
  grid->addWidget(Combo3, 4, 1);
  // The kind of part: carbon (two digits) or metal film (three).
  auto* kinds = new QHBoxLayout;
  auto* carbon = new ChameleonButtonWidget(Res(4370), box);
  carbon->setObjectName(QStringLiteral("Option2(0)"));
  auto* metal = new ChameleonButtonWidget(Res(4371) + QStringLiteral(", ") + Res(4372), box);
  metal->setObjectName(QStringLiteral("Option2(1)"));
  connect(carbon, &QPushButton::clicked, this, [this] {
    model_.Option1_Click(1);
    refresh();
  });
  connect(metal, &QPushButton::clicked, this, [this] {
    model_.Option1_Click(2);
    refresh();
  });
  kinds->addWidget(carbon);
  kinds->addWidget(metal);
  kinds->addStretch(1);
  Command89 = new ChameleonButtonWidget(QStringLiteral("Reset"), box);
  Command89->setObjectName(QStringLiteral("Command89"));
  connect(Command89, &QPushButton::clicked, this, [this] {
    model_.Command89_Click();
    refresh();
  });
  Image7 = new ChameleonButtonWidget(Res(55), box);
  Image7->setObjectName(QStringLiteral("Image7"));
  Image7->setToolTip(Res(4423));
  connect(Image7, &QPushButton::clicked, this, [this] { model_.Image7_Click(); });
  kinds->addWidget(Command89);
  kinds->addWidget(Image7);
  grid->addLayout(kinds, 5, 0, 1, 3);
  grid->setColumnStretch(1, 1);
  return box;
}

void ResistorWindow::refresh() {
  refreshing_ = true;
  for (int i = 0; i < Option1.size(); ++i) Option1.at(i)->setChecked(model_.bandCount == 3 + i);
  for (int i = 0; i < Check2.size(); ++i) {
    Check2.at(i)->setVisible(i < model_.bandCount);
    Check2.at(i)->setChecked(i == model_.Check2);
    const int tip = i < model_.digitBands() ? 4346 : i == model_.multiplierBand() ? 4364 : i == 5 ? 4363 : 4365;
    Check2.at(i)->setToolTip(Res(tip));
  }
  Text8->setText(model_.Text8);
  tolerance_->setText(model_.tolerance.isEmpty() ? QString() : QStringLiteral(u"\u00B1") + model_.tolerance + QStringLiteral(" %"));
  if (model_.Combo3 >= 0) Combo3->setCurrentIndex(model_.Combo3);
  if (Text9->text() != model_.Text9) Text9->setText(model_.Text9);
  drawing_->update();
  refreshing_ = false;
}
