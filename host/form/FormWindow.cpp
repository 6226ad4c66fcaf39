// SPDX-License-Identifier: MIT
// FormWindow: the main window with the form, the tools for design and run mode, and the file menu.
#include "host/form/FormWindow.h"

#include <algorithm>

#include "host/container/Paths.h"
#include "host/form/design/PropertyFrame.h"
#include "host/form/parts/Automation.h"
#include "host/form/parts/FileDialogs.h"
#include "host/form/parts/Texts.h"
#include "win/MessageBox.h"
#include "win/WindowText.h"
#include "win/WorkArea.h"

namespace Quorvane::Host {
namespace {

constexpr const char16_t* ControlClass = u"QuorvaneAxEditor.FISControl";
constexpr int PanelWidth = 372;

FormFile EmptyForm() {
    FormFile form;
    form.Name = u"Form1";
    form.Properties.Set({u"Caption", Text(u"Form1")});
    return form;
}

} // namespace

FormWindow::FormWindow(const FormWindowSettings& settings) : form_(EmptyForm()) {
    placement_.Dll = settings.Dll;
    placement_.Locale = settings.Locale;
    Create<FormWindow>(GetText(TextId::ProgramName), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, nullptr,
                       WS_EX_CONTROLPARENT);
    ::SetMenu(Get(), MakeMenuBar());
    accelerators_ = MakeAccelerators();
    surface_ = std::make_unique<FormSurface>(Get(), *this);
    grid_ = std::make_unique<PropertyGrid>(Get());
    runPanel_ = std::make_unique<RunPanel>(Get(), settings.BatchFolder);
    const RECT desktop = Win::WorkAreaOf(Get());
    ::SetWindowPos(Get(), nullptr, 0, 0, std::min<int>(Scaled(960), desktop.right - desktop.left),
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
    if (active && ::IsChild(surface_->Get(), message.hwnd) &&
        active->TranslateAccelerator(&message) == S_OK) {
        return true;
    }
    // Insert and Delete belong to the form only while it has the keyboard, not a field.
    if (message.message == WM_KEYDOWN && message.hwnd == surface_->Get() &&
        (message.wParam == VK_INSERT || message.wParam == VK_DELETE)) {
        OnCommand(message.wParam == VK_INSERT ? AddId : RemoveId);
        return true;
    }
    return ::TranslateAcceleratorW(Get(), accelerators_.Get(), &message) != 0 ||
           ::IsDialogMessageW(Get(), &message);
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        if (runPanel_) {
            Arrange();
        }
        return 0;
    case WM_ACTIVATE:
        focus_.OnActivate(Get(), first);
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {Scaled(640), Scaled(520)};
        return 0;
    case WM_INITMENUPOPUP:
        UpdateMenu();
        return 0;
    case WM_COMMAND:
        if (second != 0) {
            ForwardToParent(reinterpret_cast<HWND>(second), first);
        } else if (LOWORD(first) == IDOK) {
            ClickFocusedButton();
        } else {
            OnCommand(LOWORD(first));
        }
        return 0;
    case WM_CLOSE:
        if (MayDiscard()) {
            ::DestroyWindow(Get());
        }
        return 0;
    case WM_DESTROY:
        runPanel_->Clear();
        grid_->SetObject(u"", nullptr);
        surface_->Clear();
        ::PostQuitMessage(0);
        return 0;
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

void FormWindow::Arrange() {
    const RECT area = Win::ClientArea(Get());
    const int panel = std::min(Scaled(PanelWidth), static_cast<int>(area.right) / 2);
    const int form = area.right - panel;
    // What is at the new place is drawn there: at the old one lies a neighbour by then.
    const auto place = [&area](HWND window, int left, int width) {
        ::SetWindowPos(window, nullptr, left, 0, width, area.bottom,
                       SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    };
    place(surface_->Get(), 0, form);
    place(grid_->Get(), form, panel);
    place(runPanel_->Get(), form, panel);
}

// Dialog keys report a button that they press to this window, whatever window the button is in.
void FormWindow::ForwardToParent(HWND child, WPARAM first) const {
    const HWND parent = ::GetParent(child);
    if (parent != Get() && ::IsChild(Get(), parent)) {
        ::SendMessageW(parent, WM_COMMAND, first, reinterpret_cast<LPARAM>(child));
    }
}

// Enter presses a button that got the keyboard by a click, too, as it does in dialogs.
void FormWindow::ClickFocusedButton() const {
    const HWND focus = ::GetFocus();
    if (::IsChild(Get(), focus) &&
        (::SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON) != 0) {
        ::SendMessageW(focus, BM_CLICK, 0, 0);
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
        ::SendMessageW(Get(), WM_CLOSE, 0, 0);
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
            grid_->SetObject(u"", nullptr);
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
    const auto path = AskForFormFile(Get(), {}, false);
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
    const auto path = AskForFormFile(Get(), path_, true);
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
    switch (Win::ShowMessage(Get(), GetText(TextId::SaveChanges), GetText(TextId::ProgramName),
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
    grid_->SetObject(u"", nullptr);
    isLoading_ = true;
    const auto loaded = [this] {
        isLoading_ = false;
        ::ShowWindow(grid_->Get(), placement_.RunMode ? SW_HIDE : SW_SHOW);
        ::ShowWindow(runPanel_->Get(), placement_.RunMode ? SW_SHOW : SW_HIDE);
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
    const HWND usual = placement_.RunMode ? runPanel_->FirstField() : surface_->Get();
    if (::GetActiveWindow() == Get()) {
        ::SetFocus(usual);
    } else {
        focus_.Save(usual);
    }
}

void FormWindow::AddControl() {
    if (placement_.RunMode) {
        return;
    }
    Text name;
    for (int number = 1; name.empty(); ++number) {
        const Text candidate = u"FIS" + Widen(std::to_string(number));
        const bool isTaken = std::ranges::any_of(surface_->Controls(), [&](const auto& control) {
            return SameName(control->Name(), candidate);
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
    ShowPropertyFrame(Get(), GetText(TextId::PropertiesOf, control->Name()), control->Object(),
                      placement_.Locale.value_or(::GetUserDefaultLCID()));
    if (!placement_.RunMode) {
        grid_->RefreshValues();
    }
    ::InvalidateRect(surface_->Get(), nullptr, FALSE);
}

void FormWindow::ShowAbout() {
    if (PlacedControl* const control = surface_->Selected()) {
        CallMember(control->Dispatch().Get(), u"ShowAboutBox", {}, DISPATCH_METHOD);
    }
}

void FormWindow::UpdateTitle() {
    const Text name = path_.empty() ? GetText(TextId::NewForm) : PathText(path_.filename());
    const char16_t* const changed = isChanged_ ? u" * " : u" ";
    const TextId mode = placement_.RunMode ? TextId::RunModeMark : TextId::DesignModeMark;
    Win::ShowText(Get(), name + changed + GetText(mode) + u" - " + GetText(TextId::ProgramName));
}

void FormWindow::UpdateMenu() {
    const HMENU menu = ::GetMenu(Get());
    const bool isDesign = !placement_.RunMode;
    const bool isSelected = surface_->Selected() != nullptr;
    const auto enable = [menu](UINT id, bool enabled) {
        ::EnableMenuItem(menu, id, enabled ? MF_ENABLED : MF_GRAYED);
    };
    ::CheckMenuRadioItem(menu, DesignId, RunId, isDesign ? DesignId : RunId, MF_BYCOMMAND);
    enable(AddId, isDesign);
    enable(RemoveId, isDesign && isSelected);
    enable(PropertiesId, isSelected);
    enable(AboutId, isSelected);
}

void FormWindow::OnControlEvent(const Text& control, const Text& event) {
    runPanel_->OnEvent(control, event);
}

void FormWindow::OnSelectionChanged() {
    if (isLoading_ || placement_.RunMode || !grid_) {
        return;
    }
    if (PlacedControl* const control = surface_->Selected()) {
        grid_->SetObject(control->Name(), control->Dispatch().Get());
    } else {
        grid_->SetObject(u"", nullptr);
    }
}

void FormWindow::OnFormChanged() {
    if (!isLoading_) {
        isChanged_ = true;
        UpdateTitle();
    }
}

} // namespace Quorvane::Host
