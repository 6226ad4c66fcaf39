// SPDX-License-Identifier: MIT
// The caption strip with its label.
#include "control/display/CaptionStrip.h"

#include "com/Fonts.h"
#include "com/Module.h"
#include "win/WideText.h"
#include "win/WindowText.h"

namespace Quorvane {

CaptionStrip::CaptionStrip(HWND parent, UINT id, UINT labelId, const StripFace& strip,
                           const CaptionFace& caption)
    : stripFace_(strip), captionFace_(caption) {
    Make<CaptionStrip>(Com::ModuleHandle(),
                       {.Parent = parent,
                        .Position = {},
                        .Style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                        .Id = id});
    // Drawn here, for the sake of a disabled one.
    constexpr DWORD LabelStyle = WS_CHILD | WS_VISIBLE | SS_OWNERDRAW;
    label_ = Win::ChildWindow(
        Win::MakeWindow(Com::ModuleHandle(), L"STATIC",
                        {.Parent = Get(), .Position = {}, .Style = LabelStyle, .Id = labelId}));
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

void CaptionStrip::MoveLabel(const PixelBox& box) noexcept {
    ::SetWindowPos(label_.Get(), nullptr, box.Left, box.Top, box.Width, box.Height,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void CaptionStrip::DrawLabel(const DRAWITEMSTRUCT& item) const noexcept {
    const Win::SavedDc saved(item.hDC);
    const bool enabled = !(item.itemState & ODS_DISABLED);
    RECT area = item.rcItem;
    ::FillRect(item.hDC, &area, background_.Get());
    ::SelectObject(item.hDC, font_.Get());
    ::SetBkMode(item.hDC, TRANSPARENT);
    ::SetTextColor(item.hDC, CaptionColor(stripFace_.BackColor, enabled));
    // A caption is shown as it is: "&" in it marks no access key.
    ::DrawTextW(item.hDC, Win::Wide(captionFace_.Caption), -1, &area,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
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
