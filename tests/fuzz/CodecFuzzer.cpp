// SPDX-License-Identifier: MIT
// The codec: any text encodes, and any stored text decodes or is refused.
#include "model/TransformText.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

bool IsHexadecimal(char16_t character) {
    return (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'F') ||
           (character >= u'a' && character <= u'f');
}

void CheckEncoding(const Text& plain) {
    const Text stored = Main::TransformText(plain, true);
    std::size_t size = 0;
    bool readsBack = true;
    for (const char16_t character : plain) {
        // The neutral code page is Latin-1, with "?" for what it lacks.
        size += character < 0x10 ? 1 : 2;
        readsBack = readsBack && character >= 0x10 && character <= 0xFF;
    }
    Check(stored.size() == size, "the size of a stored text");
    for (const char16_t character : stored) {
        Check(IsHexadecimal(character) && character < u'a', "a digit of a stored text");
    }
    Check(!readsBack || Main::TransformText(stored, false) == plain, "a text that reads back");
}

void CheckDecoding(const Text& stored) {
    bool isStored = true;
    for (const char16_t character : stored) {
        isStored = isStored && IsHexadecimal(character);
    }
    Text plain;
    const auto raised = Raised([&] { plain = Main::TransformText(stored, false); });
    Check(raised.has_value() != isStored, "what is refused");
    if (raised) {
        Check(IsPlatformError(*raised, RuntimeError::TypeMismatch), "how it is refused");
    } else {
        Check(plain.size() == (stored.size() + 1) / 2, "the size of a decoded text");
    }
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Quorvane;
    Text wide;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        wide += static_cast<char16_t>(data[i] << 8 | data[i + 1]);
    }
    const Text narrow = Fuzz::BytesAsText({data, size});
    for (const Text& text : {narrow, wide}) {
        Fuzz::CheckEncoding(text);
        Fuzz::CheckDecoding(text);
    }
    return 0;
}
