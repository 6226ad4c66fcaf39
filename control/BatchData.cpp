// SPDX-License-Identifier: MIT
// Tabulating the control surface into two text files.
#include "com/Scoped.h"
#include "control/BatchFile.h"
#include "control/FISControl.h"
#include "engine/GridWalk.h"
#include "shared/DefaultArithmetic.h"
#include "shared/Definition.h"
#include "shared/ItemAddresses.h"
#include "shared/NumberText.h"
#include "text/GetText.h"
#include "text/TextIds.h"
#include "win/MessageBox.h"

namespace Quorvane {
namespace {

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

template <class Value>
std::vector<Text> NamesOf(const StringKeyedDictionary<Value>& dictionary) {
    std::vector<Text> names;
    for (const auto& [name, item] : dictionary) {
        names.push_back(name);
    }
    return names;
}

std::vector<RunTime::GridAxis> AxesOf(const VariableDictionary& inputs) {
    std::vector<RunTime::GridAxis> axes;
    for (const auto& [name, input] : inputs) {
        axes.push_back({input.LBound, input.UBound});
    }
    return axes;
}

/// One run over the grid of the system as it is when the run begins. Handlers of the event may
/// change everything meanwhile: every point goes into the inputs, and its results come from the
/// outputs, that are the process' at that moment. While it lives, the thread computes as
/// DefaultArithmetic says, but for code of the host.
class BatchRun final : public RunTime::GridVisitor {
  public:
    BatchRun(FISControl& control, const Text& folder)
        : control_(control), inData_(folder + u"InData.txt"), outData_(folder + u"OutData.txt"),
          inputs_(NamesOf(Definition::Require(Definition::State().InputVariables))),
          outputs_(NamesOf(Definition::Require(Definition::State().OutputVariables))) {}

    void Run(std::int32_t divisions) {
        RunTime::WalkGrid(AxesOf(Definition::Require(Definition::State().InputVariables)),
                          divisions, *this);
        inData_.Flush();
        outData_.Flush();
    }

    void SetInput(std::size_t axis, double value) override {
        const auto& current = Definition::State().InputValues;
        Value* const item = inputs_.Find(current.get(), axis);
        if (double* const number = item ? std::get_if<double>(item) : nullptr) {
            *number = value;
            return;
        }
        // Held, as a host's dictionary may run code that assigns another one.
        const auto values = current;
        Definition::Require(values).Put(inputs_.Names()[axis], value);
    }

    void VisitPoint(std::string_view point) override {
        inData_.Write(point);
        inData_.Write("\r\n");
        FireAsHost();
        for (std::size_t i = 0; i < outputs_.Names().size(); ++i) {
            WriteOutput(i);
            outData_.Write(" ");
        }
        outData_.Write("\r\n");
    }

  private:
    /// A cycle has arithmetic of its own; handlers of its event have the host's.
    void FireAsHost() {
        const DefaultArithmetic::Pause pause;
        Com::Check(control_.Fire());
    }

    void WriteOutput(std::size_t index) {
        const auto& current = Definition::State().OutputValues;
        const Value* const item = outputs_.Find(current.get(), index);
        if (const double* const number = item ? std::get_if<double>(item) : nullptr) {
            outData_.Write(NumberCharacters(*number).View());
            return;
        }
        const auto values = current;
        outData_.Write(
            TextView(FixedText(Definition::Require(values).Get(outputs_.Names()[index]))));
    }

    DefaultArithmetic arithmetic_;
    FISControl& control_;
    BatchFile inData_;
    BatchFile outData_;
    ItemAddresses inputs_;
    ItemAddresses outputs_;
};

} // namespace

STDMETHODIMP FISControl::BatchData(BSTR* path, LONG* part) noexcept {
    const Com::KeepAlive alive(this);
    return Com::Guard<_FISControl>([&] {
        const TextView givenPath = Com::View(Com::In(path));
        const LONG givenPart = Com::Out(part);
        try {
            BatchRun(*this, FolderOf(givenPath)).Run(givenPart > 0 ? givenPart : DefaultDivisions);
        } catch (...) {
            // Whatever failed, the host is not told by an error but the person by this message.
            const Com::ModelessPause pause(InPlace());
            Win::ShowMessage(Site().Window(), Main::GetText(TextIds::InvalidEvaluation),
                             Main::GetText(TextIds::Controller), MB_OK | MB_ICONERROR);
        }
    });
}

} // namespace Quorvane
