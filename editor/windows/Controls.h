// SPDX-License-Identifier: MIT
// Child controls of the editors' windows, in the font of the user's dialogs.
#pragma once

#include <windows.h>

#include "editor/page/DialogUnits.h"
#include "shared/Text.h"
#include "win/Handle.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The width of a text in a font, in pixels.
int TextWidth(HFONT font, TextView text);

/// The font of dialogs, and the dialog units that follow from it.
class DialogFont {
  public:
    /// For a screen of so many dots per inch; the weight is the platform's, such as FW_BOLD.
    explicit DialogFont(int dpi, int weight = FW_NORMAL);

    HFONT Get() const noexcept { return font_.Get(); }

    const DialogUnits& Units() const noexcept { return units_; }

    /// Horizontal and vertical dialog units in pixels.
    int X(int units) const noexcept { return units_.X(units); }
    int Y(int units) const noexcept { return units_.Y(units); }

    /// The width of a text in pixels.
    int TextWidth(TextView text) const { return Editor::TextWidth(Get(), text); }

  private:
    Win::Font font_;
    DialogUnits units_{};
};

/// The font of dialogs so many pixels high, accents and descenders included.
Win::Font MakeDialogFontOfHeight(int height, int weight = FW_NORMAL);

/// The style of the parts of a window, which are moved one after the other: none may draw over, or
/// take along, what another shows at its old place.
inline constexpr DWORD PartStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;

/// Makes a visible child control. The position is left to the caller. Throws std::system_error.
Win::ChildWindow MakeControl(HWND parent, const wchar_t* className, const Text& text, DWORD style,
                             UINT id, const DialogFont& font, DWORD extendedStyle = 0);

/// Gives all children of a window a font, which outlives them or their next font.
void ShowFont(HWND parent, const DialogFont& font) noexcept;

} // namespace Quorvane::Editor
