// SPDX-License-Identifier: MIT
// FormWindow: the main window with the form, the tools for design and run mode, and the file menu.
#include "host/form/FormWindow.h"

#include "host/container/HResult.h"
#include "host/container/Wide.h"
#include "host/form/design/PropertyFrame.h"
#include "host/form/parts/Automation.h"
#include "host/form/parts/FileDialogs.h"
#include "host/form/parts/Texts.h"

#include <algorithm>

namespace Quorvane::Host {

namespace {

constexpr const char16_t* ControlClass = u"QuorvaneAxEditor.FISControl";
constexpr int PanelWidth = 372;

FormFile EmptyForm() {
    FormFile form;
    form.Name = u"Form1";
    form.Properties.Set({u"Caption", std::u16string(u"Form1")});
    return form;
}

} // namespace

FormWindow::FormWindow(const FormWindowSettings& settings) : form_(EmptyForm()) {
    placement_.Dll = settings.Dll;
    placement_.Locale = settings.Locale;
    Create(L"QuorvaneFormWindow", GetText(TextId::ProgramName),
           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr, MakeMenuBar(), WS_EX_CONTROLPARENT);
    accelerators_ = MakeAccelerators();
    surface_ = std::make_unique<FormSurface>(Handle(), *this);
    grid_ = std::make_unique<PropertyGrid>(Handle());
    runPanel_ = std::make_unique<RunPanel>(Handle(), settings.BatchFolder);
    const RECT desktop = WorkAreaOf(Handle());
    SetWindowPos(Handle(), nullptr, 0, 0, std::min<int>(Scaled(960), desktop.right - desktop.left),
                 std::min<int>(Scaled(720), desktop.bottom - desktop.top),
                 SWP_NOMOVE | SWP_NOZORDER);
    placement_.RunMode = settings.RunMode;
    NewForm();
}

bool FormWindow::TranslateKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
        return false;
    }
    // The control first: while it has the keyboard, keys are its own.
    IOleInPlaceActiveObject* const active = surface_->ActiveObject();
    if (active && IsChild(surface_->Handle(), message.hwnd) &&
        active->TranslateAccelerator(&message) == S_OK) {
        return true;
    }
    // Insert and Delete belong to the form only while it has the keyboard, not a field.
    if (message.message == WM_KEYDOWN && message.hwnd == surface_->Handle() &&
        (message.wParam == VK_INSERT || message.wParam == VK_DELETE)) {
        OnCommand(message.wParam == VK_INSERT ? AddId : RemoveId);
        return true;
    }
    return TranslateAcceleratorW(Handle(), accelerators_.get(), &message) != 0 ||
           IsDialogMessageW(Handle(), &message);
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (runPanel_) {
            Arrange();
        }
        return 0;
    case WM_ACTIVATE:
        focus_.OnActivate(Handle(), wParam);
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(640), Scaled(520)};
        return 0;
    case WM_INITMENUPOPUP:
        UpdateMenu();
        return 0;
    case WM_COMMAND:
        if (lParam != 0) {
            ForwardToParent(reinterpret_cast<HWND>(lParam), wParam);
        } else if (LOWORD(wParam) == IDOK) {
            ClickFocusedButton();
        } else {
            OnCommand(LOWORD(wParam));
        }
        return 0;
    case WM_CLOSE:
        if (MayDiscard()) {
            DestroyWindow(Handle());
        }
        return 0;
    case WM_DESTROY:
        runPanel_->Clear();
        grid_->SetObject(L"", nullptr);
        surface_->Clear();
        PostQuitMessage(0);
        return 0;
    default:
        return Window::OnMessage(message, wParam, lParam);
    }
}

void FormWindow::Arrange() {
    RECT area{};
    GetClientRect(Handle(), &area);
    const int panel = std::min(Scaled(PanelWidth), static_cast<int>(area.right) / 2);
    const int form = area.right - panel;
    // What is at the new place is drawn there: at the old one lies a neighbour by then.
    const auto place = [&area](HWND window, int left, int width) {
        SetWindowPos(window, nullptr, left, 0, width, area.bottom,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    };
    place(surface_->Handle(), 0, form);
    place(grid_->Handle(), form, panel);
    place(runPanel_->Handle(), form, panel);
}

// Dialog keys report a button that they press to this window, whatever window the button is in.
void FormWindow::ForwardToParent(HWND child, WPARAM wParam) const {
    const HWND parent = GetParent(child);
    if (parent != Handle() && IsChild(Handle(), parent)) {
        SendMessageW(parent, WM_COMMAND, wParam, reinterpret_cast<LPARAM>(child));
    }
}

// Enter presses a button that got the keyboard by a click, too, as it does in dialogs.
void FormWindow::ClickFocusedButton() const {
    const HWND focus = GetFocus();
    if (IsChild(Handle(), focus) &&
        (SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON) != 0) {
        SendMessageW(focus, BM_CLICK, 0, 0);
    }
}

void FormWindow::OnCommand(int id) {
    // A key of a menu leaves the keyboard in the field of a property that is being edited.
    grid_->EndEdit();
    switch (id) {
    case NewId:
        if (MayDiscard()) {
            placement_.RunMode = false;
            NewForm();
        }
        break;
    case OpenId:
        OpenForm();
        break;
    case SaveId:
        SaveForm();
        break;
    case SaveAsId:
        SaveFormAs();
        break;
    case ExitId:
        SendMessageW(Handle(), WM_CLOSE, 0, 0);
        break;
    case DesignId:
        SetRunMode(false);
        break;
    case RunId:
        SetRunMode(true);
        break;
    case AddId:
        AddControl();
        break;
    case RemoveId:
        if (!placement_.RunMode) {
            grid_->SetObject(L"", nullptr);
            surface_->RemoveSelected();
        }
        break;
    case PropertiesId:
        ShowProperties();
        break;
    case AboutId:
        ShowAbout();
        break;
    default:
        break;
    }
}

void FormWindow::NewForm() {
    form_ = EmptyForm();
    path_.clear();
    ReloadControls();
    isChanged_ = false;
    UpdateTitle();
}

void FormWindow::OpenForm() {
    if (!MayDiscard()) {
        return;
    }
    const auto path = AskForFormFile(Handle(), {}, false);
    if (!path.empty()) {
        OpenForm(path);
    }
}

void FormWindow::OpenForm(const std::filesystem::path& path) {
    form_ = ReadFormFile(path);
    path_ = path;
    isChanged_ = false;
    UpdateTitle();
    ReloadControls();
}

bool FormWindow::SaveForm() {
    return path_.empty() ? SaveFormAs() : SaveTo(path_);
}

bool FormWindow::SaveFormAs() {
    const auto path = AskForFormFile(Handle(), path_, true);
    return !path.empty() && SaveTo(path);
}

bool FormWindow::SaveTo(const std::filesystem::path& path) {
    TakeControls();
    SaveFormFile(path, form_);
    path_ = path;
    isChanged_ = false;
    UpdateTitle();
    return true;
}

bool FormWindow::MayDiscard() {
    grid_->EndEdit();
    if (!isChanged_) {
        return true;
    }
    switch (MessageBoxW(Handle(), GetText(TextId::SaveChanges), GetText(TextId::ProgramName),
                        MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveForm();
    case IDNO:
        return true;
    default:
        return false;
    }
}

void FormWindow::SetRunMode(bool runMode) {
    if (placement_.RunMode == runMode) {
        return;
    }
    TakeControls();
    placement_.RunMode = runMode;
    ReloadControls();
    UpdateTitle();
}

void FormWindow::TakeControls() {
    // What could not be loaded stays as it was read, and is not lost by saving.
    if (isLoaded_) {
        form_.Controls = surface_->Save();
    }
}

void FormWindow::ReloadControls() {
    runPanel_->Clear();
    grid_->SetObject(L"", nullptr);
    isLoading_ = true;
    const auto loaded = [this] {
        isLoading_ = false;
        ShowWindow(grid_->Handle(), placement_.RunMode ? SW_HIDE : SW_SHOW);
        ShowWindow(runPanel_->Handle(), placement_.RunMode ? SW_SHOW : SW_HIDE);
        Arrange();
    };
    isLoaded_ = false;
    try {
        surface_->Load(form_, placement_);
        isLoaded_ = true;
    } catch (...) {
        loaded();
        throw;
    }
    loaded();
    if (placement_.RunMode) {
        runPanel_->SetControls(surface_->Controls());
    }
    FocusUsual();
    OnSelectionChanged();
}

void FormWindow::FocusUsual() {
    const HWND usual = placement_.RunMode ? runPanel_->FirstField() : surface_->Handle();
    if (GetActiveWindow() == Handle()) {
        SetFocus(usual);
    } else {
        focus_.Keep(usual);
    }
}

void FormWindow::AddControl() {
    if (placement_.RunMode) {
        return;
    }
    std::u16string name;
    for (int number = 1; name.empty(); ++number) {
        const std::u16string candidate = u"FIS" + FromWide(std::to_wstring(number));
        const bool isTaken = std::ranges::any_of(surface_->Controls(), [&](const auto& control) {
            return SameName(FromWide(control->Name()), candidate);
        });
        if (!isTaken) {
            name = candidate;
        }
    }
    surface_->Add({ControlClass, name, {}});
}

void FormWindow::ShowProperties() {
    PlacedControl* const control = surface_->Selected();
    if (!control) {
        return;
    }
    ShowPropertyFrame(Handle(), GetText(TextId::PropertiesOf, control->Name()), control->Object(),
                      placement_.Locale.value_or(GetUserDefaultLCID()));
    if (!placement_.RunMode) {
        grid_->RefreshValues();
    }
    InvalidateRect(surface_->Handle(), nullptr, FALSE);
}

void FormWindow::ShowAbout() {
    if (PlacedControl* const control = surface_->Selected()) {
        CallMember(control->Dispatch().Get(), L"ShowAboutBox", {}, DISPATCH_METHOD);
    }
}

void FormWindow::UpdateTitle() {
    const std::wstring name = path_.empty() ? GetText(TextId::NewForm) : path_.filename().wstring();
    const wchar_t* const changed = isChanged_ ? L" * " : L" ";
    const TextId mode = placement_.RunMode ? TextId::RunModeMark : TextId::DesignModeMark;
    SetWindowTextW(
        Handle(), (name + changed + GetText(mode) + L" - " + GetText(TextId::ProgramName)).c_str());
}

void FormWindow::UpdateMenu() {
    const HMENU menu = GetMenu(Handle());
    const bool isDesign = !placement_.RunMode;
    const bool isSelected = surface_->Selected() != nullptr;
    const auto enable = [menu](UINT id, bool enabled) {
        EnableMenuItem(menu, id, enabled ? MF_ENABLED : MF_GRAYED);
    };
    CheckMenuRadioItem(menu, DesignId, RunId, isDesign ? DesignId : RunId, MF_BYCOMMAND);
    enable(AddId, isDesign);
    enable(RemoveId, isDesign && isSelected);
    enable(PropertiesId, isSelected);
    enable(AboutId, isSelected);
}

void FormWindow::OnControlEvent(const std::wstring& control, const std::wstring& event) {
    runPanel_->OnEvent(control, event);
}

void FormWindow::OnSelectionChanged() {
    if (isLoading_ || placement_.RunMode || !grid_) {
        return;
    }
    if (PlacedControl* const control = surface_->Selected()) {
        grid_->SetObject(control->Name(), control->Dispatch().Get());
    } else {
        grid_->SetObject(L"", nullptr);
    }
}

void FormWindow::OnFormChanged() {
    if (!isLoading_) {
        isChanged_ = true;
        UpdateTitle();
    }
}

} // namespace Quorvane::Host
