// SPDX-License-Identifier: MIT
// Automation: calling a control by the names of its members, as a script does.
#include "host/form/parts/Automation.h"

#include "host/container/HResult.h"

#include <algorithm>

namespace Quorvane::Host {

namespace {

DISPID MemberId(IDispatch* object, const wchar_t* name) {
    auto* mutableName = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    Check(object->GetIDsOfNames(IID_NULL, &mutableName, 1, LOCALE_USER_DEFAULT, &id), name);
    return id;
}

Variant Invoke(IDispatch* object, const wchar_t* name, WORD flags, std::vector<Variant> arguments,
               bool isPut) {
    // Automation passes arguments last first.
    std::ranges::reverse(arguments);
    std::vector<VARIANT> passed(arguments.begin(), arguments.end());
    DISPID putId = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{passed.data(), isPut ? &putId : nullptr, static_cast<UINT>(passed.size()),
                          isPut ? 1U : 0U};
    Variant result;
    ExceptionInfo exception;
    const HRESULT called =
        object->Invoke(MemberId(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                       isPut ? nullptr : &result, &exception, nullptr);
    if (called == DISP_E_EXCEPTION) {
        Fail(exception.Number(), name, ViewBstr(exception.bstrDescription));
    }
    Check(called, name);
    return result;
}

} // namespace

Variant CallMember(IDispatch* object, const wchar_t* name, std::initializer_list<Variant> arguments,
                   WORD flags) {
    return Invoke(object, name, flags, arguments, false);
}

void SetProperty(IDispatch* object, const wchar_t* name, Variant value) {
    const WORD flags = value.vt == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    Invoke(object, name, flags, {std::move(value)}, true);
}

ComPtr<IDispatch> ObjectProperty(IDispatch* object, const wchar_t* name) {
    const Variant value = CallMember(object, name, {}, DISPATCH_PROPERTYGET);
    return value.vt == VT_DISPATCH ? ComPtr<IDispatch>(value.pdispVal) : nullptr;
}

std::vector<std::wstring> KeysOf(IDispatch* dictionary) {
    const Variant keys = CallMember(dictionary, L"Keys");
    std::vector<std::wstring> texts;
    if (keys.vt != (VT_ARRAY | VT_VARIANT)) {
        return texts;
    }
    LONG last = -1;
    SafeArrayGetUBound(keys.parray, 1, &last);
    for (LONG i = 0; i <= last; ++i) {
        Variant key;
        Check(SafeArrayGetElement(keys.parray, &i, &key), L"Keys");
        texts.push_back(ValueText(key));
    }
    return texts;
}

Variant ItemOf(IDispatch* dictionary, const std::wstring& key) {
    return CallMember(dictionary, L"Item", {Variant(std::wstring_view(key))}, DISPATCH_PROPERTYGET);
}

void SetItem(IDispatch* dictionary, const std::wstring& key, Variant value) {
    Invoke(dictionary, L"Item", DISPATCH_PROPERTYPUT,
           {Variant(std::wstring_view(key)), std::move(value)}, true);
}

std::wstring ValueText(const Variant& value) {
    Variant text = value;
    if (FAILED(text.ChangeType(VT_BSTR, LOCALE_USER_DEFAULT))) {
        return L"?";
    }
    return std::wstring(ViewBstr(text.bstrVal));
}

} // namespace Quorvane::Host
