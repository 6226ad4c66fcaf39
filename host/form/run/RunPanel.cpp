// SPDX-License-Identifier: MIT
// RunPanel: what a person does with a running control: set inputs, fire, watch, tabulate.
#include "host/form/run/RunPanel.h"

#include "host/form/parts/Automation.h"
#include "host/form/parts/FileDialogs.h"
#include "host/form/parts/ListColumns.h"
#include "host/form/parts/Texts.h"

#include <algorithm>
#include <cmath>

#include <commctrl.h>

namespace Quorvane::Host {

namespace {

enum ChildId {
    ControlChoiceId = 100,
    FireId,
    AutoFireId,
    DataShowId,
    OutputListId,
    EventLogId,
    DivisionsId,
    BatchId,
    OutputChoiceId,
    ProgressId,
};

constexpr int MostDivisions = 1000;
constexpr std::size_t MostVisibleInputs = 4;
constexpr std::size_t MostDrawnInputs = 2;

// At 96 dots per inch.
constexpr int FieldHeight = 21;
constexpr int ButtonHeight = 25;
constexpr int LabelHeight = 14;
constexpr int DropHeight = 200;

bool IsChecked(HWND box) {
    return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::wstring StoredText(PlacedControl& control, const wchar_t* property) {
    const auto object = control.Dispatch();
    return object ? ValueText(CallMember(object.Get(), property, {}, DISPATCH_PROPERTYGET))
                  : std::wstring();
}

std::vector<std::wstring> NamesOf(const std::vector<StoredVariable>& variables) {
    std::vector<std::wstring> names;
    names.reserve(variables.size());
    for (const StoredVariable& variable : variables) {
        names.push_back(variable.Name);
    }
    return names;
}

/// Shows the pointer that asks for patience, while it lives.
class WaitPointer {
  public:
    WaitPointer() : former_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
    ~WaitPointer() { SetCursor(former_); }

  private:
    HCURSOR former_;
};

} // namespace

RunPanel::RunPanel(HWND parent, std::filesystem::path batchFolder)
    : batchFolder_(std::move(batchFolder)) {
    Create(L"QuorvaneRunPanel", L"Run", WS_CHILD | WS_CLIPCHILDREN, parent, nullptr,
           WS_EX_CONTROLPARENT);
    CreateChildren();
}

void RunPanel::CreateChildren() {
    constexpr DWORD Combo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    constexpr DWORD List = WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER;
    controlChoice_ = CreateChild(Handle(), L"COMBOBOX", L"", Combo, ControlChoiceId);
    inputRows_ = std::make_unique<InputRows>(
        Handle(),
        [this](const std::wstring& name, const std::wstring& text) { SetInput(name, text); });
    fire_ =
        CreateChild(Handle(), L"BUTTON", GetText(TextId::Fire), WS_TABSTOP | BS_PUSHBUTTON, FireId);
    autoFire_ = CreateChild(Handle(), L"BUTTON", GetText(TextId::AutoFire),
                            WS_TABSTOP | BS_AUTOCHECKBOX, AutoFireId);
    dataShow_ = CreateChild(Handle(), L"BUTTON", GetText(TextId::DataShow),
                            WS_TABSTOP | BS_AUTOCHECKBOX, DataShowId);
    outputList_ =
        CreateChild(Handle(), WC_LISTVIEWW, L"Outputs", List, OutputListId, WS_EX_CLIENTEDGE);
    SetColumns(outputList_, {{GetText(TextId::Output), 160}, {GetText(TextId::Value), 160}});
    eventLog_ = CreateChild(Handle(), WC_LISTVIEWW, L"Events", List, EventLogId, WS_EX_CLIENTEDGE);
    SetColumns(eventLog_, {{GetText(TextId::Event), 200}, {GetText(TextId::Count), 100}});
    divisionsLabel_ = CreateChild(Handle(), L"STATIC", GetText(TextId::Divisions), SS_LEFT, -1);
    divisions_ = CreateChild(Handle(), L"EDIT", L"20", WS_TABSTOP | ES_NUMBER, DivisionsId,
                             WS_EX_CLIENTEDGE);
    batch_ = CreateChild(Handle(), L"BUTTON", GetText(TextId::Batch), WS_TABSTOP | BS_PUSHBUTTON,
                         BatchId);
    progress_ = CreateChild(Handle(), PROGRESS_CLASSW, L"", 0, ProgressId);
    outputChoice_ = CreateChild(Handle(), L"COMBOBOX", L"", Combo, OutputChoiceId);
    picture_ = std::make_unique<SurfacePicture>(Handle());
}

LRESULT RunPanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (picture_) {
            Arrange();
        }
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return 0;
    default:
        return Window::OnMessage(message, wParam, lParam);
    }
}

void RunPanel::Arrange() {
    RECT area{};
    GetClientRect(Handle(), &area);
    const int gap = Scaled(8);
    const int field = Scaled(FieldHeight);
    const int button = Scaled(ButtonHeight);
    const int width = std::max(0, static_cast<int>(area.right) - 2 * gap);
    int top = gap;
    // Fields, labels and buttons of one line have their middles in one line.
    const auto place = [&](HWND child, int left, int childWidth, int height, int lineHeight) {
        MoveWindow(child, gap + left, top + (lineHeight - height) / 2, childWidth, height, TRUE);
    };
    const auto fill = [&](HWND child, int height) {
        MoveWindow(child, gap, top, width, height, TRUE);
        top += height + gap;
    };

    MoveWindow(controlChoice_, gap, top, width, Scaled(DropHeight), TRUE);
    top += button + gap;
    const int rows =
        static_cast<int>(std::clamp<std::size_t>(inputs_.size(), 1, MostVisibleInputs));
    fill(inputRows_->Handle(), InputRows::HeightOf(Handle(), rows));
    const int third = (width - 2 * gap) / 3;
    place(fire_, 0, third, button, button);
    place(autoFire_, third + gap, third, button, button);
    place(dataShow_, 2 * (third + gap), third, button, button);
    top += button + gap;
    fill(outputList_, Scaled(88));
    fill(eventLog_, Scaled(72));
    const int label = Scaled(64);
    place(divisionsLabel_, 0, label, Scaled(LabelHeight), button);
    place(divisions_, label, third - label, field, button);
    place(batch_, third + gap, third, button, button);
    place(progress_, 2 * (third + gap), third, field, button);
    top += button + gap;
    MoveWindow(outputChoice_, gap, top, width, Scaled(DropHeight), TRUE);
    top += button + gap;
    fill(picture_->Handle(), std::max(0, static_cast<int>(area.bottom) - top - gap));
    FillWidth(outputList_);
    FillWidth(eventLog_);
    // The borders, too, of what has moved.
    RedrawWindow(Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void RunPanel::SetControls(const std::vector<std::unique_ptr<PlacedControl>>& controls) {
    Clear();
    for (const auto& control : controls) {
        controls_.push_back(control.get());
        SendMessageW(controlChoice_, CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(control->Name().c_str()));
    }
    if (!controls_.empty()) {
        SelectControl(controls_.front()->Name());
    }
}

void RunPanel::Clear() {
    current_ = nullptr;
    controls_.clear();
    counts_.clear();
    inputs_.clear();
    outputs_.clear();
    SendMessageW(controlChoice_, CB_RESETCONTENT, 0, 0);
    SendMessageW(outputChoice_, CB_RESETCONTENT, 0, 0);
    SendMessageW(autoFire_, BM_SETCHECK, BST_UNCHECKED, 0);
    SendMessageW(dataShow_, BM_SETCHECK, BST_UNCHECKED, 0);
    ListView_DeleteAllItems(outputList_);
    ListView_DeleteAllItems(eventLog_);
    showingData_.clear();
    inputRows_->SetInputs({});
    picture_->ShowMessage(TextId::NoBatchYet);
}

void RunPanel::SelectControl(const std::wstring& name) {
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        if (controls_[i]->Name() == name) {
            current_ = controls_[i];
            SendMessageW(controlChoice_, CB_SETCURSEL, i, 0);
            ShowCurrent();
        }
    }
}

HWND RunPanel::FirstField() const {
    const HWND field = GetNextDlgTabItem(inputRows_->Handle(), nullptr, FALSE);
    return field ? field : fire_;
}

void RunPanel::ShowCurrent() {
    inputs_ = ReadStoredVariables(StoredText(*current_, L"Inputs"));
    outputs_ = ReadStoredVariables(StoredText(*current_, L"Outputs"));
    inputRows_->SetInputs(inputs_);
    SendMessageW(outputChoice_, CB_RESETCONTENT, 0, 0);
    for (const StoredVariable& output : outputs_) {
        SendMessageW(outputChoice_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(output.Name.c_str()));
    }
    SendMessageW(outputChoice_, CB_SETCURSEL, 0, 0);
    // A control tells nobody whether it shows its data.
    SendMessageW(dataShow_, BM_SETCHECK,
                 showingData_.contains(current_) ? BST_CHECKED : BST_UNCHECKED, 0);
    picture_->ShowMessage(TextId::NoBatchYet);
    Arrange();
    ShowInputs();
    ShowOutputs();
}

void RunPanel::OnCommand(int id, int code) {
    if (id == ControlChoiceId && code == CBN_SELCHANGE) {
        const auto chosen = SendMessageW(controlChoice_, CB_GETCURSEL, 0, 0);
        SelectControl(controls_[static_cast<std::size_t>(chosen)]->Name());
    } else if (id == OutputChoiceId && code == CBN_SELCHANGE) {
        ShowChosenOutput();
    } else if (code == BN_CLICKED && current_) {
        switch (id) {
        case FireId:
            Fire();
            break;
        case DataShowId:
            SetDataShow();
            break;
        case BatchId:
            RunBatch();
            break;
        default:
            break;
        }
    }
}

void RunPanel::SetInput(const std::wstring& name, const std::wstring& text) {
    if (!current_) {
        return;
    }
    if (const auto inputs = ObjectProperty(current_->Dispatch().Get(), L"InVals")) {
        SetItem(inputs.Get(), name, Variant(std::wstring_view(text)));
    }
    if (IsChecked(autoFire_)) {
        Fire();
    }
}

void RunPanel::Fire() {
    CallMember(current_->Dispatch().Get(), L"Fire", {}, DISPATCH_METHOD);
    ShowOutputs();
}

void RunPanel::ShowInputs() {
    const auto inputs = ObjectProperty(current_->Dispatch().Get(), L"InVals");
    if (!inputs) {
        return;
    }
    for (const StoredVariable& input : inputs_) {
        inputRows_->ShowValue(input.Name, ValueText(ItemOf(inputs.Get(), input.Name)));
    }
}

void RunPanel::ShowOutputs() {
    const auto outputs = ObjectProperty(current_->Dispatch().Get(), L"OutVals");
    ListView_DeleteAllItems(outputList_);
    if (!outputs) {
        return;
    }
    for (const std::wstring& key : KeysOf(outputs.Get())) {
        AddRow(outputList_, {key, ValueText(ItemOf(outputs.Get(), key))});
    }
}

void RunPanel::SetDataShow() {
    const bool shows = IsChecked(dataShow_);
    SetProperty(current_->Dispatch().Get(), L"DataShow", Variant(shows));
    if (shows) {
        showingData_.insert(current_);
    } else {
        showingData_.erase(current_);
    }
}

void RunPanel::OnEvent(const std::wstring& control, const std::wstring& event) {
    auto& [count, row] = counts_[control + L"." + event];
    if (count++ == 0) {
        row = AddRow(eventLog_, {control + L"." + event, L""});
    }
    if (batchProgress_ && !batchProgress_->OnPoint()) {
        return;
    }
    SetCell(eventLog_, row, 1, std::to_wstring(count));
    UpdateWindow(eventLog_);
}

void RunPanel::RunBatch() {
    const int divisions = std::clamp(_wtoi(TextOf(divisions_).c_str()), 1, MostDivisions);
    SetWindowTextW(divisions_, std::to_wstring(divisions).c_str());
    const auto folder = AskForBatchFolder(GetAncestor(Handle(), GA_ROOT), batchFolder_);
    if (folder.empty()) {
        return;
    }
    batchFolder_ = folder;
    const bool isComplete = Tabulate(divisions);
    ShowInputs();
    ShowOutputs();
    ShowBatch(isComplete);
}

bool RunPanel::Tabulate(int divisions) {
    const double points = std::pow(divisions + 1, static_cast<double>(inputs_.size()));
    const WaitPointer waiting;
    batchProgress_ = std::make_unique<BatchProgress>(progress_, points);
    try {
        CallMember(current_->Dispatch().Get(), L"BatchData",
                   {Variant(std::wstring_view(batchFolder_.wstring())), Variant(LONG{divisions})},
                   DISPATCH_METHOD);
    } catch (...) {
        batchProgress_.reset();
        throw;
    }
    const bool isComplete = batchProgress_->IsComplete();
    batchProgress_.reset();
    return isComplete;
}

void RunPanel::ShowBatch(bool isComplete) {
    const bool canBeDrawn = inputs_.size() <= MostDrawnInputs;
    picture_->ShowMessage(isComplete && !canBeDrawn ? TextId::TooManyInputs
                                                    : TextId::IncompleteBatch);
    if (isComplete && canBeDrawn) {
        picture_->SetPoints(ReadBatch(batchFolder_, inputs_.size(), outputs_.size()),
                            NamesOf(inputs_));
        ShowChosenOutput();
    }
}

void RunPanel::ShowChosenOutput() {
    const auto output = SendMessageW(outputChoice_, CB_GETCURSEL, 0, 0);
    if (output >= 0) {
        const auto index = static_cast<std::size_t>(output);
        picture_->ShowOutput(index, outputs_[index].Name);
    }
}

} // namespace Quorvane::Host
