// SPDX-License-Identifier: MIT
// Which names the stored form of definition texts can hold.
#include "formats/StoredNames.h"

#include <algorithm>

#include "formats/FormatError.h"
#include "host/formfile/Utf8.h"

namespace Quorvane::Formats {
namespace {

void RequireStorable(TextView name) {
    constexpr char16_t First = 0x10;
    constexpr char16_t Last = 0xFF;
    if (std::ranges::any_of(name, [](char16_t c) { return c < First || c > Last; })) {
        throw FormatError({}, "the stored form cannot hold the name \"" + Host::EncodeUtf8(name) +
                                  "\"");
    }
}

template <class Term>
void RequireStorable(const std::vector<System::Variable<Term>>& variables) {
    for (const System::Variable<Term>& variable : variables) {
        RequireStorable(variable.Name);
        for (const Term& term : variable.Terms) {
            RequireStorable(term.Name);
        }
    }
}

} // namespace

void RequireStorableNames(const System::FuzzySystem& system) {
    RequireStorable(system.Inputs);
    RequireStorable(system.Outputs);
}

} // namespace Quorvane::Formats
