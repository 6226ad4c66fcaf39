// SPDX-License-Identifier: MIT
// RunPanel: what a person does with a running control: set inputs, fire, watch, tabulate.
#pragma once

#include "host/form/parts/Window.h"
#include "host/form/run/BatchProgress.h"
#include "host/form/run/InputRows.h"
#include "host/form/run/SurfacePicture.h"
#include "host/form/surface/PlacedControl.h"

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Quorvane::Host {

class RunPanel final : public Window {
  public:
    /// Batch files go to the folder that the user chooses; `batchFolder` is offered first.
    RunPanel(HWND parent, std::filesystem::path batchFolder);

    /// Shows the controls of the form; the first becomes the current one. The controls must live
    /// until Clear.
    void SetControls(const std::vector<std::unique_ptr<PlacedControl>>& controls);

    /// Forgets the controls and the counts.
    void Clear();

    /// Makes a control the current one.
    void SelectControl(const std::wstring& name);

    /// What a person begins with: the field of the first input, or the button that fires.
    HWND FirstField() const;

    /// Counts an event, and follows the progress of a batch by it.
    void OnEvent(const std::wstring& control, const std::wstring& event);

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void CreateChildren();
    void Arrange();
    void OnCommand(int id, int code);
    void ShowCurrent();
    void SetInput(const std::wstring& name, const std::wstring& text);
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
    std::map<std::wstring, std::pair<long long, int>> counts_;
    /// The controls that show their values themselves.
    std::set<const PlacedControl*> showingData_;
    /// Only while a batch runs.
    std::unique_ptr<BatchProgress> batchProgress_;

    HWND controlChoice_ = nullptr;
    std::unique_ptr<InputRows> inputRows_;
    HWND fire_ = nullptr;
    HWND autoFire_ = nullptr;
    HWND dataShow_ = nullptr;
    HWND outputList_ = nullptr;
    HWND eventLog_ = nullptr;
    HWND divisionsLabel_ = nullptr;
    HWND divisions_ = nullptr;
    HWND batch_ = nullptr;
    HWND progress_ = nullptr;
    HWND outputChoice_ = nullptr;
    std::unique_ptr<SurfacePicture> picture_;
};

} // namespace Quorvane::Host
