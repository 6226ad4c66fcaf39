// SPDX-License-Identifier: MIT
// Design mode: moving and sizing controls, their properties, two controls on one form.
#include "tests/form/FormTest.h"

namespace Quorvane {
namespace {

/// The sample's control stands at (8, 8) on the form and is 500 by 300 pixels large, at 96 dots per
/// inch.
class DesignMode : public FormTest {
  protected:
    DesignMode() : program_(DesignArguments(SampleForm())) {}

    /// Saves the form and gives the number that stands behind a key.
    int Saved(const std::string& key) {
        const auto path = Folder() / L"Placed.form";
        if (std::filesystem::exists(path)) {
            program_.Save();
        } else {
            program_.SaveAs(path);
        }
        const std::string content = ContentOf(path);
        const auto at = content.find(key + " = ");
        return at == std::string::npos ? -1 : std::stoi(content.substr(at + key.size() + 3));
    }

    HWND Grid() const { return Child(program_.PropertyGrid(), Id::GridList); }

    /// Begins to edit the caption in the grid; the field.
    HWND BeginCaption(const std::wstring& caption) const {
        Click(Grid(), RowPoint(Grid(), RowOf(Grid(), L"Caption")));
        Press(VK_F2);
        HWND const field = Child(Grid(), Id::GridField);
        Expect("a property is edited", [&] { return FocusOf(field) == field; });
        Type(caption);
        Expect("a property is typed", [&] { return TextOf(field) == caption; });
        return field;
    }

    FormProgram program_;
};

TEST_F(DesignMode, DragsAControlInStepsOfTheGrid) {
    Drag(program_.Surface(), {200, 200}, {243, 221});
    // 43 pixels from 8 are 51, next to 48; 21 from 8 are 29, next to 32.
    EXPECT_EQ(Saved("Left"), 48 * 15);
    EXPECT_EQ(Saved("Top"), 32 * 15);
    EXPECT_EQ(Saved("Width"), 7500);
}

TEST_F(DesignMode, SizesAControlByItsHandles) {
    Click(program_.Surface(), {200, 200});
    Drag(program_.Surface(), {508, 308}, {412, 340});
    EXPECT_EQ(Saved("Left"), 120);
    EXPECT_EQ(Saved("Width"), (416 - 8) * 15);
    EXPECT_EQ(Saved("Height"), (344 - 8) * 15);
}

TEST_F(DesignMode, MovesAndSizesByTheArrowKeys) {
    Click(program_.Surface(), {200, 200});
    Press(VK_RIGHT);
    Press(VK_DOWN);
    Press(VK_DOWN);
    Press(VK_LEFT, {VK_SHIFT});
    EXPECT_EQ(Saved("Left"), 16 * 15);
    EXPECT_EQ(Saved("Top"), 24 * 15);
    EXPECT_EQ(Saved("Width"), 492 * 15);
}

TEST_F(DesignMode, EditsPropertiesInTheGrid) {
    Click(program_.Surface(), {200, 200});
    program_.SetProperty(L"Caption", L"Boiler");
    EXPECT_EQ(GridValue(program_, L"Enabled"), L"True");
    Click(Grid(), RowPoint(Grid(), RowOf(Grid(), L"Enabled")));
    Press(VK_F2);
    Expect("a Boolean turns over", [&] { return GridValue(program_, L"Enabled") == L"False"; });
    EXPECT_EQ(Saved("Left"), 120);
    const std::string content = ContentOf(Folder() / L"Placed.form");
    EXPECT_NE(content.find("Caption = \"Boiler\""), std::string::npos);
    EXPECT_NE(content.find("Enabled = False"), std::string::npos);
}

TEST_F(DesignMode, EscLeavesAPropertyAsItWas) {
    Click(program_.Surface(), {200, 200});
    HWND const field = BeginCaption(L"Boiler");
    Press(VK_ESCAPE);
    Expect("the edit ends", [&] { return !IsWindowVisible(field); });
    EXPECT_EQ(GridValue(program_, L"Caption"), L"Room heating");
}

TEST_F(DesignMode, AnEditLeftByAClickIsTakenAndTheKeyboardGoesWhereTheClickWas) {
    HWND const field = BeginCaption(L"Boiler");
    Click(program_.Surface(), {200, 200});
    EXPECT_TRUE(WaitFor([&] { return GridValue(program_, L"Caption") == L"Boiler"; }, 5000));
    EXPECT_FALSE(IsWindowVisible(field));
    EXPECT_EQ(FocusOf(program_.Main()), program_.Surface());
}

TEST_F(DesignMode, ACommandTakesTheEditThatItInterrupts) {
    EXPECT_EQ(Saved("Left"), 120);
    BeginCaption(L"Boiler");
    Press('S', {VK_CONTROL});
    const auto saved = [&](const char* text) {
        return WaitFor(
            [&] { return ContentOf(Folder() / L"Placed.form").find(text) != std::string::npos; },
            5000);
    };
    EXPECT_TRUE(saved("Caption = \"Boiler\""));
    BeginCaption(L"Radiator");
    Press('N', {VK_CONTROL});
    program_.Answer(program_.DialogTitled(L"Quorvane Form"), IDCANCEL);
    EXPECT_EQ(GridValue(program_, L"Caption"), L"Radiator");
    BeginCaption(L"Stove");
    program_.SetRunMode(true);
    program_.SetRunMode(false);
    EXPECT_EQ(GridValue(program_, L"Caption"), L"Stove");
}

TEST_F(DesignMode, SelectsControlsByTheTabKey) {
    const auto selected = [&](const wchar_t* name) {
        return WaitFor(
            [&] { return TextOf(Child(program_.PropertyGrid(), Id::GridTitle)) == name; }, 5000);
    };
    const auto hasKeyboard = [&](HWND window) {
        return WaitFor([&] { return FocusOf(program_.Main()) == window; }, 5000);
    };
    EXPECT_TRUE(hasKeyboard(program_.Surface()));
    program_.AddControl();
    Press(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(selected(L"FIS"));
    Press(VK_TAB);
    EXPECT_TRUE(selected(L"FIS1"));
    // Past the last control it leaves the form, and comes back.
    Press(VK_TAB);
    EXPECT_TRUE(hasKeyboard(Grid()));
    Press(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(hasKeyboard(program_.Surface()));
    EXPECT_TRUE(selected(L"FIS1"));
    Press(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(selected(L"FIS"));
    Press(VK_DELETE);
    EXPECT_TRUE(selected(L""));
    Press(VK_TAB);
    EXPECT_TRUE(selected(L"FIS1"));
}

TEST_F(DesignMode, GivesThePageTheKeyboardWhenItOpensAndAfterAMessage) {
    const PageHands page(program_, program_.OpenPropertyFrame());
    HWND const tree = page.Tree(Id::TreInput);
    EXPECT_TRUE(WaitFor([&] { return FocusOf(tree) == tree; }, 5000));
    page.BeginEdit(Id::TreInput, TreeItem(tree, {L"TempDiff", L"Warm", L"0"}), L"9");
    Press(VK_RETURN);
    HWND const message = program_.Dialog(WindowClass::Dialog);
    Press(VK_RETURN);
    Expect("the message closes", [&] { return !IsWindow(message); });
    // No click from here on.
    EXPECT_TRUE(
        WaitFor([&] { return FocusOf(tree) == tree || IsChild(tree, FocusOf(tree)); }, 5000));
    Press(VK_ESCAPE);
    Expect("no label is edited", [&] { return !TreeView_GetEditControl(tree); });
    Press(VK_HOME);
    EXPECT_TRUE(
        WaitFor([&] { return TreeView_GetSelection(tree) == TreeView_GetRoot(tree); }, 5000));
}

TEST_F(DesignMode, HidesTheDefinitionFromTheGrid) {
    Click(program_.Surface(), {200, 200});
    std::vector<std::wstring> names;
    for (int row = 0; row < RowCount(Grid()); ++row) {
        names.push_back(Cell(Grid(), row, 0));
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{L"Caption", L"Enabled", L"Font", L"BackColor",
                                                L"ForeColor"}));
}

TEST_F(DesignMode, OpensThePropertyPagesByADoubleClick) {
    DoubleClick(program_.Surface(), {200, 200});
    HWND const frame = program_.Dialog(WindowClass::PropertyFrame);
    EXPECT_EQ(TextOf(frame), L"FIS Properties");
    const PageHands page(program_, frame);
    EXPECT_EQ(ChildTexts(page.Tree(Id::TreInput), TreeItem(page.Tree(Id::TreInput), {})),
              (std::vector<std::wstring>{L"TempDiff", L"TempRate"}));
    EXPECT_FALSE(IsWindowEnabled(Child(frame, Id::Apply)));
    program_.Answer(frame, Id::Cancel);
}

TEST_F(DesignMode, HelpWithoutAHelpFileDoesNothing) {
    Click(program_.Surface(), {200, 200});
    const PageHands page(program_, program_.OpenPropertyFrame());
    page.Select(Id::TreInput, {L"TempDiff"});
    Click(Child(page.Frame(), Id::Help));
    FocusByClick(page.Tree(Id::TreInput));
    Press(VK_F1);
    page.Select(Id::TreOutput, {L"Valve"});
    EXPECT_EQ(TextOf(page.Button(Id::CmdAdd)), L"Add Term");
    EXPECT_TRUE(TopWindows(program_.ProcessId(), WindowClass::Dialog).empty());
    program_.Answer(page.Frame(), Id::Cancel);
}

TEST_F(DesignMode, CancelInTheFrameDropsTheEdits) {
    Click(program_.Surface(), {200, 200});
    HWND const frame = program_.OpenPropertyFrame();
    const PageHands page(program_, frame);
    page.Edit(Id::TreInput, {L"TempDiff"}, L"Diff");
    EXPECT_TRUE(IsWindowEnabled(Child(frame, Id::Apply)));
    program_.Answer(frame, Id::Cancel);
    const PageHands again(program_, program_.OpenPropertyFrame());
    EXPECT_NE(TreeItem(again.Tree(Id::TreInput), {L"TempDiff"}), nullptr);
    program_.Answer(again.Frame(), Id::Cancel);
}

TEST_F(DesignMode, ClosingAVariableOverItsTermSelectsTheVariable) {
    Click(program_.Surface(), {200, 200});
    const PageHands page(program_, program_.OpenPropertyFrame());
    page.Select(Id::TreInput, {L"TempDiff", L"Warm"});
    EXPECT_EQ(TextOf(page.Button(Id::CmdDelete)), L"Delete Term");
    Press(VK_LEFT);
    Press(VK_LEFT);
    // The term is closed, then its variable selected; once more closes that.
    Press(VK_LEFT);
    EXPECT_TRUE(
        WaitFor([&] { return TextOf(page.Button(Id::CmdDelete)) == L"Delete Variable"; }, 5000));
    program_.Answer(page.Frame(), Id::Cancel);
}

TEST_F(DesignMode, ResizesThePageWithItsFrame) {
    Click(program_.Surface(), {200, 200});
    const PageHands page(program_, program_.OpenPropertyFrame());
    const auto sizeOf = [](HWND window) {
        RECT area{};
        GetClientRect(window, &area);
        return area;
    };
    HWND const graph = page.Button(Id::PicMF);
    const RECT before = sizeOf(graph);
    RECT frame{};
    GetWindowRect(page.Frame(), &frame);
    SetWindowPos(page.Frame(), nullptr, 0, 0, frame.right - frame.left + 100,
                 frame.bottom - frame.top + 80, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(WaitFor([&] { return sizeOf(graph).right == before.right + 100; }, 5000));
    EXPECT_GT(sizeOf(graph).bottom, before.bottom);
    program_.Answer(page.Frame(), Id::Cancel);
}

TEST_F(DesignMode, TwoControlsShareTheSystem) {
    program_.AddControl();
    EXPECT_EQ(TextOf(Child(program_.PropertyGrid(), Id::GridTitle)), L"FIS1");
    const PageHands page(program_, program_.OpenPropertyFrame());
    HWND const tree = page.Tree(Id::TreInput);
    EXPECT_EQ(ChildTexts(tree, TreeItem(tree, {})), (std::vector<std::wstring>{L"Error", L"Rate"}));
    program_.Answer(page.Frame(), Id::Cancel);

    program_.SetRunMode(true);
    HWND const choice = Child(program_.RunPanel(), Id::ControlChoice);
    ASSERT_EQ(SendMessageW(choice, CB_GETCOUNT, 0, 0), 2);
    Click(Child(program_.RunPanel(), Id::Fire));
    EXPECT_TRUE(WaitFor([&] { return program_.EventCount(L"FIS.InferComplate") == 1; }, 5000));
    // The control loaded last has made its system that of both.
    EXPECT_EQ(program_.Output(L"Action"), L"-1");
    const auto showsData = [&] {
        return SendMessageW(Child(program_.RunPanel(), Id::DataShow), BM_GETCHECK, 0, 0) ==
               BST_CHECKED;
    };
    Click(Child(program_.RunPanel(), Id::DataShow));
    Expect("the first control shows its data", showsData);
    FocusByClick(choice);
    Press(VK_ESCAPE);
    Press(VK_DOWN);
    Expect("the other control is chosen",
           [&] { return SendMessageW(choice, CB_GETCURSEL, 0, 0) == 1; });
    Click(Child(program_.RunPanel(), Id::Fire));
    EXPECT_TRUE(WaitFor([&] { return program_.EventCount(L"FIS1.InferComplate") == 1; }, 5000));
    EXPECT_EQ(program_.EventCount(L"FIS.InferComplate"), 1);
    EXPECT_FALSE(showsData()) << "the other control does not";
    FocusByClick(choice);
    Press(VK_ESCAPE);
    Press(VK_UP);
    EXPECT_TRUE(WaitFor(showsData, 5000)) << "the first still does";
}

TEST_F(DesignMode, RemovesAControlByDelete) {
    Click(program_.Surface(), {200, 200});
    Press(VK_DELETE);
    Expect("the control is gone", [&] { return RowCount(Grid()) == 0; });
    EXPECT_TRUE(TextOf(Child(program_.PropertyGrid(), Id::GridTitle)).empty());
    EXPECT_EQ(Saved("Left"), -1);
}

} // namespace
} // namespace Quorvane
