// The intermodular registers: value and label written together, read back,
// listeners told, and a bad index refused without touching anything.
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/support/TestSupport.h"

namespace {

class RegistersTest : public CalvixTest {};

TEST_F(RegistersTest, WriteReadNotifyAndRefuseABadIndex) {
  clearSettings(program());
  EXPECT_EQ(RegisterValue(0), 0);  // never written
  EXPECT_EQ(RegisterLabel(0), QString());

  QObject listener;
  QList<int> changed;
  QObject::connect(&registerNotifier(), &RegisterNotifier::registerChanged, &listener,
                   [&changed](int i) { changed << i; });
  WriteRegister(2, 1.5e-300, QStringLiteral("Área del círculo"));
  WriteRegister(2, -7, QString());
  EXPECT_EQ(changed, (QList<int>{2, 2}));
  EXPECT_EQ(RegisterValue(2), -7);
  EXPECT_EQ(RegisterLabel(2), QString());  // the label goes with the value
  EXPECT_EQ(program().Registers[2], -7);

  for (const int bad : {-1, kRegisterCount}) {
    try {
      WriteRegister(bad, 1, QStringLiteral("x"));
      ADD_FAILURE() << "index " << bad << " was taken";
    } catch (const rt::RuntimeError& e) {
      EXPECT_EQ(e.number(), 9);
    }
    EXPECT_THROW(RegisterLabel(bad), rt::RuntimeError);
  }
  EXPECT_EQ(changed.size(), 2);
}

}  // namespace
