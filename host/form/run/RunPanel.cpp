// SPDX-License-Identifier: MIT
// RunPanel: what a person does with a running control: set inputs, fire, watch, tabulate.
#include "host/form/run/RunPanel.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "host/container/Paths.h"
#include "host/form/parts/Automation.h"
#include "host/form/parts/FileDialogs.h"
#include "host/form/parts/ListColumns.h"
#include "host/form/parts/Texts.h"
#include "win/WideText.h"
#include "win/WindowText.h"

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
    return ::SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

Text StoredText(PlacedControl& control, const Text& property) {
    const auto object = control.Dispatch();
    return object ? ValueText(CallMember(object.Get(), property, {}, DISPATCH_PROPERTYGET))
                  : Text();
}

std::vector<Text> NamesOf(const std::vector<StoredVariable>& variables) {
    std::vector<Text> names;
    names.reserve(variables.size());
    for (const StoredVariable& variable : variables) {
        names.push_back(variable.Name);
    }
    return names;
}

/// Shows the pointer that asks for patience, while it lives.
class WaitPointer {
  public:
    WaitPointer() : former_(::SetCursor(::LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
    ~WaitPointer() { ::SetCursor(former_); }

  private:
    HCURSOR former_;
};

} // namespace

RunPanel::RunPanel(HWND parent, std::filesystem::path batchFolder)
    : batchFolder_(std::move(batchFolder)) {
    Create<RunPanel>(u"Run", WS_CHILD | WS_CLIPCHILDREN, parent, WS_EX_CONTROLPARENT);
    CreateChildren();
}

void RunPanel::CreateChildren() {
    constexpr DWORD Combo = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    constexpr DWORD List = WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER;
    controlChoice_ = MakeChild(Get(), L"COMBOBOX", u"", Combo, ControlChoiceId);
    inputRows_ = std::make_unique<InputRows>(
        Get(), [this](const Text& name, const Text& text) { SetInput(name, text); });
    fire_ = MakeChild(Get(), L"BUTTON", GetText(TextId::Fire), WS_TABSTOP | BS_PUSHBUTTON, FireId);
    autoFire_ = MakeChild(Get(), L"BUTTON", GetText(TextId::AutoFire), WS_TABSTOP | BS_AUTOCHECKBOX,
                          AutoFireId);
    dataShow_ = MakeChild(Get(), L"BUTTON", GetText(TextId::DataShow), WS_TABSTOP | BS_AUTOCHECKBOX,
                          DataShowId);
    outputList_ = MakeChild(Get(), WC_LISTVIEWW, u"Outputs", List, OutputListId, WS_EX_CLIENTEDGE);
    SetColumns(outputList_.Get(), {{GetText(TextId::Output), 160}, {GetText(TextId::Value), 160}});
    eventLog_ = MakeChild(Get(), WC_LISTVIEWW, u"Events", List, EventLogId, WS_EX_CLIENTEDGE);
    SetColumns(eventLog_.Get(), {{GetText(TextId::Event), 200}, {GetText(TextId::Count), 100}});
    divisionsLabel_ = MakeChild(Get(), L"STATIC", GetText(TextId::Divisions), SS_LEFT, -1);
    divisions_ =
        MakeChild(Get(), L"EDIT", u"20", WS_TABSTOP | ES_NUMBER, DivisionsId, WS_EX_CLIENTEDGE);
    batch_ =
        MakeChild(Get(), L"BUTTON", GetText(TextId::Batch), WS_TABSTOP | BS_PUSHBUTTON, BatchId);
    progress_ = MakeChild(Get(), PROGRESS_CLASSW, u"", 0, ProgressId);
    outputChoice_ = MakeChild(Get(), L"COMBOBOX", u"", Combo, OutputChoiceId);
    picture_ = std::make_unique<SurfacePicture>(Get());
}

LRESULT RunPanel::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        if (picture_) {
            Arrange();
        }
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(first), HIWORD(first));
        return 0;
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

void RunPanel::Arrange() {
    const RECT area = Win::ClientArea(Get());
    const int gap = Scaled(8);
    const int field = Scaled(FieldHeight);
    const int button = Scaled(ButtonHeight);
    const int width = std::max(0, static_cast<int>(area.right) - 2 * gap);
    int top = gap;
    // Fields, labels and buttons of one line have their middles in one line.
    const auto place = [&](const Win::ChildWindow& child, int left, int childWidth, int height,
                           int lineHeight) {
        MoveChild(child, gap + left, top + (lineHeight - height) / 2, childWidth, height);
    };
    const auto fill = [&](HWND child, int height) {
        ::MoveWindow(child, gap, top, width, height, TRUE);
        top += height + gap;
    };

    MoveChild(controlChoice_, gap, top, width, Scaled(DropHeight));
    top += button + gap;
    const int rows =
        static_cast<int>(std::clamp<std::size_t>(inputs_.size(), 1, MostVisibleInputs));
    fill(inputRows_->Get(), InputRows::HeightOf(Get(), rows));
    const int third = (width - 2 * gap) / 3;
    place(fire_, 0, third, button, button);
    place(autoFire_, third + gap, third, button, button);
    place(dataShow_, 2 * (third + gap), third, button, button);
    top += button + gap;
    fill(outputList_.Get(), Scaled(88));
    fill(eventLog_.Get(), Scaled(72));
    const int label = Scaled(64);
    place(divisionsLabel_, 0, label, Scaled(LabelHeight), button);
    place(divisions_, label, third - label, field, button);
    place(batch_, third + gap, third, button, button);
    place(progress_, 2 * (third + gap), third, field, button);
    top += button + gap;
    MoveChild(outputChoice_, gap, top, width, Scaled(DropHeight));
    top += button + gap;
    fill(picture_->Get(), std::max(0, static_cast<int>(area.bottom) - top - gap));
    FillWidth(outputList_.Get());
    FillWidth(eventLog_.Get());
    // The borders, too, of what has moved.
    ::RedrawWindow(Get(), nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void RunPanel::SetControls(const std::vector<std::unique_ptr<PlacedControl>>& controls) {
    Clear();
    for (const auto& control : controls) {
        controls_.push_back(control.get());
        ::SendMessageW(controlChoice_.Get(), CB_ADDSTRING, 0,
                       reinterpret_cast<LPARAM>(Win::Wide(control->Name())));
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
    ::SendMessageW(controlChoice_.Get(), CB_RESETCONTENT, 0, 0);
    ::SendMessageW(outputChoice_.Get(), CB_RESETCONTENT, 0, 0);
    ::SendMessageW(autoFire_.Get(), BM_SETCHECK, BST_UNCHECKED, 0);
    ::SendMessageW(dataShow_.Get(), BM_SETCHECK, BST_UNCHECKED, 0);
    ListView_DeleteAllItems(outputList_.Get());
    ListView_DeleteAllItems(eventLog_.Get());
    showingData_.clear();
    inputRows_->SetInputs({});
    picture_->ShowMessage(TextId::NoBatchYet);
}

void RunPanel::SelectControl(const Text& name) {
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        if (controls_[i]->Name() == name) {
            current_ = controls_[i];
            ::SendMessageW(controlChoice_.Get(), CB_SETCURSEL, i, 0);
            ShowCurrent();
        }
    }
}

HWND RunPanel::FirstField() const {
    const HWND field = ::GetNextDlgTabItem(inputRows_->Get(), nullptr, FALSE);
    return field ? field : fire_.Get();
}

void RunPanel::ShowCurrent() {
    inputs_ = ReadStoredVariables(StoredText(*current_, u"Inputs"));
    outputs_ = ReadStoredVariables(StoredText(*current_, u"Outputs"));
    inputRows_->SetInputs(inputs_);
    ::SendMessageW(outputChoice_.Get(), CB_RESETCONTENT, 0, 0);
    for (const StoredVariable& output : outputs_) {
        ::SendMessageW(outputChoice_.Get(), CB_ADDSTRING, 0,
                       reinterpret_cast<LPARAM>(Win::Wide(output.Name)));
    }
    ::SendMessageW(outputChoice_.Get(), CB_SETCURSEL, 0, 0);
    // A control tells nobody whether it shows its data.
    ::SendMessageW(dataShow_.Get(), BM_SETCHECK,
                   showingData_.contains(current_) ? BST_CHECKED : BST_UNCHECKED, 0);
    picture_->ShowMessage(TextId::NoBatchYet);
    Arrange();
    ShowInputs();
    ShowOutputs();
}

void RunPanel::OnCommand(int id, int code) {
    if (id == ControlChoiceId && code == CBN_SELCHANGE) {
        const auto chosen = ::SendMessageW(controlChoice_.Get(), CB_GETCURSEL, 0, 0);
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

void RunPanel::SetInput(const Text& name, const Text& text) {
    if (!current_) {
        return;
    }
    if (const auto inputs = ObjectProperty(current_->Dispatch().Get(), u"InVals")) {
        SetItem(inputs.Get(), name, Com::Variant(TextView(text)));
    }
    if (IsChecked(autoFire_.Get())) {
        Fire();
    }
}

void RunPanel::Fire() {
    CallMember(current_->Dispatch().Get(), u"Fire", {}, DISPATCH_METHOD);
    ShowOutputs();
}

void RunPanel::ShowInputs() {
    const auto inputs = ObjectProperty(current_->Dispatch().Get(), u"InVals");
    if (!inputs) {
        return;
    }
    for (const StoredVariable& input : inputs_) {
        inputRows_->ShowValue(input.Name, ValueText(ItemOf(inputs.Get(), input.Name)));
    }
}

void RunPanel::ShowOutputs() {
    const auto outputs = ObjectProperty(current_->Dispatch().Get(), u"OutVals");
    ListView_DeleteAllItems(outputList_.Get());
    if (!outputs) {
        return;
    }
    for (const Text& key : KeysOf(outputs.Get())) {
        AddRow(outputList_.Get(), {key, ValueText(ItemOf(outputs.Get(), key))});
    }
}

void RunPanel::SetDataShow() {
    const bool shows = IsChecked(dataShow_.Get());
    SetProperty(current_->Dispatch().Get(), u"DataShow", Com::Variant(shows));
    if (shows) {
        showingData_.insert(current_);
    } else {
        showingData_.erase(current_);
    }
}

void RunPanel::OnEvent(const Text& control, const Text& event) {
    auto& [count, row] = counts_[control + u"." + event];
    if (count++ == 0) {
        row = AddRow(eventLog_.Get(), {control + u"." + event, u""});
    }
    if (batchProgress_ && !batchProgress_->OnPoint()) {
        return;
    }
    SetCell(eventLog_.Get(), row, 1, Widen(std::to_string(count)));
    ::UpdateWindow(eventLog_.Get());
}

void RunPanel::RunBatch() {
    const int divisions =
        std::clamp(_wtoi(Win::Wide(Win::TextOf(divisions_.Get()))), 1, MostDivisions);
    Win::ShowText(divisions_.Get(), Widen(std::to_string(divisions)));
    const auto folder = AskForBatchFolder(::GetAncestor(Get(), GA_ROOT), batchFolder_);
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
    batchProgress_ = std::make_unique<BatchProgress>(progress_.Get(), points);
    try {
        CallMember(current_->Dispatch().Get(), u"BatchData",
                   {Com::Variant(TextView(PathText(batchFolder_))), Com::Variant(LONG{divisions})},
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
    const auto output = ::SendMessageW(outputChoice_.Get(), CB_GETCURSEL, 0, 0);
    if (output >= 0) {
        const auto index = static_cast<std::size_t>(output);
        picture_->ShowOutput(index, outputs_[index].Name);
    }
}

} // namespace Quorvane::Host
