// SPDX-License-Identifier: MIT
// Making, activating and ending an activation context.
#include "tests/com/support/ActivationContext.h"

#include "com/Scoped.h"

namespace Quorvane {

ActivationContext::ActivationContext(const Text& manifest) {
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.lpSource = Com::Wide(manifest);
    context_ = ::CreateActCtxW(&request);
    if (context_ != INVALID_HANDLE_VALUE) {
        ::ActivateActCtx(context_, &cookie_);
    }
}

ActivationContext::~ActivationContext() {
    if (cookie_ != 0) {
        ::DeactivateActCtx(0, cookie_);
    }
    if (context_ != INVALID_HANDLE_VALUE) {
        ::ReleaseActCtx(context_);
    }
}

} // namespace Quorvane
