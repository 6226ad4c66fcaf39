// SPDX-License-Identifier: MIT
// What the tests of the editors have in common: a recorder of message boxes and looks at the model.
#include "tests/editor/EditorTest.h"

#include <array>
#include <tuple>

#include "model/BuildDefinition.h"
#include "model/TransformText.h"

namespace Quorvane::Editor {

void PrintTo(const ShownPrompt& prompt, std::ostream* stream) {
    *stream << '"' << Narrow(prompt.Message) << "\" in style "
            << static_cast<std::uint32_t>(prompt.Style) << " titled \"" << Narrow(prompt.Title)
            << '"';
}

void PrintTo(const PlainTexts& texts, std::ostream* stream) {
    *stream << "inputs \"" << Narrow(texts.Inputs) << "\" outputs \"" << Narrow(texts.Outputs)
            << "\" rules \"" << Narrow(texts.Rules) << '"';
}

ShownPrompts Refusal(Text message) {
    return {{std::move(message), PromptStyle::Critical, u"Quorvane Inference System"}};
}

ShownPrompts EmptyingQuestion() {
    return {{u"The rule base will be emptied!\r\nDo you want to preceed?", PromptStyle::Question,
             u"Quorvane Inference System"}};
}

PromptAnswer PromptRecorder::Show(const Text& text, PromptStyle style, const Text& title) {
    shown_.push_back({text, style, title});
    if (WhileOpen) {
        WhileOpen();
    }
    return style == PromptStyle::Question ? Answer : PromptAnswer::OK;
}

PlainTexts StoredTexts() {
    const auto decoded = [](TextView stored) { return Main::TransformText(stored, false); };
    const Definition::ProcessState& state = Definition::State();
    return {decoded(state.InputsText), decoded(state.OutputsText), decoded(state.RulesText)};
}

PlainTexts ModelTexts() {
    Definition::ProcessState& state = Definition::State();
    const std::array stored{state.InputsText, state.OutputsText, state.RulesText};
    Main::BuildDefinition();
    PlainTexts texts = StoredTexts();
    std::tie(state.InputsText, state.OutputsText, state.RulesText) =
        std::tie(stored[0], stored[1], stored[2]);
    return texts;
}

std::vector<Text> RuleTexts() {
    return KeysOf(*Definition::State().RuleBase);
}

} // namespace Quorvane::Editor
