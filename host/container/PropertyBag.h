// SPDX-License-Identifier: MIT
// PropertyBag: a control's properties in a form file, as the property bag the control loads from.
#pragma once

#include <oaidl.h>
#include <ocidl.h>

#include "com/ComObject.h"
#include "host/formfile/FormFile.h"

namespace Quorvane::Host {

/// The bag over a list of properties. It keeps its own copy, since a control may hold on to the
/// bag.
class PropertyBag final : public Com::ComObject<IPropertyBag> {
  public:
    PropertyBag() = default;
    explicit PropertyBag(FormProperties properties) : properties_(std::move(properties)) {}

    /// What the bag holds now.
    const FormProperties& Properties() const { return properties_; }

    /// Gives the property `name` as the variant type that `value->vt` asks for (VT_EMPTY: as it
    /// is). E_INVALIDARG: there is none. A value that does not convert is DISP_E_TYPEMISMATCH or
    /// DISP_E_OVERFLOW and goes to `log` where there is one. `value` is Empty after a failure.
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept override;

    /// Stores the value; Empty, Null and a null object remove the property.
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override;

  private:
    ~PropertyBag() override = default;

    FormProperties properties_;
};

} // namespace Quorvane::Host
