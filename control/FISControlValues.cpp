// SPDX-License-Identifier: MIT
// The run-time properties of the control: whole dictionaries of values, handed out and taken.
#include <olectl.h>

#include "control/FISControl.h"
#include "control/dictionaries/ScriptingDictionary.h"
#include "engine/PrepareRuleBase.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"

namespace Quorvane {
namespace {

constexpr auto PropertyUnavailable = static_cast<std::uint32_t>(CTL_E_SETNOTSUPPORTED);
constexpr auto PropertyNotPermitted = static_cast<std::uint32_t>(CTL_E_SETNOTPERMITTED);

/// The dictionary of a host. Raises TypeMismatch for Nothing.
std::shared_ptr<ValueDictionary> RequiredDictionary(IDictionary* object) {
    if (!object) {
        throw FisError(RuntimeError::TypeMismatch);
    }
    return FromHost(object);
}

/// The host's object for a dictionary, which `kept` keeps where it is the system's own.
Com::ComPtr<IDictionary> HandOut(const std::shared_ptr<ValueDictionary>& dictionary,
                                 Com::ComPtr<IDictionary>& kept) {
    auto object = ToHost(dictionary);
    const bool isOwn = dynamic_cast<const OwnValueDictionary*>(dictionary.get()) != nullptr;
    kept = isOwn ? object : nullptr;
    return object;
}

} // namespace

void FISControl::RequireRunMode(std::uint32_t error) const {
    if (!Site().UserMode()) {
        throw FisError(error, {}, {});
    }
}

STDMETHODIMP FISControl::put_DataShow(VARIANT_BOOL value) noexcept {
    return Com::Guard<_FISControl>([&] {
        RequireRunMode(PropertyNotPermitted);
        dataShow_ = value != VARIANT_FALSE;
    });
}

STDMETHODIMP FISControl::get_InVals(IDictionary** value) noexcept {
    return Com::Guard<_FISControl>([&] {
        Com::Out(value) = nullptr;
        RequireRunMode(PropertyUnavailable);
        *value = HandOut(Definition::State().InputValues, inVals_).Detach();
    });
}

STDMETHODIMP FISControl::putref_InVals(IDictionary* value) noexcept {
    return Com::Guard<_FISControl>([&] {
        RequireRunMode(PropertyUnavailable);
        auto values = RequiredDictionary(value);
        // Swapped, so that the former dictionary goes only after the new one is in place.
        std::swap(Definition::State().InputValues, values);
    });
}

STDMETHODIMP FISControl::get_OutVals(IDictionary** value) noexcept {
    return Com::Guard<_FISControl>([&] {
        Com::Out(value) = nullptr;
        RequireRunMode(PropertyUnavailable);
        *value = HandOut(Definition::State().OutputValues, outVals_).Detach();
    });
}

STDMETHODIMP FISControl::putref_DefOutVals(IDictionary* value) noexcept {
    return Com::Guard<_FISControl>([&] {
        RequireRunMode(PropertyUnavailable);
        auto values = RequiredDictionary(value);
        std::swap(Definition::State().DefaultOutputValues, values);
        const DefaultArithmetic arithmetic;
        RunTime::PrepareRuleBase();
    });
}

STDMETHODIMP FISControl::putref_ErrOutVals(IDictionary* value) noexcept {
    return Com::Guard<_FISControl>([&] {
        RequireRunMode(PropertyUnavailable);
        auto values = value ? FromHost(value) : nullptr;
        std::swap(Definition::State().ErrorOutputValues, values);
    });
}

} // namespace Quorvane
