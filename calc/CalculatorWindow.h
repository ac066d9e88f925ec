#pragma once
// The scientific calculator's window (comand1): the display fields, the state
// picture Image3 and the hyperbolic light Text5, the number keypad and the
// function keys built from the key table, and a panel area with the history,
// the conversions (VAT and currencies, temperature, angles, bases), the
// auxiliary viewer and the constants panel Frame2, shown on demand. Below the
// display: the four memories m1 with their keys, the register keys, the
// history panel key and chameleonButton1, which opens or closes the large
// display (left button) or changes its typeface (right button); the large
// display follows every repaint. Every key and every keyboard
// stroke goes to the CalculatorEngine; the view then repaints from the
// engine's fields and moves the focus where the engine asks (Command19, so
// that Enter is equals).
#include <QHash>
#include <array>
#include <QMainWindow>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorModuleMenus.h"

class EquationsPanelView;
class HistoryListView;
class NumberToolsView;
class MatrixPanelView;
class QMenu;
class QToolButton;
class StatisticsGridView;
class QKeyEvent;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

class CalculatorWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit CalculatorWindow(QWidget* parent = nullptr);
  ~CalculatorWindow() override;

  CalculatorEngine& engine() { return engine_; }
  // Repaints every field from the engine.
  void refresh();
  // The button of a key ("Command13", 3), or nullptr.
  QPushButton* keyButton(const QString& control, int index = -1) const;
  // A statistics file given on the command line or by the file manager.
  Q_INVOKABLE bool openDocument(const QString& path);
  // The colour dialog of the opcalc menu (the system's unless a test sets it).
  ColourPicker pickColour;

 public Q_SLOTS:
  // The screenshot tour's extra state: "statistics" shows the panel with data.
  void showScreenshotState(const QString& state);

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* addField(const QString& name, int tooltipId, int width);
  QWidget* buildDisplay();
  QWidget* buildKeypad();
  QWidget* buildKeyGrid(KeypadPanel panel, QWidget* parent);
  QWidget* buildFunctionKeys();
  QWidget* buildConversions();
  QWidget* buildPanels();
  QWidget* buildMemories();
  QWidget* buildHistoryPage();
  QWidget* buildViewerPage();
  QWidget* buildToolRow(KeypadPanel panel, QWidget* parent, QPushButton* print);
  QWidget* buildStatisticsPage();
  QWidget* buildProgramsPage();  // CalculatorProgramsWindow.cpp
  void refreshPrograms();
  QMenu* buildMenu(const char* name, QWidget* parent);
  // The module menus on the menu bar (CalculatorModuleMenusWindow.cpp).
  void buildModuleMenus();
  void applyColours();         // background, display and digits from the settings
  void refreshLargeDisplay();
  void openRequestedWindow();  // the window a key asked for (Command70, Command71, Command7)
  // The screenshot tour's states "menu-programas"... : that menu open.
  QStringList moduleMenuScreenshotStates() const;
  bool showModuleMenu(const QString& state);
  void showWindowMenu();
  void refreshStatistics();
  QString askFileName(const CalculatorEngine::FileDialogRequest& request);
  void afterEvent();
  bool takeKey(QKeyEvent* event);
  void refreshHistory();
  void refreshMemories();
  void refreshPanels();
  void chameleonButton1_Click(Qt::MouseButton button);

  CalculatorEngine engine_;
  // Controls under their model names.
  QLineEdit* numero = nullptr;
  QPlainTextEdit* result = nullptr;
  QLineEdit* func = nullptr;
  QLineEdit* dcm = nullptr;
  QLineEdit* redond = nullptr;
  QLineEdit* angulo = nullptr;
  QLineEdit* temperat = nullptr;
  QLineEdit* ivas = nullptr;
  QLineEdit* HexDec = nullptr;
  QLabel* Image3 = nullptr;
  QLabel* Text5 = nullptr;
  QWidget* Frame2 = nullptr;
  HistoryListView* Combo1 = nullptr;
  QListWidget* List3 = nullptr;
  QListWidget* List4 = nullptr;
  QLineEdit* Text4 = nullptr;  // the expression of the evaluation panel
  QList<QLineEdit*> m1;
  QPushButton* chameleonButton1 = nullptr;
  QPushButton* registros = nullptr;   // prints the history
  QPushButton* imprimeAux = nullptr;  // prints the auxiliary viewer
  QWidget* Picture1 = nullptr;        // red bar: the history's share of its 4000 lines
  QWidget* historyPage_ = nullptr;
  QWidget* viewerPage_ = nullptr;
  QWidget* conversionsPage_ = nullptr;
  QTabWidget* panels_ = nullptr;
  NumberToolsView* numberTools_ = nullptr;  // the number tools' page, listing and text window
  // The statistics panel: the grids with their counts, the menus.
  QWidget* statisticsPage_ = nullptr;
  QTabWidget* algebraPages_ = nullptr;           // the matrix and equations pages
  MatrixPanelView* matrixPage_ = nullptr;        // matrices A, B, C
  EquationsPanelView* equationsPage_ = nullptr;  // equation tools, linear system
  std::array<StatisticsGridView*, 2> MSFlexGrid1{};
  QLabel* numnx = nullptr;
  QLabel* numny = nullptr;
  QHBoxLayout* gridsRow_ = nullptr;
  std::array<QWidget*, 2> gridColumns_{};
  bool gridsSwappedShown_ = false;
  QHash<QString, QMenu*> menus_;  // TipoRegresion, MnuClrSTD, ordenaEstad, archivo, grid, the module menus
  QList<QMenu*> moduleMenus_;     // programas, entretenimiento, variosF, opcalc, ayuda
  QLabel* historyPanel_ = nullptr;
  QLabel* currencyPanel_ = nullptr;
  QHash<QString, QPushButton*> keys_;  // by object name
  QList<QPushButton*> hexKeys_;
  QList<QPushButton*> currencyKeys_;  // Command33, Command34: hidden in hexadecimal mode
  bool frame2Shown_ = false;
  int shownHistory_ = 0;
  int shownClears_ = 0;
  bool historyShown_ = false;  // the model's history panel flag last applied
  bool unloaded_ = false;
  bool placed_ = false;
};
