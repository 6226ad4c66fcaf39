// SPDX-License-Identifier: MIT
// Failed calls with the name of what was tried, for a person to read.
#pragma once

#include <windows.h>

#include "com/ErrorBoundary.h"
#include "shared/Text.h"

namespace Quorvane::Com {

/// "0x80004005 (Unspecified error)", as far as the system has words for the number.
Text DescribeResult(HRESULT result);

/// Throws HresultError for a failure code; success codes pass. The description says what was tried
/// ("load the control"), what the thread's error information tells, and DescribeResult.
void Check(HRESULT result, TextView action);

/// Throws HresultError with a description of one's own in place of the error information.
[[noreturn]] void Fail(HRESULT result, TextView action, TextView description);

} // namespace Quorvane::Com
