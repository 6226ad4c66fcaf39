// SPDX-License-Identifier: MIT
// PropertyBag: a control's properties in a form file, as the property bag the control loads from.
#include "host/container/PropertyBag.h"

#include "com/ExceptionInfo.h"
#include "com/FailedCall.h"
#include "com/Scoped.h"
#include "host/container/FormVariant.h"

namespace Quorvane::Host {
namespace {

void ReportUnreadable(IErrorLog* log, LPCOLESTR name, HRESULT result) {
    if (log) {
        Com::ExceptionInfo info(result, u"form file",
                                u"the value cannot be read: " + Com::DescribeResult(result));
        log->AddError(name, info.Get());
    }
}

bool HoldsNothing(const VARIANT& value) {
    const bool isObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    return value.vt == VT_EMPTY || value.vt == VT_NULL || (isObject && !value.punkVal);
}

} // namespace

STDMETHODIMP PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept {
    if (!name || !value) {
        return E_POINTER;
    }
    return Com::Guard<IPropertyBag>([&] {
        // The caller fills in the type alone, so what else the variant holds is not ours to
        // release.
        const VARTYPE wanted = value->vt;
        ::VariantInit(value);
        const FormProperty* const property = properties_.Find(Com::ToText(name));
        if (!property) {
            return E_INVALIDARG;
        }
        try {
            *value = ToVariant(property->Value, wanted).Detach();
            return S_OK;
        } catch (const Com::HresultError& error) {
            // E_INVALIDARG would tell the control that the property is not there.
            const HRESULT reason =
                error.Code() == E_INVALIDARG ? DISP_E_TYPEMISMATCH : error.Code();
            ReportUnreadable(log, name, reason);
            return reason;
        }
    });
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (!name || !value) {
        return E_POINTER;
    }
    return Com::Guard<IPropertyBag>([&] {
        const Com::Variant plain = Com::WithoutReference(*value);
        FormProperty property{Com::ToText(name), {}};
        if (HoldsNothing(plain.Get())) {
            properties_.Remove(property.Key);
            return;
        }
        property.Value = FromVariant(plain.Get(), property.Key);
        properties_.Set(std::move(property));
    });
}

} // namespace Quorvane::Host
