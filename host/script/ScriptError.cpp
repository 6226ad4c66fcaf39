// SPDX-License-Identifier: MIT
// ScriptError: what went wrong in a script, and where.
#include "host/script/ScriptError.h"

#include <algorithm>

#include "com/ExceptionInfo.h"
#include "com/FailedCall.h"

namespace Quorvane::Host {
namespace {

// The engine's own GetSourceLineText often has no answer, but we have the text.
Text LineAt(TextView code, unsigned line) {
    for (; line > 1; --line) {
        const std::size_t end = code.find(u'\n');
        if (end == TextView::npos) {
            return {};
        }
        code.remove_prefix(end + 1);
    }
    code = code.substr(0, std::min(code.find_first_of(u"\r\n"), code.size()));
    const std::size_t start = code.find_first_not_of(u" \t");
    return start == TextView::npos ? Text() : Text(code.substr(start));
}

Text NumberText(HRESULT number) {
    if (HRESULT_FACILITY(number) == FACILITY_CONTROL) {
        return Widen(std::to_string(HRESULT_CODE(number)));
    }
    return Com::DescribeResult(number);
}

} // namespace

ScriptError ReadScriptError(IActiveScriptError& error, TextView code) {
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
    Com::ExceptionInfo info;
    if (FAILED(error.GetExceptionInfo(info.Get()))) {
        return read;
    }
    info.FillIn();
    read.Source = info.Source();
    read.Description = info.Description();
    read.Number = info.Number();
    return read;
}

Text DescribeScriptError(const ScriptError& error, TextView fileName) {
    Text text(fileName);
    if (error.Line != 0) {
        text += u"(" + Widen(std::to_string(error.Line));
        if (error.Column != 0) {
            text += u"," + Widen(std::to_string(error.Column));
        }
        text += u")";
    }
    text += u": " + (error.Source.empty() ? Text(u"error") : error.Source);
    text += u" " + NumberText(error.Number);
    if (!error.Description.empty()) {
        text += u": " + error.Description;
    }
    if (!error.LineText.empty()) {
        text += u"\n    " + error.LineText;
    }
    return text;
}

} // namespace Quorvane::Host
