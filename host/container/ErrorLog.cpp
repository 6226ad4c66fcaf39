// SPDX-License-Identifier: MIT
// ErrorLog: receives what a control could not read while it loads.
#include "host/container/ErrorLog.h"

#include "com/FailedCall.h"
#include "com/Scoped.h"

namespace Quorvane::Host {

HRESULT ErrorLog::AddError(LPCOLESTR property, EXCEPINFO* error) noexcept {
    if (!property || !error) {
        return E_POINTER;
    }
    return Com::Guard<IErrorLog>([&] {
        if (error->pfnDeferredFillIn) {
            error->pfnDeferredFillIn(error);
        }
        report_(Com::ToText(property) + u": " +
                (error->bstrDescription ? Text(Com::View(error->bstrDescription))
                                        : Com::DescribeResult(error->scode)));
    });
}

} // namespace Quorvane::Host
