// SPDX-License-Identifier: MIT
// Utf8: conversion between UTF-8 bytes and UTF-16 text.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "shared/Text.h"

namespace Quorvane::Host {

/// Bytes that are not UTF-8; `Offset` is the index of the first wrong byte.
struct Utf8Error : std::runtime_error {
    explicit Utf8Error(std::size_t offset);
    std::size_t Offset;
};

/// The text of `bytes`; a leading byte order mark is dropped.
/// Throws Utf8Error for overlong forms, encoded surrogates, values above U+10FFFF and cut
/// sequences.
Text DecodeUtf8(std::string_view bytes);

/// The UTF-8 form of `text`. A surrogate without its partner, which UTF-8 cannot hold, becomes
/// U+FFFD.
std::string EncodeUtf8(TextView text);

} // namespace Quorvane::Host
