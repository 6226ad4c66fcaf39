// SPDX-License-Identifier: MIT
// FilePath: paths that come from texts of others.
#pragma once

#include <filesystem>

namespace Quorvane::Host {

/// Whether a path names the file that it seems to: the platform reads it as far as its first zero
/// character, and what stands before that can be another file.
inline bool IsFilePath(const std::filesystem::path& path) {
    return path.native().find(std::filesystem::path::value_type{}) ==
           std::filesystem::path::string_type::npos;
}

} // namespace Quorvane::Host
