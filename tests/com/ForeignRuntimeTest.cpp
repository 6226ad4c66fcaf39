// SPDX-License-Identifier: MIT
// The compiler's runtime as a DLL, which a plug-in brings into the host and takes away again.
#include "com/Module.h"
#include "com/Scoped.h"
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

/// The runtime that lies beside the program that shares it.
class ForeignRuntime {
  public:
    ForeignRuntime() {
        const Text program = Com::ModulePath();
        const Text path = program.substr(0, program.find_last_of(u'\\')) +
                          u"\\..\\sharedruntime\\" + Widen(QUORVANE_SHARED_LIBGCC);
        module_ = ::LoadLibraryExW(Com::Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        EXPECT_TRUE(module_) << "error " << ::GetLastError();
    }
    ~ForeignRuntime() {
        ::FreeLibrary(module_);
        EXPECT_FALSE(::GetModuleHandleA(QUORVANE_SHARED_LIBGCC)) << "the control holds it";
    }
    ForeignRuntime(const ForeignRuntime&) = delete;
    ForeignRuntime& operator=(const ForeignRuntime&) = delete;

  private:
    HMODULE module_;
};

class WithForeignRuntime : public ControlTest {
  protected:
    /// The control throws inside and tells of it.
    void ExpectErrors() const {
        constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E);
        EXPECT_EQ(SetText(*Run(Adder), &_FISControl::put_Inputs, u"X"), NotAtRunTime);
    }
};

TEST_F(WithForeignRuntime, TheControlReportsErrorsWhenTheRuntimeCameFirstAndGoesFirst) {
    TearDown();
    {
        const ForeignRuntime runtime;
        Load();
        ExpectErrors();
    }
    ExpectErrors();
}

TEST_F(WithForeignRuntime, TheControlReportsErrorsWhenTheRuntimeComesLaterAndStays) {
    ExpectErrors();
    const ForeignRuntime runtime;
    ExpectErrors();
    TearDown();
    Load();
    ExpectErrors();
}

} // namespace
} // namespace Quorvane
