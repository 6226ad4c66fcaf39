// SPDX-License-Identifier: MIT
// Files of any format: what is read from any bytes is written in every format that can hold it, and
// read again.
#include "formats/SystemFile.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

using Formats::Format;

void CheckFormat(const System::FuzzySystem& system, Format format) {
    std::string written;
    try {
        written = Formats::WriteSystem(system, format, "Form");
    } catch (const Formats::FormatError&) {
        Check(format != Format::Definition, "the definition file holds every system");
        return;
    }
    Check(Formats::ReadSystem(written, format) == system, "what was written is read again");
}

void Run(std::string_view file) {
    try {
        const Format format = Formats::FormatOf(file, "");
        const System::FuzzySystem system = Formats::ReadSystem(file, format);
        CheckFormat(system, Format::Definition);
        CheckFormat(system, Format::Form);
        CheckFormat(system, Format::StoredTexts);
    } catch (const Formats::FormatError&) {
        // Most bytes are no system.
        return;
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
