// SPDX-License-Identifier: MIT
// HostObject: the object "Host" that a form's script sees.
#include "host/script/HostObject.h"

#include <cwchar>

#include "com/ErrorBoundary.h"
#include "com/ExceptionInfo.h"
#include "com/Scoped.h"

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
        throw Com::HresultError(DISP_E_BADPARAMCOUNT, u"wrong number of arguments");
    }
}

Com::Variant Convert(const VARIANT& argument, VARTYPE type, LCID locale) {
    return Com::ChangeType(argument, type, locale, VARIANT_ALPHABOOL);
}

Text TextOf(const VARIANT& argument, LCID locale) {
    if (Com::Dereference(argument).vt == VT_NULL) {
        return u"Null";
    }
    return Text(Com::View(Convert(argument, VT_BSTR, locale).Get().bstrVal));
}

// An error is how a script is made to end; the host knows by ExitCode that it is none.
HRESULT RaiseEnd(EXCEPINFO* error) {
    Com::ExceptionInfo(E_ABORT, {}, u"the script has been ended").MoveTo(error);
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
    if (result) {
        ::VariantInit(result);
    }
    return Com::Guard<IDispatch>([&] {
        Com::Variant answer;
        const HRESULT called = exitCode_ ? S_OK : Call(id, *arguments, locale, answer);
        if (exitCode_) {
            return RaiseEnd(error);
        }
        if (result) {
            *result = answer.Detach();
        }
        return called;
    });
}

void HostObject::EndScript(int exitCode) {
    if (!exitCode_) {
        exitCode_ = exitCode;
    }
}

HRESULT HostObject::Call(DISPID id, const DISPPARAMS& arguments, LCID locale,
                         Com::Variant& answer) {
    switch (id) {
    case PrintId:
        Print(arguments, locale);
        return S_OK;
    case OptionId:
        answer = Option(arguments);
        return S_OK;
    case OutputFolderId:
        answer = Com::Variant(TextView(services_.OutputFolder));
        return S_OK;
    case QuitId:
        Quit(arguments);
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

void HostObject::Print(const DISPPARAMS& arguments, LCID locale) const {
    Text line;
    for (UINT i = 0; i < arguments.cArgs; ++i) {
        if (i != 0) {
            line += u' ';
        }
        line += TextOf(ArgumentAt(arguments, i), locale);
    }
    services_.Print(line);
}

Com::Variant HostObject::Option(const DISPPARAMS& arguments) const {
    RequireArguments(arguments, 1, 2);
    const Text name = TextOf(ArgumentAt(arguments, 0), LOCALE_INVARIANT);
    for (const auto& [key, text] : services_.Options) {
        if (_wcsicmp(Com::Wide(key), Com::Wide(name)) == 0) {
            return Com::Variant(TextView(text));
        }
    }
    return arguments.cArgs == 2 ? Com::WithoutReference(ArgumentAt(arguments, 1)) : Com::Variant();
}

void HostObject::Quit(const DISPPARAMS& arguments) {
    RequireArguments(arguments, 0, 1);
    EndScript(arguments.cArgs == 1 ? Convert(ArgumentAt(arguments, 0), VT_I4, 0).Get().lVal : 0);
}

} // namespace Quorvane::Host
