// SPDX-License-Identifier: MIT
// FormSurface: the form itself, with its controls live in run mode and to be moved in design mode.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/form/parts/ProgramWindow.h"
#include "host/form/surface/PlacedControl.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// What the surface tells the window it is in.
class FormSurfaceOwner {
  public:
    virtual void OnControlEvent(const Text& control, const Text& event) = 0;
    /// The selection or a property of a control has changed.
    virtual void OnSelectionChanged() = 0;
    virtual void OnFormChanged() = 0;
    virtual void OnPropertyFrameWanted() = 0;

  protected:
    ~FormSurfaceOwner() = default;
};

class FormSurface final : public ProgramWindow, public PlacedControlOwner {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneFormSurface";

    FormSurface(HWND parent, FormSurfaceOwner& owner);
    ~FormSurface() override;

    /// Closes all controls, then creates and loads those of the form. A failure leaves the surface
    /// empty and throws.
    void Load(const FormFile& form, const PlacementSettings& settings);

    /// Adds a new control to the form, in design mode, and selects it.
    void Add(const FormControl& control);

    /// Closes and removes the selected control.
    void RemoveSelected();

    void Clear();

    /// The blocks of all controls as they are now. Throws Com::HresultError.
    std::vector<FormControl> Save() const;

    const std::vector<std::unique_ptr<PlacedControl>>& Controls() const { return controls_; }

    /// The selected control, null for none.
    PlacedControl* Selected() const { return selected_; }
    void Select(PlacedControl* control);

    /// The object that has the keyboard in run mode, null for none.
    IOleInPlaceActiveObject* ActiveObject() const { return activeObject_.Get(); }

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    /// Which edges of a control a drag moves; all of them to move it whole.
    struct Grip {
        bool Left = false, Top = false, Right = false, Bottom = false;
        bool Any() const { return Left || Top || Right || Bottom; }
    };

    void Paint();
    void DrawGrid(HDC context, const RECT& area) const;
    void DrawSelection(HDC context) const;
    PlacedControl* ControlAt(POINT point) const;
    Grip GripAt(POINT point) const;
    void BeginDrag(POINT point);
    void Drag(POINT point);
    LRESULT DialogCode(WPARAM key) const;
    /// The control that the Tab key selects, with Shift or without; null when it leaves the form.
    PlacedControl* NextControl() const;
    void OnKey(WPARAM key);
    void MoveByKey(WPARAM key);
    void PlaceSelected(const RECT& place);
    void SetPointer(POINT point) const;

    // PlacedControlOwner
    HWND ControlWindow() override { return Get(); }
    void OnControlEvent(const Text& control, const Text& event) override {
        owner_.OnControlEvent(control, event);
    }
    void OnActiveObject(IOleInPlaceActiveObject* object) override { activeObject_ = object; }
    void OnPropertyChanged() override;
    void OnPropertyFrameWanted(const Text&) override { owner_.OnPropertyFrameWanted(); }

    FormSurfaceOwner& owner_;
    PlacementSettings settings_;
    std::vector<std::unique_ptr<PlacedControl>> controls_;
    PlacedControl* selected_ = nullptr;
    Com::ComPtr<IOleInPlaceActiveObject> activeObject_;
    Grip grip_;
    POINT dragStart_{};
    RECT dragPlace_{};
};

} // namespace Quorvane::Host
