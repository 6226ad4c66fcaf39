// SPDX-License-Identifier: MIT
// The platform's font objects.
#include "control/Fonts.h"

#include <olectl.h>

#include "control/com/ErrorBoundary.h"
#include "control/com/Scoped.h"

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
    wchar_t name[] = L"MS Shell Dlg";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
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

} // namespace Quorvane
