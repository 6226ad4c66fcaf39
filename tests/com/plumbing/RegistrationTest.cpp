// SPDX-License-Identifier: MIT
// What registration writes, and that it takes everything back.
#include "com/Registration.h"

#include "com/ErrorBoundary.h"
#include "com/RegistryJournal.h"
#include "com/Scoped.h"
#include "tests/com/RegistrySnapshot.h"
#include "tests/com/plumbing/PlumbingTest.h"

namespace Quorvane {
namespace {

const Text ClassKey = u"CLSID\\{39D1E767-9EF8-49EA-AC6C-7A1D10C278DF}";
const Text LibraryKey = u"TypeLib\\{588D15EB-9598-4BC6-B24C-7C9B30A7C0C0}";
const Text ScratchKey = u"QuorvaneTrial.Scratch";

class Registration : public PlumbingTest {
  protected:
    void SetUp() override {
        HKEY classes = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0,
                                    KEY_ALL_ACCESS, nullptr, &classes, nullptr),
                  ERROR_SUCCESS);
        classes_ = Com::RegistryKey(classes);
        // An empty one, which does not survive the removal of a class, may be left from elsewhere.
        ::RegDeleteKeyW(classes_.Get(), L"CLSID");
    }

    RegistrySnapshot UserClasses() const { return TakeSnapshot(classes_.Get(), {}); }

    /// The value of a key of the user's classes, "(none)" where it is missing.
    Text Value(const Text& path, const wchar_t* name = nullptr) const {
        wchar_t text[512];
        DWORD size = sizeof text;
        const LSTATUS result = ::RegGetValueW(classes_.Get(), Com::Wide(path), name, RRF_RT_REG_SZ,
                                              nullptr, text, &size);
        return result == ERROR_SUCCESS ? Com::ToText(text) : u"(none)";
    }

    Com::RegistryKey classes_;
};

TEST_F(Registration, WritesWhatHostsLookForAndRemovesAllOfIt) {
    const RegistrySnapshot before = UserClasses();
    Com::RegisterModule(Com::RegistrationScope::User);
    EXPECT_EQ(Value(ClassKey), u"A trial object");
    EXPECT_EQ(Value(ClassKey + u"\\InprocServer32"), Com::ModulePath());
    EXPECT_EQ(Value(ClassKey + u"\\InprocServer32", L"ThreadingModel"), u"Apartment");
    EXPECT_EQ(Value(ClassKey + u"\\ProgID"), u"QuorvaneTrial.Trial.1");
    EXPECT_EQ(Value(ClassKey + u"\\VersionIndependentProgID"), u"QuorvaneTrial.Trial");
    EXPECT_EQ(Value(ClassKey + u"\\TypeLib"), u"{588D15EB-9598-4BC6-B24C-7C9B30A7C0C0}");
    EXPECT_EQ(Value(ClassKey + u"\\Version"), u"1.0");
    EXPECT_EQ(Value(ClassKey + u"\\MiscStatus"), u"0");
    EXPECT_EQ(Value(ClassKey + u"\\MiscStatus\\1"), u"131473");
    EXPECT_EQ(Value(ClassKey + u"\\ToolboxBitmap32"), Com::ModulePath() + u", 101");
    for (const Text key : {u"\\Control", u"\\Programmable",
                           u"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"}) {
        EXPECT_TRUE(Com::RegistryKey::Open(classes_.Get(), ClassKey + key, KEY_READ));
    }
    for (const Text name : {u"QuorvaneTrial.Trial", u"QuorvaneTrial.Trial.1"}) {
        EXPECT_EQ(Value(name), u"A trial object");
        EXPECT_EQ(Value(name + u"\\CLSID"), u"{39D1E767-9EF8-49EA-AC6C-7A1D10C278DF}");
    }
    EXPECT_EQ(Value(u"QuorvaneTrial.Trial\\CurVer"), u"QuorvaneTrial.Trial.1");
    Com::UnregisterModule(Com::RegistrationScope::User);
    EXPECT_EQ(UserClasses(), before);
    Com::UnregisterModule(Com::RegistrationScope::User);
    EXPECT_EQ(UserClasses(), before) << "a second time finds nothing and fails nowhere";
}

TEST_F(Registration, RegistersTheTypeLibraryOfTheMachineWithTheFolderAsItsHelpDirectory) {
    const Text root = u"Software\\Classes\\" + LibraryKey;
    ASSERT_TRUE(TakeSnapshot(HKEY_LOCAL_MACHINE, root).empty());
    Com::RegisterModule(Com::RegistrationScope::Machine);
    Com::ComPtr<ITypeLib> library;
    EXPECT_EQ(::LoadRegTypeLib(LIBID_TrialLibrary, 1, 0, 0x409, library.Put()), S_OK);
    library.Reset();
    const RegistrySnapshot written = TakeSnapshot(HKEY_LOCAL_MACHINE, root);
    const Text path = Com::ModulePath();
    EXPECT_EQ(written.at(u"\\1.0\\HELPDIR@"), path.substr(0, path.find_last_of(u'\\')));
    Com::UnregisterModule(Com::RegistrationScope::Machine);
    EXPECT_TRUE(TakeSnapshot(HKEY_LOCAL_MACHINE, root).empty());
    EXPECT_TRUE(TakeSnapshot(HKEY_LOCAL_MACHINE, u"Software\\Classes\\" + ClassKey).empty());
    EXPECT_FALSE(SUCCEEDED(::LoadRegTypeLib(LIBID_TrialLibrary, 1, 0, 0x409, library.Put())));
}

// No key that lasts can be made below one that goes with the session.
TEST_F(Registration, LeavesTheRegistryAsItWasWhenItFails) {
    HKEY created = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(classes_.Get(), L"QuorvaneTrial.Trial", 0, nullptr,
                                REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &created, nullptr),
              ERROR_SUCCESS);
    const Com::RegistryKey obstacle(created);
    const wchar_t old[] = L"what was there";
    ASSERT_EQ(::RegSetValueExW(obstacle.Get(), nullptr, 0, REG_SZ,
                               reinterpret_cast<const BYTE*>(old), sizeof old),
              ERROR_SUCCESS);
    const RegistrySnapshot before = UserClasses();
    EXPECT_THROW(Com::RegisterModule(Com::RegistrationScope::User), Com::HresultError);
    EXPECT_EQ(UserClasses(), before);
    ASSERT_EQ(::RegDeleteTreeW(classes_.Get(), L"QuorvaneTrial.Trial"), ERROR_SUCCESS);
}

TEST_F(Registration, UndoesChangesThatAreNotCommitted) {
    const RegistrySnapshot before = UserClasses();
    {
        Com::RegistryJournal journal(classes_.Get());
        journal.SetText(ScratchKey + u"\\Kept", u"name", u"first");
        journal.Commit();
    }
    const RegistrySnapshot committed = UserClasses();
    EXPECT_EQ(committed.at(u"\\" + ScratchKey + u"\\Kept@name"), u"first");
    {
        Com::RegistryJournal journal(classes_.Get());
        journal.SetText(ScratchKey + u"\\Kept", u"name", u"second");
        journal.SetText(ScratchKey + u"\\Kept", u"other", u"added");
        journal.SetText(ScratchKey + u"\\Kept\\Deep\\Deeper", {}, u"added");
        journal.CreateKey(ScratchKey + u"\\Made");
        EXPECT_EQ(Value(ScratchKey + u"\\Kept", L"name"), u"second");
    }
    EXPECT_EQ(UserClasses(), committed);
    ASSERT_EQ(::RegDeleteTreeW(classes_.Get(), Com::Wide(ScratchKey)), ERROR_SUCCESS);
    EXPECT_EQ(UserClasses(), before);
}

TEST_F(Registration, InstallsForTheUserOrTheMachineByCommand) {
    EXPECT_EQ(Com::InstallModule(true, L"elsewhere"), E_INVALIDARG);
    const RegistrySnapshot before = UserClasses();
    EXPECT_EQ(Com::InstallModule(true, L"User"), S_OK);
    EXPECT_EQ(Value(ClassKey), u"A trial object");
    EXPECT_EQ(Com::InstallModule(false, L"user"), S_OK);
    EXPECT_EQ(UserClasses(), before);
}

} // namespace
} // namespace Quorvane
