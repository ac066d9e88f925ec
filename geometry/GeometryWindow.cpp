#include "geometry/GeometryWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

#include "geometry/FigureView.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"

namespace {

// The main calculator's display, when a calculator window is open.
QString calculatorDisplay() {
  for (WindowId id : {WindowId::ScientificCalculator, WindowId::NormalCalculator}) {
    if (QWidget* w = findWindow(id)) {
      if (QObject* numero = w->findChild<QObject*>(QStringLiteral("numero"))) return numero->property("text").toString();
    }
  }
  return {};
}

void setText(QLineEdit* box, const QString& text) {
  if (box->text() != text) box->setText(text);
}

}  // namespace

GeometryWindow::GeometryWindow(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Geomet"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QStringLiteral("GeoKORD  -  ") + Res(3501));
  model_.Form_Load();

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(10, 8, 10, 8);
  rows->setSpacing(8);
  rows->addWidget(buildTop());
  auto* body = new QHBoxLayout;
  body->setSpacing(10);
  Picture3 = new FigureView(this);
  Picture3->setToolTip(Res(3519));
  body->addWidget(Picture3, 3);
  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  side->addWidget(buildParameters());
  side->addWidget(buildButtons());
  side->addWidget(buildResults());
  notesLabel = new QLabel(this);
  notesLabel->setObjectName(QStringLiteral("notes"));
  notesLabel->setWordWrap(true);
  side->addWidget(notesLabel);
  side->addStretch(1);
  side->addWidget(buildCalculator());
  body->addLayout(side, 2);
  rows->addLayout(body, 1);

  // Screenshot states are catalogue rows (FigureIndex), whatever the language.
  setProperty("screenshotStates", QStringList{QStringLiteral("6"), QStringLiteral("53"), QStringLiteral("54"),
                                              QStringLiteral("42"), QStringLiteral("19")});
  resize(960, 600);
  refresh();
  Text1[0]->setFocus();
}

// ---- Building -------------------------------------------------------------------

QWidget* GeometryWindow::buildTop() {
  auto* top = new QWidget(this);
  auto* row = new QHBoxLayout(top);
  row->setContentsMargins(0, 0, 0, 0);
  chameleonButton1Back = new ChameleonButtonWidget(this);
  chameleonButton1Back->setObjectName(QStringLiteral("chameleonButton1Back"));
  chameleonButton1Back->setIcon(style()->standardIcon(QStyle::SP_ArrowLeft));
  chameleonButton1Back->setShortcut(QKeySequence(Qt::Key_PageUp));
  chameleonButton1 = new ChameleonButtonWidget(this);
  chameleonButton1->setObjectName(QStringLiteral("chameleonButton1"));
  chameleonButton1->setIcon(style()->standardIcon(QStyle::SP_ArrowRight));
  chameleonButton1->setShortcut(QKeySequence(Qt::Key_PageDown));
  for (QPushButton* b : {chameleonButton1Back, chameleonButton1}) b->setToolTip(Res(3502));
  chameleonButton1->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(chameleonButton1Back, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton1_Click(false); }); });
  connect(chameleonButton1, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton1_Click(true); }); });
  // A right click on the arrow goes back, as on the original button.
  connect(chameleonButton1, &QPushButton::customContextMenuRequested, this,
          [this] { act([&] { model_.chameleonButton1_Click(false); }); });
  Combo1 = new QComboBox(this);
  Combo1->setObjectName(QStringLiteral("Combo1"));
  Combo1->addItems(model_.Combo1Items);
  Combo1->setMaxVisibleItems(20);
  connect(Combo1, &QComboBox::activated, this, [this](int index) { act([&] { model_.Combo1_Click(index); }); });
  Label4 = new QLabel(this);
  Label4->setObjectName(QStringLiteral("Label4"));
  QFont big = Label4->font();
  big.setPointSizeF(big.pointSizeF() * 1.5);
  big.setBold(true);
  Label4->setFont(big);
  row->addWidget(chameleonButton1Back);
  row->addWidget(Combo1);
  row->addWidget(chameleonButton1);
  row->addSpacing(16);
  row->addWidget(Label4, 1);
  return top;
}

QGroupBox* GeometryWindow::buildParameters() {
  auto* group = new QGroupBox(Res(3513), this);
  auto* g = new QGridLayout(group);
  g->setVerticalSpacing(4);
  for (int i = 0; i < GeometryModel::kBoxes; ++i) {
    Label1[i] = new QLabel(this);
    Label1[i]->setObjectName(QStringLiteral("Label1_%1").arg(i + 1));
    Label1[i]->setMinimumWidth(30);
    Text1[i] = new QLineEdit(this);
    Text1[i]->setObjectName(QStringLiteral("Text1_%1").arg(i + 1));
    Text1[i]->setToolTip(Res(3509));
    Text1[i]->setContextMenuPolicy(Qt::CustomContextMenu);
    Text1[i]->installEventFilter(this);
    connect(Text1[i], &QLineEdit::textEdited, this, [this, i](const QString& text) { model_.Text1[i] = text; });
    connect(Text1[i], &QLineEdit::returnPressed, this, [this] { act([&] { model_.chameleonButton2_Click(); }); });
    connect(Text1[i], &QLineEdit::customContextMenuRequested, this, [this, i](const QPoint& at) { boxMenu(i, at); });
    g->addWidget(Label1[i], i / 2, (i % 2) * 2);
    g->addWidget(Text1[i], i / 2, (i % 2) * 2 + 1);
  }
  g->setColumnStretch(1, 1);
  g->setColumnStretch(3, 1);
  return group;
}

QWidget* GeometryWindow::buildButtons() {
  auto* box = new QWidget(this);
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  auto button = [this, row](QPushButton*& b, const char* name, const QString& caption, int tip) {
    b = new ChameleonButtonWidget(caption, this);
    b->setObjectName(QLatin1String(name));
    b->setToolTip(Res(tip));
    row->addWidget(b);
  };
  button(chameleonButton2, "chameleonButton2", Res(3503), 3503);
  button(chameleonButton3, "chameleonButton3", QStringLiteral("R1 - R3"), 3505);
  button(chameleonButton4, "chameleonButton4", Res(3510), 3510);
  button(chameleonButton5, "chameleonButton5", Res(56), 3506);
  chameleonButton2->setDefault(true);
  chameleonButton4->setCheckable(true);
  connect(chameleonButton2, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton2_Click(); }); });
  connect(chameleonButton3, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton3_Click(); }); });
  connect(chameleonButton4, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton4_Click(); }); });
  connect(chameleonButton5, &QPushButton::clicked, this, [this] { act([&] { model_.chameleonButton5_Click(); }); });
  return box;
}

QGroupBox* GeometryWindow::buildResults() {
  auto* group = new QGroupBox(Res(3515), this);
  auto* g = new QGridLayout(group);
  g->setVerticalSpacing(4);
  for (int i = 0; i < GeometryModel::kLines; ++i) {
    Label2[i] = new QLabel(this);
    Label2[i]->setObjectName(QStringLiteral("Label2_%1").arg(i + 1));
    Text2[i] = new QLineEdit(this);
    Text2[i]->setObjectName(QStringLiteral("Text2_%1").arg(i + 1));
    Text2[i]->setReadOnly(true);
    g->addWidget(Label2[i], i, 0);
    g->addWidget(Text2[i], i, 1, 1, 3);
  }
  auto* decimals = new QLabel(Res(3507), this);
  Check1 = new QCheckBox(this);
  Check1->setObjectName(QStringLiteral("Check1"));
  UpDown1 = new QSpinBox(this);
  UpDown1->setObjectName(QStringLiteral("UpDown1"));
  UpDown1->setRange(0, 15);
  connect(Check1, &QCheckBox::clicked, this, [this](bool on) { act([&] { model_.Check1_Click(on); }); });
  connect(UpDown1, &QSpinBox::valueChanged, this, [this](int v) {
    if (!refreshing_) act([&] { model_.UpDown1_Change(v); });
  });
  g->addWidget(decimals, 3, 0);
  g->addWidget(Check1, 3, 1);
  g->addWidget(UpDown1, 3, 2);
  g->setColumnStretch(3, 1);
  return group;
}

QGroupBox* GeometryWindow::buildCalculator() {
  auto* group = new QGroupBox(Res(3508), this);
  auto* g = new QGridLayout(group);
  Text3 = new QLineEdit(this);
  Text3->setObjectName(QStringLiteral("Text3"));
  Text3->installEventFilter(this);
  connect(Text3, &QLineEdit::textEdited, this, [this](const QString& text) { model_.Text3 = text; });
  Command1 = new ChameleonButtonWidget(QStringLiteral("?"), this);
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setToolTip(Res(3504));
  connect(Command1, &QPushButton::clicked, this, [this] { act([&] { model_.Command1_Click(); }); });
  calcStatus = new QLabel(this);
  calcStatus->setObjectName(QStringLiteral("calcStatus"));
  calcStatus->setStyleSheet(QStringLiteral("color: #a02020"));
  calcStatus->setWordWrap(true);
  g->addWidget(Text3, 0, 0);
  g->addWidget(Command1, 0, 1);
  g->addWidget(calcStatus, 1, 0, 1, 2);
  return group;
}

// ---- Events ---------------------------------------------------------------------

template <typename Handler>
void GeometryWindow::act(Handler&& handler) {
  handler();
  refresh();
}

void GeometryWindow::boxMenu(int index, const QPoint& at) {
  QMenu menu(this);
  QMenu* from = menu.addMenu(Res(3511));
  from->setObjectName(QStringLiteral("FromCalc"));
  QAction* calc = from->addAction(Res(3512));
  calc->setEnabled(!calculatorDisplay().isEmpty());
  connect(calc, &QAction::triggered, this, [this, index] {
    act([&] { model_.FromCalc_Click(index, calculatorDisplay()); });
  });
  menu.exec(Text1[index]->mapToGlobal(at));
}

bool GeometryWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Text3 && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      model_.Text3 = Text3->text();
      const bool used = model_.Text3_KeyPress(kKeyEnter, key->modifiers() & Qt::ShiftModifier);
      refresh();
      return used;
    }
    return false;
  }
  for (int i = 0; i < GeometryModel::kBoxes; ++i) {
    if (watched != Text1[i]) continue;
    if (event->type() == QEvent::MouseButtonDblClick) {
      act([&] { model_.Text1_DblClick(i); });
      return true;
    }
    if (event->type() == QEvent::KeyPress) {
      auto* key = static_cast<QKeyEvent*>(event);
      const QString typed = key->text();
      if (typed.size() == 1 && (typed == QLatin1String(",") || typed == QLatin1String("."))) {
        Text1[i]->insert(QString(model_.Text1_KeyPress(i, typed.at(0))));
        model_.Text1[i] = Text1[i]->text();
        return true;
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}

void GeometryWindow::refresh() {
  refreshing_ = true;
  const geometry::FigureRow& row = model_.row();
  Label4->setText(model_.Label4);
  Combo1->setCurrentIndex(model_.Combo1ListIndex);
  Picture3->setFigure(row.nameId, row.form.isDigit() ? row.form.digitValue() : 0, geometry::parameterLabels(row));
  QStringList formulas;
  if (model_.formulaView) {
    // Before a calculation the view shows the row's formulas all the same.
    for (int i = 0; i < GeometryModel::kLines; ++i) {
      const QString& text = model_.hasResults() ? model_.Picture3[i] : row.formulas[i];
      if (model_.lineVisible[i]) formulas << model_.Label2[i] + QStringLiteral(":") + text;
    }
  }
  Picture3->setFormulas(formulas);
  for (int i = 0; i < GeometryModel::kBoxes; ++i) {
    const bool shown = i < model_.visibleBoxes;
    Label1[i]->setVisible(shown);
    Text1[i]->setVisible(shown);
    Label1[i]->setText(model_.Label1[i] + QStringLiteral(" ="));
    setText(Text1[i], model_.Text1[i]);
  }
  for (int i = 0; i < GeometryModel::kLines; ++i) {
    Label2[i]->setVisible(model_.lineVisible[i]);
    Text2[i]->setVisible(model_.lineVisible[i]);
    Label2[i]->setText(model_.Label2[i]);
    setText(Text2[i], model_.Text2[i]);
  }
  chameleonButton4->setChecked(model_.formulaView);
  Check1->setChecked(model_.Check1);
  Check1->setText(model_.Check1Caption);
  UpDown1->setValue(model_.UpDown1);
  QString notes;
  for (const geometry::FigureNote& n : model_.notes) notes += QStringLiteral("<br>") + QString(n.label + n.text).toHtmlEscaped();
  notesLabel->setText(notes.isEmpty() ? QString() : QStringLiteral("<b>") + Res(3550).toHtmlEscaped() + QStringLiteral("</b>") + notes);
  setText(Text3, model_.Text3);
  calcStatus->setText(model_.calcError);
  calcStatus->setVisible(!model_.calcError.isEmpty());
  refreshing_ = false;
}

// ---- Screenshots ----------------------------------------------------------------

void GeometryWindow::showScreenshotState(const QString& state) {
  bool ok = false;
  const int index = state.toInt(&ok) - 1;
  if (!ok || index < 0 || index >= model_.Combo1Items.size()) return;
  model_.Combo1_Click(index);
  const double samples[] = {5, 3, 4, 2.5, 2, 1.5};
  for (int i = 0; i < model_.visibleBoxes; ++i) model_.typeText1(i, QString::number(samples[i]));
  if (model_.row().nameId == 3560) model_.typeText1(1, QStringLiteral("7"));  // g above r
  if (model_.row().nameId == 3595) model_.typeText1(1, QStringLiteral("120"));
  if (!model_.formulaView) model_.chameleonButton4_Click();
  model_.chameleonButton2_Click();
  refresh();
}
