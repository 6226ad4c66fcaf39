// SPDX-License-Identifier: MIT
// A property bag in memory, empty at first.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <string>

#include "control/com/ComObject.h"
#include "control/com/Scoped.h"

namespace Quorvane {

/// What a host saves a control into and loads it from.
class MemoryBag final : public Com::ComObject<IPropertyBag> {
  public:
    std::map<std::wstring, Com::Variant> Items;

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        const auto found = Items.find(name);
        if (found == Items.end()) {
            return E_INVALIDARG;
        }
        *value = Com::Variant(found->second).Detach();
        return S_OK;
    }

    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override {
        Items.insert_or_assign(name, Com::Variant(*value));
        return S_OK;
    }
};

} // namespace Quorvane
