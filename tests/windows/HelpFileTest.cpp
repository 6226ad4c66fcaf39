// SPDX-License-Identifier: MIT
// Which help file the control points at: the registered help directory, and the language.
#include <windows.h>

#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "control/HelpFile.h"
#include "shared/Definition.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

const Text LibraryKey = u"TypeLib\\{BFEE8BB2-ED2C-4040-8C12-0AFFB260E2D7}";
constexpr const wchar_t* ParkedKey = L"TypeLib\\Quorvane.Parked";

/// Begins without a registered type library; one that is registered comes back afterwards.
class HelpFile : public testing::Test {
  protected:
    void SetUp() override {
        ::RegRenameKey(HKEY_CLASSES_ROOT, Com::Wide(LibraryKey), L"Quorvane.Parked");
        Definition::State().HelpFile = u"unchanged";
        Definition::State().LanguageId = 1033;
    }
    void TearDown() override {
        ::RegDeleteTreeW(HKEY_CLASSES_ROOT, Com::Wide(LibraryKey));
        ::RegRenameKey(HKEY_CLASSES_ROOT, ParkedKey, Com::Wide(LibraryKey.substr(8)));
        Definition::Reset();
    }

    /// Registers a help directory, as the registration of the type library does.
    static void Register(const Text& directory) {
        const auto* const bytes = reinterpret_cast<const BYTE*>(directory.c_str());
        const auto size = static_cast<DWORD>((directory.size() + 1) * sizeof(char16_t));
        HKEY key = OpenDirectoryKey();
        EXPECT_EQ(::RegSetValueExW(key, nullptr, 0, REG_SZ, bytes, size), ERROR_SUCCESS);
        ::RegCloseKey(key);
    }

    /// The key, made where it is not there; the caller closes it.
    static HKEY OpenDirectoryKey() {
        HKEY key = nullptr;
        EXPECT_EQ(
            ::RegCreateKeyW(HKEY_CLASSES_ROOT, Com::Wide(LibraryKey + u"\\1.0\\HELPDIR"), &key),
            ERROR_SUCCESS);
        return key;
    }

    static const Text& Current() { return Definition::State().HelpFile; }
};

TEST_F(HelpFile, StaysAsItWasWithoutARegisteredLibrary) {
    SetHelpFile();
    EXPECT_EQ(Current(), u"unchanged");
}

TEST_F(HelpFile, IsTheDirectoryAsItStandsAndTheFileOfTheLanguage) {
    const struct {
        Text Directory;
        std::int32_t Language;
        Text Expected;
    } cases[] = {
        {u"C:\\Program Files\\Quorvane", 1033,
         u"C:\\Program Files\\Quorvane\\Help\\Quorvane_EN.chm"},
        {u"C:\\Program Files\\Quorvane", 2052,
         u"C:\\Program Files\\Quorvane\\Help\\Quorvane_CN.chm"},
        {u"D:\\", 2052, u"D:\\\\Help\\Quorvane_CN.chm"},
        {u"D:\\", 1028, u"D:\\\\Help\\Quorvane_EN.chm"},
        {u"", 1033, u"\\Help\\Quorvane_EN.chm"},
        {u"C:\\\u00C4pfel", 1033, u"C:\\\u00C4pfel\\Help\\Quorvane_EN.chm"},
    };
    for (const auto& [directory, language, expected] : cases) {
        Register(directory);
        Definition::State().LanguageId = language;
        SetHelpFile();
        EXPECT_EQ(Current(), expected);
    }
}

TEST_F(HelpFile, IsAfterBlanksWhereTheKeyHasNoDirectory) {
    ::RegCloseKey(OpenDirectoryKey());
    SetHelpFile();
    EXPECT_EQ(Current(), Text(32767, u' ') + u"\\Help\\Quorvane_EN.chm");
}

TEST_F(HelpFile, SurvivesADirectoryThatIsTooLong) {
    Register(Text(40000, u'x'));
    SetHelpFile();
    EXPECT_TRUE(Current().ends_with(u"\\Help\\Quorvane_EN.chm"));
    EXPECT_LE(Current().size(), 33000u);
}

TEST_F(HelpFile, IsSetWhenAControlIsInitialisedAndLoaded) {
    Register(u"C:\\App");
    for (const Start start : {Start::New, Start::FromEmptyBag}) {
        Definition::State().HelpFile.clear();
        Form form;
        form.Place(start, false);
        EXPECT_EQ(Current(), u"C:\\App\\Help\\Quorvane_EN.chm");
    }
}

TEST_F(HelpFile, FollowsTheLocaleOfTheForm) {
    Register(u"C:\\App");
    Form form;
    form.Place(Start::New, false);
    EXPECT_EQ(Current(), u"C:\\App\\Help\\Quorvane_EN.chm");
    form.SetAmbient(DISPID_AMBIENT_LOCALEID, Com::Variant(2052), DISPID_AMBIENT_LOCALEID);
    EXPECT_EQ(Current(), u"C:\\App\\Help\\Quorvane_CN.chm");
    form.SetAmbient(DISPID_AMBIENT_LOCALEID, Com::Variant(1033), DISPID_AMBIENT_LOCALEID);
    EXPECT_EQ(Current(), u"C:\\App\\Help\\Quorvane_EN.chm");
}

} // namespace
} // namespace Quorvane
