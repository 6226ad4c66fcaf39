// SPDX-License-Identifier: MIT
// The definition texts of a system as a value: what is read, the control reads and prepares as
// well.
#include "engine/PrepareRuleBase.h"
#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "system/DefinitionTexts.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

using Definition::State;

/// The input's lines, of which the first three are the definition texts. Characters that the codec
/// writes with one digit do not read back.
System::DefinitionTexts TextsOf(Text lines) {
    for (char16_t& character : lines) {
        character = character < 0x10 && character != u'\n' ? u'?' : character;
    }
    const auto pieces = Split(lines, u'\n');
    const auto piece = [&](std::size_t i) { return i < pieces.size() ? Text(pieces[i]) : Text(); };
    return {piece(0), piece(1), piece(2)};
}

bool ControlTakes(const System::DefinitionTexts& texts) {
    Definition::Reset();
    State().InputsText = Main::TransformText(texts.Inputs, true);
    State().OutputsText = Main::TransformText(texts.Outputs, true);
    State().RulesText = Main::TransformText(texts.Rules, true);
    return !Raised(Main::ParseDefinition) && !Raised(RunTime::PrepareRuleBase);
}

void Run(const System::DefinitionTexts& texts) {
    try {
        const System::FuzzySystem system = System::FromPlainTexts(texts);
        Check(ControlTakes(texts), "what is read, the control takes");
        const System::DefinitionTexts written = System::PlainTexts(system);
        Check(System::FromPlainTexts(written) == system, "what was written is read again");
        Check(System::FromStoredTexts(System::StoredTexts(system)) == system,
              "so is what was stored");
        Check(ControlTakes(written), "what is written, the control takes");
    } catch (const System::DefinitionError& error) {
        const Text& part = error.Part == System::DefinitionPart::Inputs    ? texts.Inputs
                           : error.Part == System::DefinitionPart::Outputs ? texts.Outputs
                                                                           : texts.Rules;
        Check(error.Column >= 1 && error.Column <= part.size() + 1, "an error is in its text");
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run(Quorvane::Fuzz::TextsOf(Quorvane::Fuzz::BytesAsText({data, size})));
    return 0;
}
