// SPDX-License-Identifier: MIT
// PropertyDialogs: the system's dialogs for colours and fonts.
#include "host/form/design/PropertyDialogs.h"

#include <commdlg.h>

#include <array>

#include "com/FailedCall.h"

namespace Quorvane::Host {

std::optional<COLORREF> AskForColor(HWND owner, COLORREF offered) {
    // The colours that the user has mixed, as long as the program runs.
    static std::array<COLORREF, 16> custom{};
    CHOOSECOLORW choose{};
    choose.lStructSize = sizeof choose;
    choose.hwndOwner = owner;
    choose.rgbResult = offered;
    choose.lpCustColors = custom.data();
    choose.Flags = CC_RGBINIT | CC_FULLOPEN;
    return ::ChooseColorW(&choose) ? std::optional(choose.rgbResult) : std::nullopt;
}

Com::ComPtr<IFontDisp> AskForFont(HWND owner, IFont* offered) {
    HFONT handle = nullptr;
    LOGFONTW description{};
    if (offered && SUCCEEDED(offered->get_hFont(&handle))) {
        ::GetObjectW(handle, sizeof description, &description);
    }
    CHOOSEFONTW choose{};
    choose.lStructSize = sizeof choose;
    choose.hwndOwner = owner;
    choose.lpLogFont = &description;
    choose.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS;
    if (!::ChooseFontW(&choose)) {
        return {};
    }
    FONTDESC chosen{};
    chosen.cbSizeofstruct = sizeof chosen;
    chosen.lpstrName = description.lfFaceName;
    chosen.cySize.int64 = choose.iPointSize * 1000LL; // tenths of a point to ten-thousandths
    chosen.sWeight = static_cast<SHORT>(description.lfWeight);
    chosen.sCharset = description.lfCharSet;
    chosen.fItalic = description.lfItalic;
    chosen.fUnderline = description.lfUnderline;
    chosen.fStrikethrough = description.lfStrikeOut;
    Com::ComPtr<IFontDisp> font;
    Com::Check(::OleCreateFontIndirect(&chosen, __uuidof(IFontDisp), font.PutVoid()),
               u"make a font");
    return font;
}

} // namespace Quorvane::Host
