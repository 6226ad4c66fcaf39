// SPDX-License-Identifier: MIT
// Tabulating the control surface into two text files.
#include "control/BatchFile.h"
#include "control/FISControl.h"
#include "control/com/Scoped.h"
#include "engine/GridWalk.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"
#include "shared/NumberText.h"
#include "text/GetText.h"
#include "win/MessageBox.h"

namespace Quorvane {
namespace {

constexpr std::int32_t InvalidEvaluation = 84;
constexpr std::int32_t ControllerTitle = 35;
constexpr std::int32_t DefaultDivisions = 10;

/// The folder with its final backslash. Raises InvalidCall for the empty path.
Text FolderOf(TextView path) {
    if (path.empty()) {
        throw FisError(RuntimeError::InvalidCall);
    }
    Text folder(path);
    if (folder.back() != u'\\') {
        folder.push_back(u'\\');
    }
    return folder;
}

/// One run over the grid of the system as it is when the run begins. Handlers of the event may
/// change everything meanwhile: every point goes into the inputs, and its results come from the
/// outputs, that are the process' at that moment.
class BatchRun final : public RunTime::GridVisitor {
  public:
    BatchRun(FISControl& control, const Text& folder)
        : control_(control), inData_(folder + u"InData.txt"), outData_(folder + u"OutData.txt") {}

    void Run(std::int32_t divisions) {
        const Definition::ProcessState& state = Definition::State();
        std::vector<RunTime::GridAxis> axes;
        for (const auto& [name, input] : Definition::Require(state.InputVariables)) {
            inputs_.push_back(name);
            axes.push_back({input.LBound, input.UBound});
        }
        for (const auto& [name, output] : Definition::Require(state.OutputVariables)) {
            outputs_.push_back(name);
        }
        RunTime::WalkGrid(axes, divisions, *this);
        inData_.Flush();
        outData_.Flush();
    }

    void SetInput(std::size_t axis, double value) override {
        // Held, as a host's dictionary may run code that assigns another one.
        const auto values = Definition::State().InputValues;
        Definition::Require(values).Put(inputs_[axis], value);
    }

    void VisitPoint(std::string_view point) override {
        inData_.Write(point);
        inData_.Write("\r\n");
        Com::Check(control_.Fire());
        const auto values = Definition::State().OutputValues;
        for (const Text& output : outputs_) {
            WriteValue(Definition::Require(values).Get(output));
            outData_.Write(" ");
        }
        outData_.Write("\r\n");
    }

  private:
    void WriteValue(const Value& value) {
        if (const double* const number = std::get_if<double>(&value)) {
            outData_.Write(NumberCharacters(*number).View());
        } else {
            outData_.Write(TextView(FixedText(value)));
        }
    }

    FISControl& control_;
    BatchFile inData_;
    BatchFile outData_;
    std::vector<Text> inputs_;
    std::vector<Text> outputs_;
};

} // namespace

STDMETHODIMP FISControl::BatchData(BSTR* path, LONG* part) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<_FISControl>([&] {
        const TextView givenPath = Com::View(Com::Out(path));
        const LONG givenPart = Com::Out(part);
        const DefaultArithmetic arithmetic;
        try {
            BatchRun(*this, FolderOf(givenPath)).Run(givenPart > 0 ? givenPart : DefaultDivisions);
        } catch (...) {
            // Whatever failed, the host is not told by an error but the person by this message.
            Win::ShowMessage(Site().Window(), Main::GetText(InvalidEvaluation),
                             Main::GetText(ControllerTitle), MB_OK | MB_ICONERROR);
        }
    });
}

} // namespace Quorvane
