#pragma once
// The calculator window's part for the number tools: their page of keys, the
// right click of the random key, the progress of the prime listing (events
// keep running between sieve blocks, so Esc is seen at once) and the text
// window of the ASCII table. The keys themselves go through the window's key
// grid like every other key.
#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <functional>

class CalculatorEngine;
class QProgressBar;
class QPushButton;
class QWidget;

class NumberToolsView : public QObject {
  Q_OBJECT

 public:
  // repaint: what the window runs to show the engine's fields again.
  NumberToolsView(CalculatorEngine& engine, QWidget* window, std::function<void()> repaint);
  ~NumberToolsView() override;

  // The page around the grid of the number tools' keys.
  QWidget* buildPage(QWidget* keyGrid, QWidget* parent);
  // The bar that shows the listing's progress, for the status bar.
  QWidget* progressBar() const;
  // The random key: its right click asks for the base.
  void attachRandomKey(QPushButton* key);
  // After each event: opens the text window the engine asked for.
  void afterEvent();
  // The screenshot tour's states of the number tools: "tools" (the page),
  // "factors", "tartaglia" and "ascii"; false for another state.
  bool showScreenshotState(const QString& state);
  static QStringList screenshotStates();

 private:
  void listingStep(int percent);

  CalculatorEngine& engine_;
  QWidget* window_;
  std::function<void()> repaint_;
  QProgressBar* ProgressBar1 = nullptr;
  QWidget* page_ = nullptr;
  QElapsedTimer sinceEvents_;
};
