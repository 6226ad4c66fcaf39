// SPDX-License-Identifier: MIT
// Comma separated values, record by record as they come in.
#include "qfis/Csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "qfis/Files.h"
#include "shared/NumberText.h"

namespace Quorvane::Qfis {
namespace {

constexpr std::size_t ReadSize = std::size_t{64} << 10;
constexpr std::size_t LargestRecord = std::size_t{16} << 20;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

std::string_view Unquoted(std::string_view field) {
    const bool isQuoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
    return isQuoted ? field.substr(1, field.size() - 2) : field;
}

} // namespace

/// The place of the line feed that ends the record, where the buffer has it.
std::optional<std::size_t> CsvReader::FindRecordEnd() {
    for (; searched_ < buffer_.size(); ++searched_) {
        const char character = buffer_[searched_];
        if (character == '"') {
            isInQuotes_ = !isInQuotes_;
        } else if (character == '\n' && !isInQuotes_) {
            return searched_++;
        }
    }
    return std::nullopt;
}

/// Reads on; false at the end of the source.
bool CsvReader::Refill() {
    buffer_.erase(0, begin_);
    searched_ -= begin_;
    begin_ = 0;
    if (buffer_.size() > LargestRecord) {
        throw InputError({}, {nextLine_, 0}, "a record of more than 16 MB");
    }
    onWait_();
    const std::size_t size = buffer_.size();
    buffer_.resize(size + ReadSize);
    const std::size_t count = source_.Read(buffer_.data() + size, ReadSize);
    buffer_.resize(size + count);
    bytesRead_ += count;
    return count != 0;
}

bool CsvReader::Next() {
    std::optional<std::size_t> end = FindRecordEnd();
    while (!end && !isAtEnd_) {
        isAtEnd_ = !Refill();
        end = FindRecordEnd();
    }
    if (!end && begin_ == buffer_.size()) {
        return false;
    }
    std::string_view record(buffer_);
    record = record.substr(begin_, end.value_or(buffer_.size()) - begin_);
    const bool hasReturn = end && record.ends_with('\r');
    record.remove_suffix(hasReturn ? 1 : 0);
    record_ = record;
    lineEnd_ = !end ? "" : hasReturn ? "\r\n" : "\n";
    line_ = nextLine_;
    nextLine_ += 1 + static_cast<std::size_t>(std::ranges::count(record, '\n'));
    begin_ = end ? *end + 1 : buffer_.size();
    SplitFields();
    return true;
}

void CsvReader::SplitFields() {
    fields_.clear();
    std::size_t begin = 0;
    bool isInQuotes = false;
    for (std::size_t i = 0; i < record_.size(); ++i) {
        if (record_[i] == '"') {
            isInQuotes = !isInQuotes;
        } else if (record_[i] == delimiter_ && !isInQuotes) {
            fields_.push_back(record_.substr(begin, i - begin));
            begin = i + 1;
        }
    }
    fields_.push_back(record_.substr(begin));
}

std::string FieldText(std::string_view field) {
    std::string text(Unquoted(field));
    if (text.size() != field.size()) {
        for (auto quote = text.find("\"\""); quote != std::string::npos;
             quote = text.find("\"\"", quote + 1)) {
            text.erase(quote, 1);
        }
    }
    return text;
}

void AppendField(std::string& record, std::string_view text, char delimiter) {
    const std::array special{delimiter, '"', '\r', '\n'};
    if (text.find_first_of({special.data(), special.size()}) == std::string_view::npos) {
        record += text;
        return;
    }
    record += '"';
    for (const char character : text) {
        record.append(character == '"' ? 2 : 1, character);
    }
    record += '"';
}

bool IsEmptyField(std::string_view field) {
    return Trimmed(Unquoted(Trimmed(field))).empty();
}

std::optional<double> FieldNumber(std::string_view field, char decimalMark) {
    field = Trimmed(Unquoted(Trimmed(field)));
    std::array<char, 64> changed{};
    if (decimalMark != '.') {
        if (field.size() > changed.size() || field.find('.') != std::string_view::npos) {
            return std::nullopt;
        }
        std::ranges::replace_copy(field, changed.begin(), decimalMark, '.');
        field = {changed.data(), field.size()};
    }
    if (field.starts_with('+')) {
        field.remove_prefix(1);
        if (field.starts_with('-')) {
            return std::nullopt;
        }
    }
    double number = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    const bool isWhole = error == std::errc() && end == field.data() + field.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

void AppendNumber(std::string& record, double number, const CsvDialect& dialect) {
    const NumberCharacters text(number);
    if (dialect.DecimalMark == '.' && dialect.Delimiter != '.') {
        record += text.View();
        return;
    }
    std::string changed(text.View());
    std::ranges::replace(changed, '.', dialect.DecimalMark);
    AppendField(record, changed, dialect.Delimiter);
}

} // namespace Quorvane::Qfis
