#pragma once
// The two calculators as calvix-cli and the tests drive them: one window
// shown at a time, and the menu items that trade one for the other.
// normalcalc and cientificacalc set the mode word, unload the window shown
// and load the one they name, which starts with numero "0" and no pending
// operator; only the program-wide values (memories, registers, VAT rate,
// currencies) carry over.
//
// Key sequences are those of calc/KeySequence.h; the two menu words split
// them, and each part is read for the window that will be shown when it
// runs, so a control that window lacks is refused before anything runs.
#include <QList>
#include <QString>
#include <memory>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"

class NormalCalculatorModel;

enum class CalculatorKind { Scientific, Normal };

class CalculatorSession {
 public:
  explicit CalculatorSession(CalculatorKind first);
  ~CalculatorSession();
  CalculatorSession(const CalculatorSession&) = delete;
  CalculatorSession& operator=(const CalculatorSession&) = delete;

  CalculatorKind shown() const { return shown_; }
  // The shown window's engine: its display fields, memories and history.
  CalculatorEngine& engine();
  // The normal window's model while it is shown, else nullptr.
  NormalCalculatorModel* normal() { return normal_.get(); }
  // The menu items normalcalc / cientificacalc.
  void show(CalculatorKind kind);

  // Answers the scientific window's file dialogs (set before the keys run).
  std::function<QString(const CalculatorEngine::FileDialogRequest&)> fileDialog;

 private:
  void load(CalculatorKind kind);

  CalculatorKind shown_;
  std::unique_ptr<CalculatorEngine> scientific_;
  std::unique_ptr<NormalCalculatorModel> normal_;
};

// The window comand1 or comand2, as calvix-cli names it.
QString calculatorWindowName(CalculatorKind kind);

struct SessionStep {
  bool switchTo = false;  // a menu word: show `target`
  CalculatorKind target = CalculatorKind::Scientific;
  KeyStep key;            // otherwise a key for the window shown
};

// Reads a sequence starting in `first`; false, with the reason, on a token
// the window shown at that point lacks.
bool parseSessionSequence(const QString& sequence, CalculatorKind first, QList<SessionStep>& steps, QString& error);
void runSessionSteps(CalculatorSession& session, const QList<SessionStep>& steps);
