// SPDX-License-Identifier: MIT
// Utf8: conversion between UTF-8 bytes and UTF-16 text.
#include "host/formfile/Utf8.h"

#include <cstdint>

namespace Quorvane::Host {

namespace {

struct LeadByte {
    std::size_t Length;
    char32_t Bits;
    char32_t Smallest;
};

LeadByte ReadLeadByte(unsigned char byte, std::size_t offset) {
    if (byte < 0x80) {
        return {1, byte, 0};
    }
    if ((byte & 0xE0) == 0xC0) {
        return {2, byte & 0x1FU, 0x80};
    }
    if ((byte & 0xF0) == 0xE0) {
        return {3, byte & 0x0FU, 0x800};
    }
    if ((byte & 0xF8) == 0xF0) {
        return {4, byte & 0x07U, 0x10000};
    }
    throw Utf8Error(offset);
}

bool IsSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

void AppendUtf16(std::u16string& text, char32_t code) {
    if (code < 0x10000) {
        text += static_cast<char16_t>(code);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

void AppendUtf8(std::string& bytes, char32_t code) {
    const auto tail = [&](unsigned shift) {
        bytes += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0 | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0 | (code >> 12));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

Utf8Error::Utf8Error(std::size_t offset)
    : std::runtime_error("the text is not UTF-8"), Offset(offset) {}

std::u16string DecodeUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    std::size_t at = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (at < bytes.size()) {
        const LeadByte lead = ReadLeadByte(static_cast<unsigned char>(bytes[at]), at);
        if (lead.Length > bytes.size() - at) {
            throw Utf8Error(at);
        }
        char32_t code = lead.Bits;
        for (std::size_t i = 1; i < lead.Length; ++i) {
            const auto byte = static_cast<unsigned char>(bytes[at + i]);
            if ((byte & 0xC0) != 0x80) {
                throw Utf8Error(at);
            }
            code = (code << 6) | (byte & 0x3FU);
        }
        if (code < lead.Smallest || code > 0x10FFFF || IsSurrogate(code)) {
            throw Utf8Error(at);
        }
        AppendUtf16(text, code);
        at += lead.Length;
    }
    return text;
}

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (IsSurrogate(code)) {
            const bool isPair = code < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
                                text[i + 1] <= 0xDFFF;
            code = isPair ? 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U) : 0xFFFD;
        }
        AppendUtf8(bytes, code);
    }
    return bytes;
}

} // namespace Quorvane::Host
