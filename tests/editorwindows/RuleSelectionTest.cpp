// SPDX-License-Identifier: MIT
// The row that is highlighted in the rule editor is the row that it acts on, however the selection
// is made or lost.
#include <gtest/gtest.h>

#include "com/Scoped.h"
#include "tests/com/support/HeldKey.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"

namespace Quorvane {
namespace {

using Texts = std::vector<Text>;

class RuleSelectionTest : public PageTest {
  protected:
    void Work(const std::function<void(const RuleEditorHands&)>& work) {
        const Placed control = Design(TwoInputs);
        Open({control.Control.Get()});
        InRuleEditor([&](HWND window) {
            const RuleEditorHands editor(window);
            work(editor);
            editor.Escape();
        });
        Close();
    }
};

/// Consequents of the four rules.
const Texts AllRules{u"None", u"Four", u"Eight", u"Twelve"};

struct WayToLoseIt {
    const char* Name;
    void (*Go)(const RuleEditorHands&);
};

void ClickRowWithControl(const RuleEditorHands& editor) {
    const HeldKey held(VK_CONTROL);
    editor.ClickRow(1);
}

void TypeControlSpace(const RuleEditorHands& editor) {
    ::SetFocus(editor.Rules());
    const HeldKey held(VK_CONTROL);
    editor.Type(VK_SPACE);
}

constexpr WayToLoseIt WaysToLoseIt[] = {
    {"the empty area", [](const RuleEditorHands& editor) { editor.ClickBelowRows(); }},
    {"Ctrl and a click", ClickRowWithControl},
    {"Ctrl and space", TypeControlSpace},
};

TEST_F(RuleSelectionTest, WithoutAHighlightNothingIsDeleted) {
    for (const WayToLoseIt& way : WaysToLoseIt) {
        Work([&](const RuleEditorHands& editor) {
            SCOPED_TRACE(way.Name);
            editor.ClickRow(1);
            way.Go(editor);
            // Not every list gives the selection away in all these ways.
            const bool isLost = editor.SelectedRow() < 0;
            Texts rest = AllRules;
            if (!isLost) {
                rest.erase(rest.begin() + editor.SelectedRow());
            }
            editor.Push(RuleEditorHands::CmdDelete);
            EXPECT_EQ(editor.Column(3), rest);
            ::SetFocus(editor.Rules());
            if (isLost) {
                editor.Type(VK_DELETE);
                EXPECT_EQ(editor.Column(3), rest) << "by the key";
            }
        });
    }
}

TEST_F(RuleSelectionTest, AClickBelowTheRowsTakesTheHighlightAway) {
    Work([](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        editor.ClickBelowRows();
        EXPECT_EQ(editor.SelectedRow(), -1);
        EXPECT_EQ(editor.Chosen(u"lstOutSum"), u"Four") << "the rule on the left stays";
    });
}

TEST_F(RuleSelectionTest, ALostSelectionStaysLostWhenTheRowsAreSorted) {
    Work([](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        editor.ClickBelowRows();
        editor.ClickHeader(0);
        editor.ClickHeader(0);
        EXPECT_EQ(editor.SelectedRow(), -1);
        editor.Push(RuleEditorHands::CmdDelete);
        EXPECT_EQ(editor.RowCount(), 4);
    });
}

TEST_F(RuleSelectionTest, TheHighlightGoesWithItsRuleWhenTheRowsAreSorted) {
    Work([](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        editor.ClickHeader(0);
        editor.ClickHeader(0);
        EXPECT_EQ(editor.SelectedRow(), 2);
        editor.Push(RuleEditorHands::CmdDelete);
        EXPECT_EQ(editor.Column(3), (Texts{u"Twelve", u"Eight", u"None"}));
        // The last rule of the rule base is selected then.
        EXPECT_EQ(editor.SelectedRow(), 0);
        editor.Push(RuleEditorHands::CmdDelete);
        EXPECT_EQ(editor.Column(3), (Texts{u"Eight", u"None"}));
    });
}

TEST_F(RuleSelectionTest, ARowIsSelectedAgainByMouseAndByKeyboard) {
    Work([](const RuleEditorHands& editor) {
        editor.ClickRow(1);
        editor.ClickBelowRows();
        ::SetFocus(editor.Rules());
        editor.Type(VK_DOWN);
        EXPECT_EQ(editor.SelectedRow(), 2);
        EXPECT_EQ(editor.Chosen(u"lstOutSum"), u"Eight");
        editor.ClickBelowRows();
        editor.ClickRow(0);
        editor.Push(RuleEditorHands::CmdDelete);
        EXPECT_EQ(editor.Column(3), (Texts{u"Four", u"Eight", u"Twelve"}));
    });
}

TEST_F(RuleSelectionTest, AnAddedRuleIsSelectedAfterTheSelectionWasLost) {
    Work([](const RuleEditorHands& editor) {
        editor.ClickBelowRows();
        editor.AddRule({{u"lstInA", u"[NONE]"}}, u"0.5");
        EXPECT_EQ(editor.SelectedRow(), 4);
        editor.ClickBelowRows();
        // The rule is there already: its weight is changed.
        editor.TypeWeight(u"0.25");
        editor.Push(RuleEditorHands::CmdAdd);
        EXPECT_EQ(editor.SelectedRow(), 4);
        EXPECT_EQ(editor.Cell(4, 4), u"0.25");
    });
}

TEST_F(RuleSelectionTest, TypedDigitsGoToTheRuleWithThatNumber) {
    Work([](const RuleEditorHands& editor) {
        ::SetFocus(editor.Rules());
        editor.TypeCharacter(L'2');
        EXPECT_EQ(editor.SelectedRow(), 1);
        EXPECT_EQ(editor.Chosen(u"lstOutSum"), u"Four");
    });
    Work([](const RuleEditorHands& editor) {
        ::SetFocus(editor.Rules());
        editor.TypeCharacter(L'x');
        EXPECT_EQ(editor.SelectedRow(), 3) << "a letter goes nowhere";
    });
}

} // namespace
} // namespace Quorvane
