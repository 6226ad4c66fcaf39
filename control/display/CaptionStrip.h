// SPDX-License-Identifier: MIT
// The caption strip: the picture box `picCaption` with the label `lblCaption` in it.
#pragma once

#include <windows.h>

#include "control/display/Display.h"
#include "control/display/DisplayLayout.h"
#include "win/Window.h"

namespace Quorvane {

class CaptionStrip final : public Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"Quorvane.picCaption";

    /// Makes the strip in the parent; it shows these faces, which outlive it. Throws
    /// std::system_error.
    CaptionStrip(HWND parent, UINT id, UINT labelId, const PixelLayout& layout,
                 const StripFace& strip, const CaptionFace& caption);
    ~CaptionStrip() override;

    /// Uses the caption's font for so many dots per inch.
    void SetDpi(int dpi) noexcept;

    /// Shows the faces as they are now.
    void Reflect() noexcept;

    /// Moves the label; its text is cut at so many pixels.
    void MoveLabel(const PixelBox& box, int textWidth) noexcept;

  private:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
    void DrawLabel(const DRAWITEMSTRUCT& item) const noexcept;

    const StripFace& stripFace_;
    const CaptionFace& captionFace_;
    COLORREF backColor_ = 0;
    Win::Brush background_;
    PixelBox labelBox_;
    int textWidth_ = 0;
    Win::Font font_;
    Win::ChildWindow label_;
};

} // namespace Quorvane
