// SPDX-License-Identifier: MIT
// A key as a host gives it, and the text under which a string-keyed dictionary holds it.
#include "control/dictionaries/DictionaryKey.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "com/ErrorBoundary.h"
#include "control/dictionaries/VariantValue.h"
#include "shared/FisError.h"

namespace Quorvane {
namespace {

/// Begins the text of every key that is none; a noncharacter, so that no real text begins so.
constexpr char16_t Tag = 0xFFFF;

Text TaggedText(char16_t kind, std::uint64_t identity) {
    Text text{Tag, kind};
    do {
        text.push_back(u"0123456789ABCDEF"[identity & 0xF]);
        identity >>= 4;
    } while (identity != 0);
    return text;
}

/// A numeric key as Double: keys of equal value are the same key whatever their types. Raises
/// InvalidCall for not-a-number, which equals nothing and so can be no key.
std::optional<double> NumericKey(const VARIANT& key) {
    switch (key.vt) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_BOOL:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL: {
        const double number = Com::ChangeType(key, VT_R8).Get().dblVal;
        if (std::isnan(number)) {
            throw FisError(RuntimeError::InvalidCall);
        }
        return number;
    }
    default:
        return std::nullopt;
    }
}

Text KeyText(const VARIANT& key) {
    if (const auto number = NumericKey(key)) {
        // Adding zero makes the two zeros one key.
        return TaggedText(u'n', std::bit_cast<std::uint64_t>(*number + 0.0));
    }
    switch (key.vt) {
    case VT_EMPTY:
        return TaggedText(u'e', 0);
    case VT_NULL:
        return TaggedText(u'0', 0);
    case VT_ERROR:
        return TaggedText(u'x', static_cast<std::uint32_t>(key.scode));
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return TaggedText(
            u'o', reinterpret_cast<std::uintptr_t>(Com::Query<IUnknown>(key.punkVal).Get()));
    default:
        throw FisError(RuntimeError::InvalidCall);
    }
}

/// The prime by which the platform's dictionary reduces its hashes.
constexpr std::uint32_t HashModulus = 1201;

std::uint32_t HashNumber(double number) {
    // What is beyond the range of a float has no bits to reduce.
    const auto reduced = static_cast<float>(number);
    return std::isinf(reduced) ? 0 : std::bit_cast<std::uint32_t>(reduced) % HashModulus;
}

std::uint32_t HashText(TextView text, KeyComparison comparison) {
    const auto lower = [](char16_t character) {
        return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + 0x20)
                                                      : character;
    };
    std::uint32_t hash = 0;
    for (const char16_t character : text) {
        hash += (hash << 4) + (comparison == KeyComparison::Exact ? character : lower(character));
    }
    return hash % HashModulus;
}

} // namespace

DictionaryKey::DictionaryKey(const VARIANT& key) : key_(Com::Dereference(key)) {
    if (key_.vt == VT_BSTR) {
        view_ = Com::View(key_.bstrVal);
    } else if (key_.vt == (VT_BYREF | VT_BSTR) && key_.pbstrVal) {
        view_ = Com::View(*key_.pbstrVal);
    } else {
        text_ = KeyText(Com::WithoutReference(key_).Get());
        view_ = text_;
    }
}

std::shared_ptr<const HostValue> DictionaryKey::HostKey() const {
    return text_.empty() ? nullptr : HoldVariant(key_);
}

LONG DictionaryKey::Hash(KeyComparison comparison) const {
    if (text_.empty()) {
        return static_cast<LONG>(HashText(view_, comparison));
    }
    const Com::Variant value = Com::WithoutReference(key_);
    if (const auto number = NumericKey(value.Get())) {
        return static_cast<LONG>(HashNumber(*number));
    }
    const bool isObject = value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
    const auto address = isObject ? reinterpret_cast<std::uintptr_t>(value.Get().punkVal) : 0;
    return static_cast<LONG>(address % HashModulus);
}

} // namespace Quorvane
