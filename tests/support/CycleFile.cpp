// SPDX-License-Identifier: MIT
// The text form of recorded inference cycles.
#include "tests/support/CycleFile.h"

#include <bit>
#include <charconv>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

namespace Quorvane::TestSupport {
namespace {

/// Takes the text up to a separator, and the separator, off the front.
std::string_view Take(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

template <class Number>
Number ParseWhole(std::string_view text, int base) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    if (read.ec != std::errc() || read.ptr != end) {
        throw std::runtime_error("no number: '" + std::string(text) + "'");
    }
    return number;
}

std::optional<double> ParseItem(std::string_view word) {
    if (word == "-") {
        return std::nullopt;
    }
    return std::bit_cast<double>(ParseWhole<std::uint64_t>(word, 16));
}

RecordedCycle ParseCycle(std::string_view line) {
    RecordedCycle cycle;
    auto* items = &cycle.Inputs;
    while (!line.empty()) {
        const std::string_view word = Take(line, ' ');
        if (word.starts_with('!')) {
            cycle.FailedMessage = ParseWhole<int>(word.substr(1), 10);
        } else if (word == "->") {
            items = &cycle.Outputs;
        } else {
            items->push_back(ParseItem(word));
        }
    }
    return cycle;
}

void ReadLine(std::string_view line, std::vector<RecordedSystem>& systems) {
    if (line.empty() || line.starts_with('#')) {
        return;
    }
    const std::string_view word = Take(line, ' ');
    if (word == "system") {
        systems.emplace_back().Name = line;
        return;
    }
    if (systems.empty()) {
        throw std::runtime_error("a line before the first system");
    }
    RecordedSystem& system = systems.back();
    if (word == "inputs") {
        system.Inputs = line;
    } else if (word == "outputs") {
        system.Outputs = line;
    } else if (word == "rules") {
        system.Rules = line;
    } else if (word == "cycle") {
        system.Cycles.push_back(ParseCycle(line));
    } else {
        throw std::runtime_error("unknown word '" + std::string(word) + "'");
    }
}

void AppendLine(std::string& text, const char* word, const std::string& content) {
    text += word;
    if (!content.empty()) {
        text += ' ' + content;
    }
    text += '\n';
}

void AppendItem(std::string& line, const std::optional<double>& item) {
    char word[17] = "-";
    if (item) {
        std::snprintf(word, sizeof word, "%016" PRIX64, std::bit_cast<std::uint64_t>(*item));
    }
    line += ' ';
    line += word;
}

} // namespace

std::vector<RecordedSystem> ReadCycles(std::string_view text) {
    std::vector<RecordedSystem> systems;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = Take(text, '\n');
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        try {
            ReadLine(line, systems);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    return systems;
}

std::string WriteSystem(const RecordedSystem& system) {
    std::string text;
    AppendLine(text, "system", system.Name);
    AppendLine(text, "inputs", system.Inputs);
    AppendLine(text, "outputs", system.Outputs);
    AppendLine(text, "rules", system.Rules);
    for (const RecordedCycle& cycle : system.Cycles) {
        text += "cycle";
        for (const auto& item : cycle.Inputs) {
            AppendItem(text, item);
        }
        if (cycle.FailedMessage != 0) {
            text += " !" + std::to_string(cycle.FailedMessage);
        }
        text += " ->";
        for (const auto& item : cycle.Outputs) {
            AppendItem(text, item);
        }
        text += '\n';
    }
    return text;
}

} // namespace Quorvane::TestSupport
