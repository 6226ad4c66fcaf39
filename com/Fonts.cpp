// SPDX-License-Identifier: MIT
// The platform's font objects.
#include "com/Fonts.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"
#include "win/Dpi.h"
#include "win/WideText.h"

namespace Quorvane {
namespace {

struct FontAttributes {
    Text Name;
    LONGLONG Size;
    SHORT Weight;
    SHORT Charset;
    BOOL Italic;
    BOOL Underline;
    BOOL Strikethrough;

    bool operator==(const FontAttributes&) const = default;
};

/// The face of the user's dialogs.
constexpr wchar_t DialogFace[] = L"MS Shell Dlg";

constexpr int PointsPerInch = 72;

/// The dialog face at so many tenths of a point.
Win::Font DialogFontAt(int tenthsOfPoint, LONG weight, int dpi) noexcept {
    LOGFONTW description{};
    description.lfHeight = -::MulDiv(tenthsOfPoint, dpi, 10 * PointsPerInch);
    description.lfWeight = weight;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = DEFAULT_QUALITY;
    std::copy(std::begin(DialogFace), std::end(DialogFace), description.lfFaceName);
    return Win::Font(::CreateFontIndirectW(&description));
}

FontAttributes AttributesOf(IFont& font) {
    Com::Bstr name;
    CY size{};
    FontAttributes attributes{};
    Com::Check(font.get_Name(name.Put()));
    Com::Check(font.get_Size(&size));
    Com::Check(font.get_Weight(&attributes.Weight));
    Com::Check(font.get_Charset(&attributes.Charset));
    Com::Check(font.get_Italic(&attributes.Italic));
    Com::Check(font.get_Underline(&attributes.Underline));
    Com::Check(font.get_Strikethrough(&attributes.Strikethrough));
    attributes.Name = Text(name.Characters());
    attributes.Size = size.int64;
    return attributes;
}

} // namespace

Com::ComPtr<IFontDisp> NewDialogFont() {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(DialogFace);
    description.cySize.int64 = 82500; // 8.25 points in units of 1/10,000
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    Com::ComPtr<IFontDisp> font;
    Com::Check(::OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()));
    return font;
}

bool HaveSameAttributes(IFontDisp* left, IFontDisp* right) {
    const auto leftFont = Com::Query<IFont>(left);
    const auto rightFont = Com::Query<IFont>(right);
    if (!leftFont || !rightFont) {
        return left == right;
    }
    return AttributesOf(*leftFont) == AttributesOf(*rightFont);
}

Win::Font DrawingFont(IFontDisp* font, int dpi) noexcept {
    const auto object = Com::Query<IFont>(font);
    HFONT screenFont = nullptr;
    LOGFONTW description{};
    if (!object || FAILED(object->get_hFont(&screenFont)) ||
        !::GetObjectW(screenFont, sizeof description, &description)) {
        return {};
    }
    // Not from the Size: some systems let it read back as that of the face in use.
    const Win::WindowDc screen(nullptr);
    description.lfHeight = ::MulDiv(description.lfHeight, dpi, Win::DpiOf(screen.Get()));
    description.lfWidth = 0;
    return Win::Font(::CreateFontIndirectW(&description));
}

Win::Font CaptionFont(int dpi) noexcept {
    return DialogFontAt(90, FW_BOLD, dpi);
}

Win::Font StatusFont(int dpi) noexcept {
    return DialogFontAt(83, FW_NORMAL, dpi);
}

int TextWidth(HFONT font, const Text& text) noexcept {
    const Win::WindowDc screen(nullptr);
    const Win::Selection selected(screen.Get(), font);
    SIZE size{};
    ::GetTextExtentPoint32W(screen.Get(), Win::Wide(text), static_cast<int>(text.size()), &size);
    return size.cx;
}

} // namespace Quorvane
