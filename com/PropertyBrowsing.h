// SPDX-License-Identifier: MIT
// IPerPropertyBrowsing and ICategorizeProperties: what a property browser asks of a control.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>

#include "com/ComObject.h"
#include "com/ControlCore.h"

namespace Quorvane::Com {

/// The platform's categories of properties.
enum PropertyCategory : int {
    FontCategory = -3,
    AppearanceCategory = -5,
    BehaviorCategory = -6,
    DataCategory = -7,
};

/// The platform's interface, which the compiler's headers lack.
struct ICategorizeProperties : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property,
                                                            int* category) noexcept = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale,
                                                      BSTR* name) noexcept = 0;
};

} // namespace Quorvane::Com

__CRT_UUID_DECL(Quorvane::Com::ICategorizeProperties, 0x4d07fc10, 0xf931, 0x11ce, 0xb0, 0x01, 0x00,
                0xaa, 0x00, 0x68, 0x84, 0xe5)

namespace Quorvane::Com {

/// Answers from the table of the control's traits. The categories are the platform's own, which
/// browsers name themselves; values are shown and typed as they are.
class PropertyBrowsing : public IPerPropertyBrowsing,
                         public ICategorizeProperties,
                         protected ControlMixin {
  public:
    using Answers = InterfaceList<IPerPropertyBrowsing, ICategorizeProperties>;

    STDMETHODIMP GetDisplayString(DISPID, BSTR* text) noexcept override {
        return Guard<IPerPropertyBrowsing>([&] {
            Out(text) = nullptr;
            return E_NOTIMPL;
        });
    }

    STDMETHODIMP MapPropertyToPage(DISPID property, CLSID* page) noexcept override {
        return Guard<IPerPropertyBrowsing>([&] {
            Out(page) = CLSID_NULL;
            const BrowsedProperty* const found = Find(property);
            if (!found || !found->Page) {
                return PERPROP_E_NOPAGEAVAILABLE;
            }
            *page = *found->Page;
            return S_OK;
        });
    }

    STDMETHODIMP GetPredefinedStrings(DISPID, CALPOLESTR* texts,
                                      CADWORD* cookies) noexcept override {
        return Guard<IPerPropertyBrowsing>([&] {
            Out(texts) = CALPOLESTR{};
            Out(cookies) = CADWORD{};
            return E_NOTIMPL;
        });
    }

    STDMETHODIMP GetPredefinedValue(DISPID, DWORD, VARIANT* value) noexcept override {
        return Guard<IPerPropertyBrowsing>([&] {
            Out(value) = VARIANT{};
            return E_NOTIMPL;
        });
    }

    STDMETHODIMP MapPropertyToCategory(DISPID property, int* category) noexcept override {
        return Guard<ICategorizeProperties>([&] {
            Out(category) = 0;
            const BrowsedProperty* const found = Find(property);
            if (!found) {
                return E_FAIL;
            }
            *category = found->Category;
            return S_OK;
        });
    }

    STDMETHODIMP GetCategoryName(int, LCID, BSTR* name) noexcept override {
        return Guard<ICategorizeProperties>([&] {
            Out(name) = nullptr;
            return E_FAIL;
        });
    }

  private:
    const BrowsedProperty* Find(DISPID property) noexcept {
        const auto properties = Core().Traits().Properties;
        const auto found = std::ranges::find(properties, property, &BrowsedProperty::Id);
        return found == properties.end() ? nullptr : &*found;
    }
};

} // namespace Quorvane::Com
