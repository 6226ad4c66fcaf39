// SPDX-License-Identifier: MIT
// Automation: calling a control by the names of its members, as a script does.
#pragma once

#include "host/container/ComPtr.h"
#include "host/container/Variant.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace Quorvane::Host {

/// Calls a member by name: a property get, or a method. Throws HResultError with the error's text.
Variant CallMember(IDispatch* object, const wchar_t* name,
                   std::initializer_list<Variant> arguments = {},
                   WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);

/// Sets a property by name; an object by reference. Throws HResultError.
void SetProperty(IDispatch* object, const wchar_t* name, Variant value);

/// The object that a property gives; null for Nothing. Throws HResultError.
ComPtr<IDispatch> ObjectProperty(IDispatch* object, const wchar_t* name);

/// The keys of a dictionary object, as texts. Throws HResultError.
std::vector<std::wstring> KeysOf(IDispatch* dictionary);

/// The item under a key. Throws HResultError.
Variant ItemOf(IDispatch* dictionary, const std::wstring& key);

/// Replaces the item under a key. Throws HResultError.
void SetItem(IDispatch* dictionary, const std::wstring& key, Variant value);

/// A value as the user reads it; "?" for one that has no text.
std::wstring ValueText(const Variant& value);

} // namespace Quorvane::Host
