// SPDX-License-Identifier: MIT
// A list view of variables and their values: `lvwInput` or `lvwOutput`.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>

#include "control/display/Display.h"
#include "win/Subclass.h"
#include "win/Window.h"

namespace Quorvane {

/// The window of a list. It keeps no rows of its own: it asks its face for what it draws.
class VariableList final {
  public:
    /// Called with whether the list has got or lost the keyboard focus, and with the window at the
    /// other side. It may end the list.
    using FocusHandler = std::function<void(bool focused, HWND other)>;

    /// Makes the list in the parent; it shows this face, which outlives it. Throws
    /// std::system_error.
    VariableList(HWND parent, UINT id, const RECT& position, const ListFace& face,
                 FocusHandler focusHandler);

    HWND Get() const noexcept { return window_.Get(); }

    /// Uses the face's font for so many dots per inch.
    void SetFont(int dpi) noexcept;

    /// Shows whether it is enabled, and its colours.
    void Reflect() const noexcept;

    /// Shows the rows as they are now, none of them selected.
    void ShowRows() noexcept;

    /// Repaints, at once, with the values as they are now.
    void ShowValues() const noexcept;

    /// Replaces the columns by those of the face, each of this width in pixels.
    void ShowColumns(int width) noexcept;

    /// Answers a notification of the list.
    LRESULT OnNotify(NMHDR& notification) const noexcept;

  private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM first, LPARAM second);
    void HideScrollBarOfWholeColumns() const noexcept;
    void FillGapAboveRows(HDC context) const noexcept;
    void ShowColumn(int index, const Text& header, int width) noexcept;
    void TellText(NMLVDISPINFOW& question) const noexcept;
    LRESULT ColourRow(NMLVCUSTOMDRAW& drawing) const noexcept;
    LRESULT DrawHeader(const NMCUSTOMDRAW& drawing) const noexcept;
    LRESULT FindRow(const NMLVFINDITEMW& question) const noexcept;

    const ListFace& face_;
    FocusHandler focusHandler_;
    Win::Font font_;
    int dpi_ = 0;
    Win::ChildWindow window_;
    std::optional<Win::Subclass> subclass_;
};

} // namespace Quorvane
