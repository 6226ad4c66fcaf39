// SPDX-License-Identifier: MIT
// Errors in what a user has asked the editors to do.
#include "editor/windows/Failure.h"

#include <windows.h>

#include <oaidl.h>

#include "com/ErrorBoundary.h"
#include "com/Scoped.h"
#include "text/RuntimeErrorText.h"

namespace Quorvane::Editor {
namespace {

/// The platform's message for a code, in the user's language; empty where it has none.
Text SystemWords(HRESULT code) {
    wchar_t words[512]{};
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, static_cast<DWORD>(code), 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    return Text(Com::View(words, length));
}

Text WordsOf(HRESULT code) {
    Text words = Main::RuntimeErrorText(static_cast<std::uint32_t>(code));
    if (words.empty()) {
        words = SystemWords(code);
    }
    return words.empty() ? Main::UnknownErrorText(code) : words;
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
