// SPDX-License-Identifier: MIT
// HResult: failed COM calls as exceptions with a readable text.
#include "host/container/HResult.h"

#include "host/container/ComPtr.h"
#include "host/container/Variant.h"
#include "host/container/Wide.h"
#include "host/formfile/Utf8.h"

#include <memory>

namespace Quorvane::Host {

namespace {

std::wstring SystemText(HRESULT result) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(buffer, &LocalFree);
    std::wstring text(buffer ? buffer : L"", length);
    while (!text.empty() && (text.back() <= L' ' || text.back() == L'.')) {
        text.pop_back();
    }
    return text;
}

std::wstring ErrorInfoText() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Receive()) != S_OK) {
        return {};
    }
    Bstr source;
    Bstr description;
    info->GetSource(source.Receive());
    info->GetDescription(description.Receive());
    if (source.View().empty()) {
        return description.Text();
    }
    return source.Text() + L": " + description.Text();
}

} // namespace

std::wstring DescribeResult(HRESULT result) {
    std::wstring number = L"0x00000000";
    auto bits = static_cast<unsigned long>(result);
    for (std::size_t i = number.size(); bits != 0; bits >>= 4) {
        number[--i] = L"0123456789ABCDEF"[bits & 0xF];
    }
    const std::wstring text = SystemText(result);
    return text.empty() ? number : number + (L" (" + text + L")");
}

void Check(HRESULT result, std::wstring_view action) {
    if (FAILED(result)) {
        Fail(result, action, ErrorInfoText());
    }
}

void Fail(HRESULT result, std::wstring_view action, std::wstring_view description) {
    std::wstring message = L"cannot ";
    message.append(action).append(L": ").append(description);
    if (!description.empty()) {
        message += L", ";
    }
    throw HResultError(result, EncodeUtf8(FromWide(message + DescribeResult(result))));
}

} // namespace Quorvane::Host
