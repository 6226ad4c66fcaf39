// SPDX-License-Identifier: MIT
// Finds a part in many texts.
#include "editor/page/PartFinder.h"

namespace Quorvane::Editor {
namespace {

/// Far above what the editors let a name be.
constexpr std::size_t ShortPart = 64;

} // namespace

// The search of Knuth, Morris and Pratt.
PartFinder::PartFinder(TextView part) : part_(part) {
    if (part.size() <= ShortPart) {
        return;
    }
    borders_.resize(part.size());
    std::size_t border = 0;
    for (std::size_t i = 1; i < part.size(); ++i) {
        while (border > 0 && part[i] != part[border]) {
            border = borders_[border - 1];
        }
        border += part[i] == part[border] ? 1 : 0;
        borders_[i] = border;
    }
}

std::size_t PartFinder::FindIn(TextView text) const {
    if (borders_.empty()) {
        return text.find(part_);
    }
    std::size_t matched = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        while (matched > 0 && text[i] != part_[matched]) {
            matched = borders_[matched - 1];
        }
        matched += text[i] == part_[matched] ? 1 : 0;
        if (matched == part_.size()) {
            return i + 1 - matched;
        }
    }
    return TextView::npos;
}

} // namespace Quorvane::Editor
