#include "calc/NumberToolsView.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "calc/CalculatorEngine.h"
#include "shell/Strings.h"

namespace {

// Events run at least this often while the primes are listed.
constexpr qint64 kYieldMs = 30;

}  // namespace

NumberToolsView::NumberToolsView(CalculatorEngine& engine, QWidget* window, std::function<void()> repaint)
    : QObject(window), engine_(engine), window_(window), repaint_(std::move(repaint)) {
  ProgressBar1 = new QProgressBar(window);
  ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
  ProgressBar1->setRange(0, 100);
  ProgressBar1->setFixedWidth(140);
  ProgressBar1->setVisible(false);
  engine_.listingProgress = [this](int percent) { listingStep(percent); };
}

NumberToolsView::~NumberToolsView() { engine_.listingProgress = {}; }

QWidget* NumberToolsView::progressBar() const { return ProgressBar1; }

QWidget* NumberToolsView::buildPage(QWidget* keyGrid, QWidget* parent) {
  auto* page = new QWidget(parent);
  page->setObjectName(QStringLiteral("numberToolsPage"));
  page_ = page;
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(6, 6, 6, 6);
  keyGrid->setParent(page);
  v->addWidget(keyGrid);
  v->addStretch(1);
  return page;
}

void NumberToolsView::attachRandomKey(QPushButton* key) {
  if (!key) return;
  key->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(key, &QWidget::customContextMenuRequested, this, [this] {
    if (engine_.listingRunning) return;
    engine_.rightClick(QStringLiteral("Command51"));
    repaint_();
  });
}

void NumberToolsView::listingStep(int percent) {
  if (!sinceEvents_.isValid()) sinceEvents_.start();
  if (sinceEvents_.elapsed() < kYieldMs) return;
  ProgressBar1->setVisible(true);
  ProgressBar1->setValue(percent);
  repaint_();
  QCoreApplication::processEvents();
  sinceEvents_.restart();
}

void NumberToolsView::afterEvent() {
  if (!engine_.listingRunning) {
    ProgressBar1->setVisible(false);
    sinceEvents_.invalidate();
  }
  if (!engine_.textWindowRequested) return;
  engine_.textWindowRequested = false;
  auto* dialog = new QDialog(window_);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setObjectName(QStringLiteral("textWindow"));
  dialog->setWindowTitle(engine_.textWindowTitle);
  auto* v = new QVBoxLayout(dialog);
  auto* text = new QPlainTextEdit(dialog);
  text->setObjectName(QStringLiteral("textWindowText"));
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setTabStopDistance(6 * text->fontMetrics().horizontalAdvance(QLatin1Char('0')));
  text->setPlainText(QString(engine_.textWindowText).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  v->addWidget(text);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
  connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  v->addWidget(buttons);
  dialog->resize(420, 560);
  dialog->show();
}

QStringList NumberToolsView::screenshotStates() {
  return {QStringLiteral("tools"), QStringLiteral("factors"), QStringLiteral("tartaglia"), QStringLiteral("ascii")};
}

bool NumberToolsView::showScreenshotState(const QString& state) {
  if (state == QLatin1String("tools")) {
    // Brings the page to the front through every tab widget it sits in.
    for (QWidget* w = page_; w->parentWidget(); w = w->parentWidget()) {
      if (auto* tabs = qobject_cast<QTabWidget*>(w->parentWidget()->parentWidget()); tabs && tabs->indexOf(w) >= 0)
        tabs->setCurrentWidget(w);
    }
    return true;
  }
  if (state == QLatin1String("factors")) {
    engine_.numero = QStringLiteral("360360");
    engine_.Command45_Click();
  } else if (state == QLatin1String("tartaglia")) {
    engine_.numero = QStringLiteral("8");
    engine_.Command38_Click();
  } else if (state == QLatin1String("ascii")) {
    engine_.Command37_Click();
  } else {
    return false;
  }
  repaint_();
  afterEvent();
  return true;
}
