// SPDX-License-Identifier: MIT
// ErrorLog: receives what a control could not read while it loads.
#include "host/container/ErrorLog.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

namespace Quorvane::Host {

HRESULT ErrorLog::AddError(LPCOLESTR property, EXCEPINFO* error) noexcept {
    if (!property || !error) {
        return E_POINTER;
    }
    return Guard([&] {
        if (error->pfnDeferredFillIn) {
            error->pfnDeferredFillIn(error);
        }
        std::wstring line(property);
        line += L": ";
        line += error->bstrDescription ? ViewBstr(error->bstrDescription)
                                       : DescribeResult(error->scode);
        report_(line);
        return S_OK;
    });
}

} // namespace Quorvane::Host
