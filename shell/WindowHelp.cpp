#include "shell/WindowHelp.h"

#include <QApplication>
#include <QKeyEvent>

#include "shell/Services.h"

int windowHelpTopic(WindowId id) {
  switch (id) {
    case WindowId::ControlCentre: return 10000;
    case WindowId::Preferences: return 10200;
    case WindowId::ExtendedDisplay: return 10500;
    case WindowId::About: return 10000;  // the about window belongs to the control centre
    case WindowId::Help: return 10600;
    case WindowId::ScientificCalculator: return 20000;
    case WindowId::NormalCalculator: return 20900;
    case WindowId::ColourViewer:
    case WindowId::ResistorCode: return 20700;
    case WindowId::FunctionTable: return 31500;
    case WindowId::Plot: return 31600;
    case WindowId::StatisticsChart: return 40000;
    case WindowId::CsvTool: return 40100;
    case WindowId::UnitConverter: return 50000;
    case WindowId::Banking: return 60000;
    case WindowId::PeriodicTable: return 70000;
    case WindowId::Lottery: return 80000;
    case WindowId::Chronometer: return 90000;
    case WindowId::Calendar: return 100000;
    case WindowId::Geometry: return 110000;
  }
  return 0;
}

bool windowTakesHelpKey(WindowId id) {
  return id != WindowId::ScientificCalculator && id != WindowId::NormalCalculator &&
         id != WindowId::ExtendedDisplay && id != WindowId::PeriodicTable;  // the table shows F1 itself
}

namespace {

class HelpKeyFilter : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
        static_cast<QKeyEvent*>(event)->modifiers() != Qt::NoModifier) {
      return false;
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    // The first widget the key reaches decides, and the key stops there.
    QWidget* window = widget->window();
    for (WindowId id : allWindowIds()) {
      if (findWindow(id) != window || !windowTakesHelpKey(id)) continue;
      ContextHelp(windowHelpTopic(id));
      return true;
    }
    return false;
  }
};

}  // namespace

void installHelpKey(QApplication& app) { app.installEventFilter(new HelpKeyFilter(&app)); }
