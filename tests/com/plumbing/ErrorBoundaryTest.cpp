// SPDX-License-Identifier: MIT
// Every exception becomes its HRESULT and its error information, and none gets out.
#include "com/ErrorBoundary.h"

#include <oleauto.h>

#include <functional>
#include <stdexcept>

#include "com/Scoped.h"
#include "shared/FisError.h"
#include "tests/com/plumbing/PlumbingTest.h"

namespace Quorvane {
namespace {

using ErrorBoundary = PlumbingTest;

/// The thread's error information, taken from it; "none" where there is none.
struct Information {
    bool Present = false;
    Text Source;
    Text Description;
    GUID Interface{};
};

Information TakeInformation() {
    Com::ComPtr<IErrorInfo> info;
    if (::GetErrorInfo(0, info.Put()) != S_OK) {
        return {};
    }
    Com::Bstr source;
    Com::Bstr description;
    Information taken;
    taken.Present = true;
    EXPECT_EQ(info->GetSource(source.Put()), S_OK);
    EXPECT_EQ(info->GetDescription(description.Put()), S_OK);
    EXPECT_EQ(info->GetGUID(&taken.Interface), S_OK);
    taken.Source = source.Characters();
    taken.Description = description.Characters();
    return taken;
}

void LeaveOldInformation() {
    Com::Guard([] { throw FisError(0x80040001, u"old source", u"old description"); });
}

TEST_F(ErrorBoundary, TurnsEachExceptionIntoItsCodeSourceAndDescription) {
    const struct {
        const char* Name;
        std::function<void()> Body;
        HRESULT Code;
        bool HasInformation;
        Text Source;
        Text Description;
    } cases[] = {
        {"numbered", [] { throw FisError(0x80040052, u"source", u"description"); },
         static_cast<HRESULT>(0x80040052), true, u"source", u"description"},
        {"platform",
         [] { throw FisError(RuntimeError::TypeMismatch); },
         static_cast<HRESULT>(0x800A000D),
         false,
         {},
         {}},
        {"a number that means success", [] { throw FisError(1, {}, {}); }, E_FAIL, false, {}, {}},
        {"platform call", [] { Com::Check(E_ACCESSDENIED); }, E_ACCESSDENIED, false, {}, {}},
        {"platform call with a word",
         [] { throw Com::HresultError(RPC_E_WRONG_THREAD, u"wrong thread"); },
         RPC_E_WRONG_THREAD,
         true,
         {},
         u"wrong thread"},
        {"Win32",
         [] { Com::CheckWin32(ERROR_FILE_NOT_FOUND); },
         HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND),
         false,
         {},
         {}},
        {"null pointer",
         [] { Com::Out(static_cast<int*>(nullptr)) = 1; },
         E_POINTER,
         false,
         {},
         {}},
        {"memory", [] { throw std::bad_alloc(); }, E_OUTOFMEMORY, false, {}, {}},
        {"standard", [] { throw std::logic_error("any"); }, E_UNEXPECTED, false, {}, {}},
        {"foreign", [] { throw 42; }, E_UNEXPECTED, false, {}, {}},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.Name);
        LeaveOldInformation();
        EXPECT_EQ(Com::Guard<ITrial>(expected.Body), expected.Code);
        const Information information = TakeInformation();
        EXPECT_EQ(information.Present, expected.HasInformation);
        EXPECT_EQ(information.Source, expected.Source);
        EXPECT_EQ(information.Description, expected.Description);
        EXPECT_EQ(information.Interface, expected.HasInformation ? __uuidof(ITrial) : GUID_NULL);
    }
}

TEST_F(ErrorBoundary, PassesTheResultsOfTheBodyThrough) {
    EXPECT_EQ(Com::Guard([] {}), S_OK);
    EXPECT_EQ(Com::Guard([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(Com::Guard([] { return E_NOTIMPL; }), E_NOTIMPL);
}

TEST_F(ErrorBoundary, CarriesTheErrorInformationOfACalleeOn) {
    const auto trial = Com::MakeObject<Trial>();
    const Com::Bstr source(u"callee");
    const Com::Bstr description(u"what went wrong");
    const auto fail = [&] {
        const Com::ComPtr<ITrial> callee = trial;
        Com::Check(callee->Fail(static_cast<LONG>(0x80040011), source.Get(), description.Get()),
                   callee.Get());
    };
    EXPECT_EQ(Com::Guard(fail), static_cast<HRESULT>(0x80040011));
    const Information information = TakeInformation();
    EXPECT_EQ(information.Source, u"callee");
    EXPECT_EQ(information.Description, u"what went wrong");
}

TEST_F(ErrorBoundary, DoesNotTakeOldInformationForThatOfACalleeWithoutAny) {
    const auto bag = Com::MakeObject<TrialBag>();
    LeaveOldInformation();
    const auto fail = [&] { Com::Check(E_FAIL, static_cast<IBag*>(bag.Get())); };
    EXPECT_EQ(Com::Guard(fail), E_FAIL);
    EXPECT_FALSE(TakeInformation().Present);
}

} // namespace
} // namespace Quorvane
