// SPDX-License-Identifier: MIT
// One inference cycle as a host runs it.
#include "control/DispatchIds.h"
#include "control/FISControl.h"
#include "engine/ErrorOutputs.h"
#include "engine/Infer.h"
#include "shared/DefaultArithmetic.h"

namespace Quorvane {
STDMETHODIMP FISControl::Fire() noexcept {
    const Com::KeepAlive alive(this);
    RunCycle();
    return Com::Guard<_FISControl>([&] { RaiseInferComplate(); });
}

void FISControl::RunCycle() noexcept {
    const DefaultArithmetic arithmetic;
    display_.HidePanel();
    try {
        RunTime::Infer();
    } catch (...) {
        // The panel gets picture and text but stays hidden: only its content tells of the failure.
        display_.ShowError();
        RunTime::ApplyErrorOutputs();
    }
    if (dataShow_) {
        display_.ShowValues();
        TellIfWindowless();
    }
}

void FISControl::RaiseInferComplate() {
    Raise<__FISControl>(DispatchIds::InferComplate);
}

} // namespace Quorvane
