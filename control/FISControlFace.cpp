// SPDX-License-Identifier: MIT
// The control towards its host's user interface: window, keys, drawing, ambient properties, help.
#include <algorithm>
#include <iterator>

#include "control/DispatchIds.h"
#include "control/FISControl.h"
#include "control/HelpFile.h"
#include "control/display/DisplayPainter.h"
#include "control/display/DisplayWindow.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"
#include "win/Dpi.h"
#include "win/HelpViewer.h"
#include "win/Keyboard.h"

namespace Quorvane {
namespace {

/// The system's own page, and the platform's pages for fonts and colours.
constexpr CLSID PropertyPageClasses[] = {
    __uuidof(::FIS_IO),
    {0x0BE35200, 0x8F91, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}},
    {0x0BE35201, 0x8F91, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}},
};
constexpr const CLSID* SystemPage = &PropertyPageClasses[0];
constexpr const CLSID* FontPage = &PropertyPageClasses[1];
constexpr const CLSID* ColorPage = &PropertyPageClasses[2];

/// The properties that a form keeps. Those of the run time are of no use to a browser.
constexpr Com::BrowsedProperty BrowsedProperties[] = {
    {DISPID_CAPTION, Com::AppearanceCategory, nullptr},
    {DISPID_ENABLED, Com::BehaviorCategory, nullptr},
    {DISPID_FONT, Com::FontCategory, FontPage},
    {DISPID_BACKCOLOR, Com::AppearanceCategory, ColorPage},
    {DISPID_FORECOLOR, Com::AppearanceCategory, ColorPage},
    {DispatchIds::Inputs, Com::DataCategory, SystemPage},
    {DispatchIds::Outputs, Com::DataCategory, SystemPage},
    {DispatchIds::Rules, Com::DataCategory, SystemPage},
};

/// Keys that move in a list, which a host would use to move between its controls.
constexpr WPARAM ListKeys[] = {VK_UP,   VK_DOWN, VK_LEFT,  VK_RIGHT,
                               VK_HOME, VK_END,  VK_PRIOR, VK_NEXT};

} // namespace

const Com::ControlTraits& FISControl::Traits() const noexcept {
    static const Com::ControlTraits traits = {
        .Clsid = &CLSID_FISControl,
        .UserType = Title,
        // A host's menu shows it among its own words, and the text table has none for it.
        .PropertiesVerb = u"&Properties...",
        .MiscStatus = MiscStatus,
        .PropertyPages = PropertyPageClasses,
        .Properties = BrowsedProperties,
    };
    return traits;
}

void FISControl::OpenWindow(HWND parent, const RECT& position) {
    display_.Open(parent, position);
}

void FISControl::CloseWindow() noexcept {
    display_.Close();
}

void FISControl::TakeFocus(bool first) noexcept {
    if (DisplayWindow* const window = display_.Window()) {
        window->MoveFocus(first);
    }
}

bool FISControl::TranslateKey(const MSG& message) noexcept {
    DisplayWindow* const window = display_.Window();
    if (!window || !window->Contains(message.hwnd) || Win::IsPressed(VK_CONTROL) ||
        Win::IsPressed(VK_MENU)) {
        return false;
    }
    const bool isListKey = std::ranges::find(ListKeys, message.wParam) != std::end(ListKeys);
    if (isListKey && (message.message == WM_KEYDOWN || message.message == WM_KEYUP)) {
        ::SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
        return true;
    }
    return message.message == WM_KEYDOWN && message.wParam == VK_TAB &&
           window->MoveFocus(!Win::IsPressed(VK_SHIFT));
}

void FISControl::Draw(HDC context, const RECT& bounds) {
    DrawDisplay(context, bounds, display_, Win::TwipsOfHimetric(Extent().cy));
}

void FISControl::ExtentChanged() {
    isDirty_ = true;
    FitToExtent();
}

void FISControl::FitToExtent() noexcept {
    if (!display_.Surface()) {
        display_.Resize(Win::TwipsOfHimetric(Extent().cx), Win::TwipsOfHimetric(Extent().cy));
    }
}

void FISControl::ShowStarted() noexcept {
    if (display_.Surface()) {
        // Some hosts load a control that they have activated.
        display_.ShowFonts();
    } else {
        FitToExtent();
    }
    ShowAppearance();
}

void FISControl::AmbientChanged(DISPID property) {
    const bool several = property == DISPID_UNKNOWN;
    if (several || property == DISPID_AMBIENT_LOCALEID) {
        AmbientLocaleChanged();
    }
    if (several || property == DISPID_AMBIENT_BACKCOLOR) {
        AmbientBackColorChanged();
    }
}

void FISControl::AmbientLocaleChanged() {
    Definition::State().LanguageId = static_cast<std::int32_t>(Site().LocaleId());
    SetHelpFile();
}

/// The strip is never of the colour of the form around it.
void FISControl::AmbientBackColorChanged() {
    display_.picCaption.BackColor =
        Site().BackColor() == DesktopColor ? ActiveTitleColor : DesktopColor;
    ShowAppearance();
}

void FISControl::ShowAppearance() noexcept {
    display_.Reflect();
    ViewChanged();
}

void FISControl::TellIfWindowless() noexcept {
    if (!display_.Surface()) {
        const DefaultArithmetic::Pause pause;
        ViewChanged();
    }
}

void FISControl::FillVariableLists() {
    display_.FillVariableLists();
    const DefaultArithmetic::Pause pause;
    ViewChanged();
}

void FISControl::OnDisplayFocus(bool focused) {
    InPlace().OnFocus(focused);
}

bool FISControl::OnDisplayHelp() {
    const Com::KeepAlive alive(this);
    return Win::ShowHelpFile(Window(), Definition::State().HelpFile);
}

void FISControl::OnDisplayFontChanged() {
    display_.ShowFonts();
    PropertyChanged(DISPID_FONT);
}

} // namespace Quorvane
