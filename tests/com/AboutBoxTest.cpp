// SPDX-License-Identifier: MIT
// The about box, and the language of it: the one text of the control that follows it at once.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

constexpr TextView EnglishVersion = u"The Fuzzy Inference System ActiveX Control - Version 1.0.5";
constexpr TextView ChineseVersion =
    u"\u6A21\u7CCA\u63A8\u7406\u7CFB\u7EDF ActiveX \u63A7\u4EF6 \uFF0D \u7248\u672C 1.0.5";

class AboutBox : public ControlTest {
  protected:
    /// What one call of ShowAboutBox shows.
    static ShownBox Show(const Placed& placed) {
        MessageBoxes boxes;
        EXPECT_EQ(placed->ShowAboutBox(), S_OK);
        EXPECT_EQ(boxes.Shown.size(), 1u);
        return boxes.Shown.empty() ? ShownBox{} : boxes.Shown[0];
    }

    /// The version line of the about box; a copyright line follows it after a carriage return.
    static Text VersionLine(const Placed& placed) {
        const Text message = Show(placed).Message;
        const auto end = message.find(u'\r');
        EXPECT_NE(end, Text::npos) << Narrow(message);
        EXPECT_GT(message.size(), end + 1) << "a line of its own for the copyright";
        EXPECT_EQ(message.find_first_of(u"\r\n", end + 1), Text::npos);
        return message.substr(0, end);
    }

    static void SetLocale(const Placed& placed, std::uint32_t locale) {
        placed.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(static_cast<LONG>(locale));
    }

    static void TellOfChange(const Placed& placed, DISPID property) {
        EXPECT_EQ(As<IOleControl>(placed)->OnAmbientPropertyChange(property), S_OK);
    }

    /// A new control on a form of this locale.
    Placed NewIn(std::uint32_t locale, bool runMode) const {
        Placed placed = Place(runMode);
        SetLocale(placed, locale);
        EXPECT_EQ(InitNew(placed.Control), S_OK);
        return placed;
    }
};

TEST_F(AboutBox, ShowsVersionAndCopyrightWithAnInformationIcon) {
    const ShownBox box = Show(New(false));
    EXPECT_EQ(box.Title, u"QuorvaneAxEditor");
    EXPECT_EQ(box.Icon, IDI_INFORMATION);
    EXPECT_EQ(box.Buttons, std::vector<Text>{u"OK"});
    EXPECT_EQ(Text(EnglishVersion), box.Message.substr(0, EnglishVersion.size()));
}

TEST_F(AboutBox, IsShownForABareControl) {
    EXPECT_EQ(VersionLine({nullptr, Create()}), EnglishVersion);
}

TEST_F(AboutBox, IsShownWhateverTheModeAndOften) {
    const auto placed = Run(Adder);
    EXPECT_EQ(VersionLine(placed), VersionLine(placed));
}

TEST_F(AboutBox, OutlivesTheHostsLastReference) {
    auto control = Create();
    MessageBoxes boxes([&control] { control.Reset(); });
    _FISControl* const bare = control.Get();
    EXPECT_EQ(bare->ShowAboutBox(), S_OK);
    EXPECT_EQ(boxes.Shown.size(), 1u);
    EXPECT_FALSE(control);
}

TEST_F(AboutBox, SpeaksTheLanguageOfTheFormForANewControl) {
    const struct {
        std::uint32_t Locale;
        bool IsChinese;
    } cases[] = {
        {0x0409, false},     {0x0804, true}, {0x0404, false}, {0x0C04, false},     {0x1004, false},
        {0x00010804, false}, {0, false},     {0x0407, false}, {0x80000804, false},
    };
    for (const bool runMode : {false, true}) {
        for (const auto& [locale, isChinese] : cases) {
            EXPECT_EQ(VersionLine(NewIn(locale, runMode)),
                      isChinese ? ChineseVersion : EnglishVersion)
                << std::hex << locale;
        }
    }
}

TEST_F(AboutBox, SpeaksTheLanguageOfTheFormForAControlLoadedAtDesignTime) {
    const auto placed = Place(false);
    SetLocale(placed, 0x804);
    EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(VersionLine(placed), ChineseVersion);
}

TEST_F(AboutBox, SpeaksTheLanguageOfTheUserForAControlLoadedAtRunTime) {
    const auto placed = Place(true);
    // Neither the form's nor the one that is opposite to the user's.
    const bool userIsChinese = ::GetUserDefaultLangID() == 0x804;
    SetLocale(placed, userIsChinese ? 0x409 : 0x804);
    EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(VersionLine(placed), userIsChinese ? ChineseVersion : EnglishVersion);
}

TEST_F(AboutBox, SwitchesWithTheLocaleOfTheForm) {
    for (const DISPID property : {DISPID_AMBIENT_LOCALEID, DISPID_UNKNOWN}) {
        const auto placed = NewIn(0x409, false);
        SetLocale(placed, 0x804);
        EXPECT_EQ(VersionLine(placed), EnglishVersion) << "nothing was said of the change";
        TellOfChange(placed, DISPID_AMBIENT_BACKCOLOR);
        EXPECT_EQ(VersionLine(placed), EnglishVersion) << "another property";
        TellOfChange(placed, property);
        EXPECT_EQ(VersionLine(placed), ChineseVersion);
        SetLocale(placed, 0x00010804);
        TellOfChange(placed, property);
        EXPECT_EQ(VersionLine(placed), EnglishVersion);
    }
}

TEST_F(AboutBox, SpeaksTheLanguageOfTheUserWhereTheFormNamesNone) {
    const bool userIsChinese = ::GetUserDefaultLCID() == 0x804;
    const auto chinese = NewIn(0x804, false);
    const auto placed = Place(false);
    placed.Site->Ambients.erase(DISPID_AMBIENT_LOCALEID);
    ASSERT_EQ(InitNew(placed.Control), S_OK);
    EXPECT_EQ(VersionLine(placed), userIsChinese ? ChineseVersion : EnglishVersion);
}

TEST_F(AboutBox, SpeaksOneLanguageForAllControls) {
    const auto first = NewIn(0x409, false);
    const auto second = NewIn(0x804, false);
    EXPECT_EQ(VersionLine(first), ChineseVersion);
}

} // namespace
} // namespace Quorvane
