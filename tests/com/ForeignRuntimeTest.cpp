// SPDX-License-Identifier: MIT
// The compiler's runtime as a DLL, which a plug-in brings into the host.
#include "com/Module.h"
#include "com/Scoped.h"
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

/// Loads the runtime that lies beside the program that shares it. It is not released: on x86 it
/// holds itself for good.
void LoadForeignRuntime() {
    const Text program = Com::ModulePath();
    const Text path = program.substr(0, program.find_last_of(u'\\')) + u"\\..\\sharedruntime\\" +
                      Widen(QUORVANE_SHARED_LIBGCC);
    ASSERT_TRUE(::LoadLibraryExW(Com::Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH))
        << "error " << ::GetLastError();
}

class ForeignRuntime : public ControlTest {
  protected:
    /// The control throws inside and tells of it.
    void ExpectErrors() const {
        constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E);
        EXPECT_EQ(SetText(*Run(Adder), &_FISControl::put_Inputs, u"X"), NotAtRunTime);
    }
};

TEST_F(ForeignRuntime, MayComeAfterTheControlAndBeforeTheNext) {
    ExpectErrors();
    LoadForeignRuntime();
    ExpectErrors();
    for (int life = 0; life < 3; ++life) {
        TearDown();
        Load();
        ExpectErrors();
    }
}

} // namespace
} // namespace Quorvane
