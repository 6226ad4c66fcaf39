// SPDX-License-Identifier: MIT
// The editors on a rule base of 32,767 rules, and what they take for it.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>

#include "com/Scoped.h"
#include "tests/editorwindows/PageTest.h"
#include "tests/editorwindows/RuleEditorHands.h"

namespace Quorvane {
namespace {

/// Tells how long something took, in milliseconds; nothing is expected of it.
class Watch {
  public:
    explicit Watch(const char* what) : what_(what) {}
    ~Watch() {
        const std::chrono::duration<double, std::milli> taken = Clock::now() - begun_;
        std::printf("[ MEASURED ] %s: %.0f ms\n", what_, taken.count());
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

  private:
    using Clock = std::chrono::steady_clock;

    const char* what_;
    Clock::time_point begun_ = Clock::now();
};

/// All but one of the rules over five inputs of eight terms.
Text ManyRules() {
    Text rules;
    for (int i = 0; i < 32767; ++i) {
        char rule[96];
        std::snprintf(rule, sizeof rule, "A>T%d;B>T%d;C>T%d;D>T%d;E>T%d/Y<P:1|", i % 8, i / 8 % 8,
                      i / 64 % 8, i / 512 % 8, i / 4096 % 8);
        rules += Widen(rule);
    }
    rules.pop_back();
    return rules;
}

Text FiveInputs() {
    Text inputs;
    for (const char16_t name : TextView(u"ABCDE")) {
        inputs += Text(1, name) + u"/8/0/";
        for (char16_t term = u'0'; term < u'8'; ++term) {
            inputs += Text(u"T") + term + u",0,1,2,3" + (term < u'7' ? u";" : u"|");
        }
    }
    inputs.pop_back();
    return inputs;
}

TEST_F(PageTest, TheEditorsTake32767Rules) {
    const Text inputs = FiveInputs();
    const Text rules = ManyRules();
    const Placed control = Design({inputs, u"Y/1/0/P,0.5", rules});
    Open({control.Control.Get()});
    auto opening = std::make_unique<Watch>("opening the rule editor");
    InRuleEditor([&](HWND window) {
        opening.reset();
        const RuleEditorHands editor(window);
        EXPECT_EQ(editor.RowCount(), 32767);
        EXPECT_EQ(editor.SelectedRow(), 32766);
        EXPECT_TRUE(editor.IsRowInView(32766));
        EXPECT_FALSE(editor.IsRowInView(0));
        editor.ClickRow(32766);
        editor.Choose(u"lstInA", u"T7");
        editor.TypeWeight(u"0.5");
        {
            const Watch watch("adding a rule");
            editor.Push(RuleEditorHands::CmdAdd);
        }
        EXPECT_EQ(editor.RowCount(), 32768);
        EXPECT_FALSE(::IsWindowEnabled(editor.Part(RuleEditorHands::CmdAdd)));
        EXPECT_EQ(editor.Cell(32767, 7), u"0.5");
        EXPECT_EQ(editor.SelectedRow(), 32767);
        EXPECT_TRUE(editor.IsRowInView(32767));
        editor.ClickRow(32767);
        {
            const Watch watch("deleting a rule");
            editor.Push(RuleEditorHands::CmdDelete);
        }
        EXPECT_EQ(editor.RowCount(), 32767);
        EXPECT_TRUE(editor.IsRowInView(32766));
        {
            const Watch watch("sorting by the second condition");
            editor.ClickHeader(2);
        }
        editor.Escape();
    });
    Click(Tree(true), Item(Tree(true), {u"A"}));
    {
        const Watch watch("renaming a variable of every rule");
        EditLabel(Tree(true), u"Level");
    }
    const Watch watch("applying");
    ASSERT_EQ(page_->Apply(), S_OK);
    EXPECT_TRUE(GetText(*control, &_FISControl::get_Rules)
                    .starts_with(Stored(u"Level>T0;B>T0;C>T0;D>T0;E>T0/Y<P:1|")));
}

} // namespace
} // namespace Quorvane
