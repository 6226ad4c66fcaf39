// SPDX-License-Identifier: MIT
// Fitting the arguments of a late-bound call to a member, and handing changed values back.
#include "com/DispatchArguments.h"

#include <cstring>

#include "com/ErrorBoundary.h"

namespace Quorvane::Com {
namespace {

bool IsReference(VARTYPE type) noexcept {
    return (type & VT_BYREF) != 0;
}

/// The size of a plain value of that type, 0 for one that is more than its bytes.
std::size_t SizeOfPlain(VARTYPE type) noexcept {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    default:
        return 0;
    }
}

bool IsConvertible(VARTYPE type) noexcept {
    return type == VT_BSTR || SizeOfPlain(type) > 0;
}

bool HaveSameValue(const VARIANT& left, const VARIANT& right) noexcept {
    if (left.vt == VT_BSTR) {
        return View(left.bstrVal) == View(right.bstrVal);
    }
    return std::memcmp(&left.llVal, &right.llVal, SizeOfPlain(left.vt)) == 0;
}

/// The object that a value is or refers to; null for none.
IUnknown* ObjectIn(const VARIANT& value) noexcept {
    switch (value.vt) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return value.punkVal;
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
        return *value.ppunkVal;
    default:
        return nullptr;
    }
}

/// An object of another kind is a type mismatch to a caller, which the type information reports
/// as a missing interface.
void RequireInterface(IUnknown* object, REFIID iid) {
    if (!object || iid == GUID_NULL) {
        return;
    }
    void* found = nullptr;
    if (FAILED(object->QueryInterface(iid, &found))) {
        throw HresultError(DISP_E_TYPEMISMATCH);
    }
    static_cast<IUnknown*>(found)->Release();
}

/// Stores through a typed reference such as VT_BYREF | VT_I2.
void StoreThrough(const VARIANT& reference, const VARIANT& value) {
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    Variant converted = ChangeType(value, type);
    if (type == VT_BSTR) {
        ::SysFreeString(std::exchange(*reference.pbstrVal, converted.Detach().bstrVal));
    } else {
        std::memcpy(reference.byref, &converted.Get().llVal, SizeOfPlain(type));
    }
}

/// Stores into the variable that a by-reference argument means; the variable keeps its type
/// where it had one that the value converts to.
void Assign(const VARIANT& argument, const Variant& value) {
    auto& variable = const_cast<VARIANT&>(Dereference(argument));
    if (IsReference(variable.vt)) {
        StoreThrough(variable, value.Get());
        return;
    }
    const VARTYPE type = IsConvertible(variable.vt) ? variable.vt : value.Type();
    Variant replacement = ChangeType(value.Get(), type);
    std::swap(variable, replacement.Get());
}

} // namespace

DISPPARAMS NormalArguments(const DISPPARAMS* arguments, WORD flags) {
    if (!arguments) {
        return {};
    }
    DISPPARAMS normal = *arguments;
    const bool lacksArguments = normal.cArgs > 0 && !normal.rgvarg;
    const bool lacksNames = normal.cNamedArgs > 0 && !normal.rgdispidNamedArgs;
    if (lacksArguments || lacksNames || normal.cNamedArgs > normal.cArgs) {
        throw HresultError(E_INVALIDARG);
    }
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isPut && normal.cArgs > 0 && normal.cNamedArgs == 0) {
        static DISPID newValue = DISPID_PROPERTYPUT;
        normal.rgdispidNamedArgs = &newValue;
        normal.cNamedArgs = 1;
    }
    return normal;
}

std::optional<UINT> FindNullReference(const DISPPARAMS& arguments) noexcept {
    for (UINT index = 0; index < arguments.cArgs; ++index) {
        const VARIANT& value = Dereference(arguments.rgvarg[index]);
        if (IsReference(value.vt) && !value.byref) {
            return index;
        }
    }
    return std::nullopt;
}

DispatchArguments::DispatchArguments(const DispatchMember& member, const DISPPARAMS& arguments,
                                     UINT* badArgument)
    : parameters_(arguments), values_(arguments.rgvarg, arguments.rgvarg + arguments.cArgs) {
    const std::size_t parameters = member.Parameters.size();
    DropSurplus(parameters);
    RequireEachParameterOnce(parameters, badArgument);
    for (std::size_t index = 0; index < values_.size(); ++index) {
        try {
            Fit(index, member.Parameters[ParameterOf(index, parameters)]);
        } catch (const HresultError&) {
            if (badArgument) {
                *badArgument = OriginalIndex(static_cast<UINT>(index));
            }
            throw HresultError(DISP_E_TYPEMISMATCH);
        }
    }
    // Only now: a stand's address is final once all of them are there.
    for (Stand& stand : stands_) {
        VARIANT& value = values_[stand.Index];
        value.vt = static_cast<VARTYPE>(stand.Current.Type() | VT_BYREF);
        value.byref = &stand.Current.Get().llVal;
    }
    parameters_.rgvarg = values_.data();
    parameters_.cArgs = static_cast<UINT>(values_.size());
}

/// Named arguments come first and name their parameter; the rest come in reverse order.
std::size_t DispatchArguments::ParameterOf(std::size_t index,
                                           std::size_t parameters) const noexcept {
    if (index >= parameters_.cNamedArgs) {
        return values_.size() - 1 - index;
    }
    const DISPID name = parameters_.rgdispidNamedArgs[index];
    return name == DISPID_PROPERTYPUT ? parameters - 1 : static_cast<std::size_t>(name);
}

/// Containers are known to send more than a member takes; the last positional ones go.
void DispatchArguments::DropSurplus(std::size_t parameters) {
    const std::size_t positional = values_.size() - parameters_.cNamedArgs;
    const std::size_t surplus = values_.size() > parameters ? values_.size() - parameters : 0;
    if (surplus > 0 && surplus <= positional) {
        const auto first = values_.begin() + parameters_.cNamedArgs;
        values_.erase(first, first + static_cast<std::ptrdiff_t>(surplus));
        dropped_ = static_cast<UINT>(surplus);
    }
}

/// Left to the type information, a wrong number of arguments can cost a reference to those that it
/// has taken by then.
void DispatchArguments::RequireEachParameterOnce(std::size_t parameters, UINT* badArgument) const {
    if (values_.size() != parameters) {
        throw HresultError(DISP_E_BADPARAMCOUNT);
    }
    std::vector<bool> isGiven(parameters);
    for (std::size_t index = 0; index < values_.size(); ++index) {
        const std::size_t parameter = ParameterOf(index, parameters);
        if (parameter >= parameters || isGiven[parameter]) {
            if (badArgument) {
                *badArgument = OriginalIndex(static_cast<UINT>(index));
            }
            throw HresultError(DISP_E_PARAMNOTFOUND);
        }
        isGiven[parameter] = true;
    }
}

void DispatchArguments::Fit(std::size_t index, const DispatchParameter& parameter) {
    VARIANT& value = values_[index];
    if (!IsReference(parameter.Type)) {
        value = VARIANT(Dereference(value));
        RequireInterface(ObjectIn(value), parameter.Interface);
        if (IsConvertible(parameter.Type) && ObjectIn(value)) {
            // Left to the type information, an object that is its own default would never end.
            value = defaults_.emplace_back(ChangeType(value, parameter.Type)).Get();
        }
        return;
    }
    const auto type = static_cast<VARTYPE>(parameter.Type & ~VT_BYREF);
    if (value.vt == parameter.Type || !IsConvertible(type)) {
        return;
    }
    // A script passes a variable as a reference to a variant, or one of another type: the type
    // information refuses both for a typed reference (error 13), though the value converts.
    const Variant converted = ChangeType(value, type);
    stands_.push_back({index, value, converted, converted});
}

UINT DispatchArguments::OriginalIndex(UINT index) const noexcept {
    return index < parameters_.cNamedArgs ? index : index + dropped_;
}

void DispatchArguments::HandBack() {
    for (const Stand& stand : stands_) {
        if (IsReference(stand.Original.vt) &&
            !HaveSameValue(stand.Before.Get(), stand.Current.Get())) {
            Assign(stand.Original, stand.Current);
        }
    }
}

} // namespace Quorvane::Com
