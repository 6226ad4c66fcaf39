// SPDX-License-Identifier: MIT
// PropertyBag: a control's properties in a form file, as the property bag the control loads from.
#include "host/container/PropertyBag.h"

#include "host/container/FormVariant.h"
#include "host/container/HResult.h"
#include "host/container/Wide.h"

namespace Quorvane::Host {

namespace {

void ReportUnreadable(IErrorLog* log, LPCOLESTR name, HRESULT result) {
    if (!log) {
        return;
    }
    ExceptionInfo info;
    info.scode = result;
    info.bstrSource = NewBstr(L"form file");
    info.bstrDescription = NewBstr(L"the value cannot be read: " + DescribeResult(result));
    log->AddError(name, &info);
}

bool HoldsNothing(const VARIANT& value) {
    const bool isObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    return value.vt == VT_EMPTY || value.vt == VT_NULL || (isObject && !value.punkVal);
}

} // namespace

HRESULT PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) noexcept {
    if (!name || !value) {
        return E_POINTER;
    }
    return Guard([&] {
        // The caller fills in the type alone, so what else the variant holds is not ours to
        // release.
        const VARTYPE wanted = value->vt;
        VariantInit(value);
        const FormProperty* const property = properties_.Find(FromWide(name));
        if (!property) {
            return E_INVALIDARG;
        }
        Variant result;
        HRESULT read = Guard([&] { return ToVariant(property->Value, wanted, result); });
        if (SUCCEEDED(read)) {
            result.MoveTo(value);
            return read;
        }
        // E_INVALIDARG would tell the control that the property is not there.
        if (read == E_INVALIDARG) {
            read = DISP_E_TYPEMISMATCH;
        }
        ReportUnreadable(log, name, read);
        return read;
    });
}

HRESULT PropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (!name || !value) {
        return E_POINTER;
    }
    return Guard([&] {
        Variant plain;
        const HRESULT copied = plain.Copy(*value);
        if (FAILED(copied)) {
            return copied;
        }
        FormProperty property{FromWide(name), {}};
        if (HoldsNothing(plain)) {
            properties_.Remove(property.Key);
            return S_OK;
        }
        const HRESULT stored = FromVariant(plain, property.Key, property.Value);
        if (SUCCEEDED(stored)) {
            properties_.Set(std::move(property));
        }
        return stored;
    });
}

} // namespace Quorvane::Host
