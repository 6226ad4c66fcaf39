// SPDX-License-Identifier: MIT
// FormFont: the platform's font object and its block of properties in a form file.
#include "host/container/FormFont.h"

#include "host/container/FormVariant.h"
#include "host/container/HResult.h"
#include "host/container/Wide.h"

namespace Quorvane::Host {

namespace {

// Reads the property `key` as the type `type`; false leaves `value` alone where it is missing.
bool Take(const FormProperties& properties, std::u16string_view key, VARTYPE type, Variant& value) {
    const FormProperty* const property = properties.Find(key);
    // A block inside a font has no meaning, and making a font of it could go on for ever.
    if (!property || std::holds_alternative<FormProperties>(property->Value)) {
        return false;
    }
    Check(ToVariant(property->Value, type, value), L"read the font's " + ToWide(key));
    return true;
}

BOOL TakeFlag(const FormProperties& properties, std::u16string_view key) {
    Variant value;
    return Take(properties, key, VT_BOOL, value) && value.boolVal != VARIANT_FALSE;
}

SHORT TakeShort(const FormProperties& properties, std::u16string_view key, SHORT missing) {
    Variant value;
    return Take(properties, key, VT_I2, value) ? value.iVal : missing;
}

CY TakeSize(const FormProperties& properties) {
    Variant size;
    if (Take(properties, u"Size", VT_CY, size)) {
        return size.cyVal;
    }
    CY standard;
    standard.int64 = 82500;
    return standard;
}

} // namespace

ComPtr<IFontDisp> MakeFont(const FormProperties& properties) {
    Variant name(L"Tahoma");
    Take(properties, u"Name", VT_BSTR, name);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.bstrVal;
    description.cySize = TakeSize(properties);
    description.sWeight = TakeShort(properties, u"Weight", FW_NORMAL);
    description.sCharset = TakeShort(properties, u"Charset", DEFAULT_CHARSET);
    description.fItalic = TakeFlag(properties, u"Italic");
    description.fUnderline = TakeFlag(properties, u"Underline");
    description.fStrikethrough = TakeFlag(properties, u"Strikethrough");
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.ReceiveVoid()),
          L"create the font");
    return font;
}

ComPtr<IFontDisp> DefaultFont() {
    return MakeFont({});
}

FormProperties DescribeFont(IFont& font) {
    Bstr name;
    CY size{};
    SHORT weight = FW_NORMAL;
    SHORT charset = DEFAULT_CHARSET;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    const HRESULT results[] = {font.get_Name(name.Receive()),
                               font.get_Size(&size),
                               font.get_Weight(&weight),
                               font.get_Charset(&charset),
                               font.get_Italic(&italic),
                               font.get_Underline(&underline),
                               font.get_Strikethrough(&strikethrough)};
    for (const HRESULT result : results) {
        Check(result, L"read the font");
    }
    FormProperties properties;
    properties.Set({u"Name", FromWide(name.View())});
    properties.Set({u"Size", static_cast<double>(size.int64) / 10000});
    properties.Set({u"Weight", std::int32_t{weight}});
    properties.Set({u"Charset", std::int32_t{charset}});
    properties.Set({u"Italic", italic != FALSE});
    properties.Set({u"Underline", underline != FALSE});
    properties.Set({u"Strikethrough", strikethrough != FALSE});
    return properties;
}

} // namespace Quorvane::Host
