#include "calendar/CalendarOperationsDialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include "calendar/DateInfo.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/RuntimeError.h"

namespace {
double serialOf(const QDateEdit* edit) {
  const QDate d = edit->date();
  return rt::DateSerial(d.year(), d.month(), d.day());
}
}  // namespace

CalendarOperationsDialog::CalendarOperationsDialog(double first, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("operacal"));
  setWindowTitle(Res(360));
  auto* grid = new QGridLayout(this);
  DTPicker1 = new QDateEdit(rt::toQDate(first), this);
  DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
  DTPicker2 = new QDateEdit(rt::toQDate(first), this);
  DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
  for (QDateEdit* e : {DTPicker1, DTPicker2}) {
    e->setCalendarPopup(true);
    e->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    e->setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
  }
  amount = new QSpinBox(this);
  amount->setObjectName(QStringLiteral("amount"));
  amount->setRange(-99999, 99999);
  unit = new QComboBox(this);
  unit->setObjectName(QStringLiteral("unit"));
  for (int id = 3762; id <= 3765; ++id) unit->addItem(Res(id));
  auto* difference = new ChameleonButtonWidget(Res(343), this);
  difference->setObjectName(QStringLiteral("Calcular"));
  auto* add = new ChameleonButtonWidget(Res(342), this);
  add->setObjectName(QStringLiteral("Incremento"));
  result = new QPlainTextEdit(this);
  result->setObjectName(QStringLiteral("result"));
  result->setReadOnly(true);
  result->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  result->setMinimumSize(520, 190);

  grid->addWidget(new QLabel(Res(340), this), 0, 0);
  grid->addWidget(DTPicker1, 0, 1);
  grid->addWidget(new QLabel(Res(341), this), 1, 0);
  grid->addWidget(DTPicker2, 1, 1);
  grid->addWidget(difference, 1, 2, 1, 2);
  grid->addWidget(new QLabel(Res(342), this), 2, 0);
  grid->addWidget(amount, 2, 1);
  grid->addWidget(unit, 2, 2);
  grid->addWidget(add, 2, 3);
  grid->addWidget(result, 3, 0, 1, 4);
  connect(difference, &QPushButton::clicked, this, [this] { Calcular_Click(); });
  connect(add, &QPushButton::clicked, this, [this] { Incremento_Click(); });
}

void CalendarOperationsDialog::Calcular_Click() {
  result->setPlainText(calendar::differenceText(serialOf(DTPicker1), serialOf(DTPicker2)));
}

void CalendarOperationsDialog::Incremento_Click() {
  try {
    result->setPlainText(calendar::additionText(serialOf(DTPicker1), amount->value(), unit->currentIndex()));
  } catch (const rt::RuntimeError&) {
    result->clear();  // past the calendar's range
  }
}

QString CalendarOperationsDialog::resultText() const { return result->toPlainText(); }
