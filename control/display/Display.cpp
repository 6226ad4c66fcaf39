// SPDX-License-Identifier: MIT
// The state of the display, and its window while there is one.
#include "control/display/Display.h"

#include <new>

#include "com/Fonts.h"
#include "control/display/DisplayWindow.h"
#include "engine/CurrentErrorText.h"
#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"
#include "win/Dpi.h"

namespace Quorvane {
namespace {} // namespace

Display::Display(DisplayOwner& owner) : owner_(owner) {
    // The lists share one font as a rule; it is the input list's that the host knows.
    lvwInput.Font.OnChange([this] { owner_.OnDisplayFontChanged(); });
    lvwOutput.Font.OnChange([this] { ShowFonts(); });
}

Display::~Display() = default;

void Display::Open(HWND parent, const RECT& position) {
    window_.reset();
    window_ = std::make_unique<DisplayWindow>(*this, owner_, parent, position);
}

void Display::Close() noexcept {
    // Taken out first: what its end calls back finds no window any more.
    const auto closing = std::exchange(window_, nullptr);
}

HWND Display::Surface() const noexcept {
    return window_ ? window_->Get() : nullptr;
}

float Display::CaptionTextWidth() const noexcept {
    const int dpi = Win::DpiOf(Surface());
    return Win::TwipsOf(TextWidth(CaptionFont(dpi).Get(), lblCaption.Caption), dpi);
}

void Display::FitLabel() noexcept {
    layout_.LabelWidth = LabelWidthFor(CaptionTextWidth());
}

void Display::FetchHeaders() {
    lvwInput.Columns = {{u"Input", Main::GetText(TextIds::Input)},
                        {u"Value", Main::GetText(TextIds::Value)}};
    lvwOutput.Columns = {{u"Output", Main::GetText(TextIds::Output)},
                         {u"Value", Main::GetText(TextIds::Value)}};
}

void Display::Resize(float width, float height) noexcept {
    LayOut(layout_, width, height, CaptionTextWidth());
    try {
        FetchHeaders();
    } catch (const std::bad_alloc&) {
        // The former headers stay.
    }
}

void Display::Reflect() noexcept {
    if (window_) {
        window_->Reflect();
    }
}

void Display::ShowFonts() noexcept {
    if (window_) {
        window_->ShowFonts();
    }
}

void Display::Repaint() const noexcept {
    if (HWND const surface = Surface()) {
        ::RedrawWindow(surface, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
}

void Display::HidePanel() noexcept {
    if (sbMessage.Visible) {
        sbMessage.Visible = false;
        Reflect();
    }
}

void Display::ShowError() noexcept {
    Text error;
    try {
        error = RunTime::CurrentErrorText();
    } catch (const std::bad_alloc&) {
        // The picture alone tells of it.
    }
    if (!sbMessage.HasErrorPicture || sbMessage.Message != error) {
        sbMessage.HasErrorPicture = true;
        sbMessage.Message = std::move(error);
        Reflect();
    }
}

} // namespace Quorvane
