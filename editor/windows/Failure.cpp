// SPDX-License-Identifier: MIT
// Errors in what a user has asked the editors to do.
#include "editor/windows/Failure.h"

#include <windows.h>

#include <oaidl.h>
#include <olectl.h>

#include <string>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"
#include "shared/Definition.h"
#include "text/GetText.h"

namespace Quorvane::Editor {
namespace {

/// The platform's run-time errors that an editor can meet, in the words of the platform. They have
/// no number in the text table, whose numbers are given; these errors have numbers of their own.
struct RuntimeWords {
    HRESULT Code;
    TextView English;
    TextView Chinese;
};

constexpr RuntimeWords KnownErrors[] = {
    {CTL_E_ILLEGALFUNCTIONCALL, u"Invalid procedure call or argument", u"无效的过程调用或参数"},
    {CTL_E_OVERFLOW, u"Overflow", u"溢出"},
    {static_cast<HRESULT>(0x800A0009), u"Subscript out of range", u"下标越界"},
    {static_cast<HRESULT>(0x800A000D), u"Type mismatch", u"类型不匹配"},
    {static_cast<HRESULT>(0x800A005B), u"Object variable not set", u"对象变量未设置"},
    {CTL_E_SETNOTSUPPORTEDATRUNTIME, u"Set not supported at runtime", u"运行时不能设置"},
    {CTL_E_SETNOTSUPPORTED, u"Set not supported (read-only property)", u"不能设置（只读属性）"},
    {static_cast<HRESULT>(0x800A01C9), u"This key is already associated with an element",
     u"此键已与一个元素关联"},
    {static_cast<HRESULT>(0x800A802B), u"Element not found", u"未找到元素"},
};

/// The platform's message for a code, in the user's language; empty where it has none.
Text SystemWords(HRESULT code) {
    wchar_t words[512]{};
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(code), 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    return Text(Com::View(words, length));
}

Text WordsOf(HRESULT code) {
    const bool isChinese = Definition::State().LanguageId == Main::SimplifiedChinese;
    for (const RuntimeWords& known : KnownErrors) {
        if (known.Code == code) {
            return Text(isChinese ? known.Chinese : known.English) + u" (" +
                   Widen(std::to_string(code & 0xFFFF)) + u")";
        }
    }
    Text words = SystemWords(code);
    return words.empty() ? (isChinese ? u"错误 " : u"Error ") + Widen(std::to_string(code)) : words;
}

/// The description of the thread's error information, which is taken away; empty for none.
Text TakeDescription() {
    Com::ComPtr<IErrorInfo> info;
    Com::Bstr description;
    if (::GetErrorInfo(0, info.Put()) == S_OK) {
        info->GetDescription(description.Put());
    }
    return Text(description.Characters());
}

} // namespace

void ShowFailure(Prompt& prompt) noexcept {
    const HRESULT code = Com::CurrentExceptionToHresult(IID_NULL);
    try {
        const Text description = TakeDescription();
        ShowRefusal(prompt, description.empty() ? WordsOf(code) : description);
    } catch (...) {
        // Without the memory for a message there is no telling anybody.
        return;
    }
}

} // namespace Quorvane::Editor
