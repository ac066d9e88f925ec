#include "shell/Registers.h"

#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"

namespace {

std::size_t slot(int index) {
  if (index < 0 || index >= kRegisterCount) throw rt::RuntimeError(9);
  return static_cast<std::size_t>(index);
}

}  // namespace

void WriteRegister(int index, double value, const QString& label) {
  ProgramState& p = program();
  const std::size_t i = slot(index);
  p.Registers[i] = value;
  p.RegisterLabels[i] = rt::Variant(label);
  Q_EMIT registerNotifier().registerChanged(index);
}

double RegisterValue(int index) { return program().Registers[slot(index)]; }

QString RegisterLabel(int index) { return program().RegisterLabels[slot(index)].toText(); }

RegisterNotifier& registerNotifier() {
  static RegisterNotifier notifier;
  return notifier;
}
