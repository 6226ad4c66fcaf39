// SPDX-License-Identifier: MIT
// The one way the system splits texts and folds letter case.
#include "shared/Text.h"

namespace Quorvane {

void Split(TextView text, char16_t separator, std::vector<TextView>& pieces) {
    pieces.clear();
    if (text.empty()) {
        return;
    }
    for (;;) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == TextView::npos) {
            return;
        }
        text.remove_prefix(end + 1);
    }
}

std::vector<TextView> Split(TextView text, char16_t separator) {
    std::vector<TextView> pieces;
    Split(text, separator, pieces);
    return pieces;
}

Text Widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

char16_t FoldCaseBeyondAscii(char16_t character) noexcept {
    const auto in = [character](char16_t first, char16_t last) {
        return character >= first && character <= last;
    };
    const auto shifted = [character](int distance) {
        return static_cast<char16_t>(character - distance);
    };
    if ((in(0xE0, 0xFE) && character != 0xF7) || in(0x3B1, 0x3C1) || in(0x3C3, 0x3CB) ||
        in(0x430, 0x44F) || in(0xFF41, 0xFF5A)) {
        return shifted(0x20);
    }
    if (in(0x450, 0x45F)) {
        return shifted(0x50);
    }
    return character == 0xFF ? char16_t{0x178} : character;
}

} // namespace Quorvane
