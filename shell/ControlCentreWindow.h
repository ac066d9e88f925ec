#pragma once
// The control centre's window: a panel of module buttons on a grey gradient,
// the session counter as five digit pictures and the hidden command row.
// All state and every handler live in ControlCentre; this view builds the
// widgets, forwards events and repaints from the model.
#include <QPointer>
#include <QWidget>
#include <memory>

#include "shell/ControlCentre.h"

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

class ControlCentreWindow : public QWidget {
  Q_OBJECT

 public:
  explicit ControlCentreWindow(QWidget* parent = nullptr);
  ~ControlCentreWindow() override;

  ControlCentre& model() { return model_; }
  // Re-reads every caption, tooltip and picture from the model.
  void refresh();

 Q_SIGNALS:
  // The start order has run to its end (after the first paint).
  void loaded();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Host;
  QPushButton* addModuleButton(const QString& name, void (ControlCentre::*handler)());
  void buildWidgets();
  void finishLoad();
  void takeKeys(QWidget* root);

  std::unique_ptr<Host> host_;
  ControlCentre model_;
  bool painted_ = false;
  bool placed_ = false;
  bool unloaded_ = false;
  QList<QPushButton*> moduleButtons_;
  QList<QLabel*> Image1;
  QToolButton* Image4 = nullptr;
  QPushButton* Command7 = nullptr;
  QPushButton* Command8 = nullptr;
  QComboBox* Combo1 = nullptr;
  QPushButton* Command11 = nullptr;
  QPushButton* Command12 = nullptr;
  QWidget* commandRow_ = nullptr;
  QLabel* heading_ = nullptr;
};
