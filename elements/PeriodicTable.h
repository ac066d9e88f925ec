#pragma once
// The periodic table's model (window "Tabla Periódica") without its widgets.
//
// How the pieces fit:
//  - The 111 element buttons are the control array zeta (index z); their
//    tooltips "z, Spanish, English, French, Catalan" carry the names.
//  - The element table cvxtp.dlj (ElementTable.h) is read whole at load;
//    row z is element z. Choosing an element (zeta_Click) fills the labels
//    of the sheet from its row, in the table's field order: numbers with the
//    system's decimal symbol, "--" where a value is not known, the name cut
//    from the tooltip in the language in use, the acid-base character and the
//    crystal system translated, each with a picture.
//  - Switches: the energy unit (Julios stored, Calorías worked out from it),
//    which electronegativity scale shows, the group numbering, the layout.
//  - calculo turns the clicks into a formula builder (MolecularWeight.h).
//  - The notes menus open help topics; the sheet prints through the shell.
// The view (PeriodicTableWindow) builds the buttons and labels, forwards
// each event to a handler here and repaints from the fields.
#include <QList>
#include <QString>
#include <array>
#include <cstdint>

#include "elements/ElementTable.h"
#include "elements/MolecularWeight.h"
#include "elements/PeriodicLayout.h"

class PrintDocument;

// The pictures beside the acid-base character (Image2) and the crystal system.
enum class AcidBase { Acid, StrongAcid, Basic, StrongBasic, Amphoteric, Unknown };
enum class CrystalSystem {
  BodyCentredCubic,
  FaceCentredCubic,
  Hexagonal,
  Cubic,
  Tetragonal,
  Rhombic,
  Orthorhombic,
  Monoclinic,
  Rhombohedral,
  Unknown
};

// One item of the notes menus: its control name, caption string and help topic.
struct NoteItem {
  const char* name;
  int stringId;
  int topic;
  bool table;  // in the tables menu, else in the notebook (cuaderno)
};
const QList<NoteItem>& noteItems();

class PeriodicTable {
 public:
  static constexpr int kHelpTopic = 70000;

  // ---- Sheet ---------------------------------------------------------------
  std::array<QString, kElementFieldCount> sheet;     // label texts as shown
  std::array<QString, kElementFieldCount> captions;  // their captions
  long simbolosColor = 0;
  QString zText;      // "z = 79"
  int current = 0;    // element shown, 0 for none
  AcidBase Image2 = AcidBase::Unknown;
  CrystalSystem crystalPicture = CrystalSystem::Unknown;
  bool sheetShown = false;

  // ---- Switches --------------------------------------------------------------
  std::int16_t EnergyUnit = 0;  // 0 Julios, 1 Calorías
  bool pauling = true;          // electronegs shows (else electronegs1)
  bool paulingno = false;
  std::array<QString, kGroupCount> Label2;  // group heads
  int tableLayout = 1;  // 1 tipotabla1, 2 tipotabla2

  // ---- Molecular weight ---------------------------------------------------------
  bool calculo = false;  // the builder is shown (Image6 marks it)
  MolecularWeight weight;

  // ---- Texts of the window ------------------------------------------------------------
  QString caption;  // window title, string 1069

  // ---- Events ------------------------------------------------------------------
  // Reads the table from AppFolder and sets every caption.
  void Form_Load();
  // Captions in the language in use; the sheet is shown again.
  void loadTexts();
  // An element button: shows its sheet; in calculo mode, adds it too.
  void zeta_Click(int z);
  void Command111_Click();  // adds the element shown to the formula
  void Command123_Click();  // subscript
  void Command1_Click(int digit);
  void Command112_Click();  // clear the formula
  void calculo_Click();     // enter the builder
  void Command124_Click();  // leave it
  void EnergyUnit_Click(int unit);
  void pauling_Click();
  void paulingno_Click();
  void Command3_Click();  // group numbering
  void tipotabla1_Click();
  void tipotabla2_Click();
  // Prints the sheet (Command4, elementoimpr); false when nothing was printed.
  bool Command4_Click();
  // A notes item: shows its help topic.
  void note_Click(int topic);

  // ---- Questions -------------------------------------------------------------
  // The tooltip of button z ("79, Oro, Gold, Or, Or").
  static QString zetaToolTip(int z);
  // The name of z in the language in use, cut from its tooltip.
  static QString elementName(int z);
  // The number of a symbol as printed ("Au"), 0 when there is none.
  static int atomicNumberOf(const QString& symbol);
  // The symbol on button z.
  static QString buttonSymbol(int z);
  // The symbol of z, from the table (empty when the table is not there).
  QString symbolOf(int z) const;
  bool tableLoaded() const { return !records_.isEmpty(); }
  bool oldGroupNumbering() const { return Label2[7] == QLatin1String("VIII"); }
  const QString& text(ElementField f) const { return sheet[static_cast<std::size_t>(fieldIndex(f))]; }
  // The sheet as printed: header string 1067, then each caption and label.
  PrintDocument sheetDocument() const;

 private:
  void showElement(int z);
  void setCaptions();
  QString shownNumber(int field, const QString& stored) const;
  QString& label(ElementField f) { return sheet[static_cast<std::size_t>(fieldIndex(f))]; }
  const ElementRecord* record(int z) const;

  QList<ElementRecord> records_;
};
