// SPDX-License-Identifier: MIT
// Where the parts of the property page are.
#pragma once

#include <windows.h>

#include <array>

#include "editor/windows/Controls.h"

namespace Quorvane::Editor {

/// The places of the page's parts, in pixels of its client area.
struct PageLayout {
    static constexpr std::size_t ButtonCount = 4;

    RECT TreInput;
    RECT TreOutput;
    /// `cmdAdd`, `cmdModify`, `cmdDelete`, `cmdRule`.
    std::array<RECT, ButtonCount> Buttons;
    RECT PicMF;

    /// The layout of a page of the given size: trees side by side, the buttons below them, the
    /// graph in the rest. No part has a negative size, however small the page is.
    static PageLayout For(SIZE page, const DialogFont& font);

    /// The size that the page is laid out for, in pixels.
    static SIZE NaturalSize(const DialogFont& font);
};

} // namespace Quorvane::Editor
