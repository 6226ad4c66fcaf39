// SPDX-License-Identifier: MIT
// ScriptError: what went wrong in a script, and where.
#include "host/script/ScriptError.h"

#include "host/container/HResult.h"
#include "host/container/Variant.h"

#include <algorithm>

namespace Quorvane::Host {

namespace {

// The engine's own GetSourceLineText often has no answer, but we have the text.
std::wstring LineAt(std::wstring_view code, unsigned line) {
    for (; line > 1; --line) {
        const std::size_t end = code.find(L'\n');
        if (end == std::wstring_view::npos) {
            return {};
        }
        code.remove_prefix(end + 1);
    }
    code = code.substr(0, std::min(code.find_first_of(L"\r\n"), code.size()));
    const std::size_t start = code.find_first_not_of(L" \t");
    return start == std::wstring_view::npos ? std::wstring() : std::wstring(code.substr(start));
}

std::wstring NumberText(HRESULT number) {
    if (HRESULT_FACILITY(number) == FACILITY_CONTROL) {
        return std::to_wstring(HRESULT_CODE(number));
    }
    return DescribeResult(number);
}

} // namespace

ScriptError ReadScriptError(IActiveScriptError& error, std::wstring_view code) {
    ScriptError read;
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    // Lines are counted from 0 and columns too; -1 says that there is no column.
    if (SUCCEEDED(error.GetSourcePosition(&context, &line, &column))) {
        read.Line = line + 1;
        read.Column = column >= 0 ? static_cast<unsigned>(column) + 1 : 0;
        read.LineText = LineAt(code, read.Line);
    }
    ExceptionInfo info;
    if (FAILED(error.GetExceptionInfo(&info))) {
        return read;
    }
    if (info.pfnDeferredFillIn) {
        info.pfnDeferredFillIn(&info);
    }
    read.Source = ViewBstr(info.bstrSource);
    read.Description = ViewBstr(info.bstrDescription);
    read.Number = info.Number();
    return read;
}

std::wstring DescribeScriptError(const ScriptError& error, std::wstring_view fileName) {
    std::wstring text(fileName);
    if (error.Line != 0) {
        text += L"(" + std::to_wstring(error.Line);
        if (error.Column != 0) {
            text += L"," + std::to_wstring(error.Column);
        }
        text += L")";
    }
    text += L": " + (error.Source.empty() ? L"error" : error.Source);
    text += L" " + NumberText(error.Number);
    if (!error.Description.empty()) {
        text += L": " + error.Description;
    }
    if (!error.LineText.empty()) {
        text += L"\n    " + error.LineText;
    }
    return text;
}

} // namespace Quorvane::Host
