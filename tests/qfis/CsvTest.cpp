// SPDX-License-Identifier: MIT
// Tests of comma separated values.
#include "qfis/Csv.h"

#include <gtest/gtest.h>

#include "qfis/Files.h"
#include "tests/qfis/Pieces.h"

namespace Quorvane::Qfis {
namespace {

struct Record {
    std::size_t Line;
    std::vector<std::string> Fields;
    std::string LineEnd;

    bool operator==(const Record&) const = default;
};

std::vector<Record> Records(std::vector<std::string> pieces, char delimiter = ',') {
    Pieces source(std::move(pieces));
    CsvReader reader(source, delimiter, [] {});
    std::vector<Record> records;
    while (reader.Next()) {
        Record& record = records.emplace_back();
        record.Line = reader.Line();
        for (const std::string_view field : reader.Fields()) {
            record.Fields.push_back(FieldText(field));
        }
        record.LineEnd = reader.LineEnd();
    }
    return records;
}

TEST(CsvReader, TakesFieldsInQuotesAndLineEndsOfBothKinds) {
    const std::vector<Record> expected{{1, {"a", "b c", ""}, "\r\n"},
                                       {2, {"1,5", "say \"x\"", "two\nlines"}, "\n"},
                                       {4, {""}, "\n"},
                                       {5, {" x", "y "}, ""}};
    const std::string text = "a,b c,\r\n\"1,5\",\"say \"\"x\"\"\",\"two\nlines\"\n\n x,y ";
    EXPECT_EQ(Records({text}), expected);
    // In whatever pieces it comes.
    for (std::size_t i = 1; i < text.size(); ++i) {
        EXPECT_EQ(Records({text.substr(0, i), text.substr(i)}), expected);
    }
    EXPECT_TRUE(Records({}).empty());
    EXPECT_EQ(Records({"a;b,c\n"}, ';'), (std::vector<Record>{{1, {"a", "b,c"}, "\n"}}));
}

TEST(CsvReader, TellsBeforeItWaits) {
    Pieces source({"a\nb\n", "c\n"});
    std::string order;
    CsvReader reader(source, ',', [&order] { order += '!'; });
    while (reader.Next()) {
        order += reader.Record();
    }
    EXPECT_EQ(order, "!ab!c!");
}

TEST(CsvReader, BoundsARecord) {
    Pieces source({"x\n\"" + std::string(std::size_t{17} << 20, 'a')});
    CsvReader reader(source, ',', [] {});
    EXPECT_TRUE(reader.Next());
    EXPECT_THROW(reader.Next(), InputError);
}

TEST(FieldNumber, IsADecimalWithItsMark) {
    EXPECT_EQ(FieldNumber("1.5", '.'), 1.5);
    EXPECT_EQ(FieldNumber(" +1.5e3\t", '.'), 1500);
    EXPECT_EQ(FieldNumber("\"-2\"", '.'), -2);
    EXPECT_EQ(FieldNumber(".5", '.'), 0.5);
    EXPECT_EQ(FieldNumber("1,5", ','), 1.5);
    EXPECT_EQ(FieldNumber("\"1,5\"", ','), 1.5);
    for (const char* const text : {"", " ", "x", "1.5x", "1 2", "1,5", "nan", "inf", "1e999",
                                   "0x10", "+-1", "--1", "1.5.5"}) {
        EXPECT_EQ(FieldNumber(text, '.'), std::nullopt) << text;
    }
    EXPECT_EQ(FieldNumber("1.5", ','), std::nullopt);
    EXPECT_EQ(FieldNumber(std::string(100, '1'), ','), std::nullopt);
}

TEST(AppendNumber, QuotesAMarkThatIsTheDelimiter) {
    const auto written = [](double number, CsvDialect dialect) {
        std::string record;
        AppendNumber(record, number, dialect);
        return record;
    };
    EXPECT_EQ(written(-0.5, {',', '.'}), "-0.5");
    EXPECT_EQ(written(-0.5, {';', ','}), "-0,5");
    EXPECT_EQ(written(-0.5, {',', ','}), "\"-0,5\"");
    EXPECT_EQ(written(7, {',', ','}), "7");
}

TEST(AppendField, QuotesWhatItMust) {
    const auto written = [](std::string_view text) {
        std::string record;
        AppendField(record, text, ',');
        return record;
    };
    EXPECT_EQ(written("a b"), "a b");
    EXPECT_EQ(written("a,b"), "\"a,b\"");
    EXPECT_EQ(written("a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(written("a\nb"), "\"a\nb\"");
}

} // namespace
} // namespace Quorvane::Qfis
