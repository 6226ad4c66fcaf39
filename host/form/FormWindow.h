// SPDX-License-Identifier: MIT
// FormWindow: the main window with the form, the tools for design and run mode, and the file menu.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "host/form/FormMenu.h"
#include "host/form/design/PropertyGrid.h"
#include "host/form/run/RunPanel.h"
#include "host/form/surface/FormSurface.h"
#include "shared/Text.h"
#include "win/SavedFocus.h"

namespace Quorvane::Host {

/// How the program starts.
struct FormWindowSettings {
    std::optional<std::filesystem::path> Dll;
    std::optional<LCID> Locale;
    std::filesystem::path BatchFolder;
    bool RunMode = false;
};

class FormWindow final : public ProgramWindow, public FormSurfaceOwner {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneFormWindow";

    explicit FormWindow(const FormWindowSettings& settings);
    ~FormWindow() override { Destroy(); }

    /// Opens a form file. Throws when it cannot be read, or a control of it does not load; the form
    /// is then without controls, and keeps what was read of them.
    void OpenForm(const std::filesystem::path& path);

    /// Offers a key message to the active control, the menu and the dialog navigation; whether one
    /// of them took it.
    bool TranslateKey(MSG& message);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void Arrange();
    void ForwardToParent(HWND child, WPARAM first) const;
    void ClickFocusedButton() const;
    void OnCommand(int id);

    void NewForm();
    void OpenForm();
    bool SaveForm();
    bool SaveFormAs();
    bool SaveTo(const std::filesystem::path& path);
    bool MayDiscard();

    /// Saves the bags, destroys every control, then creates and loads them anew in the other mode.
    void SetRunMode(bool runMode);
    void ReloadControls();
    /// Gives the keyboard to the form, or in run mode to the first input.
    void FocusUsual();
    /// Takes over the controls of the surface as they are now.
    void TakeControls();
    void AddControl();
    void ShowProperties();
    void ShowAbout();
    void UpdateTitle();
    void UpdateMenu();

    // FormSurfaceOwner
    void OnControlEvent(const Text& control, const Text& event) override;
    void OnSelectionChanged() override;
    void OnFormChanged() override;
    void OnPropertyFrameWanted() override { ShowProperties(); }

    PlacementSettings placement_;
    FormFile form_;
    std::filesystem::path path_;
    bool isChanged_ = false;
    bool isLoading_ = false;
    /// Whether the controls of the form are on the surface; not after a load that failed.
    bool isLoaded_ = false;
    Win::Accelerators accelerators_;
    Win::SavedFocus focus_;
    std::unique_ptr<FormSurface> surface_;
    std::unique_ptr<PropertyGrid> grid_;
    std::unique_ptr<RunPanel> runPanel_;
};

} // namespace Quorvane::Host
