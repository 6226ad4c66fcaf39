// SPDX-License-Identifier: MIT
// Form files: any bytes parse or are refused with a line of theirs, and what parses is written so
// that it reads back.
#include <algorithm>
#include <string>

#include "host/formfile/FormFile.h"
#include "host/formfile/Utf8.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

void CheckText(const std::string& bytes) {
    try {
        const std::u16string text = Host::DecodeUtf8(bytes);
        // A byte order mark is dropped.
        const bool isMarked = bytes.starts_with("\xEF\xBB\xBF");
        Check(Host::EncodeUtf8(text) == bytes.substr(isMarked ? 3 : 0), "UTF-8 that reads back");
    } catch (const Host::Utf8Error& error) {
        Check(error.Offset < bytes.size(), "the place of the wrong byte");
    }
}

void CheckForm(const std::string& bytes) {
    Host::FormFile form;
    try {
        form = Host::ParseFormFile(bytes);
    } catch (const Host::FormFileError& error) {
        // A line ends in either character, or in both.
        const auto lineEnds =
            std::ranges::count_if(bytes, [](char c) { return c == '\n' || c == '\r'; });
        Check(error.Line >= 0 && error.Line <= lineEnds + 1, "the line of the damage");
        return;
    }
    const std::string written = Host::WriteFormFile(form);
    Check(Host::ParseFormFile(written) == form, "a form that reads back");
    Check(Host::WriteFormFile(Host::ParseFormFile(written)) == written, "a form written again");
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Quorvane::Fuzz::CheckText(bytes);
    Quorvane::Fuzz::CheckForm(bytes);
    return 0;
}
