// The plot window's part for the derived curves: the menus of the fit, the
// interpolation, the smoothings and the difference of ordinates, and the
// smoothing worked in timed slices with the cancel button, Esc and the wait
// pointer, so the window keeps answering while it runs.
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>

#include "funcs/FunctionTable.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotWindow.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/MessageService.h"
#include "shell/Strings.h"

namespace {
constexpr qint64 kSliceMs = 30;  // a slice of rows takes about this long
}

void PlotWindow::buildCurveTools() {
  PlotCurveTools& tools = model_->tools;
  tools.stepwise = true;
  QMenu* analysis = nullptr;
  for (QAction* a : menuBar()->actions()) {
    if (a->menu() && a->text() == Res(1603)) analysis = a->menu();
  }
  if (!analysis) analysis = menuBar()->addMenu(Res(1603));
  analysis->addSeparator();
  QMenu* fits = analysis->addMenu(Res(1762));
  for (int k = 0; k < 3; ++k) {
    addItem(fits, QStringLiteral("PlotRegression_%1").arg(k), Res(1612 + k), [&tools, k] { tools.PlotRegression_Click(k); });
  }
  addItem(analysis, QStringLiteral("menuIPLA"), Res(1636), [&tools] { tools.menuIPLA_Click(); });
  QMenu* smoothing = analysis->addMenu(Res(1460));
  for (int k = 0; k < 2; ++k) {
    addItem(smoothing, QStringLiteral("suavePlot_%1").arg(k), Res(1633 + k), [this, k] {
      model_->tools.suavePlot_Click(k);
      if (model_->tools.running()) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QTimer::singleShot(0, this, [this] { runSmoothing(); });
      }
    });
  }
  smoothing->addSeparator();
  addItem(smoothing, QStringLiteral("muestrafxOrig"), Res(1635), [&tools] { tools.muestrafxOrig_Click(); });
  QAction* diff = addItem(analysis, QStringLiteral("DiffYs"), Res(1637) + QStringLiteral("..."), [&tools] { tools.DiffYs_Click(); });
  diff->setCheckable(false);

  // The cancel button and its note, in the status bar while a smoothing works.
  Command1 = new ChameleonButtonWidget(Res(575), this);
  Command1->setObjectName(QStringLiteral("Command1"));
  cancelNote_ = new QLabel(this);
  cancelNote_->setObjectName(QStringLiteral("cancelNote"));
  statusBar()->addPermanentWidget(cancelNote_);
  statusBar()->addPermanentWidget(Command1);
  Command1->hide();
  cancelNote_->hide();
  connect(Command1, &QPushButton::clicked, this, [this] {
    model_->tools.Command1_Click();
    refresh();
  });
  escape_ = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  escape_->setEnabled(false);
  connect(escape_, &QShortcut::activated, this, [this] {
    model_->tools.Form_KeyDown(Qt::Key_Escape);
    refresh();
  });

  setProperty("screenshotStates", property("screenshotStates").toStringList() +
                                      QStringList{QStringLiteral("smoothing"), QStringLiteral("regression"),
                                                  QStringLiteral("lagrange"), QStringLiteral("difference")});
}

void PlotWindow::refreshCurveTools() {
  const PlotModel& m = *model_;
  const PlotCurveTools& tools = m.tools;
  auto tick = [this](const QString& name, bool on) {
    if (QAction* a = actions_.value(name)) a->setChecked(on);
  };
  for (int k = 0; k < 3; ++k) tick(QStringLiteral("PlotRegression_%1").arg(k), m.PlotRegression[static_cast<size_t>(k)]);
  for (int k = 0; k < 2; ++k) tick(QStringLiteral("suavePlot_%1").arg(k), m.suavePlot[static_cast<size_t>(k)]);
  tick(QStringLiteral("menuIPLA"), model_->table().menuIPLA);
  tick(QStringLiteral("muestrafxOrig"), m.muestrafxOrig);
  if (QAction* a = actions_.value(QStringLiteral("muestrafxOrig"))) a->setEnabled(tools.muestrafxOrigEnabled);
  if (!Command1) return;
  Command1->setVisible(tools.Command1Visible);
  cancelNote_->setVisible(tools.Command1Visible);
  if (tools.Command1Visible) {
    cancelNote_->setText(tools.cancelNote + QStringLiteral("  (") + QString::number(static_cast<int>(tools.progress() * 100)) +
                         QStringLiteral(" %)"));
  }
  escape_->setEnabled(tools.running());
}

void PlotWindow::runSmoothing() {
  PlotCurveTools& tools = model_->tools;
  if (!tools.running()) {
    finishSmoothing();
    return;
  }
  QElapsedTimer timer;
  timer.start();
  const bool done = tools.smoothingStep(sliceRows_);
  const qint64 ms = timer.elapsed();
  if (ms < kSliceMs / 2 && sliceRows_ < (1LL << 24)) sliceRows_ *= 2;
  else if (ms > 2 * kSliceMs && sliceRows_ > 64) sliceRows_ /= 2;
  if (done) {
    finishSmoothing();
    return;
  }
  refreshCurveTools();
  QTimer::singleShot(0, this, [this] { runSmoothing(); });
}

void PlotWindow::finishSmoothing() {
  QApplication::restoreOverrideCursor();
  refresh();
}

// The tour's states of the derived curves, on a noisy sine tabulated afresh.
bool PlotWindow::showCurveState(const QString& state) {
  static const QStringList states{QStringLiteral("smoothing"), QStringLiteral("regression"), QStringLiteral("lagrange"),
                                  QStringLiteral("difference")};
  if (!states.contains(state)) return false;
  PlotModel& m = *model_;
  FunctionTable& t = m.table();
  const bool lagrange = state == QLatin1String("lagrange");
  t.txtExpression = lagrange ? QStringLiteral("sin(x)*x") : QStringLiteral("sin(x)+(Rnd-0.5)/2");
  t.txtStart = QStringLiteral("0");
  t.txtStart_LostFocus();
  t.txtEnd = QStringLiteral("10");
  t.txtEnd_LostFocus();
  t.Option1_Click(0);
  t.Combo2 = lagrange ? QStringLiteral("12") : QStringLiteral("200");
  t.Combo2_LostFocus();
  const bool stepwise = t.stepwise;
  t.stepwise = false;
  t.cmdResult_Click();
  t.stepwise = stepwise;
  if (tableWindow_) tableWindow_->refresh();
  hide();
  show();
  if (m.mostrarGx) m.mostrarGx_Click();  // F alone, so the derived curve stands out
  PlotCurveTools& tools = m.tools;
  ScriptedPresenter answers;
  PresenterScope scope(&answers);
  if (state == QLatin1String("smoothing")) {
    tools.stepwise = false;
    answers.queueAnswer(QStringLiteral("10"));
    tools.suavePlot_Click(1);
    refresh();
    tools.muestrafxOrig_Click();
    refresh();
    tools.stepwise = true;
  } else if (state == QLatin1String("regression")) {
    tools.PlotRegression_Click(0);
    refresh();
  } else if (lagrange) {
    tools.menuIPLA_Click();
    refresh();
  } else {
    tools.DiffYs_Click();
    refresh();
    m.Text5 = {QStringLiteral("2"), QStringLiteral("8")};
    m.Command13_Click();
    refresh();
  }
  return true;
}
