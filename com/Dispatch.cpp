// SPDX-License-Identifier: MIT
// Calls through type information, with what it refuses put right first.
#include "com/Dispatch.h"

#include <oleauto.h>
#include <olectl.h>

#include <algorithm>

#include "com/DispatchArguments.h"
#include "com/ExceptionInfo.h"
#include "com/Scoped.h"

namespace Quorvane::Com {
namespace {

constexpr int PutKinds = INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;

/// The platform's error "object variable not set".
constexpr auto ObjectNotSet = static_cast<HRESULT>(0x800A005B);

/// Whether the failure is dispatch's own refusal of the call rather than the member's.
bool IsRefusal(HRESULT result) noexcept {
    return HRESULT_FACILITY(result) == FACILITY_DISPATCH;
}

HRESULT InvokeTyped(const TypeDescription& type, IDispatch* target, DispatchCall call) {
    ExceptionInfo exception;
    // An error that an earlier call left on the thread must not be taken for this member's.
    ::SetErrorInfo(0, nullptr);
    const HRESULT result = type.Info->Invoke(target, call.Member, call.Flags, call.Arguments,
                                             call.Result, exception.Get(), call.BadArgument);
    if (result == DISP_E_EXCEPTION) {
        exception.MoveTo(call.Exception);
        return result;
    }
    if (FAILED(result) && !IsRefusal(result)) {
        FillException(result, call.Exception);
        return DISP_E_EXCEPTION;
    }
    return result;
}

/// Scripts know signed numbers only: they can neither name nor compare an unsigned one, such as
/// a colour.
void MakeSigned(VARIANT* result) noexcept {
    if (result && (result->vt == VT_UI4 || result->vt == VT_UINT || result->vt == VT_INT)) {
        result->vt = VT_I4;
    }
}

/// Whether arguments beyond those of a property mean its value's default member, as in
/// `control.InVals("Temp") = 5`, which arrives as one call on InVals with an index.
bool IsMeantForValue(const TypeDescription& type, const DispatchCall& call) noexcept {
    const DispatchMember* const getter = type.Find(call.Member, INVOKE_PROPERTYGET);
    if (!getter || !getter->GivesObject) {
        return false;
    }
    const UINT ownArguments = (call.Flags & PutKinds) != 0 ? 1 : 0;
    return call.Arguments->cArgs > ownArguments;
}

HRESULT InvokeOnValue(const TypeDescription& type, IDispatch* target, const DispatchCall& call) {
    Variant value;
    DISPPARAMS none{};
    const HRESULT result = InvokeTyped(type, target,
                                       {call.Member, call.Locale, DISPATCH_PROPERTYGET, &none,
                                        value.Put(), call.Exception, call.BadArgument});
    if (FAILED(result)) {
        return result;
    }
    if (value.Type() != VT_DISPATCH || !value.Get().pdispVal) {
        FillException(ObjectNotSet, call.Exception);
        return DISP_E_EXCEPTION;
    }
    return value.Get().pdispVal->Invoke(DISPID_VALUE, IID_NULL, call.Locale, call.Flags,
                                        call.Arguments, call.Result, call.Exception,
                                        call.BadArgument);
}

} // namespace

void RequireNames(const LPOLESTR* names, UINT count, const DISPID* ids) {
    const bool areThere = names && ids && count > 0 &&
                          std::all_of(names, names + count, [](LPOLESTR name) { return name; });
    if (!areThere) {
        throw HresultError(E_INVALIDARG);
    }
}

void FillException(HRESULT result, EXCEPINFO* exception) noexcept {
    if (!exception) {
        return;
    }
    *exception = EXCEPINFO{};
    exception->scode = result;
    ComPtr<IErrorInfo> info;
    if (::GetErrorInfo(0, info.Put()) == S_OK) {
        info->GetSource(&exception->bstrSource);
        info->GetDescription(&exception->bstrDescription);
        info->GetHelpFile(&exception->bstrHelpFile);
        info->GetHelpContext(&exception->dwHelpContext);
    }
}

HRESULT InvokeMember(const TypeDescription& type, IDispatch* target, const DispatchCall& call) {
    DISPPARAMS normal = NormalArguments(call.Arguments, call.Flags);
    DispatchCall fitted = call;
    fitted.Arguments = &normal;
    if (const auto bad = FindNullReference(normal)) {
        if (call.BadArgument) {
            *call.BadArgument = *bad;
        }
        return DISP_E_TYPEMISMATCH;
    }
    const DispatchMember* const member = type.Find(call.Member, call.Flags);
    if (IsMeantForValue(type, fitted)) {
        return InvokeOnValue(type, target, fitted);
    }
    if (!member) {
        return DISP_E_MEMBERNOTFOUND;
    }
    DispatchArguments arguments(*member, normal, call.BadArgument);
    fitted.Arguments = arguments.Get();
    const HRESULT result = InvokeTyped(type, target, fitted);
    if (SUCCEEDED(result)) {
        arguments.HandBack();
        MakeSigned(call.Result);
    } else if (call.BadArgument && IsRefusal(result)) {
        *call.BadArgument = arguments.OriginalIndex(*call.BadArgument);
    }
    return result;
}

} // namespace Quorvane::Com
