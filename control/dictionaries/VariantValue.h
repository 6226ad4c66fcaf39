// SPDX-License-Identifier: MIT
// Values of the core as VARIANTs of a host, and back.
#pragma once

#include "com/Scoped.h"
#include "shared/Value.h"

namespace Quorvane {

/// The value that a host gave: numbers and texts become the core's own, Empty stays Empty, and
/// anything else is kept as the VARIANT that it is. By-reference variants are followed to the value
/// they refer to. Throws Com::HresultError when the value cannot be copied.
Value FromVariant(const VARIANT& variant);

/// A VARIANT kept whole, whatever it holds. By-reference variants are followed first.
std::shared_ptr<const HostValue> HoldVariant(const VARIANT& variant);

/// The VARIANT that a host gets for a value: of the type that it was given in.
Com::Variant ToVariant(const Value& value);

/// The same for a value that was kept whole.
Com::Variant ToVariant(const HostValue& value);

} // namespace Quorvane
