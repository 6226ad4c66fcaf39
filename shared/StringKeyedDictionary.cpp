// SPDX-License-Identifier: MIT
// Hashing and comparing of dictionary keys.
#include "shared/StringKeyedDictionary.h"

#include <algorithm>
#include <cstdint>

namespace Quorvane {
namespace {

/// FNV-1a over UTF-16 units.
template <class Fold>
std::size_t Hash(TextView key, Fold fold) noexcept {
    std::uint32_t hash = 2166136261U;
    for (const char16_t character : key) {
        hash = (hash ^ fold(character)) * 16777619U;
    }
    return hash;
}

} // namespace

std::size_t KeyHash::operator()(TextView key) const noexcept {
    return Comparison == KeyComparison::Exact
               ? Hash(key, [](char16_t character) { return character; })
               : Hash(key, FoldCase);
}

bool KeyEqual::operator()(TextView left, TextView right) const noexcept {
    if (Comparison == KeyComparison::Exact || left == right) {
        return left == right;
    }
    return std::ranges::equal(left, right, {}, FoldCase, FoldCase);
}

} // namespace Quorvane
