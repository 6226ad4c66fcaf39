// SPDX-License-Identifier: MIT
// The caption strip with its label.
#include "control/display/CaptionStrip.h"

#include <algorithm>

#include "com/Fonts.h"
#include "com/Module.h"
#include "control/display/CellDrawing.h"
#include "win/WindowText.h"

namespace Quorvane {

CaptionStrip::CaptionStrip(HWND parent, UINT id, UINT labelId, const PixelLayout& layout,
                           const StripFace& strip, const CaptionFace& caption)
    : stripFace_(strip), captionFace_(caption), labelBox_(layout.Label),
      textWidth_(layout.Caption.Width) {
    Make<CaptionStrip>(Com::ModuleHandle(),
                       {.Parent = parent,
                        .Position = RectangleOf(layout.Strip),
                        .Style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                        .Id = id});
    // Drawn here, for the sake of a disabled one.
    constexpr DWORD LabelStyle = WS_CHILD | WS_VISIBLE | SS_OWNERDRAW;
    label_ = Win::ChildWindow(Win::MakeWindow(Com::ModuleHandle(), L"STATIC",
                                              {.Parent = Get(),
                                               .Position = RectangleOf(layout.Label),
                                               .Style = LabelStyle,
                                               .Id = labelId}));
}

CaptionStrip::~CaptionStrip() {
    label_.Reset();
    Destroy();
}

void CaptionStrip::SetDpi(int dpi) noexcept {
    Win::Font font = CaptionFont(dpi);
    ::SendMessageW(label_.Get(), WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), TRUE);
    font_ = std::move(font);
}

void CaptionStrip::Reflect() noexcept {
    const COLORREF color = ToColorRef(stripFace_.BackColor, ActiveTitleColor);
    if (!background_ || color != backColor_) {
        backColor_ = color;
        background_ = Win::Brush(::CreateSolidBrush(color));
        ::InvalidateRect(Get(), nullptr, TRUE);
        ::InvalidateRect(label_.Get(), nullptr, TRUE);
    }
    Win::ShowText(label_.Get(), captionFace_.Caption);
    Win::Enable(label_.Get(), captionFace_.Enabled);
}

void CaptionStrip::MoveLabel(const PixelBox& box, int textWidth) noexcept {
    if (textWidth_ != textWidth) {
        textWidth_ = textWidth;
        ::InvalidateRect(label_.Get(), nullptr, TRUE);
    }
    if (labelBox_ != box) {
        labelBox_ = box;
        ::SetWindowPos(label_.Get(), nullptr, box.Left, box.Top, box.Width, box.Height,
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void CaptionStrip::DrawLabel(const DRAWITEMSTRUCT& item) const noexcept {
    const Win::SavedDc saved(item.hDC);
    const bool enabled = !(item.itemState & ODS_DISABLED);
    RECT area = item.rcItem;
    ::FillRect(item.hDC, &area, background_.Get());
    area.right = std::min<LONG>(area.right, area.left + textWidth_);
    DrawCellText(item.hDC, area, captionFace_.Caption, font_.Get(),
                 CaptionColor(stripFace_.BackColor, enabled));
}

LRESULT CaptionStrip::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_DESTROY:
        label_.Reset();
        return 0;
    case WM_ERASEBKGND: {
        RECT area;
        ::GetClientRect(Get(), &area);
        ::FillRect(reinterpret_cast<HDC>(first), &area, background_.Get());
        return 1;
    }
    case WM_DRAWITEM:
        DrawLabel(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
        return TRUE;
    case WM_LBUTTONDOWN:
        // The surface knows where the focus belongs.
        ::SetFocus(::GetParent(Get()));
        return 0;
    default:
        return Window::OnMessage(message, first, second);
    }
}

} // namespace Quorvane
