// The scientific calculator's module menus on its menu bar: programas and
// entretenimiento open the other modules' windows (and the product's web
// page), variosF the reference pages of the help and the geometry window,
// opcalc the window's three colours, ayuda the calculator's help and About.
// Every window is opened through the shell's registry, every address through
// the platform layer.
#include <QColorDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QLineEdit>
#include <QTimer>

#include "calc/CalculatorModuleMenus.h"
#include "calc/CalculatorWindow.h"
#include "shell/HelpPages.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"

namespace {

constexpr int kDefaultColourId = 3378;  // "Color predeterminado"
constexpr int kDefineColourId = 4813;
// The help section of the menus and the keys to other modules (that of Command7).
const int kModuleMenusTopic = CalculatorEngine::helpTopic(7);

QColor qColour(std::uint32_t rgb) {
  return QColor(static_cast<int>(rgb & 0xFF), static_cast<int>((rgb >> 8) & 0xFF), static_cast<int>((rgb >> 16) & 0xFF));
}

std::uint32_t settingsColour(const QColor& c) {
  return static_cast<std::uint32_t>(c.red()) | static_cast<std::uint32_t>(c.green()) << 8 |
         static_cast<std::uint32_t>(c.blue()) << 16;
}

std::optional<WindowId> requestedWindow(const QString& name) {
  if (name == QLatin1String("FunctionTable")) return WindowId::FunctionTable;
  if (name == QLatin1String("Plot")) return WindowId::Plot;
  if (name == QLatin1String("UnitConverter")) return WindowId::UnitConverter;
  return std::nullopt;
}

}  // namespace

void CalculatorWindow::buildModuleMenus() {
  pickColour = [this](std::uint32_t initial, const QString& title) -> std::optional<std::uint32_t> {
    const QColor chosen = QColorDialog::getColor(qColour(initial), this, title);
    if (!chosen.isValid()) return std::nullopt;
    return settingsColour(chosen);
  };
  const auto addMenu = [this](QMenu* parent, const char* name, int captionId) {
    QMenu* menu = parent ? parent->addMenu(Res(captionId)) : menuBar()->addMenu(Res(captionId));
    menu->setObjectName(QString::fromLatin1(name));
    menus_.insert(menu->objectName(), menu);
    if (!parent) moduleMenus_ << menu;
    return menu;
  };
  // In help-cursor mode an item shows the menus' topic instead of acting.
  const auto addItem = [this](QMenu* menu, const QString& name, const QString& caption, auto action) {
    QAction* item = menu->addAction(caption);
    item->setObjectName(name);
    connect(item, &QAction::triggered, this, [action] {
      if (!helpInstead(kModuleMenusTopic)) action();
    });
  };
  const auto item = [&](QMenu* menu, const char* name, int captionId, auto action) {
    addItem(menu, QString::fromLatin1(name), Res(captionId), action);
  };
  const auto opens = [](WindowId id) { return [id] { OpenWindow(id); }; };
  const auto helpPage = [](int topic) { return [topic] { ContextHelp(topic); }; };

  QMenu* programs = addMenu(nullptr, "programas", 4800);
  item(programs, "Alarmacalc", 401, opens(WindowId::Chronometer));
  item(programs, "calen1", 9, opens(WindowId::Calendar));
  item(programs, "conversion", 4, opens(WindowId::UnitConverter));
  item(programs, "evaluator", 3, opens(WindowId::FunctionTable));
  item(programs, "prestamos", 6, opens(WindowId::Banking));
  item(programs, "tablap", 5, opens(WindowId::PeriodicTable));

  QMenu* entertainment = addMenu(nullptr, "entretenimiento", 4801);
  item(entertainment, "internet", 4804, [] { platform().openUrl(program().WebAddress); });
  item(entertainment, "simuloto", 4818, opens(WindowId::Lottery));

  QMenu* various = addMenu(nullptr, "variosF", 4802);
  item(various, "cuadernoMat", 4805, helpPage(kMathNotebookTopic));
  item(various, "geokord1", 4806, opens(WindowId::Geometry));
  item(various, "phonees", 4807, helpPage(kSpainPhonesTopic));
  item(various, "phoneint", 4808, helpPage(kWorldPhonesTopic));
  item(various, "PostalCodes", 4809, helpPage(kPostalCodesTopic));

  // Each colour: (0) back to the default, (1) the colour dialog.
  QMenu* options = addMenu(nullptr, "opcalc", 4803);
  const std::pair<const char*, CalculatorColour> colours[] = {{"colorfondo", CalculatorColour::Background},
                                                              {"colorvisor", CalculatorColour::Display},
                                                              {"colorfuent1", CalculatorColour::Text}};
  for (const auto& [name, which] : colours) {
    QMenu* menu = addMenu(options, name, calculatorColourCaptionId(which));
    const QString control = QString::fromLatin1(name);
    addItem(menu, control + QStringLiteral("(0)"), Res(kDefaultColourId), [this, which] {
      restoreCalculatorColour(which);
      applyColours();
      refreshLargeDisplay();
    });
    addItem(menu, control + QStringLiteral("(1)"), Res(kDefineColourId), [this, which] {
      if (!defineCalculatorColour(which, pickColour)) return;
      applyColours();
      refreshLargeDisplay();
    });
  }

  QMenu* help = addMenu(nullptr, "ayuda", 14);
  item(help, "mnuayuda", 4814, helpPage(CalculatorEngine::helpTopic(0)));
  item(help, "acerca", 16, opens(WindowId::About));
}

void CalculatorWindow::applyColours() {
  QPalette pal = centralWidget()->palette();
  pal.setColor(QPalette::Window, qColour(calculatorColour(CalculatorColour::Background)));
  centralWidget()->setPalette(pal);
  const QString look = QStringLiteral("background: %1; color: %2; border: 1px solid #40506a; border-radius: 3px;")
                           .arg(qColour(calculatorColour(CalculatorColour::Display)).name(),
                                qColour(calculatorColour(CalculatorColour::Text)).name());
  numero->setStyleSheet(QStringLiteral("QLineEdit { %1 padding: 2px 8px; }").arg(look));
  result->setStyleSheet(QStringLiteral("QPlainTextEdit { %1 }").arg(look));
}

// The large display takes the display's colours too, when it is open.
void CalculatorWindow::refreshLargeDisplay() {
  QWidget* display = findWindow(WindowId::ExtendedDisplay);
  if (display && display->isVisible()) ExtendedDisplayRefresh(this, kExtendedDisplayMargin);
}

void CalculatorWindow::openRequestedWindow() {
  if (engine_.windowRequest.isEmpty()) return;
  const std::optional<WindowId> id = requestedWindow(engine_.windowRequest);
  engine_.windowRequest.clear();
  if (id) OpenWindow(*id);
}

QStringList CalculatorWindow::moduleMenuScreenshotStates() const {
  QStringList states;
  for (const QMenu* menu : moduleMenus_) states << QStringLiteral("menu-") + menu->objectName();
  return states;
}

bool CalculatorWindow::showModuleMenu(const QString& state) {
  for (QMenu* menu : std::as_const(moduleMenus_)) menu->close();
  if (!state.startsWith(QLatin1String("menu-"))) return false;
  QMenu* menu = menus_.value(state.mid(5));
  if (!menu || !moduleMenus_.contains(menu)) return false;
  const QRect item = menuBar()->actionGeometry(menu->menuAction());
  menu->popup(menuBar()->mapToGlobal(item.bottomLeft()));
  // The tour moves on to other windows: the menu does not stay open over them.
  QTimer::singleShot(1500, menu, &QMenu::close);
  return true;
}
