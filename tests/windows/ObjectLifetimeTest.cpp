// SPDX-License-Identifier: MIT
// A thousand lives of a control with all that a host connects to it leave no object and no memory.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "tests/com/support/EventSink.h"
#include "tests/com/support/HostDictionary.h"
#include "tests/com/support/Systems.h"
#include "tests/com/support/TestBag.h"
#include "tests/com/support/TestSite.h"
#include "tests/com/support/Values.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

constexpr int Lives = 1000;

/// The bytes that are allocated in all heaps of the process.
std::size_t AllocatedBytes() {
    HANDLE heaps[64];
    const DWORD count = ::GetProcessHeaps(64, heaps);
    EXPECT_LE(count, 64u);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        ::HeapLock(heaps[i]);
        while (::HeapWalk(heaps[i], &entry)) {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        ::HeapUnlock(heaps[i]);
    }
    return bytes;
}

/// A control in run mode, loaded with a system.
Com::ComPtr<_FISControl> Load(TestSite& site, const System& system) {
    const auto control = NewControl().As<_FISControl>();
    Com::Check(control.As<IOleObject>()->SetClientSite(&site));
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(system));
    Com::Check(control.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr));
    return control;
}

/// A late-bound call of a member without arguments, which may fail.
HRESULT CallByName(_FISControl& control, const wchar_t* name, WORD flags) {
    auto* wide = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    Com::Check(control.GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id));
    DISPPARAMS none{};
    EXCEPINFO exception{};
    Com::Variant result;
    const HRESULT outcome = control.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &none,
                                           result.Put(), &exception, nullptr);
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrHelpFile);
    return outcome;
}

/// Good and failing cycles with a host's dictionaries for all values.
void FireWithDictionaries(_FISControl& control) {
    const auto inputs = Com::MakeObject<HostDictionary>();
    const auto values = Com::MakeObject<HostDictionary>();
    PutItem(values->Inner(), u"Y", TextValue(u"none"));
    Com::Check(control.putref_InVals(inputs.Get()));
    Com::Check(control.putref_DefOutVals(values.Get()));
    Com::Check(control.putref_ErrOutVals(values.Get()));
    for (const Com::Variant& x : {Com::Variant(1), TextValue(u"2"), TextValue(u"none"),
                                  Com::Variant(static_cast<IDispatch*>(values.Get()))}) {
        PutItem(inputs->Inner(), u"X", x);
        Com::Check(control.Fire());
    }
    EXPECT_EQ(control.putref_InVals(nullptr), static_cast<HRESULT>(0x800A000D));
}

/// Reads outputs and keys as scripts do.
void ReadOutputs(_FISControl& control) {
    Com::ComPtr<IDictionary> outputs;
    Com::Check(control.get_OutVals(outputs.Put()));
    EXPECT_EQ(KeysOf(*outputs), std::vector<std::string>{"String Y"});
    EXPECT_EQ(Describe(ItemOf(outputs, u"Y")), "String none");
    Com::ComPtr<IUnknown> enumerator;
    Com::Check(outputs->_NewEnum(enumerator.Put()));
    EXPECT_EQ(CallByName(control, L"OutVals", DISPATCH_PROPERTYGET), S_OK);
    EXPECT_EQ(CallByName(control, L"Fire", DISPATCH_METHOD), S_OK);
    EXPECT_EQ(CallByName(control, L"DefOutVals", DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
}

/// One life. The host unadvises its sinks, or only lets go of the control.
void LiveOnce(bool unadvises) {
    const auto site = NewSite(true);
    auto control = Load(*site, Adder);
    const auto events = Com::MakeObject<EventSink>();
    const auto notes = Com::MakeObject<NotifySink>();
    auto first = std::make_unique<Connection>(control.Get(), events.Get());
    auto second = std::make_unique<Connection>(control.Get(), IID_IPropertyNotifySink, notes.Get());
    Com::Check(control->put_Caption(Com::Bstr(u"Alive").Get()));
    FireWithDictionaries(*control);
    ReadOutputs(*control);
    EXPECT_EQ(events->Count, 5);
    EXPECT_EQ(notes->Changed.size(), 1u);
    const auto saved = Com::MakeObject<TestBag>();
    Com::Check(control.As<IPersistPropertyBag>()->Save(saved.Get(), TRUE, TRUE));
    // A system that does not load, and one that does again.
    const auto broken =
        Com::MakeObject<TestBag>(PropertiesOf({Adder.Inputs, Adder.Outputs, u"broken"}));
    EXPECT_TRUE(FAILED(control.As<IPersistPropertyBag>()->Load(broken.Get(), nullptr)));
    Com::Check(control.As<IPersistPropertyBag>()->Load(saved.Get(), nullptr));
    if (unadvises) {
        first.reset();
        second.reset();
        control.As<IOleObject>()->SetClientSite(nullptr);
    }
    control.Reset();
}

TEST(ObjectLifetime, IsMeasuredByACountThatSeesWhatIsKept) {
    std::vector<std::unique_ptr<char[]>> kept;
    kept.reserve(Lives);
    const std::size_t before = AllocatedBytes();
    for (int i = 0; i < Lives; ++i) {
        kept.push_back(std::make_unique<char[]>(16));
    }
    EXPECT_GE(AllocatedBytes() - before, Lives * 16u);
}

TEST(ObjectLifetime, LeavesNoObjectAndNoMemoryInAThousandLives) {
    // One that stays, so that the type libraries are not read anew in each life.
    const auto site = NewSite(true);
    const auto last = Load(*site, Adder);
    Com::ComPtr<IDictionary> outputs;
    Com::Check(last->get_OutVals(outputs.Put()));
    LONG count = 0;
    CallByName(*last, L"Caption", DISPATCH_PROPERTYGET);
    Com::Check(outputs->get_Count(&count));
    for (const bool unadvises : {true, false}) {
        for (int i = 0; i < 50; ++i) {
            LiveOnce(unadvises);
        }
        const LONG objects = Com::ModuleLockCount();
        const std::size_t bytes = AllocatedBytes();
        for (int i = 0; i < Lives; ++i) {
            LiveOnce(unadvises);
            ASSERT_EQ(Com::ModuleLockCount(), objects) << "life " << i;
        }
        // The smallest thing left in each life would be more than this.
        EXPECT_LT(AllocatedBytes(), bytes + Lives * 8u);
    }
}

} // namespace
} // namespace Quorvane
