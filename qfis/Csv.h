// SPDX-License-Identifier: MIT
// Comma separated values (RFC 4180), record by record as they come in.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qfis/Console.h"

namespace Quorvane::Qfis {

/// How fields are separated and numbers written.
struct CsvDialect {
    /// The character 0 stands for the one that goes with the decimal mark.
    char Delimiter = 0;
    char DecimalMark = '.';
};

/// Reads records. A field in quotes may hold delimiters, line ends and, doubled, quotes. Lines end
/// in LF or CR LF.
class CsvReader {
  public:
    /// What waits for bytes, or has come to an end, calls onWait first: it is time to flush.
    CsvReader(ByteSource& source, char delimiter, std::function<void()> onWait)
        : source_(source), delimiter_(delimiter), onWait_(std::move(onWait)) {}

    /// Goes to the next record; false at the end. Empty lines are records of one empty field.
    /// Throws InputError for a record of more than 16 MB.
    bool Next();

    /// The record's bytes without its line end, valid until the next.
    std::string_view Record() const { return record_; }
    /// Its line end: empty where the last line has none.
    std::string_view LineEnd() const { return lineEnd_; }
    /// The number of its first line.
    std::size_t Line() const { return line_; }
    /// Its fields as they stand there, quotes included.
    const std::vector<std::string_view>& Fields() const { return fields_; }

    /// How many bytes have been read.
    std::size_t BytesRead() const { return bytesRead_; }

  private:
    std::optional<std::size_t> FindRecordEnd();
    bool Refill();
    void SplitFields();

    ByteSource& source_;
    char delimiter_;
    std::function<void()> onWait_;
    std::string buffer_;
    /// Where the next record begins, and how far its end has been looked for.
    std::size_t begin_ = 0;
    std::size_t searched_ = 0;
    bool isInQuotes_ = false;
    bool isAtEnd_ = false;
    std::size_t bytesRead_ = 0;
    std::size_t line_ = 0;
    std::size_t nextLine_ = 1;
    std::string_view record_;
    std::string_view lineEnd_;
    std::vector<std::string_view> fields_;
};

/// What a field says: without the quotes around it, and those inside as one.
std::string FieldText(std::string_view field);

/// Appends a text as a field, in quotes where it needs them.
void AppendField(std::string& record, std::string_view text, char delimiter);

/// A field without content.
bool IsEmptyField(std::string_view field);

/// The number that a field is; none where it is not one, or beyond the range of a Double.
std::optional<double> FieldNumber(std::string_view field, char decimalMark);

/// Appends a number of at most 15 digits as a field.
void AppendNumber(std::string& record, double number, const CsvDialect& dialect);

} // namespace Quorvane::Qfis
