// SPDX-License-Identifier: MIT
// A property bag that is kept in a stream, for hosts that save controls in binary.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>

#include "com/ComObject.h"
#include "com/Scoped.h"

namespace Quorvane {

/// A property bag in memory that is written to and read from a stream as a whole, so that one
/// description of the properties serves text forms and binary forms alike. It holds texts, flags,
/// 32-bit numbers and fonts.
///
/// In the stream: the mark "QVPB", a 16-bit version (1), a 16-bit count; then for each property a
/// 16-bit length and the UTF-16 characters of its name, a 16-bit VARTYPE and the value: 16 bits of
/// a flag, 32 bits of a number, a text as its 32-bit length in characters and these, or what the
/// standard font object writes of itself. All numbers are little-endian.
class StreamPropertyBag final : public Com::ComObject<IPropertyBag> {
  public:
    /// Reads a bag that WriteTo has written. Any byte sequence is safe to read: a stream that ends
    /// early or holds something else throws Com::HresultError.
    static Com::ComPtr<StreamPropertyBag> ReadFrom(IStream& stream);

    /// Throws Com::HresultError when the stream does not take it.
    void WriteTo(IStream& stream) const;

    /// The value of a property, null where there is none.
    const Com::Variant* Find(TextView name) const;

    /// Sets a property. Throws Com::HresultError for a value of a type that the bag does not hold.
    void Set(TextView name, Com::Variant value);

    // IPropertyBag
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;

  private:
    std::map<Text, Com::Variant, std::less<>> properties_;
};

} // namespace Quorvane
