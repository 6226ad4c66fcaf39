// SPDX-License-Identifier: MIT
// The registration of the built control by its own exports, as regsvr32 and installers call them.
#include <windows.h>

#include <oleauto.h>

#include <gtest/gtest.h>

#include "com/ComPtr.h"
#include "com/Scoped.h"
#include "idl/QuorvaneAxEditor.h"
#include "tests/com/RegistrySnapshot.h"
#include "tests/com/support/ControlModule.h"
#include "tests/com/support/LoadedModule.h"

namespace Quorvane {
namespace {

const Text ClassKey = u"\\CLSID\\{3874BE75-C265-46A4-BC3C-28CACF3C7CDC}";
const Text LibraryKey = u"\\TypeLib\\{BFEE8BB2-ED2C-4040-8C12-0AFFB260E2D7}";

class SelfRegistration : public testing::Test {
  protected:
    // The control may be registered for the person who works on this machine.
    void SetUp() override { ASSERT_EQ(Call("DllUnregisterServer"), S_OK); }

    static HRESULT Call(const char* name) {
        using Function = HRESULT(STDAPICALLTYPE*)();
        return Export<Function>(name)();
    }

    static HRESULT Install(BOOL install, const wchar_t* command) {
        using Function = HRESULT(STDAPICALLTYPE*)(BOOL, PCWSTR);
        return Export<Function>("DllInstall")(install, command);
    }

    /// The machine's classes: the names of all, and whole what the control may write.
    static RegistrySnapshot MachineClasses() {
        RegistrySnapshot snapshot = TakeSnapshot(HKEY_LOCAL_MACHINE, u"Software\\Classes", 2);
        for (const Text& key : {ClassKey, LibraryKey, Text(u"\\QuorvaneAxEditor.FISControl"),
                                Text(u"\\QuorvaneAxEditor.FISControl.1"),
                                Text(u"\\Interface\\{E8CEE3B5-8C4E-46E9-B867-1EAB75203BEB}")}) {
            for (const auto& [name, value] :
                 TakeSnapshot(HKEY_LOCAL_MACHINE, u"Software\\Classes" + key)) {
                snapshot[key + name] = value;
            }
        }
        return snapshot;
    }

  private:
    template <class Function>
    static Function Export(const char* name) {
        const Text path = ControlModulePath();
        return reinterpret_cast<Function>(
            reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(Com::Wide(path)), name)));
    }

    LoadedModule module_;
};

TEST_F(SelfRegistration, WritesWhatHostsLookForAndRemovesAllOfIt) {
    const RegistrySnapshot before = MachineClasses();
    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    const RegistrySnapshot after = MachineClasses();
    const Text module = ControlModulePath();
    const struct {
        Text Name;
        Text Value;
    } expected[] = {
        {ClassKey + u"@", u"Quorvane fuzzy inference control"},
        {ClassKey + u"\\InprocServer32@", module},
        {ClassKey + u"\\InprocServer32@ThreadingModel", u"Apartment"},
        {ClassKey + u"\\ProgID@", u"QuorvaneAxEditor.FISControl.1"},
        {ClassKey + u"\\VersionIndependentProgID@", u"QuorvaneAxEditor.FISControl"},
        {ClassKey + u"\\TypeLib@", u"{BFEE8BB2-ED2C-4040-8C12-0AFFB260E2D7}"},
        {ClassKey + u"\\Version@", u"1.0"},
        {ClassKey + u"\\MiscStatus\\1@", u"131473"},
        {ClassKey + u"\\ToolboxBitmap32@", module + u", 101"},
        {ClassKey + u"\\Control", u""},
        {ClassKey + u"\\Programmable", u""},
        // A control, and safe for initialising.
        {ClassKey + u"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", u""},
        {ClassKey + u"\\Implemented Categories\\{7DD95802-9882-11CF-9FA9-00AA006C42C4}", u""},
        {u"\\QuorvaneAxEditor.FISControl\\CLSID@", ClassKey.substr(7)},
        {u"\\QuorvaneAxEditor.FISControl\\CurVer@", u"QuorvaneAxEditor.FISControl.1"},
        {u"\\QuorvaneAxEditor.FISControl.1\\CLSID@", ClassKey.substr(7)},
        {LibraryKey + u"\\1.0@", u"Fuzzy Logic Inference System Editor"},
        {LibraryKey + u"\\1.0\\HELPDIR@", ControlFolder()},
        {LibraryKey + (sizeof(void*) == 8 ? u"\\1.0\\409\\win64@" : u"\\1.0\\409\\win32@"), module},
    };
    for (const auto& entry : expected) {
        const auto found = after.find(entry.Name);
        ASSERT_NE(found, after.end()) << std::string(entry.Name.begin(), entry.Name.end());
        EXPECT_EQ(found->second, entry.Value);
    }
    // Never safe for scripting, as BatchData writes files; not for the list of documents to insert.
    EXPECT_FALSE(after.contains(
        ClassKey + u"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}"));
    EXPECT_FALSE(after.contains(ClassKey + u"\\Insertable"));

    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(MachineClasses(), before);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK) << "there is nothing left to remove";
}

TEST_F(SelfRegistration, LetsHostsMakeTheControlByItsName) {
    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    {
        CLSID clsid{};
        EXPECT_EQ(::CLSIDFromProgID(L"QuorvaneAxEditor.FISControl", &clsid), S_OK);
        EXPECT_EQ(clsid, CLSID_FISControl);
        Com::ComPtr<_FISControl> control;
        EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_FISControl),
                                     control.PutVoid()),
                  S_OK);
        Com::ComPtr<ITypeLib> library;
        EXPECT_EQ(::LoadRegTypeLib(LIBID_QuorvaneAxEditor, 1, 0, 0x409, library.Put()), S_OK);
    }
    // The module must be out of the process before the next test.
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
}

TEST_F(SelfRegistration, RegistersForTheUserWithoutTouchingTheMachine) {
    const RegistrySnapshot machine =
        TakeSnapshot(HKEY_LOCAL_MACHINE, u"Software\\Classes\\CLSID", 1);
    ASSERT_EQ(Install(TRUE, L"user"), S_OK);
    const RegistrySnapshot user = TakeSnapshot(HKEY_CURRENT_USER, u"Software\\Classes");
    EXPECT_EQ(user.at(ClassKey + u"\\InprocServer32@"), ControlModulePath());
    EXPECT_TRUE(user.contains(u"\\QuorvaneAxEditor.FISControl"));
    EXPECT_EQ(TakeSnapshot(HKEY_LOCAL_MACHINE, u"Software\\Classes\\CLSID", 1), machine);
    EXPECT_EQ(Install(FALSE, L"user"), S_OK);
    const RegistrySnapshot after = TakeSnapshot(HKEY_CURRENT_USER, u"Software\\Classes");
    EXPECT_FALSE(after.contains(ClassKey));
    EXPECT_FALSE(after.contains(u"\\QuorvaneAxEditor.FISControl"));
    EXPECT_EQ(Install(TRUE, L"nobody"), E_INVALIDARG);
}

} // namespace
} // namespace Quorvane
