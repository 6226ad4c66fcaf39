// SPDX-License-Identifier: MIT
// Automation: calling a control by the names of its members, as a script does.
#pragma once

#include <initializer_list>
#include <vector>

#include "com/ComPtr.h"
#include "com/Scoped.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Calls a member by name: a property get, or a method. Throws Com::HresultError with the error's
/// text.
Com::Variant CallMember(IDispatch* object, const Text& name,
                        std::initializer_list<Com::Variant> arguments = {},
                        WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);

/// Sets a property by name; an object by reference. Throws Com::HresultError.
void SetProperty(IDispatch* object, const Text& name, Com::Variant value);

/// The object that a property gives; null for Nothing. Throws Com::HresultError.
Com::ComPtr<IDispatch> ObjectProperty(IDispatch* object, const Text& name);

/// The keys of a dictionary object, as texts. Throws Com::HresultError.
std::vector<Text> KeysOf(IDispatch* dictionary);

/// The item under a key. Throws Com::HresultError.
Com::Variant ItemOf(IDispatch* dictionary, const Text& key);

/// Replaces the item under a key. Throws Com::HresultError.
void SetItem(IDispatch* dictionary, const Text& key, Com::Variant value);

/// A value as the user reads it; "?" for one that has no text.
Text ValueText(const Com::Variant& value);

} // namespace Quorvane::Host
