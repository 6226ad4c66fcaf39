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

/// The height is the platform's: of characters where it is negative, else of cells.
Win::Font MakeFont(int height, int weight) {
    return Win::Font(::CreateFontW(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                   OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                   DEFAULT_PITCH, L"MS Shell Dlg 2"));
}

/// The size of the average character, of which dialog units are a quarter and an eighth.
DialogUnits UnitsOf(HFONT font) {
    constexpr wchar_t Alphabet[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int Letters = 52;
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    SIZE size{};
    TEXTMETRICW metrics{};
    ::GetTextExtentPoint32W(screen.Get(), Alphabet, Letters, &size);
    ::GetTextMetricsW(screen.Get(), &metrics);
    return {static_cast<int>((size.cx / (Letters / 2) + 1) / 2),
            static_cast<int>(metrics.tmHeight)};
}

} // namespace

int TextWidth(HFONT font, TextView text) {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    SIZE size{};
    ::GetTextExtentPoint32W(screen.Get(), Win::Characters(text), static_cast<int>(text.size()),
                            &size);
    return static_cast<int>(size.cx);
}

DialogFont::DialogFont(int dpi, int weight)
    : font_(MakeFont(-::MulDiv(PointSize, dpi, PointsPerInch), weight)), units_(UnitsOf(Get())) {}

Win::Font MakeDialogFontOfHeight(int height, int weight) {
    return MakeFont(height, weight);
}

Win::ChildWindow MakeControl(HWND parent, const wchar_t* className, const Text& text, DWORD style,
                             UINT id, const DialogFont& font, DWORD extendedStyle) {
    Win::ChildWindow control(Win::MakeWindow(Com::ModuleHandle(), className,
                                             {.Parent = parent,
                                              .Position = {},
                                              .Style = style | PartStyle,
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
