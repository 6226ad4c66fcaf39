// SPDX-License-Identifier: MIT
// The plain-text definition file: any bytes are read or refused with a place in them, and what is
// read is written so that it reads the same again.
#include <algorithm>

#include "formats/DefinitionFile.h"
#include "system/DefinitionTexts.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

void CheckPlace(const Formats::FormatError& error, std::string_view file) {
    const auto lineFeeds = std::ranges::count(file, '\n') + std::ranges::count(file, '\r');
    Check(error.Where.Line >= 1, "an error has a line");
    Check(error.Where.Line <= static_cast<std::size_t>(lineFeeds) + 1, "an error is in the file");
    Check(error.Where.Column <= file.size() + 1, "an error is in a line of the file");
}

void Run(std::string_view file) {
    try {
        const System::FuzzySystem system = Formats::ReadDefinitionFile(file);
        Check(Formats::IsDefinitionFile(file), "what is read is recognized");
        const std::string written = Formats::WriteDefinitionFile(system);
        const System::FuzzySystem again = Formats::ReadDefinitionFile(written);
        Check(again == system, "what was written is read again");
        Check(Formats::WriteDefinitionFile(again) == written, "it is written alike");
        const System::DefinitionTexts plain = System::PlainTexts(system);
        Check(System::FromPlainTexts(plain) == system, "so do the definition texts");
    } catch (const Formats::FormatError& error) {
        CheckPlace(error, file);
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
