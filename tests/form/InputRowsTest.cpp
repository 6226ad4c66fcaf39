// SPDX-License-Identifier: MIT
// The fields and sliders of the inputs, of a system with more of them than the panel shows at once.
#include "tests/form/FormTest.h"
#include "tests/form/driving/Picture.h"

#include <fstream>

namespace Quorvane {
namespace {

/// A stored text of the control: two hexadecimal digits for each character, the low one first.
std::string Stored(const std::string& plain) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string stored;
    for (const char character : plain) {
        stored += Digits[static_cast<unsigned char>(character) % 16];
        stored += Digits[static_cast<unsigned char>(character) / 16];
    }
    return stored;
}

class InputRows : public FormTest {
  protected:
    InputRows() : program_(RunArguments(WriteForm())) {}

    /// Six inputs: the first with a lower bound of many places, the second with equal bounds.
    std::filesystem::path WriteForm() const {
        std::string inputs = "A/1/0.12345/Any,0,0,1,1|B/2/2/Any,2,2,2,2";
        std::string rule = "A>Any;B>[NONE]";
        for (const char* const name : {"C", "D", "E", "F"}) {
            inputs += std::string("|") + name + "/1/0/Any,0,0,1,1";
            rule += std::string(";") + name + ">[NONE]";
        }
        const auto path = Folder() / L"Six.form";
        std::ofstream(path, std::ios::binary)
            << "Version 1\r\nBegin Form Six\r\n    Begin QuorvaneAxEditor.FISControl FIS\r\n"
            << "        Inputs = \"" << Stored(inputs) << "\"\r\n        Outputs = \""
            << Stored("Y/1/0/High,1") << "\"\r\n        Rules = \"" << Stored(rule + "/Y<High:1")
            << "\"\r\n    End\r\nEnd\r\n";
        return path;
    }

    /// Whether the whole of an input's field can be seen in the panel.
    bool IsInView(int input) const {
        HWND const field = program_.Field(input);
        RECT area{};
        GetWindowRect(field, &area);
        MapWindowPoints(nullptr, GetParent(field), reinterpret_cast<POINT*>(&area), 2);
        RECT panel{};
        GetClientRect(GetParent(field), &panel);
        return area.top >= 0 && area.bottom <= panel.bottom;
    }

    FormProgram program_;
};

TEST_F(InputRows, ScrollToWhatGetsTheKeyboard) {
    FocusByClick(program_.Field(0));
    EXPECT_TRUE(IsInView(0));
    EXPECT_FALSE(IsInView(5));
    for (int i = 0; i < 10; ++i) {
        Press(VK_TAB);
    }
    EXPECT_TRUE(WaitFor([&] { return FocusOf(program_.Main()) == program_.Field(5); }, 5000));
    EXPECT_TRUE(WaitFor([&] { return IsInView(5); }, 5000));
    EXPECT_FALSE(IsInView(0));
    for (int i = 0; i < 9; ++i) {
        Press(VK_TAB, {VK_SHIFT});
    }
    EXPECT_TRUE(WaitFor([&] { return FocusOf(program_.Main()) == program_.Slider(0); }, 5000));
    EXPECT_TRUE(WaitFor([&] { return IsInView(0); }, 5000));
}

TEST_F(InputRows, ScrollByTheWheel) {
    HWND const field = program_.Field(0);
    const auto turn = [&](int notches) {
        SendMessageW(field, WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), 0);
    };
    turn(-1);
    EXPECT_FALSE(IsInView(0));
    EXPECT_TRUE(IsInView(4));
    turn(-9);
    EXPECT_TRUE(IsInView(5));
    turn(9);
    EXPECT_TRUE(IsInView(0));
}

TEST_F(InputRows, TheEndsOfASliderAreTheBounds) {
    FocusByClick(program_.Slider(0));
    const auto shows = [&](int input, const wchar_t* text) {
        return WaitFor([&] { return TextOf(program_.Field(input)) == text; }, 5000);
    };
    Press(VK_END);
    EXPECT_TRUE(shows(0, L"1"));
    Press(VK_HOME);
    EXPECT_TRUE(shows(0, L"0.12345"));
}

TEST_F(InputRows, EqualBoundsLeaveOneValue) {
    program_.SetField(program_.Field(1), L"3");
    EXPECT_EQ(SendMessageW(program_.Slider(1), TBM_GETPOS, 0, 0), 1000);
    program_.SetField(program_.Field(1), L"2");
    EXPECT_EQ(SendMessageW(program_.Slider(1), TBM_GETPOS, 0, 0), 0);
    FocusByClick(program_.Slider(1));
    Press(VK_HOME);
    Press(VK_PRIOR);
    Press(VK_NEXT);
    EXPECT_TRUE(WaitFor([&] { return TextOf(program_.Field(1)) == L"2"; }, 5000));
}

TEST_F(InputRows, ABatchOfManyInputsHasNoPicture) {
    HWND const picture = ChildOfClass(program_.RunPanel(), WindowClass::Picture);
    const Picture before = RestingPictureOfClient(picture);
    program_.SetField(program_.Field(1), L"2");
    program_.RunBatch(1, Folder());
    EXPECT_EQ(program_.EventCount(L"FIS.InferComplate"), 64);
    EXPECT_TRUE(WaitFor([&] { return PictureOfClient(picture).Pixels != before.Pixels; }, 5000));
    EXPECT_LE(RestingPictureOfClient(picture).ColorCount(), 16U);
    EXPECT_TRUE(TopWindows(program_.ProcessId(), WindowClass::Dialog).empty());
}

} // namespace
} // namespace Quorvane
