// SPDX-License-Identifier: MIT
// FormVariant: a form file's values as automation variants and back.
#pragma once

#include "com/Scoped.h"
#include "host/formfile/FormFile.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// Gives `value` as a variant of the type `wanted`, or of its natural type for VT_EMPTY. A nested
/// list of properties is given as a font object. Texts are converted by the rules of US English,
/// whatever the user's locale, so that a form loads everywhere.
/// Throws Com::HresultError: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_BADVARTYPE as the
/// platform's conversion.
Com::Variant ToVariant(const FormValue& value, VARTYPE wanted);

/// The same for a property, whose name the error bears: "cannot read the font's Size". `owner` is
/// what has the property.
Com::Variant ToVariant(const FormProperty& property, VARTYPE wanted, TextView owner);

/// Gives what `value` holds as the value of the property `key`. Whole numbers of properties named
/// "...Color" become hexadecimal. Throws Com::HresultError: DISP_E_TYPEMISMATCH for what a form
/// file cannot hold (arrays, infinite numbers, objects that are not fonts).
FormValue FromVariant(const VARIANT& value, TextView key);

} // namespace Quorvane::Host
