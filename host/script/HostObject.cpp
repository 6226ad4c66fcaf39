// SPDX-License-Identifier: MIT
// HostObject: the object "Host" that a form's script sees.
#include "host/script/HostObject.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

#include <cwchar>

namespace Quorvane::Host {

namespace {

enum Member : DISPID { PrintId = 1, OptionId, OutputFolderId, QuitId };

struct NamedMember {
    const wchar_t* Name;
    Member Id;
};

constexpr NamedMember Members[] = {{L"Print", PrintId},
                                   {L"Echo", PrintId},
                                   {L"Option", OptionId},
                                   {L"OutputFolder", OutputFolderId},
                                   {L"Quit", QuitId}};

// Arguments come last first.
const VARIANT& ArgumentAt(const DISPPARAMS& arguments, UINT index) {
    return arguments.rgvarg[arguments.cArgs - 1 - index];
}

void RequireArguments(const DISPPARAMS& arguments, UINT fewest, UINT most) {
    if (arguments.cArgs < fewest || arguments.cArgs > most) {
        throw HResultError(DISP_E_BADPARAMCOUNT, "wrong number of arguments");
    }
}

Variant Convert(const VARIANT& argument, VARTYPE type, LCID locale) {
    Variant value;
    HRESULT result = value.Copy(argument);
    if (SUCCEEDED(result)) {
        result = value.ChangeType(type, locale);
    }
    if (FAILED(result)) {
        throw HResultError(result, "wrong type of argument");
    }
    return value;
}

std::wstring TextOf(const VARIANT& argument, LCID locale) {
    Variant value;
    if (SUCCEEDED(value.Copy(argument)) && value.vt == VT_NULL) {
        return L"Null";
    }
    return std::wstring(ViewBstr(Convert(argument, VT_BSTR, locale).bstrVal));
}

// An error is how a script is made to end; the host knows by ExitCode that it is none.
HRESULT RaiseEnd(EXCEPINFO* error) {
    if (error) {
        *error = {};
        error->scode = E_ABORT;
        error->bstrDescription = SysAllocString(L"the script has been ended");
    }
    return DISP_E_EXCEPTION;
}

} // namespace

HRESULT HostObject::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT HostObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info) {
        return E_POINTER;
    }
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (!names || !ids || count == 0) {
        return E_INVALIDARG;
    }
    for (UINT i = 0; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
    }
    for (const NamedMember& member : Members) {
        if (_wcsicmp(member.Name, names[0]) == 0) {
            ids[0] = member.Id;
        }
    }
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT HostObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments,
                           VARIANT* result, EXCEPINFO* error, UINT*) noexcept {
    if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!arguments) {
        return E_POINTER;
    }
    Variant ignored;
    if (result) {
        VariantInit(result);
    } else {
        result = &ignored;
    }
    const HRESULT called =
        exitCode_ ? S_OK : Guard([&] { return Call(id, *arguments, locale, result); });
    return exitCode_ ? RaiseEnd(error) : called;
}

void HostObject::EndScript(int exitCode) {
    if (!exitCode_) {
        exitCode_ = exitCode;
    }
}

HRESULT HostObject::Call(DISPID id, const DISPPARAMS& arguments, LCID locale, VARIANT* result) {
    switch (id) {
    case PrintId:
        Print(arguments, locale);
        return S_OK;
    case OptionId:
        Option(arguments, result);
        return S_OK;
    case OutputFolderId:
        Variant(std::wstring_view(services_.OutputFolder)).MoveTo(result);
        return S_OK;
    case QuitId:
        Quit(arguments);
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

void HostObject::Print(const DISPPARAMS& arguments, LCID locale) const {
    std::wstring line;
    for (UINT i = 0; i < arguments.cArgs; ++i) {
        if (i != 0) {
            line += L' ';
        }
        line += TextOf(ArgumentAt(arguments, i), locale);
    }
    services_.Print(line);
}

void HostObject::Option(const DISPPARAMS& arguments, VARIANT* result) const {
    RequireArguments(arguments, 1, 2);
    const std::wstring name = TextOf(ArgumentAt(arguments, 0), LOCALE_INVARIANT);
    for (const auto& [key, text] : services_.Options) {
        if (_wcsicmp(key.c_str(), name.c_str()) == 0) {
            return Variant(std::wstring_view(text)).MoveTo(result);
        }
    }
    Variant other;
    if (arguments.cArgs == 2 && SUCCEEDED(other.Copy(ArgumentAt(arguments, 1)))) {
        other.MoveTo(result);
    }
}

void HostObject::Quit(const DISPPARAMS& arguments) {
    RequireArguments(arguments, 0, 1);
    EndScript(arguments.cArgs == 1 ? Convert(ArgumentAt(arguments, 0), VT_I4, 0).lVal : 0);
}

} // namespace Quorvane::Host
