// SPDX-License-Identifier: MIT
// qfis test: whether the outputs are those that were expected.
#include <cmath>

#include "qfis/Commands.h"
#include "qfis/Engine.h"
#include "qfis/FileSource.h"
#include "qfis/Json.h"
#include "qfis/Readings.h"
#include "shared/NumberText.h"

namespace Quorvane::Qfis {
namespace {

class CasesRun {
  public:
    CasesRun(const TestOptions& options, const Console& console, ByteSource& source)
        : options_(options), console_(console), system_(LoadSystem(options.File, options.Control)),
          engine_(system_), reader_(source, options.Dialect.Delimiter, [] {}) {}

    int Run() {
        if (!reader_.Next()) {
            throw InputError({}, {1, 0}, "expected a header with the names of inputs and outputs");
        }
        columns_ = FindColumns(reader_, system_);
        RequireOutputs();
        while (reader_.Next()) {
            if (!reader_.Record().empty()) {
                RunCase();
            }
        }
        Report();
        return failures_.empty() ? Fine : Findings;
    }

  private:
    void RequireOutputs() const {
        for (const auto& column : columns_.Outputs) {
            if (column) {
                return;
            }
        }
        throw InputError({}, {reader_.Line(), 0}, "expected a column for an output in the header");
    }

    void RunCase() {
        const char decimalMark = options_.Dialect.DecimalMark;
        if (const auto bad = ReadInputs(reader_, columns_, decimalMark, inputs_)) {
            throw InputError({}, {bad->Line, bad->Column},
                             "expected a number, not \"" + bad->Text + '"');
        }
        for (std::size_t i = 0; i < inputs_.size(); ++i) {
            engine_.SetInput(i, inputs_[i]);
        }
        engine_.Fire();
        ++cases_;
        for (std::size_t i = 0; i < columns_.Outputs.size(); ++i) {
            const auto column = columns_.Outputs[i];
            if (column && *column < reader_.Fields().size() &&
                !IsEmptyField(reader_.Fields()[*column])) {
                CheckOutput(i, reader_.Fields()[*column]);
            }
        }
    }

    void CheckOutput(std::size_t index, std::string_view field) {
        const auto expected = FieldNumber(field, options_.Dialect.DecimalMark);
        if (!expected) {
            const auto place = static_cast<std::size_t>(field.data() - reader_.Record().data());
            throw InputError({}, {reader_.Line(), place + 1},
                             "expected a number, not \"" + std::string(field) + '"');
        }
        ++checks_;
        const auto actual = engine_.Output(index);
        if (!actual || !(std::abs(*actual - *expected) <= options_.Tolerance)) {
            failures_.push_back({{"line", reader_.Line()},
                                 {"output", ToJson(system_.Outputs[index].Name)},
                                 {"expected", *expected},
                                 {"actual", ToJson(actual)}});
        }
    }

    void Report() {
        if (options_.Json) {
            console_.Out
                << Json{{"cases", cases_}, {"checks", checks_}, {"failures", failures_}}.dump(2)
                << '\n';
            return;
        }
        for (const Json& failure : failures_) {
            console_.Out << "line " << failure["line"] << ": "
                         << failure["output"].get<std::string>() << " is " << failure["actual"]
                         << ", expected " << failure["expected"] << '\n';
        }
        console_.Out << cases_ << " cases, " << checks_ << " outputs checked, " << failures_.size()
                     << " failed\n";
    }

    const TestOptions& options_;
    const Console& console_;
    System::FuzzySystem system_;
    Engine engine_;
    CsvReader reader_;
    Columns columns_;
    std::vector<std::optional<double>> inputs_;
    std::size_t cases_ = 0;
    std::size_t checks_ = 0;
    Json failures_ = Json::array();
};

} // namespace

int Test(const TestOptions& options, const Console& console) {
    try {
        if (options.Readings == "-") {
            return CasesRun(options, console, console.In).Run();
        }
        FileSource file(options.Readings);
        return CasesRun(options, console, file).Run();
    } catch (const InputError& error) {
        throw error.File.empty() ? InputError(options.Readings, error.Where, error.what()) : error;
    }
}

} // namespace Quorvane::Qfis
