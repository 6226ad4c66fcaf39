// SPDX-License-Identifier: MIT
// Message boxes that the editors have in common.
#include "editor/Prompt.h"

#include "editor/TextIds.h"
#include "text/GetText.h"

namespace Quorvane::Editor {

void ShowRefusal(Prompt& prompt, const Text& message) {
    prompt.Show(message, PromptStyle::Critical, Main::GetText(TextIds::InferenceSystem));
}

} // namespace Quorvane::Editor
