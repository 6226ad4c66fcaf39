// SPDX-License-Identifier: MIT
// Paths and the texts that name them.
#pragma once

#include <filesystem>

#include "com/Scoped.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// The characters of a path. The library's own conversion would refuse those that are half a pair.
inline Text PathText(const std::filesystem::path& path) {
    return Text(Com::View(path.c_str(), path.native().size()));
}

inline std::filesystem::path ToPath(const Text& text) {
    return Com::Wide(text);
}

} // namespace Quorvane::Host
