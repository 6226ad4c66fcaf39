// SPDX-License-Identifier: MIT
// Child controls of the editors' windows, in the font of the user's dialogs.
#include "editor/windows/Controls.h"

#include "com/Module.h"
#include "win/WideText.h"
#include "win/WindowText.h"

namespace Quorvane::Editor {
namespace {

constexpr int PointSize = 8;
constexpr int PointsPerInch = 72;

HFONT MakeDialogFont(int dpi, int weight) {
    return ::CreateFontW(-::MulDiv(PointSize, dpi, PointsPerInch), 0, 0, 0, weight, FALSE, FALSE,
                         FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                         DEFAULT_QUALITY, DEFAULT_PITCH, L"MS Shell Dlg 2");
}

/// The size of the average character, of which dialog units are a quarter and an eighth.
SIZE AverageCharacter(HFONT font) {
    constexpr wchar_t Alphabet[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int Letters = 52;
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    SIZE size{};
    TEXTMETRICW metrics{};
    ::GetTextExtentPoint32W(screen.Get(), Alphabet, Letters, &size);
    ::GetTextMetricsW(screen.Get(), &metrics);
    return {(size.cx / (Letters / 2) + 1) / 2, metrics.tmHeight};
}

} // namespace

DialogFont::DialogFont(int dpi, int weight)
    : font_(MakeDialogFont(dpi, weight)), base_(AverageCharacter(Get())) {}

int DialogFont::X(int units) const noexcept {
    return ::MulDiv(units, base_.cx, 4);
}

int DialogFont::Y(int units) const noexcept {
    return ::MulDiv(units, base_.cy, 8);
}

int DialogFont::TextWidth(TextView text) const {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), Get());
    SIZE size{};
    ::GetTextExtentPoint32W(screen.Get(), Win::Characters(text), static_cast<int>(text.size()),
                            &size);
    return size.cx;
}

Win::ChildWindow MakeControl(HWND parent, const wchar_t* className, const Text& text, DWORD style,
                             UINT id, const DialogFont& font, DWORD extendedStyle) {
    Win::ChildWindow control(Win::MakeWindow(Com::ModuleHandle(), className,
                                             {.Parent = parent,
                                              .Position = {},
                                              .Style = style | WS_CHILD | WS_VISIBLE,
                                              .ExtendedStyle = extendedStyle,
                                              .Id = id}));
    ::SendMessageW(control.Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    Win::ShowText(control.Get(), text);
    return control;
}

void ShowFont(HWND parent, const DialogFont& font) noexcept {
    for (HWND child = ::GetWindow(parent, GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    }
}

} // namespace Quorvane::Editor
