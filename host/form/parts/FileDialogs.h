// SPDX-License-Identifier: MIT
// FileDialogs: the system's dialogs for form files and for the folder of a batch.
#pragma once

#include <windows.h>

#include <filesystem>

namespace Quorvane::Host {

/// Asks for a form file to open or to save to; empty when the user gives none.
std::filesystem::path AskForFormFile(HWND owner, const std::filesystem::path& offered, bool saving);

/// Asks for the folder of the batch files; empty when the user gives none. Throws
/// Com::HresultError.
std::filesystem::path AskForBatchFolder(HWND owner, const std::filesystem::path& offered);

} // namespace Quorvane::Host
