// SPDX-License-Identifier: MIT
// RunPanel: what a person does with a running control: set inputs, fire, watch, tabulate.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "host/form/parts/ProgramWindow.h"
#include "host/form/run/BatchProgress.h"
#include "host/form/run/InputRows.h"
#include "host/form/run/SurfacePicture.h"
#include "host/form/surface/PlacedControl.h"
#include "shared/Text.h"

namespace Quorvane::Host {

class RunPanel final : public ProgramWindow {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneRunPanel";

    /// Batch files go to the folder that the user chooses; `batchFolder` is offered first.
    RunPanel(HWND parent, std::filesystem::path batchFolder);
    ~RunPanel() override { Destroy(); }

    /// Shows the controls of the form; the first becomes the current one. The controls must live
    /// until Clear.
    void SetControls(const std::vector<std::unique_ptr<PlacedControl>>& controls);

    /// Forgets the controls and the counts.
    void Clear();

    /// Makes a control the current one.
    void SelectControl(const Text& name);

    /// What a person begins with: the field of the first input, or the button that fires.
    HWND FirstField() const;

    /// Counts an event, and follows the progress of a batch by it.
    void OnEvent(const Text& control, const Text& event);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void CreateChildren();
    void Arrange();
    void OnCommand(int id, int code);
    void ShowCurrent();
    void SetInput(const Text& name, const Text& text);
    void Fire();
    void ShowOutputs();
    void ShowInputs();
    void SetDataShow();
    void RunBatch();
    /// Writes the batch files; whether every point of the batch has been computed.
    bool Tabulate(int divisions);
    /// Draws the batch that has just been written.
    void ShowBatch(bool isComplete);
    void ShowChosenOutput();

    PlacedControl* current_ = nullptr;
    std::vector<PlacedControl*> controls_;
    std::vector<StoredVariable> inputs_;
    std::vector<StoredVariable> outputs_;
    std::filesystem::path batchFolder_;
    /// "Control.Event" with its count and its row in the log.
    std::map<Text, std::pair<long long, int>> counts_;
    /// The controls that show their values themselves.
    std::set<const PlacedControl*> showingData_;
    /// Only while a batch runs.
    std::unique_ptr<BatchProgress> batchProgress_;

    Win::ChildWindow controlChoice_;
    std::unique_ptr<InputRows> inputRows_;
    Win::ChildWindow fire_;
    Win::ChildWindow autoFire_;
    Win::ChildWindow dataShow_;
    Win::ChildWindow outputList_;
    Win::ChildWindow eventLog_;
    Win::ChildWindow divisionsLabel_;
    Win::ChildWindow divisions_;
    Win::ChildWindow batch_;
    Win::ChildWindow progress_;
    Win::ChildWindow outputChoice_;
    std::unique_ptr<SurfacePicture> picture_;
};

} // namespace Quorvane::Host
