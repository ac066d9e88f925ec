#include "shell/AboutModel.h"

#include "shell/MessageService.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

// Help topics of the window's controls.
constexpr int kHelpTopic = 600;

}  // namespace

const QString AboutModel::kUpdatesUrl = QStringLiteral("https://calvix.example.org/actualizaciones.html");
const QString AboutModel::kProductsUrl = QStringLiteral("https://calvix.example.org/productos.html");
const QString AboutModel::kInfoUrl = QStringLiteral("https://calvix.example.org/info.html");
const QString AboutModel::kAuthorMail = QStringLiteral("mailto:idiomas@calvix.example.org?subject=Calvix%20Premium");

int AboutModel::major() { return CALVIX_VERSION_MAJOR; }
int AboutModel::minor() { return CALVIX_VERSION_MINOR; }
int AboutModel::revision() { return CALVIX_VERSION_PATCH; }

void AboutModel::Form_Load() {
  Caption = Res(5010);
  version = Res(5011) + QLatin1Char(' ') + QString::number(major()) + QStringLiteral(" M. ") +
            QString::number(minor()) + QStringLiteral(" m. Rev. ") + QString::number(revision());
  user = SystemUserName(0);
  Label5 = program().WebAddress.isEmpty() ? defaultWebAddress() : program().WebAddress;
  sampleNote = Res(5018);
}

bool AboutModel::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers != Qt::ShiftModifier || key != Qt::Key_F10) return false;
  SystemAction(1, program().OsFamily);
  return true;
}

void AboutModel::open(int controlTopic, const QString& address) {
  if (helpInstead(kHelpTopic + controlTopic)) return;
  platform().openUrl(address);
}

void AboutModel::Command1_Click() { open(1, kUpdatesUrl); }
void AboutModel::Command4_Click() { open(4, kProductsUrl); }
void AboutModel::Command5_Click() { open(5, kInfoUrl); }
void AboutModel::Label5_Click() { open(6, Label5); }

void AboutModel::Command3_Click() {
  if (helpInstead(kHelpTopic + 3)) return;
  program().MessageSound = 4;
  MBoxShow(0, Res(5016) + QStringLiteral("\n\n") + Res(5017), 9, 6, 0, QStringLiteral("Calvix Premium  -  ") + Res(5021));
  if (program().MessageResult == 0) platform().openUrl(kAuthorMail);
}

bool AboutModel::click(const QString& control) {
  if (control == QLatin1String("Command1")) Command1_Click();
  else if (control == QLatin1String("Command3")) Command3_Click();
  else if (control == QLatin1String("Command4")) Command4_Click();
  else if (control == QLatin1String("Command5")) Command5_Click();
  else if (control == QLatin1String("Label5")) Label5_Click();
  else return false;
  return true;
}
