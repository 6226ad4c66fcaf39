// SPDX-License-Identifier: MIT
// ControlClass: finds and creates the control that a form file names.
#pragma once

#include <filesystem>
#include <optional>

#include "com/ComObject.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// A new object of the registered class `name`, a ProgID or a "{class identifier}".
/// Throws Com::HresultError.
Com::ComPtr<IUnknown> CreateRegistered(const Text& name);

/// A new object of the class `name` straight from the library file `dll`, registered or not. A
/// ProgID is looked up in the type library inside the file, as "Library.Class" with or without a
/// version number behind it. The library stays loaded. Throws Com::HresultError.
Com::ComPtr<IUnknown> CreateFromLibrary(const std::filesystem::path& dll, const Text& name);

/// The one of the two that fits: from `dll` where one is given.
Com::ComPtr<IUnknown> CreateControl(const std::optional<std::filesystem::path>& dll,
                                    const Text& name);

} // namespace Quorvane::Host
