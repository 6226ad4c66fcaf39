// SPDX-License-Identifier: MIT
// Using the control without a registry entry, through its manifest.
#include <windows.h>

#include <oleauto.h>
#include <oleidl.h>

#include <gtest/gtest.h>

#include "com/ComPtr.h"
#include "com/Module.h"
#include "com/Scoped.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/ActivationContext.h"
#include "tests/com/support/ControlModule.h"

namespace Quorvane {
namespace {

/// The folder of a program as it is delivered: its manifest, the control, the control's manifest.
class Isolation : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        ::CreateDirectoryW(Com::Wide(Folder()), nullptr);
        const Text manifest = ProgramFolder() + u"\\IsolatedHost.manifest";
        ASSERT_TRUE(::CopyFileW(Com::Wide(manifest), Com::Wide(HostManifest()), FALSE));
        for (const Text name : {u"\\QuorvaneAxEditor.ocx", u"\\QuorvaneAxEditor.manifest"}) {
            const Text from = ControlFolder() + name;
            const Text to = Folder() + name;
            ASSERT_TRUE(::CopyFileW(Com::Wide(from), Com::Wide(to), FALSE)) << ::GetLastError();
        }
    }

    static Text ProgramFolder() {
        const Text program = Com::ModulePath();
        return program.substr(0, program.find_last_of(u'\\'));
    }
    static Text Folder() { return ProgramFolder() + u"\\isolated"; }
    static Text HostManifest() { return Folder() + u"\\IsolatedHost.manifest"; }

    ActivationContext context_{HostManifest()};
};

TEST_F(Isolation, MakesTheControlByBothItsNames) {
    ASSERT_TRUE(context_.IsActive()) << ::GetLastError();
    for (const wchar_t* name : {L"QuorvaneAxEditor.FISControl", L"QuorvaneAxEditor.FISControl.1"}) {
        // The platform may answer with an alias of the class of its own.
        CLSID alias{};
        ASSERT_EQ(::CLSIDFromProgID(name, &alias), S_OK);
        Com::ComPtr<IPersistStreamInit> control;
        ASSERT_EQ(::CoCreateInstance(alias, nullptr, CLSCTX_INPROC_SERVER, IID_IPersistStreamInit,
                                     control.PutVoid()),
                  S_OK);
        CLSID clsid{};
        EXPECT_EQ(control->GetClassID(&clsid), S_OK);
        EXPECT_EQ(clsid, CLSID_FISControl);
    }
}

TEST_F(Isolation, MakesTheControl) {
    ASSERT_TRUE(context_.IsActive()) << ::GetLastError();
    Com::ComPtr<_FISControl> control;
    ASSERT_EQ(::CoCreateInstance(CLSID_FISControl, nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(_FISControl), control.PutVoid()),
              S_OK);
    EXPECT_EQ(control->Refresh(), S_OK);
}

TEST_F(Isolation, MakesThePropertyPage) {
    ASSERT_TRUE(context_.IsActive()) << ::GetLastError();
    Com::ComPtr<IPropertyPage> page;
    ASSERT_EQ(::CoCreateInstance(CLSID_FIS_IO, nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(IPropertyPage), page.PutVoid()),
              S_OK);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
}

TEST_F(Isolation, FindsTheTypeLibrary) {
    ASSERT_TRUE(context_.IsActive()) << ::GetLastError();
    Com::ComPtr<ITypeLib> library;
    ASSERT_EQ(::LoadRegTypeLib(LIBID_QuorvaneAxEditor, 1, 0, 0x409, library.Put()), S_OK);
    EXPECT_EQ(library->GetTypeInfoCount(), 5u);
}

TEST_F(Isolation, KnowsTheStatusThatTheControlItselfGives) {
    ASSERT_TRUE(context_.IsActive()) << ::GetLastError();
    Com::ComPtr<IOleObject> object;
    ASSERT_EQ(::CoCreateInstance(CLSID_FISControl, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                 object.PutVoid()),
              S_OK);
    DWORD own = 0;
    DWORD published = 0;
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &own), S_OK);
    EXPECT_EQ(::OleRegGetMiscStatus(CLSID_FISControl, DVASPECT_CONTENT, &published), S_OK);
    EXPECT_EQ(published, own);
    EXPECT_EQ(own, static_cast<DWORD>(OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                      OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                      OLEMISC_SETCLIENTSITEFIRST));
}

} // namespace
} // namespace Quorvane
