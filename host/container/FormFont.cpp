// SPDX-License-Identifier: MIT
// FormFont: the platform's font object and its block of properties in a form file.
#include "host/container/FormFont.h"

#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/container/FormVariant.h"

namespace Quorvane::Host {
namespace {

// Reads the property `key` as the type `type`; false leaves `value` alone where it is missing.
bool Take(const FormProperties& properties, TextView key, VARTYPE type, Com::Variant& value) {
    const FormProperty* const property = properties.Find(key);
    // A block inside a font has no meaning, and making a font of it could go on for ever.
    if (!property || std::holds_alternative<FormProperties>(property->Value)) {
        return false;
    }
    value = ToVariant(*property, type, u"font");
    return true;
}

BOOL TakeFlag(const FormProperties& properties, TextView key) {
    Com::Variant value;
    return Take(properties, key, VT_BOOL, value) && value.Get().boolVal != VARIANT_FALSE;
}

SHORT TakeShort(const FormProperties& properties, TextView key, SHORT missing) {
    Com::Variant value;
    return Take(properties, key, VT_I2, value) ? value.Get().iVal : missing;
}

CY TakeSize(const FormProperties& properties) {
    Com::Variant size;
    if (Take(properties, u"Size", VT_CY, size)) {
        return size.Get().cyVal;
    }
    CY standard;
    standard.int64 = 82500;
    return standard;
}

} // namespace

Com::ComPtr<IFontDisp> MakeFont(const FormProperties& properties) {
    Com::Variant name(u"Tahoma");
    Take(properties, u"Name", VT_BSTR, name);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.Get().bstrVal;
    description.cySize = TakeSize(properties);
    description.sWeight = TakeShort(properties, u"Weight", FW_NORMAL);
    description.sCharset = TakeShort(properties, u"Charset", DEFAULT_CHARSET);
    description.fItalic = TakeFlag(properties, u"Italic");
    description.fUnderline = TakeFlag(properties, u"Underline");
    description.fStrikethrough = TakeFlag(properties, u"Strikethrough");
    Com::ComPtr<IFontDisp> font;
    Com::Check(::OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()),
               u"create the font");
    return font;
}

Com::ComPtr<IFontDisp> DefaultFont() {
    return MakeFont({});
}

FormProperties DescribeFont(IFont& font) {
    Com::Bstr name;
    CY size{};
    SHORT weight = FW_NORMAL;
    SHORT charset = DEFAULT_CHARSET;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    const HRESULT results[] = {font.get_Name(name.Put()),
                               font.get_Size(&size),
                               font.get_Weight(&weight),
                               font.get_Charset(&charset),
                               font.get_Italic(&italic),
                               font.get_Underline(&underline),
                               font.get_Strikethrough(&strikethrough)};
    for (const HRESULT result : results) {
        Com::Check(result, u"read the font");
    }
    FormProperties properties;
    properties.Set({u"Name", Text(name.Characters())});
    properties.Set({u"Size", static_cast<double>(size.int64) / 10000});
    properties.Set({u"Weight", std::int32_t{weight}});
    properties.Set({u"Charset", std::int32_t{charset}});
    properties.Set({u"Italic", italic != FALSE});
    properties.Set({u"Underline", underline != FALSE});
    properties.Set({u"Strikethrough", strikethrough != FALSE});
    return properties;
}

} // namespace Quorvane::Host
