// SPDX-License-Identifier: MIT
// Comma separated values: in whatever pieces they come, the records are the same, and they and
// their line ends are all that there is.
#include <algorithm>

#include "qfis/Csv.h"
#include "qfis/Files.h"
#include "tests/fuzz/Check.h"
#include "tests/qfis/Pieces.h"

namespace Quorvane::Fuzz {
namespace {

struct Records {
    std::string Bytes;
    std::vector<std::string> Fields;
};

Records ReadAll(std::vector<std::string> pieces) {
    Qfis::Pieces source(std::move(pieces));
    Qfis::CsvReader reader(source, ',', [] {});
    Records records;
    while (reader.Next()) {
        records.Bytes += reader.Record();
        records.Bytes += reader.LineEnd();
        for (const std::string_view field : reader.Fields()) {
            records.Fields.push_back(Qfis::FieldText(field));
            Qfis::FieldNumber(field, '.');
            Qfis::FieldNumber(field, ',');
        }
        records.Fields.emplace_back("\n");
    }
    return records;
}

void Run(const std::string& bytes) {
    const Records whole = ReadAll(bytes.empty() ? std::vector<std::string>() : std::vector{bytes});
    Check(whole.Bytes == bytes, "every byte belongs to a record");
    std::vector<std::string> pieces;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        pieces.push_back(bytes.substr(i, 3));
    }
    Check(ReadAll(pieces).Fields == whole.Fields, "pieces make the same records");
    std::string field;
    Qfis::AppendField(field, bytes, ',');
    Qfis::Pieces source(field.empty() ? std::vector<std::string>() : std::vector{field});
    Qfis::CsvReader reader(source, ',', [] {});
    const std::string read = reader.Next() ? Qfis::FieldText(reader.Fields().front()) : "";
    Check(read == bytes, "a field that was written is read again");
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
