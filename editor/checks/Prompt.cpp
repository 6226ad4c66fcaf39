// SPDX-License-Identifier: MIT
// Message boxes that the editors have in common.
#include "editor/checks/Prompt.h"

#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::Editor {

void ShowRefusal(Prompt& prompt, const Text& message) {
    prompt.Show(message, PromptStyle::Critical, Main::GetText(TextIds::InferenceSystem));
}

} // namespace Quorvane::Editor
