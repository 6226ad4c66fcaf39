// SPDX-License-Identifier: MIT
// ControlClass: finds and creates the control that a form file names.
#pragma once

#include "host/container/ComObject.h"

#include <filesystem>
#include <optional>
#include <string>

namespace Quorvane::Host {

/// A new object of the registered class `name`, a ProgID or a "{class identifier}".
/// Throws HResultError.
ComPtr<IUnknown> CreateRegistered(const std::wstring& name);

/// A new object of the class `name` straight from the library file `dll`, registered or not. A
/// ProgID is looked up in the type library inside the file, as "Library.Class" with or without a
/// version number behind it. The library stays loaded. Throws HResultError.
ComPtr<IUnknown> CreateFromLibrary(const std::filesystem::path& dll, const std::wstring& name);

/// The one of the two that fits: from `dll` where one is given.
ComPtr<IUnknown> CreateControl(const std::optional<std::filesystem::path>& dll,
                               const std::wstring& name);

} // namespace Quorvane::Host
