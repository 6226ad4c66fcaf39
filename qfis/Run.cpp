// SPDX-License-Identifier: MIT
// qfis run: outputs beside the inputs of readings.
#include <filesystem>
#include <memory>
#include <system_error>

#include "qfis/Commands.h"
#include "qfis/Engine.h"
#include "qfis/FileSource.h"
#include "qfis/Files.h"
#include "qfis/Json.h"
#include "qfis/Progress.h"
#include "qfis/Readings.h"

namespace Quorvane::Qfis {
namespace {

constexpr std::size_t BufferSize = std::size_t{64} << 10;

class ReadingsRun {
  public:
    ReadingsRun(const RunOptions& options, const Console& console, ByteSource& source,
                std::size_t size)
        : options_(options), console_(console), system_(LoadSystem(options.File, options.Control)),
          engine_(system_), reader_(source, options.Dialect.Delimiter, [this] { Flush(); }),
          progress_(console), size_(size) {}

    int Run() {
        if (!reader_.Next()) {
            throw InputError({}, {1, 0}, "expected a header with the names of the inputs");
        }
        columns_ = FindColumns(reader_, system_);
        if (!options_.Json) {
            WriteHeader();
        }
        while (reader_.Next()) {
            RunRecord();
            if (buffer_.size() > BufferSize) {
                Flush();
            }
        }
        Flush();
        if (failed_ != 0) {
            console_.Err << failed_ << " of " << count_ << " readings failed and have the defaults";
            if (firstBad_) {
                console_.Err << "; line " << firstBad_->Line << ", column " << firstBad_->Column
                             << ": expected a number, not \"" << firstBad_->Text << '"';
            }
            console_.Err << '\n';
        }
        return failed_ == 0 ? Fine : Findings;
    }

  private:
    void WriteHeader() {
        std::string_view mark = reader_.Record();
        buffer_ += mark;
        for (const System::OutputVariable& output : system_.Outputs) {
            buffer_ += options_.Dialect.Delimiter;
            AppendField(buffer_, Host::EncodeUtf8(output.Name), options_.Dialect.Delimiter);
        }
        WriteLineEnd();
    }

    void WriteLineEnd() { buffer_ += reader_.LineEnd().empty() ? "\n" : reader_.LineEnd(); }

    void RunRecord() {
        if (reader_.Record().empty()) {
            return;
        }
        auto bad = ReadInputs(reader_, columns_, options_.Dialect.DecimalMark, inputs_);
        for (std::size_t i = 0; i < inputs_.size(); ++i) {
            engine_.SetInput(i, inputs_[i]);
        }
        ++count_;
        if (!engine_.Fire()) {
            ++failed_;
            if (bad && !firstBad_) {
                firstBad_ = std::move(bad);
            }
        }
        options_.Json ? WriteJson() : WriteRecord();
    }

    void WriteRecord() {
        buffer_ += reader_.Record();
        for (std::size_t i = 0; i < system_.Outputs.size(); ++i) {
            buffer_ += options_.Dialect.Delimiter;
            if (const auto output = engine_.Output(i)) {
                AppendNumber(buffer_, *output, options_.Dialect);
            }
        }
        WriteLineEnd();
    }

    void WriteJson() {
        Json json = {{"inputs", Json::object()}, {"outputs", Json::object()}};
        for (std::size_t i = 0; i < inputs_.size(); ++i) {
            json["inputs"][Host::EncodeUtf8(system_.Inputs[i].Name)] = ToJson(inputs_[i]);
        }
        for (std::size_t i = 0; i < system_.Outputs.size(); ++i) {
            json["outputs"][Host::EncodeUtf8(system_.Outputs[i].Name)] = ToJson(engine_.Output(i));
        }
        buffer_ += json.dump() + '\n';
    }

    void Flush() {
        console_.Out.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        console_.Out.flush();
        buffer_.clear();
        if (size_ != 0) {
            progress_.Show(static_cast<double>(reader_.BytesRead()) / static_cast<double>(size_));
        }
    }

    const RunOptions& options_;
    const Console& console_;
    System::FuzzySystem system_;
    Engine engine_;
    CsvReader reader_;
    Progress progress_;
    std::size_t size_;
    Columns columns_;
    std::vector<std::optional<double>> inputs_;
    std::string buffer_;
    std::size_t count_ = 0;
    std::size_t failed_ = 0;
    std::optional<BadField> firstBad_;
};

} // namespace

int Run(const RunOptions& options, const Console& console) {
    try {
        if (options.Readings == "-") {
            return ReadingsRun(options, console, console.In, 0).Run();
        }
        FileSource file(options.Readings);
        return ReadingsRun(options, console, file, file.Size()).Run();
    } catch (const InputError& error) {
        throw error.File.empty() ? InputError(options.Readings, error.Where, error.what()) : error;
    }
}

} // namespace Quorvane::Qfis
