// SPDX-License-Identifier: MIT
// Paths and the texts that name them.
#pragma once

#include <filesystem>
#include <string_view>

#include "com/Scoped.h"
#include "shared/Text.h"
#include "win/WideText.h"

namespace Quorvane::Host {

/// The characters of a path. The library's own conversion would refuse those that are half a pair.
inline Text PathText(const std::filesystem::path& path) {
    return Text(Com::View(path.c_str(), path.native().size()));
}

/// A path of all characters of a text, zeros included.
inline std::filesystem::path ToPath(TextView text) {
    return std::wstring_view(Win::Characters(text), text.size());
}

} // namespace Quorvane::Host
