#pragma once
// The Preferences window (Form9): every setting the user may change, on a
// private copy that only "Guardar" (Command2) hands back to the program. The
// model (Preferences) holds the state and the handlers; this view builds the
// controls, forwards events and repaints from the model.
#include <QList>
#include <QWidget>
#include <array>

#include "shell/Preferences.h"

class ChameleonButtonWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

class PreferencesWindow : public QWidget {
  Q_OBJECT

 public:
  explicit PreferencesWindow(QWidget* parent = nullptr);

  Preferences& model() { return model_; }
  // Re-reads every value from the model.
  void refresh();
  // Sets every caption and tooltip in the language the window shows.
  void loadCaptions();
  // For the screenshot tour: "en", "fr", "ca" show the window in that
  // language, "commandbox" opens the hidden command box.
  Q_INVOKABLE void showScreenshotState(const QString& state);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildWidgets();
  QLineEdit* addBox(Preferences::Box box, const QString& name);
  QString askFileName(const Preferences::FileDialogRequest& request);
  template <typename Handler>
  void act(Handler&& handler);

  Preferences model_;
  bool refreshing_ = false;
  QList<QPair<QLineEdit*, Preferences::Box>> boxes_;

  QLineEdit* valor = nullptr;
  QLineEdit* Text1 = nullptr;
  QLineEdit* Text2 = nullptr;
  QLineEdit* Text3 = nullptr;
  QLineEdit* Text5 = nullptr;
  QLineEdit* Text6 = nullptr;
  std::array<QLineEdit*, 5> Text4{};
  QLabel* Label4 = nullptr;
  QLabel* Label5 = nullptr;
  QLabel* Label2 = nullptr;
  QLabel* Label3 = nullptr;
  QLabel* Label21 = nullptr;
  QLabel* labelCurrency1_ = nullptr;
  QLabel* labelCurrency2_ = nullptr;
  QLabel* labelWeb_ = nullptr;
  std::array<QLabel*, 6> Label1{};
  QLabel* Image1 = nullptr;
  QCheckBox* Check1 = nullptr;
  QCheckBox* Check2 = nullptr;
  QCheckBox* Check4 = nullptr;
  QCheckBox* Check5 = nullptr;
  QCheckBox* Check6 = nullptr;
  QCheckBox* Check7 = nullptr;
  std::array<QRadioButton*, 5> Check3{};
  std::array<QRadioButton*, 6> Option1{};
  QComboBox* List1 = nullptr;
  QComboBox* List2 = nullptr;
  QComboBox* List3 = nullptr;
  QComboBox* List4 = nullptr;
  QComboBox* List5 = nullptr;
  ChameleonButtonWidget* Command1 = nullptr;
  ChameleonButtonWidget* Command2 = nullptr;
  ChameleonButtonWidget* Command3 = nullptr;
  ChameleonButtonWidget* Command4 = nullptr;
  ChameleonButtonWidget* Command5 = nullptr;
  QGroupBox* frameCurrency_ = nullptr;
  QGroupBox* frameGeneral_ = nullptr;
  QGroupBox* frameAlarm_ = nullptr;
  QGroupBox* framePreset_ = nullptr;
  QGroupBox* frameLists_ = nullptr;
  QWidget* commandRow_ = nullptr;
};
