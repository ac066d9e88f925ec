#include "elements/PeriodicTableWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include "elements/ElementPictureView.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr int kButtonHeight = 34;
constexpr int kSheetRows = 11;

// A colour held with red in the low byte.
QColor fromClassic(long c) { return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF), static_cast<int>((c >> 16) & 0xFF)); }

QColor classColour(ElementClass c) {
  switch (c) {
    case ElementClass::AlkaliMetal: return QColor(255, 214, 170);
    case ElementClass::TransitionMetal: return QColor(255, 240, 180);
    case ElementClass::InnerTransition: return QColor(244, 210, 244);
    case ElementClass::OtherMetal: return QColor(205, 225, 250);
    case ElementClass::NonMetal: return QColor(205, 242, 200);
    case ElementClass::NobleGas: return QColor(200, 240, 240);
  }
  return Qt::white;
}

// Where a field of the sheet sits: two columns of eleven rows; the second
// electronegativity shares the place of the first (one shows at a time).
struct SheetPlace {
  int row, column;
};
SheetPlace sheetPlace(int field) {
  int slot = field;
  if (field > fieldIndex(ElementField::electronegs)) --slot;
  return {slot % kSheetRows, slot / kSheetRows};
}

QString rich(const QString& formula) {
  // Counts as subscripts: H2O shows as H<sub>2</sub>O.
  QString out;
  bool inDigits = false;
  for (QChar c : formula) {
    if (c.isDigit() && !inDigits) out += QStringLiteral("<sub>");
    if (!c.isDigit() && inDigits) out += QStringLiteral("</sub>");
    inDigits = c.isDigit();
    out += c;
  }
  if (inDigits) out += QStringLiteral("</sub>");
  return out;
}

}  // namespace

PeriodicTableWindow::PeriodicTableWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("TablaPeriodica"));
  setAttribute(Qt::WA_DeleteOnClose);
  table_.Form_Load();

  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  rows->setContentsMargins(8, 6, 8, 6);
  rows->setSpacing(6);
  legend_ = buildLegend();
  rows->addWidget(buildTable());
  rows->addWidget(buildBuilder());
  rows->addWidget(buildSheet());
  rows->addStretch(1);
  setCentralWidget(central);
  buildMenus();
  loadTexts();
  refresh();
  setProperty("screenshotStates", QStringList{QStringLiteral("sheet"), QStringLiteral("long"),
                                              QStringLiteral("molweight")});
  fitToScreen();
}

// ---- Building ----------------------------------------------------------------------------

QWidget* PeriodicTableWindow::buildTable() {
  tableArea_ = new QWidget(this);
  grid_ = new QGridLayout(tableArea_);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(2);
  grid_->setVerticalSpacing(2);

  Command3 = new QToolButton(tableArea_);
  Command3->setObjectName(QStringLiteral("Command3"));
  Command3->setText(QStringLiteral("1 / IA"));
  Command3->setAutoRaise(false);
  connect(Command3, &QToolButton::clicked, this, [this] {
    table_.Command3_Click();
    refresh();
  });
  for (int g = 0; g < kGroupCount; ++g) {
    auto* head = new QLabel(tableArea_);
    head->setObjectName(QStringLiteral("Label2_%1").arg(g));
    head->setAlignment(Qt::AlignCenter);
    QFont f = head->font();
    f.setBold(true);
    head->setFont(f);
    Label2[static_cast<std::size_t>(g)] = head;
  }
  for (int z = 1; z <= kElementCount; ++z) {
    auto* b = new QToolButton(tableArea_);
    b->setObjectName(QStringLiteral("zeta_%1").arg(z));
    b->setText(QString::number(z) + u'\n' + PeriodicTable::buttonSymbol(z));
    b->setToolTip(PeriodicTable::zetaToolTip(z));
    b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    b->setMinimumSize(34, kButtonHeight);
    b->setMaximumHeight(kButtonHeight);
    b->setFocusPolicy(Qt::TabFocus);
    zeta[static_cast<std::size_t>(z)] = b;
    connect(b, &QToolButton::clicked, this, [this, z] {
      table_.zeta_Click(z);
      refresh();
    });
  }
  lanthanides_ = new QLabel(QStringLiteral("57-71"), tableArea_);
  actinides_ = new QLabel(QStringLiteral("89-103"), tableArea_);
  for (QLabel* l : {lanthanides_, actinides_}) {
    l->setAlignment(Qt::AlignCenter);
    l->setStyleSheet(QStringLiteral("QLabel { background: rgb(244,210,244); border: 1px dashed #a080a0; }"));
    l->setMinimumHeight(kButtonHeight);
  }
  placeButtons();
  return tableArea_;
}

void PeriodicTableWindow::styleButton(int z) {
  QToolButton* b = zeta[static_cast<std::size_t>(z)];
  const QColor back = classColour(elementClass(z));
  const QColor text = fromClassic(symbolColour(z));
  QString style = QStringLiteral("QToolButton { background: %1; color: %2; border: 1px solid #8a8a8a; "
                                 "border-radius: 2px; font-weight: bold; padding: 0px; }"
                                 "QToolButton:hover { border: 1px solid #202080; }"
                                 "QToolButton:focus { border: 2px solid #202080; }")
                      .arg(back.name(), text.name());
  if (isArtificial(z)) style += QStringLiteral("QToolButton { font-style: italic; }");
  if (isLiquid(z)) style += QStringLiteral("QToolButton { text-decoration: underline; }");
  // 32 columns leave less room for three digits.
  if (table_.tableLayout == 2) style += QStringLiteral("QToolButton { font-size: 8pt; }");
  b->setStyleSheet(style);
}

void PeriodicTableWindow::placeButtons() {
  const int layout = table_.tableLayout;
  // Take everything out, then put each piece where this layout wants it.
  while (grid_->count() > 0) delete grid_->takeAt(0);
  for (int c = 0; c <= 32; ++c) grid_->setColumnStretch(c, 0);
  for (int r = 0; r <= 10; ++r) grid_->setRowMinimumHeight(r, 0);

  grid_->addWidget(Command3, 0, 0);
  for (int g = 1; g <= kGroupCount; ++g) grid_->addWidget(Label2[static_cast<std::size_t>(g - 1)], 0, groupColumn(g, layout));
  for (int z = 1; z <= kElementCount; ++z) {
    const TableCell c = elementCell(z, layout);
    grid_->addWidget(zeta[static_cast<std::size_t>(z)], c.row, c.col);
    styleButton(z);
  }
  for (int c = 1; c <= layoutColumns(layout); ++c) grid_->setColumnStretch(c, 1);
  const bool shortForm = layout == 1;
  lanthanides_->setVisible(shortForm);
  actinides_->setVisible(shortForm);
  // The legend fills the gap above the transition metals.
  grid_->addWidget(legend_, 1, 3, 3, shortForm ? 10 : 24);
  if (shortForm) {
    grid_->addWidget(lanthanides_, 6, 3);
    grid_->addWidget(actinides_, 7, 3);
    grid_->setRowMinimumHeight(8, 6);  // a gap above the f-block rows
  }
}

QWidget* PeriodicTableWindow::buildSheet() {
  auto* box = new QWidget(this);
  auto* g = new QGridLayout(box);
  g->setContentsMargins(0, 0, 0, 0);
  g->setHorizontalSpacing(8);
  g->setVerticalSpacing(1);
  for (int i = 0; i < kElementFieldCount; ++i) {
    auto* caption = new QLabel(box);
    caption->setObjectName(elementFieldName(i) + QStringLiteral("Caption"));
    caption->setStyleSheet(QStringLiteral("QLabel { color: #303060; }"));
    auto* value = new QLabel(box);
    value->setObjectName(elementFieldName(i));
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setMinimumWidth(120);
    QFont f = value->font();
    f.setBold(true);
    value->setFont(f);
    const SheetPlace p = sheetPlace(i);
    g->addWidget(caption, p.row, p.column * 2);
    g->addWidget(value, p.row, p.column * 2 + 1);
    sheetCaptions_[static_cast<std::size_t>(i)] = caption;
    sheetLabels_[static_cast<std::size_t>(i)] = value;
  }
  g->setColumnStretch(1, 1);
  g->setColumnStretch(3, 1);

  auto* pictures = new QVBoxLayout;
  pictures->setSpacing(4);
  zText = new QLabel(box);
  zText->setObjectName(QStringLiteral("zText"));
  QFont big = zText->font();
  big.setPointSizeF(big.pointSizeF() * 1.4);
  big.setBold(true);
  zText->setFont(big);
  Image2 = new ElementPictureView(ElementPictureView::Kind::AcidBasePicture, box);
  Image2->setObjectName(QStringLiteral("Image2"));
  Image3 = new ElementPictureView(ElementPictureView::Kind::CrystalPicture, box);
  Image3->setObjectName(QStringLiteral("Image3"));
  Command4 = new ChameleonButtonWidget(box);
  Command4->setObjectName(QStringLiteral("Command4"));
  connect(Command4, &QPushButton::clicked, this, [this] { table_.Command4_Click(); });
  hint_ = new QLabel(box);
  hint_->setWordWrap(true);
  hint_->setMaximumWidth(180);
  hint_->setStyleSheet(QStringLiteral("QLabel { color: #606060; }"));
  pictures->addWidget(zText);
  pictures->addWidget(hint_);
  auto* pics = new QHBoxLayout;
  pics->addWidget(Image2);
  pics->addWidget(Image3);
  pictures->addLayout(pics);
  pictures->addWidget(Command4);
  pictures->addStretch(1);
  g->addLayout(pictures, 0, 4, kSheetRows, 1);
  return box;
}

QWidget* PeriodicTableWindow::buildLegend() {
  auto* box = new QWidget(this);
  box->setObjectName(QStringLiteral("legend"));
  auto* g = new QGridLayout(box);
  g->setContentsMargins(6, 0, 6, 0);
  g->setHorizontalSpacing(6);
  g->setVerticalSpacing(2);
  for (int i = 0; i < 6; ++i) {
    auto* l = new QLabel(box);
    l->setObjectName(QStringLiteral("legend%1").arg(i));
    const QColor c = classColour(static_cast<ElementClass>(i));
    l->setStyleSheet(QStringLiteral("QLabel { background: %1; border: 1px solid #8a8a8a; padding: 1px 4px; }").arg(c.name()));
    classNames_[static_cast<std::size_t>(i)] = l;
    g->addWidget(l, i / 3, i % 3);
  }
  legendItalic_ = new QLabel(box);
  legendItalic_->setStyleSheet(QStringLiteral("QLabel { font-style: italic; }"));
  legendUnderline_ = new QLabel(box);
  legendUnderline_->setStyleSheet(QStringLiteral("QLabel { text-decoration: underline; }"));
  legendColour_ = new QLabel(box);
  g->addWidget(legendItalic_, 2, 0);
  g->addWidget(legendUnderline_, 2, 1);
  g->addWidget(legendColour_, 3, 0, 1, 3);
  return box;
}

QWidget* PeriodicTableWindow::buildBuilder() {
  builder_ = new QWidget(this);
  builder_->setObjectName(QStringLiteral("builder"));
  auto* h = new QHBoxLayout(builder_);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(6);
  Image6 = new QLabel(QStringLiteral("Σ"), builder_);
  Image6->setObjectName(QStringLiteral("Image6"));
  Image6->setStyleSheet(QStringLiteral("QLabel { background: #203060; color: white; font-weight: bold; "
                                       "padding: 2px 8px; border-radius: 3px; }"));
  Label1 = new QLabel(builder_);
  Label1->setObjectName(QStringLiteral("Label1"));
  formula = new QLabel(builder_);
  formula->setObjectName(QStringLiteral("formula"));
  formula->setTextFormat(Qt::RichText);
  formula->setMinimumWidth(200);
  formula->setStyleSheet(QStringLiteral("QLabel { background: white; border: 1px solid #909090; padding: 2px 6px; "
                                        "font-size: 13pt; font-weight: bold; }"));
  masa = new QLabel(builder_);
  masa->setObjectName(QStringLiteral("masa"));
  masa->setMinimumWidth(110);
  masa->setStyleSheet(QStringLiteral("QLabel { background: white; border: 1px solid #909090; padding: 2px 6px; "
                                     "font-size: 13pt; }"));
  nn = new QLabel(builder_);
  nn->setObjectName(QStringLiteral("nn"));
  nn->setMinimumWidth(44);
  nn->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  nn->setStyleSheet(QStringLiteral("QLabel { background: #fffff0; border: 1px solid #909090; padding: 2px 4px; }"));
  h->addWidget(Image6);
  h->addWidget(Label1);
  h->addWidget(formula, 2);
  h->addWidget(masa, 1);
  h->addWidget(nn);
  for (int d = 0; d < 10; ++d) {
    auto* b = new QToolButton(builder_);
    b->setObjectName(QStringLiteral("Command1_%1").arg(d));
    b->setText(QString::number(d));
    b->setMinimumWidth(24);
    Command1[static_cast<std::size_t>(d)] = b;
    connect(b, &QToolButton::clicked, this, [this, d] {
      table_.Command1_Click(d);
      refresh();
    });
    h->addWidget(b);
  }
  Command123 = new ChameleonButtonWidget(builder_);
  Command123->setObjectName(QStringLiteral("Command123"));
  Command112 = new ChameleonButtonWidget(builder_);
  Command112->setObjectName(QStringLiteral("Command112"));
  Command124 = new ChameleonButtonWidget(builder_);
  Command124->setObjectName(QStringLiteral("Command124"));
  connect(Command123, &QPushButton::clicked, this, [this] {
    table_.Command123_Click();
    refresh();
  });
  connect(Command112, &QPushButton::clicked, this, [this] {
    table_.Command112_Click();
    refresh();
  });
  connect(Command124, &QPushButton::clicked, this, [this] {
    table_.Command124_Click();
    refresh();
  });
  h->addWidget(Command123);
  h->addWidget(Command112);
  h->addWidget(Command124);
  return builder_;
}

void PeriodicTableWindow::buildMenus() {
  auto act = [this](QMenu* menu, const QString& name, auto handler) {
    auto* a = menu->addAction(QString());
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, [this, handler] {
      handler();
      refresh();
    });
    return a;
  };
  tablaMenu_ = menuBar()->addMenu(QString());
  tablaMenu_->setObjectName(QStringLiteral("tabla"));
  elementoimpr = act(tablaMenu_, QStringLiteral("elementoimpr"), [this] { table_.Command4_Click(); });
  tipotabla_ = tablaMenu_->addMenu(QString());
  tipotabla_->setObjectName(QStringLiteral("tipotabla"));
  tipotabla1 = act(tipotabla_, QStringLiteral("tipotabla1"), [this] {
    table_.tipotabla1_Click();
    placeButtons();
    fitToScreen();
  });
  tipotabla2 = act(tipotabla_, QStringLiteral("tipotabla2"), [this] {
    table_.tipotabla2_Click();
    placeButtons();
    fitToScreen();
  });
  auto* layouts = new QActionGroup(this);
  for (QAction* a : {tipotabla1, tipotabla2}) {
    a->setCheckable(true);
    layouts->addAction(a);
  }
  tablaMenu_->addSeparator();
  salir_ = act(tablaMenu_, QStringLiteral("salir"), [this] { close(); });

  auto* weightMenu = menuBar()->addMenu(QString());
  weightMenu->setObjectName(QStringLiteral("pesoMenu"));
  calculo = act(weightMenu, QStringLiteral("calculo"), [this] { table_.calculo_Click(); });

  energyMenu_ = menuBar()->addMenu(QString());
  energyMenu_->setObjectName(QStringLiteral("energia"));
  auto* units = new QActionGroup(this);
  for (int u = 0; u < 2; ++u) {
    QAction* a = act(energyMenu_, QStringLiteral("EnergyUnit_%1").arg(u), [this, u] { table_.EnergyUnit_Click(u); });
    a->setCheckable(true);
    units->addAction(a);
    EnergyUnit[static_cast<std::size_t>(u)] = a;
  }
  electroMenu_ = menuBar()->addMenu(QString());
  electroMenu_->setObjectName(QStringLiteral("electroneg"));
  pauling = act(electroMenu_, QStringLiteral("pauling"), [this] { table_.pauling_Click(); });
  paulingno = act(electroMenu_, QStringLiteral("paulingno"), [this] { table_.paulingno_Click(); });
  pauling->setCheckable(true);
  paulingno->setCheckable(true);

  notas_ = menuBar()->addMenu(QString());
  notas_->setObjectName(QStringLiteral("notas"));
  cuaderno_ = notas_->addMenu(QString());
  cuaderno_->setObjectName(QStringLiteral("cuaderno"));
  tablas_ = notas_->addMenu(QString());
  tablas_->setObjectName(QStringLiteral("tablas"));
  for (const NoteItem& n : noteItems()) {
    const int topic = n.topic;
    notes_.append(act(n.table ? tablas_ : cuaderno_, QString::fromLatin1(n.name), [this, topic] { table_.note_Click(topic); }));
  }
}

// ---- Texts and repainting -------------------------------------------------------------------

void PeriodicTableWindow::loadTexts() {
  table_.loadTexts();
  setWindowTitle(table_.caption);
  Command3->setToolTip(Res(1087));
  Command4->setText(Res(1060));
  Command112->setText(Res(1061));
  Command123->setText(Res(944));
  Command124->setText(Res(947));
  Command123->setToolTip(Res(946));
  Label1->setText(Res(945));
  Image6->setToolTip(Res(901));
  for (int i = 0; i < 6; ++i) classNames_[static_cast<std::size_t>(i)]->setText(Res(1017 + i));
  legendItalic_->setText(Res(1023));
  legendUnderline_->setText(Res(1024));
  legendColour_->setText(Res(1025));
  hint_->setText(Res(948));
  tablaMenu_->setTitle(Res(900));
  elementoimpr->setText(Res(1060));
  tipotabla_->setTitle(Res(910));
  tipotabla1->setText(Res(942));
  tipotabla2->setText(Res(943));
  salir_->setText(Res(59));
  calculo->setText(Res(901));
  if (auto* m = menuBar()->findChild<QMenu*>(QStringLiteral("pesoMenu"))) m->setTitle(Res(901));
  energyMenu_->setTitle(Res(902));
  EnergyUnit[0]->setText(Res(903));
  EnergyUnit[1]->setText(Res(904));
  electroMenu_->setTitle(Res(905));
  pauling->setText(Res(906));
  paulingno->setText(Res(907));
  notas_->setTitle(Res(908));
  cuaderno_->setTitle(Res(909));
  tablas_->setTitle(Res(929));
  for (qsizetype i = 0; i < notes_.size(); ++i) notes_[i]->setText(Res(noteItems().at(i).stringId));
  refresh();
}

void PeriodicTableWindow::refresh() {
  for (int g = 0; g < kGroupCount; ++g) Label2[static_cast<std::size_t>(g)]->setText(table_.Label2[static_cast<std::size_t>(g)]);
  for (int i = 0; i < kElementFieldCount; ++i) {
    const auto f = static_cast<std::size_t>(i);
    sheetCaptions_[f]->setText(table_.captions[f]);
    sheetLabels_[f]->setText(table_.sheet[f]);
  }
  const bool first = table_.pauling;
  const auto e0 = static_cast<std::size_t>(fieldIndex(ElementField::electronegs));
  const auto e1 = static_cast<std::size_t>(fieldIndex(ElementField::electronegs1));
  sheetLabels_[e0]->setVisible(first);
  sheetCaptions_[e0]->setVisible(first);
  sheetLabels_[e1]->setVisible(!first);
  sheetCaptions_[e1]->setVisible(!first);
  const auto s = static_cast<std::size_t>(fieldIndex(ElementField::simbolos));
  QFont symbolFont = sheetLabels_[s]->font();
  symbolFont.setItalic(table_.current > 0 && isArtificial(table_.current));
  symbolFont.setUnderline(table_.current > 0 && isLiquid(table_.current));
  sheetLabels_[s]->setFont(symbolFont);
  sheetLabels_[s]->setStyleSheet(QStringLiteral("QLabel { color: %1; }").arg(fromClassic(table_.simbolosColor).name()));
  zText->setText(table_.zText);
  Image2->setAcidBase(table_.Image2);
  Image3->setCrystal(table_.crystalPicture);
  Image2->setVisible(table_.sheetShown);
  Image3->setVisible(table_.sheetShown);
  hint_->setVisible(!table_.sheetShown);
  Command4->setEnabled(table_.sheetShown);
  elementoimpr->setEnabled(table_.sheetShown);

  builder_->setVisible(table_.calculo);
  calculo->setEnabled(!table_.calculo);
  formula->setText(rich(table_.weight.formula));
  masa->setText(table_.weight.masa);
  nn->setText(table_.weight.nn);

  EnergyUnit[static_cast<std::size_t>(table_.EnergyUnit)]->setChecked(true);
  pauling->setChecked(table_.pauling);
  paulingno->setChecked(table_.paulingno);
  tipotabla1->setChecked(table_.tableLayout == 1);
  tipotabla2->setChecked(table_.tableLayout == 2);
}

void PeriodicTableWindow::fitToScreen() {
  adjustSize();
  QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect avail = screen->availableGeometry();
  const int frame = 30;  // title bar
  const QSize want(qMin(qMax(sizeHint().width(), 1264), avail.width() - 16),
                   qMin(sizeHint().height(), avail.height() - frame - 8));
  resize(want);
  move(avail.left() + (avail.width() - want.width()) / 2, avail.top() + qMax(0, (avail.height() - want.height() - frame) / 2));
}

// ---- Keys and screenshots -------------------------------------------------------------------

void PeriodicTableWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    ContextHelp(PeriodicTable::kHelpTopic);
    return;
  }
  if (table_.calculo) {
    const int key = event->key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
      table_.Command1_Click(key - Qt::Key_0);
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      table_.Command123_Click();
    } else if (key == Qt::Key_Delete) {
      table_.Command112_Click();
    } else if (key == Qt::Key_Escape) {
      table_.Command124_Click();
    } else {
      QMainWindow::keyPressEvent(event);
      return;
    }
    refresh();
    return;
  }
  QMainWindow::keyPressEvent(event);
}

void PeriodicTableWindow::showScreenshotState(const QString& state) {
  if (state == QLatin1String("sheet")) {
    table_.zeta_Click(79);
  } else if (state == QLatin1String("long")) {
    table_.tipotabla2_Click();
    placeButtons();
    table_.zeta_Click(26);
    fitToScreen();
  } else if (state == QLatin1String("molweight")) {
    table_.calculo_Click();
    for (const char* step : {"C", "6", "s", "H", "1", "2", "s", "O", "6", "s"}) {
      const QString k = QString::fromLatin1(step);
      if (k == QLatin1String("s")) table_.Command123_Click();
      else if (k.at(0).isDigit()) table_.Command1_Click(k.toInt());
      else table_.zeta_Click(PeriodicTable::atomicNumberOf(k));
    }
  }
  refresh();
}
