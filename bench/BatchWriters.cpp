// SPDX-License-Identifier: MIT
// Batches beside the control's own: what its speed is compared with.
#include "bench/BatchWriters.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <stdexcept>

#include "engine/GridWalk.h"
#include "engine/Infer.h"
#include "shared/Definition.h"
#include "shared/NumberText.h"

namespace Quorvane::Bench {
namespace {

constexpr const char* FileNames[] = {"InData.txt", "OutData.txt"};
constexpr std::size_t BufferSize = std::size_t{64} * 1024;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A new file, as every batch makes: to some file systems that is not the same as emptying one.
File Replace(const std::filesystem::path& path) {
    std::filesystem::remove(path);
    return {std::fopen(path.string().c_str(), "wb"), &std::fclose};
}

/// A file of the standard library, with a buffer as large as the control's.
class PlainFile {
  public:
    explicit PlainFile(const std::filesystem::path& path) : file_(Replace(path)) {
        if (!file_) {
            throw std::runtime_error("a file of the batch cannot be made");
        }
        std::setvbuf(file_.get(), nullptr, _IOFBF, BufferSize);
    }

    void Write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), file_.get()); }

  private:
    File file_;
};

class PlainBatch {
  public:
    PlainBatch(DenseEngine& engine, const std::filesystem::path& folder, int divisions)
        : engine_(engine), divisions_(divisions), inputs_(GridInputs()),
          inData_(folder / FileNames[0]), outData_(folder / FileNames[1]) {}

    void Walk(std::size_t level, const std::string& prefix) {
        const auto& [variable, current] = inputs_[level];
        const double step = (variable->UBound - variable->LBound) / divisions_;
        for (int i = 0; i <= divisions_; ++i) {
            const double value = i == divisions_ ? variable->UBound : variable->LBound + i * step;
            *current = value;
            const std::string text = prefix + Characters(value);
            if (level + 1 < inputs_.size()) {
                Walk(level + 1, text + ',');
            } else {
                WritePoint(text);
            }
        }
    }

  private:
    const char* Characters(double value) {
        std::snprintf(characters_, sizeof characters_, "%.15G", value);
        return characters_;
    }

    void WritePoint(const std::string& point) {
        inData_.Write(point);
        inData_.Write("\r\n");
        engine_.Infer();
        line_.clear();
        for (const Value& output : engine_.Outputs()) {
            line_ += Characters(std::get<double>(output));
            line_ += ' ';
        }
        line_ += "\r\n";
        outData_.Write(line_);
    }

    DenseEngine& engine_;
    int divisions_;
    std::vector<GridInput> inputs_;
    PlainFile inData_;
    PlainFile outData_;
    std::string line_;
    char characters_[32];
};

/// A file that gathers its text in a buffer of its own.
class BufferedFile {
  public:
    explicit BufferedFile(const std::filesystem::path& path) : file_(path) {
        buffer_.reserve(BufferSize);
    }
    BufferedFile(const BufferedFile&) = delete;
    BufferedFile& operator=(const BufferedFile&) = delete;
    ~BufferedFile() { file_.Write(buffer_); }

    void Write(std::string_view text) {
        if (buffer_.size() + text.size() > BufferSize) {
            file_.Write(buffer_);
            buffer_.clear();
        }
        buffer_ += text;
    }

  private:
    PlainFile file_;
    std::string buffer_;
};

class CoreBatch final : public RunTime::GridVisitor {
  public:
    explicit CoreBatch(const std::filesystem::path& folder)
        : inputs_(GridInputs()), inData_(folder / FileNames[0]), outData_(folder / FileNames[1]) {
        for (const auto& [name, item] : Definition::State().OutputValues->Items) {
            outputs_.push_back(&item.Content);
        }
    }

    void Run(int divisions) {
        std::vector<RunTime::GridAxis> axes;
        for (const GridInput& input : inputs_) {
            axes.push_back({input.Variable->LBound, input.Variable->UBound});
        }
        RunTime::WalkGrid(axes, divisions, *this);
    }

    void SetInput(std::size_t axis, double value) override { *inputs_[axis].Current = value; }

    void VisitPoint(std::string_view point) override {
        inData_.Write(point);
        inData_.Write("\r\n");
        RunTime::Infer();
        for (const Value* const output : outputs_) {
            outData_.Write(NumberCharacters(std::get<double>(*output)).View());
            outData_.Write(" ");
        }
        outData_.Write("\r\n");
    }

  private:
    std::vector<GridInput> inputs_;
    std::vector<const Value*> outputs_;
    BufferedFile inData_;
    BufferedFile outData_;
};

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

const std::vector<BatchCase>& BatchCases() {
    static const std::vector<BatchCase> cases = {{0, 299, std::size_t{300} * 300},
                                                 {2, 13, std::size_t{14} * 14 * 14 * 14}};
    return cases;
}

BatchFolder::BatchFolder()
    : path_(std::filesystem::temp_directory_path() /
            ("quorvane-bench-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
    path_.make_preferred();
}

BatchFolder::~BatchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string BatchFolder::Bytes() const {
    return BytesOf(path_ / FileNames[0]) + BytesOf(path_ / FileNames[1]);
}

std::vector<GridInput> GridInputs() {
    Definition::ProcessState& state = Definition::State();
    auto& values = dynamic_cast<OwnValueDictionary&>(*state.InputValues);
    std::vector<GridInput> inputs;
    for (const auto& [name, variable] : *state.InputVariables) {
        inputs.push_back({&variable, &values.Items.At(name).Content});
    }
    return inputs;
}

void WritePlainBatch(DenseEngine& engine, const std::filesystem::path& folder, int divisions) {
    PlainBatch(engine, folder, divisions).Walk(0, {});
}

void WriteCoreBatch(const std::filesystem::path& folder, int divisions) {
    CoreBatch(folder).Run(divisions);
}

} // namespace Quorvane::Bench
