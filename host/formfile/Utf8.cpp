// SPDX-License-Identifier: MIT
// Utf8: conversion between UTF-8 bytes and UTF-16 text.
#include "host/formfile/Utf8.h"

#include <utf8.h>

#include <iterator>

namespace Quorvane::Host {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsLeadingHalf(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrailingHalf(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

Utf8Error::Utf8Error(std::size_t offset)
    : std::runtime_error("the text is not UTF-8"), Offset(offset) {}

Text DecodeUtf8(std::string_view bytes) {
    const auto* const wrong = utf8::find_invalid(bytes.begin(), bytes.end());
    if (wrong != bytes.end()) {
        throw Utf8Error(static_cast<std::size_t>(wrong - bytes.begin()));
    }
    if (utf8::starts_with_bom(bytes.begin(), bytes.end())) {
        bytes.remove_prefix(std::size(utf8::bom));
    }
    Text text;
    text.reserve(bytes.size());
    utf8::unchecked::utf8to16(bytes.begin(), bytes.end(), std::back_inserter(text));
    return text;
}

std::string EncodeUtf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    const auto append = [&bytes](char32_t code) {
        utf8::unchecked::append(code, std::back_inserter(bytes));
    };
    // The library refuses the whole text for half a pair.
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsLeadingHalf(unit) && i + 1 < text.size() && IsTrailingHalf(text[i + 1])) {
            append(0x10000U + ((unit - 0xD800U) << 10) + (text[++i] - 0xDC00U));
        } else {
            append(IsLeadingHalf(unit) || IsTrailingHalf(unit) ? Replacement : char32_t{unit});
        }
    }
    return bytes;
}

} // namespace Quorvane::Host
