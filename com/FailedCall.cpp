// SPDX-License-Identifier: MIT
// The words for failed calls.
#include "com/FailedCall.h"

#include <oleauto.h>

#include <memory>

#include "com/Scoped.h"

namespace Quorvane::Com {
namespace {

/// The system's words, without the full stop and the line end behind them.
Text SystemWords(HRESULT result) {
    wchar_t* buffer = nullptr;
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&::LocalFree)> owner(buffer, &::LocalFree);
    Text words(buffer ? View(buffer, length) : TextView());
    while (!words.empty() && (words.back() <= u' ' || words.back() == u'.')) {
        words.pop_back();
    }
    return words;
}

/// "Source: description" of the thread's error information, which is taken away; empty for none.
Text TakeErrorInfo() {
    ComPtr<IErrorInfo> info;
    if (::GetErrorInfo(0, info.Put()) != S_OK) {
        return {};
    }
    Bstr source;
    Bstr description;
    info->GetSource(source.Put());
    info->GetDescription(description.Put());
    const Text words(description.Characters());
    return source.Characters().empty() ? words : Text(source.Characters()) + u": " + words;
}

} // namespace

Text DescribeResult(HRESULT result) {
    Text number = u"0x00000000";
    auto bits = static_cast<unsigned long>(result);
    for (std::size_t i = number.size(); bits != 0; bits >>= 4) {
        number[--i] = u"0123456789ABCDEF"[bits & 0xF];
    }
    const Text words = SystemWords(result);
    return words.empty() ? number : number + u" (" + words + u")";
}

void Check(HRESULT result, TextView action) {
    if (FAILED(result)) {
        Fail(result, action, TakeErrorInfo());
    }
}

void Fail(HRESULT result, TextView action, TextView description) {
    Text message = u"cannot ";
    message.append(action).append(u": ").append(description);
    if (!description.empty()) {
        message += u", ";
    }
    throw HresultError(result, message + DescribeResult(result));
}

} // namespace Quorvane::Com
