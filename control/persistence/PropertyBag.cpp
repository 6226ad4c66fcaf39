// SPDX-License-Identifier: MIT
// Reading and writing the persisted properties of the control, each with its default.
#include "control/persistence/PropertyBag.h"

#include "com/ErrorBoundary.h"
#include "com/Fonts.h"
#include "com/Scoped.h"

namespace Quorvane {
namespace {

/// Whether an answer says that the bag lacks the property. There is one for it, and there are those
/// of containers that look the name up in a record, a dispatch object or a storage of theirs.
bool IsAbsence(HRESULT result) noexcept {
    switch (result) {
    case E_INVALIDARG:
    case S_FALSE:
    case E_FAIL:
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_UNKNOWNNAME:
    case STG_E_FILENOTFOUND:
        return true;
    default:
        return result == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    }
}

/// A property as the bag has it, Empty for one that it lacks. The type asked for is a request: a
/// bag may answer in another.
Com::Variant Read(IPropertyBag& bag, IErrorLog* log, const wchar_t* name, VARTYPE type) {
    VARIANT request{};
    request.vt = type;
    const HRESULT result = bag.Read(name, &request, log);
    Com::Variant value = Com::Variant::Attach(request);
    if (IsAbsence(result)) {
        return {};
    }
    Com::Check(result, &bag);
    return value;
}

void Write(IPropertyBag& bag, const wchar_t* name, Com::Variant value) {
    Com::Check(bag.Write(name, &value.Get()), &bag);
}

} // namespace

Text PropertyReader::ReadText(const wchar_t* name, Text byDefault) const {
    const Com::Variant value = Read(bag_, log_, name, VT_BSTR);
    if (value.Type() == VT_EMPTY) {
        return byDefault;
    }
    return Text(Com::View(Com::ChangeType(value.Get(), VT_BSTR).Get().bstrVal));
}

bool PropertyReader::ReadFlag(const wchar_t* name, bool byDefault) const {
    const Com::Variant value = Read(bag_, log_, name, VT_BOOL);
    return value.Type() == VT_EMPTY
               ? byDefault
               : Com::ChangeType(value.Get(), VT_BOOL).Get().boolVal != VARIANT_FALSE;
}

OLE_COLOR PropertyReader::ReadColor(const wchar_t* name, OLE_COLOR byDefault) const {
    const Com::Variant value = Read(bag_, log_, name, VT_I4);
    if (value.Type() == VT_EMPTY) {
        return byDefault;
    }
    return Com::ToColor(value.Get());
}

Com::ComPtr<IFontDisp>
PropertyReader::ReadFont(const wchar_t* name,
                         const std::function<Com::ComPtr<IFontDisp>()>& byDefault) const {
    const Com::Variant value = Read(bag_, log_, name, VT_DISPATCH);
    if (value.Type() == VT_EMPTY) {
        return byDefault();
    }
    const bool isObject = value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
    auto font = isObject ? Com::Query<IFontDisp>(value.Get().punkVal) : nullptr;
    if (!font) {
        throw Com::HresultError(DISP_E_TYPEMISMATCH);
    }
    return font;
}

void PropertyWriter::WriteText(const wchar_t* name, TextView value, TextView byDefault) const {
    if (all_ || value != byDefault) {
        Write(bag_, name, Com::Variant(value));
    }
}

void PropertyWriter::WriteFlag(const wchar_t* name, bool value, bool byDefault) const {
    if (all_ || value != byDefault) {
        Write(bag_, name, Com::Variant(value));
    }
}

void PropertyWriter::WriteColor(const wchar_t* name, OLE_COLOR value, OLE_COLOR byDefault) const {
    if (all_ || value != byDefault) {
        Write(bag_, name, Com::Variant(static_cast<LONG>(value)));
    }
}

void PropertyWriter::WriteFont(const wchar_t* name, IFontDisp* value, IFontDisp* byDefault) const {
    if (all_ || !HaveSameAttributes(value, byDefault)) {
        Write(bag_, name, Com::Variant(static_cast<IDispatch*>(value)));
    }
}

} // namespace Quorvane
