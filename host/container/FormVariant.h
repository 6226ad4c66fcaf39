// SPDX-License-Identifier: MIT
// FormVariant: a form file's values as automation variants and back.
#pragma once

#include "host/container/Variant.h"
#include "host/formfile/FormFile.h"

namespace Quorvane::Host {

/// Gives `value` as a variant of the type `wanted`, or of its natural type for VT_EMPTY. A nested
/// list of properties is given as a font object. Texts are converted by the rules of US English,
/// whatever the user's locale, so that a form loads everywhere.
/// Errors: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_BADVARTYPE as the platform's conversion.
HRESULT ToVariant(const FormValue& value, VARTYPE wanted, Variant& result);

/// Gives what `value` holds as the value of the property `key`. Whole numbers of properties named
/// "...Color" become hexadecimal. Error: DISP_E_TYPEMISMATCH for what a form file cannot hold
/// (arrays, infinite numbers, objects that are not fonts).
HRESULT FromVariant(const VARIANT& value, std::u16string_view key, FormValue& result);

} // namespace Quorvane::Host
