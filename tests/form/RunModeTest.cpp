// SPDX-License-Identifier: MIT
// Run mode: fields and sliders, Fire, the event log, DataShow, the batch and its picture.
#include "tests/form/FormTest.h"
#include "tests/form/driving/Picture.h"

#include <fstream>

namespace Quorvane {
namespace {

class RunMode : public FormTest {
  protected:
    RunMode() : program_(RunArguments(SampleForm())) {}

    HWND Panel(int id) const { return Child(program_.RunPanel(), id); }

    void Fire() const {
        const int before = program_.EventCount(L"FIS.InferComplate");
        Click(Panel(Id::Fire));
        Expect("a cycle has ended",
               [&] { return program_.EventCount(L"FIS.InferComplate") == before + 1; });
    }

    FormProgram program_;
};

TEST_F(RunMode, FiresWithTheValuesOfTheFields) {
    program_.SetField(program_.Field(0), L"1.5");
    program_.SetField(program_.Field(1), L"0.25");
    Fire();
    EXPECT_EQ(program_.Output(L"Valve"), L"70");
    EXPECT_EQ(program_.Output(L"Fan"), L"72");
}

TEST_F(RunMode, AFailingCycleRaisesItsEventAndGivesTheErrorOutputs) {
    program_.SetField(program_.Field(0), L"broken");
    Fire();
    EXPECT_EQ(program_.EventCount(L"FIS.InferComplate"), 1);
    EXPECT_NE(program_.Output(L"Valve"), L"70");
    program_.SetField(program_.Field(0), L"1.5");
    program_.SetField(program_.Field(1), L"0.25");
    Fire();
    EXPECT_EQ(program_.Output(L"Valve"), L"70");
}

TEST_F(RunMode, ASliderSetsItsField) {
    FocusByClick(program_.Slider(0));
    Press(VK_HOME);
    Expect("the lower bound", [&] { return TextOf(program_.Field(0)) == L"-4"; });
    Press(VK_END);
    EXPECT_TRUE(WaitFor([&] { return TextOf(program_.Field(0)) == L"4"; }, 5000));
    Press(VK_LEFT);
    EXPECT_TRUE(WaitFor([&] { return TextOf(program_.Field(0)) == L"3.992"; }, 5000));
}

TEST_F(RunMode, AFieldPlacesItsSlider) {
    program_.SetField(program_.Field(0), L"0");
    EXPECT_EQ(SendMessageW(program_.Slider(0), TBM_GETPOS, 0, 0), 500);
    program_.SetField(program_.Field(0), L"99");
    EXPECT_EQ(SendMessageW(program_.Slider(0), TBM_GETPOS, 0, 0), 1000);
}

TEST_F(RunMode, FiresByItselfOnceAutoFireIsOn) {
    Click(Panel(Id::AutoFire));
    Expect("auto fire is on",
           [&] { return SendMessageW(Panel(Id::AutoFire), BM_GETCHECK, 0, 0) == BST_CHECKED; });
    program_.SetField(program_.Field(0), L"4");
    EXPECT_TRUE(WaitFor([&] { return program_.Output(L"Valve") == L"100"; }, 5000));
    const int typed = program_.EventCount(L"FIS.InferComplate");
    EXPECT_GE(typed, 1);
    FocusByClick(program_.Slider(0));
    Press(VK_HOME);
    EXPECT_TRUE(WaitFor([&] { return program_.Output(L"Valve") == L"0"; }, 5000));
    EXPECT_GT(program_.EventCount(L"FIS.InferComplate"), typed);
}

TEST_F(RunMode, ShowsValuesInTheControlOnceDataShowIsOn) {
    HWND const inputs = ChildOfClass(program_.Surface(), WC_LISTVIEWW);
    ASSERT_NE(inputs, nullptr);
    program_.SetField(program_.Field(0), L"1.5");
    const Picture former = RestingPictureOfClient(inputs);
    Fire();
    EXPECT_EQ(RestingPictureOfClient(inputs).Pixels, former.Pixels);
    Click(Panel(Id::DataShow));
    Fire();
    EXPECT_TRUE(WaitFor([&] { return PictureOfClient(inputs).Pixels != former.Pixels; }, 5000));
}

TEST_F(RunMode, ABatchWritesItsFilesAndDrawsTheirSurface) {
    HWND const picture = ChildOfClass(program_.RunPanel(), WindowClass::Picture);
    EXPECT_LE(RestingPictureOfClient(picture).ColorCount(), 16U) << "no surface yet";
    program_.RunBatch(10, Folder());
    EXPECT_EQ(program_.EventCount(L"FIS.InferComplate"), 121);
    for (const wchar_t* const name : {L"InData.txt", L"OutData.txt"}) {
        const std::string content = ContentOf(Folder() / name);
        EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 121);
    }
    // Tiles from blue over green to yellow.
    EXPECT_TRUE(WaitFor([&] { return PictureOfClient(picture).ColorCount() > 30; }, 5000));
    const Picture valve = RestingPictureOfClient(picture);
    FocusByClick(Panel(Id::OutputChoice));
    Press(VK_ESCAPE);
    Press(VK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return PictureOfClient(picture).Pixels != valve.Pixels; }, 5000))
        << "the other output has another surface";
}

TEST_F(RunMode, ThePictureIsThatOfABatchOfItsOwn) {
    // Left in the folder by a system of one input, and broken.
    std::ofstream(Folder() / L"InData.txt") << "1\n\n2\n";
    std::ofstream(Folder() / L"OutData.txt") << "5\n\n6\n";
    HWND const picture = ChildOfClass(program_.RunPanel(), WindowClass::Picture);
    const Picture before = RestingPictureOfClient(picture);
    HWND const choice = Panel(Id::OutputChoice);
    FocusByClick(choice);
    Press(VK_ESCAPE);
    Press(VK_DOWN);
    Expect("the other output is chosen",
           [&] { return SendMessageW(choice, CB_GETCURSEL, 0, 0) == 1; });
    EXPECT_EQ(RestingPictureOfClient(picture).Pixels, before.Pixels);
    EXPECT_TRUE(TopWindows(program_.ProcessId(), WindowClass::Dialog).empty());
    program_.RunBatch(10, Folder());
    EXPECT_TRUE(WaitFor([&] { return PictureOfClient(picture).ColorCount() > 30; }, 5000));
}

TEST_F(RunMode, ABatchShowsItsProgress) {
    program_.BeginBatch(100, Folder());
    // The program computes and answers nothing; the screen shows the bar grow all the same.
    HWND const bar = Panel(Id::Progress);
    RECT area{};
    GetWindowRect(bar, &area);
    HDC const screen = GetDC(nullptr);
    bool hasGrown = false;
    const COLORREF empty = GetPixel(screen, area.right - 8, (area.top + area.bottom) / 2);
    Expect("the bar grows or the batch ends", [&] {
        const COLORREF pixel = GetPixel(screen, area.left + 8, (area.top + area.bottom) / 2);
        hasGrown = hasGrown || pixel != empty;
        DWORD_PTR ignored = 0;
        return SendMessageTimeoutW(bar, WM_NULL, 0, 0, SMTO_NORMAL, 1, &ignored) != 0 && hasGrown;
    });
    ReleaseDC(nullptr, screen);
    EXPECT_TRUE(hasGrown);
    EXPECT_TRUE(
        WaitFor([&] { return program_.EventCount(L"FIS.InferComplate") == 101 * 101; }, 20000));
}

TEST_F(RunMode, WorksByTheKeyboardAlone) {
    FocusByClick(program_.Field(0));
    SendMessageW(program_.Field(0), EM_SETSEL, 0, -1);
    Type(L"1.5");
    Press(VK_TAB); // the slider
    Press(VK_TAB);
    Expect("the next field", [&] { return FocusOf(program_.Main()) == program_.Field(1); });
    Press('A', {VK_CONTROL});
    Type(L"0.25");
    Press('I', {VK_MENU});
    EXPECT_TRUE(WaitFor([&] { return program_.Output(L"Valve") == L"70"; }, 5000));
    Press(VK_F5, {VK_SHIFT});
    EXPECT_TRUE(WaitFor([&] { return !program_.IsInRunMode(); }, 5000));
    Press(VK_F5);
    EXPECT_TRUE(WaitFor([&] { return program_.IsInRunMode(); }, 5000));
}

TEST_F(RunMode, EnterAndEscInAFieldChangeNothingElse) {
    const std::wstring title = TextOf(program_.Main());
    FocusByClick(program_.Field(0));
    Press('A', {VK_CONTROL});
    Type(L"1");
    Press(VK_RETURN);
    Press(VK_ESCAPE);
    Type(L"5");
    EXPECT_TRUE(WaitFor([&] { return TextOf(program_.Field(0)) == L"15"; }, 5000));
    EXPECT_EQ(TextOf(program_.Main()), title);
    EXPECT_TRUE(program_.IsInRunMode());
    EXPECT_TRUE(TopWindows(program_.ProcessId(), WindowClass::Dialog).empty());
    EXPECT_EQ(program_.EventCount(L"FIS.InferComplate"), 0);
}

TEST_F(RunMode, EnterPressesTheButtonThatHasTheKeyboard) {
    const auto hasFired = [&](int times) {
        return WaitFor([&] { return program_.EventCount(L"FIS.InferComplate") == times; }, 5000);
    };
    FocusByClick(program_.Slider(1));
    Press(VK_TAB);
    Expect("the button has the keyboard",
           [&] { return FocusOf(program_.Main()) == Panel(Id::Fire); });
    Press(VK_RETURN);
    EXPECT_TRUE(hasFired(1));
    Click(Panel(Id::AutoFire));
    Click(Panel(Id::Fire));
    EXPECT_TRUE(hasFired(2));
    Press(VK_RETURN);
    EXPECT_TRUE(hasFired(3));
    FocusByClick(Panel(Id::Divisions));
    Press(VK_TAB);
    Press(VK_RETURN);
    HWND const chooser = program_.Dialog(WindowClass::Dialog);
    Press(VK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(chooser); }, 5000));
}

TEST_F(RunMode, TheKeyboardComesBackToTheFieldThatADialogInterrupted) {
    FocusByClick(program_.Field(1));
    HWND const frame = program_.OpenPropertyFrame();
    Press(VK_ESCAPE);
    Expect("the frame closes", [&] { return !IsWindow(frame); });
    EXPECT_TRUE(WaitFor([&] { return FocusOf(program_.Main()) == program_.Field(1); }, 5000));
}

TEST_F(RunMode, ShowsThePageOfARunningControlWithoutLettingItEdit) {
    const PageHands page(program_, program_.OpenPropertyFrame());
    page.Select(Id::TreInput, {L"TempDiff"});
    EXPECT_FALSE(IsWindowEnabled(page.Button(Id::CmdAdd)));
    EXPECT_FALSE(IsWindowEnabled(page.Button(Id::CmdModify)));
    EXPECT_FALSE(IsWindowEnabled(page.Button(Id::CmdRule)));
    EXPECT_GT(RestingPictureOfClient(page.Button(Id::PicMF)).ColorCount(), 5U);
    program_.Answer(page.Frame(), Id::Ok);
}

TEST_F(RunMode, ShowsTheAboutBox) {
    PostMessageW(program_.Main(), WM_COMMAND, Id::About, 0);
    HWND const box = program_.Dialog(WindowClass::Dialog);
    std::wstring text;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        text += TextOf(child);
    }
    EXPECT_NE(text.find(L"Version 1.0.5"), std::wstring::npos) << std::filesystem::path(text);
    program_.Answer(box, IDOK);
}

} // namespace
} // namespace Quorvane
