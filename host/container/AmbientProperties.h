// SPDX-License-Identifier: MIT
// AmbientProperties: what the form tells its controls about their surroundings.
#pragma once

#include <olectl.h>

#include <map>

#include "com/Scoped.h"

namespace Quorvane::Host {

/// The values by their DISPID_AMBIENT_... identifier. One that is not set is one the form does not
/// offer.
class AmbientProperties {
  public:
    /// What an ordinary form offers: run mode, the user's locale, Tahoma 8.25, the system's button
    /// colours, twips, no hatching or grab handles.
    static AmbientProperties OfAnOrdinaryForm();

    void Set(DISPID id, Com::Variant value) { values_[id] = std::move(value); }
    void Remove(DISPID id) { values_.erase(id); }

    /// Copies the value. DISP_E_MEMBERNOTFOUND: the form does not offer it.
    HRESULT Get(DISPID id, VARIANT* value) const;

    /// The identifier of the ambient property `name` ("UserMode"), in either letter case;
    /// DISPID_UNKNOWN for another name.
    static DISPID IdOf(const wchar_t* name) noexcept;

  private:
    std::map<DISPID, Com::Variant> values_;
};

} // namespace Quorvane::Host
