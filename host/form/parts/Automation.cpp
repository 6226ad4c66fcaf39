// SPDX-License-Identifier: MIT
// Automation: calling a control by the names of its members, as a script does.
#include "host/form/parts/Automation.h"

#include <algorithm>

#include "com/ExceptionInfo.h"
#include "com/FailedCall.h"

namespace Quorvane::Host {
namespace {

DISPID MemberId(IDispatch* object, const Text& name) {
    auto* wideName = const_cast<wchar_t*>(Com::Wide(name));
    DISPID id = DISPID_UNKNOWN;
    Com::Check(object->GetIDsOfNames(IID_NULL, &wideName, 1, LOCALE_USER_DEFAULT, &id), name);
    return id;
}

Com::Variant Invoke(IDispatch* object, const Text& name, WORD flags,
                    std::vector<Com::Variant> arguments, bool isPut) {
    // Automation passes arguments last first.
    std::ranges::reverse(arguments);
    std::vector<VARIANT> passed;
    for (const Com::Variant& argument : arguments) {
        passed.push_back(argument.Get());
    }
    DISPID putId = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{passed.data(), isPut ? &putId : nullptr, static_cast<UINT>(passed.size()),
                          isPut ? 1U : 0U};
    Com::Variant result;
    Com::ExceptionInfo exception;
    const HRESULT called =
        object->Invoke(MemberId(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                       isPut ? nullptr : result.Put(), exception.Get(), nullptr);
    if (called == DISP_E_EXCEPTION) {
        exception.FillIn();
        Com::Fail(exception.Number(), name, exception.Description());
    }
    Com::Check(called, name);
    return result;
}

} // namespace

Com::Variant CallMember(IDispatch* object, const Text& name,
                        std::initializer_list<Com::Variant> arguments, WORD flags) {
    return Invoke(object, name, flags, arguments, false);
}

void SetProperty(IDispatch* object, const Text& name, Com::Variant value) {
    const WORD flags = value.Type() == VT_DISPATCH ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT;
    Invoke(object, name, flags, {std::move(value)}, true);
}

Com::ComPtr<IDispatch> ObjectProperty(IDispatch* object, const Text& name) {
    const Com::Variant value = CallMember(object, name, {}, DISPATCH_PROPERTYGET);
    return value.Type() == VT_DISPATCH ? Com::ComPtr<IDispatch>(value.Get().pdispVal) : nullptr;
}

std::vector<Text> KeysOf(IDispatch* dictionary) {
    const Com::Variant keys = CallMember(dictionary, u"Keys");
    std::vector<Text> texts;
    if (keys.Type() != (VT_ARRAY | VT_VARIANT)) {
        return texts;
    }
    LONG last = -1;
    ::SafeArrayGetUBound(keys.Get().parray, 1, &last);
    for (LONG i = 0; i <= last; ++i) {
        Com::Variant key;
        Com::Check(::SafeArrayGetElement(keys.Get().parray, &i, key.Put()), u"Keys");
        texts.push_back(ValueText(key));
    }
    return texts;
}

Com::Variant ItemOf(IDispatch* dictionary, const Text& key) {
    return CallMember(dictionary, u"Item", {Com::Variant(TextView(key))}, DISPATCH_PROPERTYGET);
}

void SetItem(IDispatch* dictionary, const Text& key, Com::Variant value) {
    Invoke(dictionary, u"Item", DISPATCH_PROPERTYPUT,
           {Com::Variant(TextView(key)), std::move(value)}, true);
}

Text ValueText(const Com::Variant& value) {
    try {
        const Com::Variant text =
            Com::ChangeType(value.Get(), VT_BSTR, LOCALE_USER_DEFAULT, VARIANT_ALPHABOOL);
        return Text(Com::View(text.Get().bstrVal));
    } catch (const Com::HresultError&) {
        return u"?";
    }
}

} // namespace Quorvane::Host
