// SPDX-License-Identifier: MIT
// The tables of qfis beside the batches of the control, on random systems.
#include <sstream>

#include "qfis/Main.h"
#include "tests/com/support/BatchTest.h"
#include "tests/reference/RandomSystem.h"

namespace Quorvane {
namespace {

class QfisTable : public BatchTest {};

class NoInput final : public Qfis::ByteSource {
  public:
    std::size_t Read(char*, std::size_t) override { return 0; }
};

std::string Ascii(TextView text) {
    return {text.begin(), text.end()};
}

TEST_F(QfisTable, IsThatOfTheBatchByteForByte) {
    Reference::Random random(111);
    const TestFolder table(u"table");
    int lines = 0;
    for (int i = 0; i < 60 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto texts =
            Reference::MakeSystem(random, {.Inputs = 3, .Outputs = 2, .Rules = 12, .BadRules = 0});
        Batch(Run({texts.Inputs, texts.Outputs, texts.Rules}), i % 5);
        table.Write("system.txt", Ascii(texts.Inputs) + '\n' + Ascii(texts.Outputs) + '\n' +
                                      Ascii(texts.Rules) + '\n');
        std::ostringstream out;
        NoInput in;
        const int code = Qfis::Main({"table", table.File("system.txt").string(), "-n",
                                     std::to_string(i % 5), "-o", Ascii(table.Path())},
                                    {out, out, in});
        EXPECT_EQ(code, Qfis::Fine) << out.str();
        ExpectFiles(table.Read("InData.txt"), table.Read("OutData.txt"));
        lines += static_cast<int>(table.Read("OutData.txt").size()) > 100 ? 1 : 0;
    }
    EXPECT_GT(lines, 20);
}

} // namespace
} // namespace Quorvane
