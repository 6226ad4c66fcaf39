// SPDX-License-Identifier: MIT
// Registration of the module's classes and type library, per machine and per user.
#pragma once

#include <windows.h>

namespace Quorvane::Com {

/// Whom a registration is for.
enum class RegistrationScope { Machine, User };

/// Writes the module's classes and its type library, whose help directory is the module's folder.
/// A failure leaves the registry as it was. Throws HresultError.
void RegisterModule(RegistrationScope scope);

/// Removes all that RegisterModule writes, as far as it is there. A programmatic name stays while
/// a module of the other width still serves its class. Goes on after a failure and throws the
/// first as HresultError.
void UnregisterModule(RegistrationScope scope);

/// The body of DllInstall: the command is empty or "machine", or "user", in any letter case.
HRESULT InstallModule(bool install, const wchar_t* command) noexcept;

} // namespace Quorvane::Com
