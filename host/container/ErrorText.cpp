// SPDX-License-Identifier: MIT
// What a person reads of an error.
#include "host/container/ErrorText.h"

#include <system_error>

#include "com/FailedCall.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Host {

Text WordsOf(const std::exception& error) {
    if (const auto* const failed = dynamic_cast<const Com::HresultError*>(&error)) {
        return failed->Description().empty() ? Com::DescribeResult(failed->Code())
                                             : failed->Description();
    }
    // The library words it in the code page, which is no UTF-8.
    if (const auto* const failed = dynamic_cast<const std::system_error*>(&error)) {
        return Com::DescribeResult(HRESULT_FROM_WIN32(static_cast<DWORD>(failed->code().value())));
    }
    return DecodeUtf8(error.what());
}

} // namespace Quorvane::Host
