#pragma once
// operacal: the date operations window. Two dates (DTPicker1, DTPicker2) give
// the difference in the seven units; the first date, an amount and a unit
// give the addition. The texts come from DateInfo, as calvix-cli shows them.
#include <QDialog>

class QComboBox;
class QDateEdit;
class QPlainTextEdit;
class QSpinBox;

class CalendarOperationsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit CalendarOperationsDialog(double first, QWidget* parent = nullptr);
  void Calcular_Click();  // the difference
  void Incremento_Click();  // the addition
  QString resultText() const;

 private:
  QDateEdit* DTPicker1 = nullptr;
  QDateEdit* DTPicker2 = nullptr;
  QSpinBox* amount = nullptr;
  QComboBox* unit = nullptr;
  QPlainTextEdit* result = nullptr;
};
