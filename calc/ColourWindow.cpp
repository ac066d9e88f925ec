#include "calc/ColourWindow.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/Strings.h"

ColourWindow::ColourWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("ColourWindow"));
  setWindowTitle(Res(4101));
  auto* outer = new QHBoxLayout(this);

  // The sample and its choice.
  auto* left = new QVBoxLayout;
  Picture1 = new QLabel(this);
  Picture1->setObjectName(QStringLiteral("Picture1"));
  Picture1->setMinimumSize(150, 150);
  Picture1->setAlignment(Qt::AlignCenter);
  Picture1->setFrameShape(QFrame::Box);
  left->addWidget(Picture1, 1);
  Check1 = new QCheckBox(Res(4308), this);
  Check1->setObjectName(QStringLiteral("Check1"));
  connect(Check1, &QCheckBox::toggled, this, [this](bool on) {
    model_.Check1 = on;
    refresh();
  });
  left->addWidget(Check1);
  dialogo = new ChameleonButtonWidget(QStringLiteral("..."), this);
  dialogo->setObjectName(QStringLiteral("dialogo"));
  dialogo->setToolTip(Res(4101));
  connect(dialogo, &QPushButton::clicked, this, &ColourWindow::chooseColour);
  botoncopia = new ChameleonButtonWidget(QStringLiteral("R1-R4"), this);
  botoncopia->setObjectName(QStringLiteral("botoncopia"));
  botoncopia->setToolTip(Res(4102));
  connect(botoncopia, &QPushButton::clicked, this, [this] { model_.botoncopia_Click(); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(dialogo);
  buttons->addWidget(botoncopia);
  left->addLayout(buttons);
  outer->addLayout(left);

  // RGB: a slider and a field per channel.
  auto* right = new QVBoxLayout;
  auto* rgb = new QGroupBox(QStringLiteral("RGB (0-255)"), this);
  auto* rgbGrid = new QGridLayout(rgb);
  for (int i = 0; i < 3; ++i) {
    rgbGrid->addWidget(new QLabel(Res(4334 + i), rgb), i, 0);
    auto* s = new QSlider(Qt::Horizontal, rgb);
    s->setObjectName(QStringLiteral("scrl(%1)").arg(i));
    s->setRange(0, 255);
    s->setMinimumWidth(160);
    connect(s, &QSlider::valueChanged, this, [this, i](int v) {
      if (refreshing_) return;
      model_.scrl_Change(i, v);
      refresh();
    });
    scrl[static_cast<size_t>(i)] = s;
    rgbGrid->addWidget(s, i, 1);
    auto* field = addField(QStringLiteral("txt1(%1)").arg(i), ColourModel::Field::Txt1, i);
    txt1[static_cast<size_t>(i)] = field;
    rgbGrid->addWidget(field, i, 2);
  }
  right->addWidget(rgb);

  auto* hls = new QGroupBox(QStringLiteral("HLS (0-240)"), this);
  auto* hlsGrid = new QGridLayout(hls);
  for (int i = 0; i < 3; ++i) {
    hlsGrid->addWidget(new QLabel(Res(4337 + i), hls), 0, 2 * i);
    auto* field = addField(QStringLiteral("txt2(%1)").arg(i), ColourModel::Field::Txt2, i);
    txt2[static_cast<size_t>(i)] = field;
    hlsGrid->addWidget(field, 0, 2 * i + 1);
  }
  right->addWidget(hls);

  auto* codes = new QGridLayout;
  txtDEC = addField(QStringLiteral("txtDEC"), ColourModel::Field::TxtDEC, 0);
  txtHEX = addField(QStringLiteral("txtHEX"), ColourModel::Field::TxtHEX, 0);
  txtHTML = addField(QStringLiteral("txtHTML"), ColourModel::Field::TxtHTML, 0);
  txtRGB = new QLineEdit(this);
  txtRGB->setObjectName(QStringLiteral("txtRGB"));
  txtRGB->setReadOnly(true);
  const std::pair<int, QLineEdit*> rows[] = {{4340, txtDEC}, {4341, txtHEX}, {4342, txtHTML}};
  int row = 0;
  for (const auto& [label, field] : rows) {
    codes->addWidget(new QLabel(Res(label), this), row, 0);
    field->setToolTip(Res(label));
    field->setMinimumWidth(120);
    codes->addWidget(field, row++, 1);
  }
  codes->addWidget(new QLabel(QStringLiteral("RGB"), this), row, 0);
  codes->addWidget(txtRGB, row, 1);
  right->addLayout(codes);
  right->addStretch(1);
  outer->addLayout(right, 1);
  refresh();
}

QLineEdit* ColourWindow::addField(const QString& name, ColourModel::Field field, int index) {
  auto* e = new QLineEdit(this);
  e->setObjectName(name);
  e->setMinimumWidth(48);
  e->installEventFilter(this);
  fields_.insert(e, {field, index});
  return e;
}

// Typed keys go to the model, which filters them and appends; selecting the
// whole text and typing starts the field afresh.
bool ColourWindow::eventFilter(QObject* watched, QEvent* event) {
  auto* edit = qobject_cast<QLineEdit*>(watched);
  if (!edit || event->type() != QEvent::KeyPress || !fields_.contains(edit)) return QDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  QChar c;
  if (key->key() == Qt::Key_Backspace) {
    c = QChar(8);
  } else if (key->text().size() == 1 && key->text().at(0).isPrint()) {
    c = key->text().at(0);
  } else {
    return QDialog::eventFilter(watched, event);  // moves, Tab, Escape
  }
  const FieldRef ref = fields_.value(edit);
  if (edit->hasSelectedText() && edit->selectedText() == edit->text() && c != QChar(8)) {
    model_.clearField(ref.field, ref.index);
  }
  model_.typeKey(ref.field, ref.index, c);
  refresh();
  return true;
}

void ColourWindow::chooseColour() {
  const Rgb c = model_.colour();
  const QColor chosen = QColorDialog::getColor(QColor(c.red, c.green, c.blue), this, Res(4101));
  if (!chosen.isValid()) return;
  model_.setColour({chosen.red(), chosen.green(), chosen.blue()});
  refresh();
}

void ColourWindow::refresh() {
  refreshing_ = true;
  const auto setText = [](QLineEdit* e, const QString& text) {
    if (e->text() != text) e->setText(text);
  };
  for (size_t i = 0; i < 3; ++i) {
    scrl[i]->setValue(model_.scrl[i]);
    setText(txt1[i], model_.txt1[i]);
    setText(txt2[i], model_.txt2[i]);
  }
  setText(txtDEC, model_.txtDEC);
  setText(txtHEX, model_.txtHEX);
  setText(txtHTML, model_.txtHTML);
  setText(txtRGB, model_.txtRGB);
  const Rgb c = model_.colour();
  const QString colour = QColor(c.red, c.green, c.blue).name();
  if (model_.Check1) {
    Picture1->setText(Res(4101));
    Picture1->setStyleSheet(QStringLiteral("QLabel { color: %1; background: white; font-size: 16pt; }").arg(colour));
  } else {
    Picture1->setText(QString());
    Picture1->setStyleSheet(QStringLiteral("QLabel { background: %1; }").arg(colour));
  }
  refreshing_ = false;
}
