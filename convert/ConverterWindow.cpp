#include "convert/ConverterWindow.h"

#include <QAction>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"

namespace {

constexpr int kRows = 13;  // three columns of 13 unit buttons

QString colourName(std::uint32_t colour) {
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                static_cast<int>((colour >> 16) & 0xFF))
      .name();
}

// The magnitude menu: groups (a caption string and their items) and single
// items, each item with the string of its caption.
struct MenuEntry {
  const char* group;  // nullptr: an item of the menu itself
  int groupCaption;
  QList<QPair<const char*, int>> items;
};

const QList<MenuEntry>& magnitudeMenu() {
  static const QList<MenuEntry> menu{
      {"aceleracion", 1202, {{"aceleracionlinear", 1203}, {"aceleracionangular", 1204}}},
      {"angular", 1205, {{"anbidimensional", 1206}, {"angulosolido", 1207}}},
      {nullptr, 0, {{"densidad", 1208}}},
      {"electricidad", 1209,
       {{"capacidadelectrica", 1210}, {"cargaelectrica", 1211}, {"conductancia", 1212}, {"inductanciaelec", 1213},
        {"intensidadelectrica", 1214}, {"potencial", 1215}, {"resistenciaelectrica", 1216}}},
      {nullptr, 0, {{"energia", 1217}, {"flujo", 1246}, {"frecuencia", 1218}, {"fuerza", 1219}, {"informat", 1220}}},
      {"Longi", 1221, {{"Longitud", 1242}, {"Longitud0", 1243}, {"Longitud1", 1245}, {"Longitud2", 1244}}},
      {nullptr, 0, {{"luminosidad", 1222}}},
      {"magneticas", 1223, {{"intensidadmagnet", 1224}, {"flujomag", 1225}}},
      {"Mas", 1226, {{"masa", 1300}, {"Masa0", 1301}, {"Masa1", 1302}, {"Masa2", 1303}}},
      {nullptr, 0, {{"numeronda", 1227}}},
      {"radiacion", 1228, {{"dosisabs", 1229}, {"radiactiv", 1230}}},
      {nullptr, 0, {{"potencia", 1231}, {"presion", 1232}}},
      {"Superf", 1233,
       {{"Superficie", 1304}, {"Superficie0", 1305}, {"Superficie1", 1306}, {"Superficie2", 1307},
        {"Superficie3", 1308}, {"Superficie4", 1309}, {"Superficie5", 1310}}},
      {nullptr, 0, {{"tiempo", 1234}}},
      {"velocidad", 1235, {{"velocidadlinear", 1236}, {"velocidadangular", 1237}}},
      {"viscosidad", 1238, {{"cinematica", 1239}, {"dinamica", 1240}}},
      {"Volum", 1241, {{"Volumen", 1311}, {"Volumen1", 1312}, {"Volumen2", 1313}}},
  };
  return menu;
}

}  // namespace

ConverterWindow::ConverterWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("conversiones"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Res(1298));
  installHooks();

  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  rows->setContentsMargins(10, 6, 10, 8);
  rows->setSpacing(4);
  Label11 = new QLabel(central);
  Label11->setObjectName(QStringLiteral("Label11"));
  QFont big = Label11->font();
  big.setPointSizeF(big.pointSizeF() * 1.4);
  big.setBold(true);
  Label11->setFont(big);
  Label9 = new QLabel(central);
  Label9->setObjectName(QStringLiteral("Label9"));
  Label9->setStyleSheet(QStringLiteral("color: #804000;"));
  rows->addWidget(Label11);
  rows->addWidget(Label9);
  auto* body = new QHBoxLayout;
  body->setSpacing(12);
  body->addWidget(buildUnitButtons());
  body->addWidget(buildSidePanel(), 1);
  rows->addLayout(body);
  // The history runs under the whole window, where its long lines fit.
  List1 = new QListWidget(central);
  List1->setObjectName(QStringLiteral("List1"));
  List1->setFixedHeight(List1->fontMetrics().height() * 9);
  rows->addWidget(List1);
  setCentralWidget(central);
  buildMenus();

  setProperty("screenshotStates", QStringList{QStringLiteral("long-captions"), QStringLiteral("history")});
  model_.Form_Load();
  refresh();
  adjustSize();
}

void ConverterWindow::installHooks() {
  model_.calculatorDisplay = [] {
    const bool normal = program().CalculatorMode.toText() == QLatin1String("normalita");
    QWidget* calc = findWindow(normal ? WindowId::NormalCalculator : WindowId::ScientificCalculator);
    QWidget* display = calc ? calc->findChild<QWidget*>(QStringLiteral("numero")) : nullptr;
    return display ? display->property("text").toString() : QStringLiteral("0");
  };
  model_.openScientificCalculator = [] { OpenCalculator(); };
  model_.closeNormalCalculator = [] {
    if (QWidget* w = findWindow(WindowId::NormalCalculator)) w->close();
  };
}

template <typename Handler>
void ConverterWindow::act(Handler&& handler) {
  handler();
  refresh();
}

QWidget* ConverterWindow::buildUnitButtons() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(3);
  // Wide enough for the longest caption of any table.
  int width = 0;
  const QFontMetrics metrics(font());
  for (const UnitTable& t : model_.tables().tables()) {
    for (const UnitRow& r : t.rows) width = std::max(width, metrics.horizontalAdvance(r.caption));
  }
  for (int i = 0; i < kUnitButtons; ++i) {
    auto* b = new ChameleonButtonWidget(box);
    b->setObjectName(QStringLiteral("Command1_%1").arg(i));
    b->setFocusPolicy(Qt::TabFocus);
    b->setMinimumWidth(width + 16);
    b->setFixedHeight(metrics.height() + 9);
    connect(b, &QPushButton::clicked, this, [this, i] { act([&] { model_.Command1_Click(i); }); });
    grid->addWidget(b, i % kRows, i / kRows);
    Command1[static_cast<size_t>(i)] = b;
  }
  return box;
}

QPushButton* ConverterWindow::toolButton(const QString& name, const QString& caption, int tooltipId) {
  auto* b = new ChameleonButtonWidget(caption, this);
  b->setObjectName(name);
  if (tooltipId) b->setToolTip(Res(tooltipId));
  return b;
}

QWidget* ConverterWindow::buildSidePanel() {
  auto* panel = new QWidget(this);
  auto* col = new QVBoxLayout(panel);
  col->setContentsMargins(0, 0, 0, 0);
  col->setSpacing(4);
  auto caption = [panel](int id) {
    auto* l = new QLabel(Res(id), panel);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
  };
  auto field = [panel](const QString& name) {
    auto* l = new QLabel(panel);
    l->setObjectName(name);
    l->setFrameShape(QFrame::StyledPanel);
    l->setMinimumHeight(l->fontMetrics().height() + 8);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
  };
  col->addWidget(caption(1330));
  Label12[0] = field(QStringLiteral("Label12_0"));
  col->addWidget(Label12[0]);
  col->addWidget(caption(1331));
  Label12[1] = field(QStringLiteral("Label12_1"));
  col->addWidget(Label12[1]);
  col->addWidget(caption(1332));
  Label3 = field(QStringLiteral("Label3"));
  Label3->setStyleSheet(QStringLiteral("background: #FFFFE0;"));
  col->addWidget(Label3);
  col->addWidget(caption(1333));
  Text2 = new QLineEdit(panel);
  Text2->setObjectName(QStringLiteral("Text2"));
  Text2->installEventFilter(this);
  connect(Text2, &QLineEdit::textEdited, this, [this](const QString& text) { model_.Text2 = text; });
  col->addWidget(Text2);
  col->addWidget(caption(1334));
  Text4 = new QLineEdit(panel);
  Text4->setObjectName(QStringLiteral("Text4"));
  Text4->setReadOnly(true);
  col->addWidget(Text4);

  auto* tools = new QGridLayout;
  tools->setSpacing(4);
  Command2 = toolButton(QStringLiteral("Command2"), Res(1335), 1287);
  Command4 = toolButton(QStringLiteral("Command4"), Res(1336), 1285);
  Command6 = toolButton(QStringLiteral("Command6"), Res(1337), 1284);
  Command9 = toolButton(QStringLiteral("Command9"), Res(1340), 1288);
  Command7 = toolButton(QStringLiteral("Command7"), Res(1338), 1283);
  Command8 = toolButton(QStringLiteral("Command8"), Res(1339), 1282);
  connect(Command2, &QPushButton::clicked, this, [this] { act([&] { model_.Command2_Click(); }); });
  connect(Command4, &QPushButton::clicked, this, [this] { act([&] { model_.Command4_Click(); }); });
  connect(Command6, &QPushButton::clicked, this, [this] { act([&] { model_.Command6_Click(); }); });
  connect(Command9, &QPushButton::clicked, this, [this] { act([&] { model_.Command9_Click(); }); });
  connect(Command7, &QPushButton::clicked, this, [this] { act([&] { model_.Command7_Click(); }); });
  connect(Command8, &QPushButton::clicked, this, [this] { act([&] { model_.Command8_Click(); }); });
  tools->addWidget(Command2, 0, 0);
  tools->addWidget(Command4, 0, 1);
  tools->addWidget(Command6, 0, 2);
  tools->addWidget(Command9, 1, 0);
  tools->addWidget(Command7, 1, 1);
  tools->addWidget(Command8, 1, 2);
  col->addLayout(tools);

  col->addWidget(caption(1341));
  auto* registers = new QHBoxLayout;
  registers->setSpacing(4);
  for (int i = 0; i < 4; ++i) {
    auto* b = toolButton(QStringLiteral("Command3_%1").arg(i), QStringLiteral("R%1").arg(i + 1), 1286);
    b->setToolTip(Res(1286) + QStringLiteral(" R%1").arg(i + 1));
    connect(b, &QPushButton::clicked, this, [this, i] { act([&] { model_.Command3_Click(i); }); });
    registers->addWidget(b);
    Command3[static_cast<size_t>(i)] = b;
  }
  col->addLayout(registers);

  col->addStretch(1);
  auto* legend = new QLabel(Res(1289) + QLatin1Char('\n') + Res(1290), panel);
  legend->setObjectName(QStringLiteral("Label10"));
  legend->setStyleSheet(QStringLiteral("color: #404040;"));
  col->addWidget(legend);
  panel->setMinimumWidth(360);
  return panel;
}

void ConverterWindow::addTableItem(QMenu* menu, const QString& item, int captionId) {
  QAction* a = menu->addAction(Res(captionId));
  a->setObjectName(item);
  connect(a, &QAction::triggered, this, [this, item] { act([&] { model_.magnitud_Click(item); }); });
}

void ConverterWindow::buildMenus() {
  QMenu* magnitud = menuBar()->addMenu(Res(1201));
  magnitud->setObjectName(QStringLiteral("magnitud"));
  for (const MenuEntry& entry : magnitudeMenu()) {
    QMenu* target = magnitud;
    if (entry.group) {
      target = magnitud->addMenu(Res(entry.groupCaption));
      target->setObjectName(QString::fromLatin1(entry.group));
    }
    for (const auto& [item, caption] : entry.items) addTableItem(target, QString::fromLatin1(item), caption);
  }
  QMenu* historial = menuBar()->addMenu(Res(1270));
  historial->setObjectName(QStringLiteral("Historial"));
  QAction* hisveo = historial->addAction(Res(1271));
  hisveo->setObjectName(QStringLiteral("hisveo"));
  connect(hisveo, &QAction::triggered, this, [this] { act([&] { model_.hisveo_Click(); }); });
  QAction* borrhis = historial->addAction(Res(1272));
  borrhis->setObjectName(QStringLiteral("borrhis"));
  connect(borrhis, &QAction::triggered, this, [this] { act([&] { model_.borrhis_Click(); }); });
  QAction* hisimp = historial->addAction(Res(1273));
  hisimp->setObjectName(QStringLiteral("hisimp"));
  connect(hisimp, &QAction::triggered, this, [this] { act([&] { model_.hisimp_Click(); }); });
  QAction* prefijos = menuBar()->addAction(Res(1248));
  prefijos->setObjectName(QStringLiteral("Prefijos"));
  connect(prefijos, &QAction::triggered, this, [this] { act([&] { model_.Prefijos_Click(); }); });
}

void ConverterWindow::refresh() {
  refreshing_ = true;
  Label11->setText(model_.Label11);
  Label9->setText(model_.Label9);
  Label9->setVisible(!model_.Label9.isEmpty());
  for (int i = 0; i < kUnitButtons; ++i) {
    QPushButton* b = Command1[static_cast<size_t>(i)];
    const QString& caption = model_.Command1Caption[static_cast<size_t>(i)];
    b->setText(caption);
    // The caption is the whole name; the tooltip repeats the long ones.
    b->setToolTip(caption.trimmed().size() > 24 ? caption.trimmed() : QString());
    b->setEnabled(!caption.isEmpty());
    const QColor face(caption.isEmpty() ? QStringLiteral("#E8E8E8")
                                        : colourName(model_.Command1Colour[static_cast<size_t>(i)]));
    setButtonColours(b, face, Qt::black);
  }
  Label12[0]->setText(model_.Label12[0]);
  Label12[1]->setText(model_.Label12[1]);
  Label3->setText(model_.Label3);
  if (Text2->text() != model_.Text2) Text2->setText(model_.Text2);
  Text4->setText(model_.Text4);
  if (model_.selectText2) {
    model_.selectText2 = false;
    Text2->selectAll();
    Text2->setFocus();
  }
  if (List1->isVisibleTo(this) != model_.List1Visible) {
    List1->setVisible(model_.List1Visible);
    if (centralWidget()) centralWidget()->adjustSize();
    adjustSize();
  }
  List1->clear();
  List1->addItems(model_.List1);
  if (model_.ListIndex >= 0 && model_.ListIndex < List1->count()) List1->setCurrentRow(model_.ListIndex);
  refreshing_ = false;
}

bool ConverterWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Text2 && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      model_.Text2 = Text2->text();
      act([&] { model_.Text2_KeyPress(kKeyEnter); });
      return true;
    }
    const QString text = key->text();
    if (text.size() == 1 && text.at(0).isPrint()) {
      const int kept = FilterKey(text.at(0).unicode(), QStringLiteral("T"));
      if (kept == 0) return true;
      if (kept != text.at(0).unicode()) {
        Text2->insert(QString(QChar(kept)));
        model_.Text2 = Text2->text();
        return true;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void ConverterWindow::showScreenshotState(const QString& state) {
  model_.calculatorDisplay = [] { return QStringLiteral("12.5"); };
  if (state == QLatin1String("long-captions")) {
    model_.magnitud_Click(QStringLiteral("Superficie2"));
    model_.Command1_Click(22);
    model_.Command1_Click(3);
  } else if (state == QLatin1String("history")) {
    model_.magnitud_Click(QStringLiteral("presion"));
    model_.Command1_Click(26);
    model_.Command1_Click(10);
    model_.Command6_Click();
    model_.Command1_Click(8);
    model_.Command1_Click(19);
    if (!model_.List1Visible) model_.Command8_Click();
  }
  installHooks();
  refresh();
}
