// SPDX-License-Identifier: MIT
// Readings and cases in CSV.
#include "qfis/Readings.h"

#include <algorithm>

#include "host/formfile/Utf8.h"
#include "qfis/Files.h"
#include "shared/StringKeyedDictionary.h"

namespace Quorvane::Qfis {
namespace {

std::vector<Text> HeaderNames(const CsvReader& header) {
    std::vector<Text> names;
    for (const std::string_view field : header.Fields()) {
        try {
            names.push_back(Host::DecodeUtf8(FieldText(field)));
        } catch (const Host::Utf8Error& error) {
            throw InputError({}, {header.Line(), 0}, error.what());
        }
        // Blanks around a name are those of a person who aligns columns.
        Text& name = names.back();
        name.erase(0, std::min(name.find_first_not_of(u" \t"), name.size()));
        name.erase(name.find_last_not_of(u" \t") + 1);
    }
    return names;
}

std::optional<std::size_t> ColumnOf(const std::vector<Text>& header, TextView name) {
    const auto found = std::ranges::find_if(header, [&](const Text& column) {
        return KeyEqual{KeyComparison::IgnoreCase}(column, name);
    });
    return found == header.end() ? std::nullopt
                                 : std::optional<std::size_t>(found - header.begin());
}

} // namespace

Columns FindColumns(const CsvReader& header, const System::FuzzySystem& system) {
    const std::vector<Text> names = HeaderNames(header);
    Columns columns;
    for (const System::InputVariable& input : system.Inputs) {
        const auto column = ColumnOf(names, input.Name);
        if (!column) {
            throw InputError({}, {header.Line(), 0},
                             "expected a column for the input \"" + Host::EncodeUtf8(input.Name) +
                                 "\" in the header");
        }
        columns.Inputs.push_back(*column);
    }
    for (const System::OutputVariable& output : system.Outputs) {
        columns.Outputs.push_back(ColumnOf(names, output.Name));
    }
    return columns;
}

std::optional<BadField> ReadInputs(const CsvReader& record, const Columns& columns,
                                   char decimalMark, std::vector<std::optional<double>>& inputs) {
    std::optional<BadField> bad;
    inputs.resize(columns.Inputs.size());
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const std::size_t column = columns.Inputs[i];
        const std::string_view field =
            column < record.Fields().size() ? record.Fields()[column] : std::string_view();
        inputs[i] = FieldNumber(field, decimalMark);
        if (!inputs[i] && !bad && !IsEmptyField(field)) {
            const auto place = static_cast<std::size_t>(field.data() - record.Record().data());
            bad = BadField{record.Line(), place + 1, std::string(field)};
        }
    }
    return bad;
}

} // namespace Quorvane::Qfis
