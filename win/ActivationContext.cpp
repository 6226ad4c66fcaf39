// SPDX-License-Identifier: MIT
// Activation contexts from manifest resources.
#include "win/ActivationContext.h"

namespace Quorvane::Win {

ActivationContext::ActivationContext(HMODULE module) noexcept {
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.hModule = module;
    description.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
    context_ = ::CreateActCtxW(&description);
    if (context_ != INVALID_HANDLE_VALUE) {
        LiveCount<ActivationContext>::Add(1);
    }
}

ActivationContext::~ActivationContext() {
    if (context_ != INVALID_HANDLE_VALUE) {
        ::ReleaseActCtx(context_);
        LiveCount<ActivationContext>::Add(-1);
    }
}

std::shared_ptr<const ActivationContext> ActivationContext::Shared(HMODULE module) {
    static std::weak_ptr<const ActivationContext> current;
    auto result = current.lock();
    if (!result) {
        result = std::make_shared<const ActivationContext>(module);
        current = result;
    }
    return result;
}

} // namespace Quorvane::Win
