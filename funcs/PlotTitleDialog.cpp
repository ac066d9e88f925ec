#include "funcs/PlotTitleDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "funcs/PlotAppearance.h"
#include "funcs/PlotModel.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

PlotTitleDialog::PlotTitleDialog(PlotModel& model, PlotAppearance& appearance, QWidget* parent)
    : QDialog(parent), appearance_(appearance) {
  setObjectName(QStringLiteral("PlotTitleDialog"));
  setWindowTitle(Res(1861));
  const ProgramState& p = program();
  const QString tableTitles[3] = {p.titleF, p.titleX, p.titleY.trimmed()};
  auto* form = new QFormLayout;
  for (int i = 0; i < 3; ++i) {
    auto* box = new QLineEdit(model.Text3[static_cast<size_t>(i)], this);
    box->setObjectName(QStringLiteral("Text3_%1").arg(i));
    box->setPlaceholderText(tableTitles[i]);
    box->setMaxLength(PlotAppearance::kMaxTextLength);
    box->setMinimumWidth(320);
    form->addRow(Res(1862 + i), box);
    Text3[static_cast<size_t>(i)] = box;
  }
  auto* hint = new QLabel(Res(1866), this);
  hint->setWordWrap(true);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* defaults = buttons->addButton(Res(1865), QDialogButtonBox::ResetRole);
  defaults->setObjectName(QStringLiteral("defaultsButton"));
  QPushButton* ok = buttons->addButton(Res(51), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("okButton"));
  ok->setDefault(true);
  buttons->addButton(Res(54), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cancelButton"));
  connect(defaults, &QPushButton::clicked, this, [this] {
    for (QLineEdit* box : Text3) box->clear();
  });
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    appearance_.setTitles({Text3[0]->text(), Text3[1]->text(), Text3[2]->text()});
    accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(hint);
  layout->addWidget(buttons);
}
