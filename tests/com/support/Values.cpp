// SPDX-License-Identifier: MIT
// Values as tests write them down, and dictionaries as tests read and fill them.
#include "tests/com/support/Values.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace Quorvane {
namespace {

constexpr CLSID PlatformDictionary = {
    0xee09b103, 0x97e0, 0x11cf, {0x97, 0x8f, 0x00, 0xa0, 0x24, 0x63, 0xe0, 0x6f}};

struct TypeName {
    VARTYPE Type;
    const char* Name;
};

constexpr TypeName NumberTypes[] = {
    {VT_I1, "SByte"},    {VT_UI1, "Byte"},      {VT_I2, "Integer"},      {VT_UI2, "UInteger"},
    {VT_I4, "Long"},     {VT_UI4, "ULong"},     {VT_INT, "Int"},         {VT_UINT, "UInt"},
    {VT_I8, "LongLong"}, {VT_UI8, "ULongLong"}, {VT_R4, "Single"},       {VT_R8, "Double"},
    {VT_CY, "Currency"}, {VT_DATE, "Date"},     {VT_DECIMAL, "Decimal"}, {VT_ERROR, "Error"},
};

std::string NumberForm(const VARIANT& value) {
    VARIANT copy = value;
    if (copy.vt == VT_ERROR) {
        copy.vt = VT_I4;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", Com::ChangeType(copy, VT_R8).Get().dblVal);
    return text;
}

VARIANT* Argument(const Com::Variant& value) {
    return const_cast<VARIANT*>(&value.Get());
}

} // namespace

std::string Describe(const VARIANT& value) {
    for (const auto& [type, name] : NumberTypes) {
        if (value.vt == type) {
            return std::string(name) + ' ' + NumberForm(value);
        }
    }
    switch (value.vt) {
    case VT_EMPTY:
        return "Empty";
    case VT_NULL:
        return "Null";
    case VT_BSTR:
        return "String " + Narrow(Com::View(value.bstrVal));
    case VT_BOOL:
        return value.boolVal != VARIANT_FALSE ? "Boolean True" : "Boolean False";
    case VT_DISPATCH:
        return value.pdispVal ? "Object" : "Nothing";
    case VT_UNKNOWN:
        return value.punkVal ? "Unknown" : "Nothing unknown";
    default:
        return "type " + std::to_string(value.vt);
    }
}

std::string Narrow(TextView text) {
    std::string narrow;
    for (const char16_t character : text) {
        if (character >= u' ' && character < 0x7F) {
            narrow += static_cast<char>(character);
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04X", unsigned{character});
            narrow += escape;
        }
    }
    return narrow;
}

Com::Variant Typed(VARTYPE type, double number) {
    return Com::ChangeType(Com::Variant(number).Get(), type);
}

Com::Variant Bare(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return Com::Variant::Attach(value);
}

VARIANT ByReference(VARIANT& value) {
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | value.vt);
    reference.byref = &value.llVal;
    return reference;
}

Com::Variant ArrayValue() {
    VARIANT value{};
    value.vt = VT_ARRAY | VT_R8;
    value.parray = ::SafeArrayCreateVector(VT_R8, 0, 1);
    return Com::Variant::Attach(value);
}

Com::Variant ItemOf(IDictionary& dictionary, TextView key) {
    const Com::Variant name(key);
    Com::Variant item;
    EXPECT_EQ(dictionary.get_Item(Argument(name), item.Put()), S_OK) << Narrow(key);
    return item;
}

void PutItem(IDictionary& dictionary, TextView key, const VARIANT& value) {
    const Com::Variant name(key);
    EXPECT_EQ(dictionary.put_Item(Argument(name), const_cast<VARIANT*>(&value)), S_OK)
        << Narrow(key);
}

bool Exists(IDictionary& dictionary, TextView key) {
    const Com::Variant name(key);
    VARIANT_BOOL exists = VARIANT_FALSE;
    EXPECT_EQ(dictionary.Exists(Argument(name), &exists), S_OK) << Narrow(key);
    return exists != VARIANT_FALSE;
}

std::vector<std::string> KeysOf(IDictionary& dictionary) {
    Com::Variant keys;
    EXPECT_EQ(dictionary.Keys(keys.Put()), S_OK);
    return ElementsOf(keys.Get());
}

std::vector<std::string> ElementsOf(const VARIANT& array) {
    std::vector<std::string> elements;
    EXPECT_EQ(array.vt, VT_ARRAY | VT_VARIANT);
    LONG lower = 0;
    LONG upper = -1;
    EXPECT_EQ(::SafeArrayGetLBound(array.parray, 1, &lower), S_OK);
    EXPECT_EQ(::SafeArrayGetUBound(array.parray, 1, &upper), S_OK);
    EXPECT_EQ(lower, 0);
    for (LONG index = lower; index <= upper; ++index) {
        Com::Variant element;
        EXPECT_EQ(::SafeArrayGetElement(array.parray, &index, element.Put()), S_OK);
        elements.push_back(Describe(element));
    }
    return elements;
}

Com::ComPtr<IDictionary> NewPlatformDictionary() {
    Com::ComPtr<IDictionary> dictionary;
    EXPECT_EQ(::CoCreateInstance(PlatformDictionary, nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(IDictionary), dictionary.PutVoid()),
              S_OK);
    return dictionary;
}

} // namespace Quorvane
