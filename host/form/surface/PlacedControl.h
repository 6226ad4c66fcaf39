// SPDX-License-Identifier: MIT
// PlacedControl: one control on the form's window, from its creation to its release.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "host/container/EventSink.h"
#include "host/form/surface/InPlaceSite.h"
#include "host/formfile/FormFile.h"
#include "shared/Text.h"

namespace Quorvane::Host {

/// What a control tells the form it is on.
class PlacedControlOwner {
  public:
    virtual HWND ControlWindow() = 0;
    virtual void OnControlEvent(const Text& control, const Text& event) = 0;
    virtual void OnActiveObject(IOleInPlaceActiveObject* object) = 0;
    virtual void OnPropertyChanged() = 0;
    virtual void OnPropertyFrameWanted(const Text& control) = 0;

  protected:
    ~PlacedControlOwner() = default;
};

/// How controls are created and what they are told of the form.
struct PlacementSettings {
    /// Library to take the controls from; none: the registered classes.
    std::optional<std::filesystem::path> Dll;
    /// The ambient LocaleID; none: the user's.
    std::optional<LCID> Locale;
    bool RunMode = false;
};

/// A control in its place. In run mode it is active in its window; in design mode it is drawn.
class PlacedControl final : public SiteOwner {
  public:
    /// Whether a control is put on the form for the first time, or comes from a form file.
    enum class Origin { New, Saved };

    /// Creates the control and initialises it or loads its properties. Throws Com::HresultError.
    PlacedControl(PlacedControlOwner& owner, const FormControl& control, Origin origin,
                  const PlacementSettings& settings);
    PlacedControl(const PlacedControl&) = delete;
    PlacedControl& operator=(const PlacedControl&) = delete;
    ~PlacedControl();

    const Text& Name() const { return name_; }
    IUnknown* Object() const { return object_.Get(); }
    Com::ComPtr<IDispatch> Dispatch() const { return Com::Query<IDispatch>(object_.Get()); }

    /// The place in pixels of the form's window.
    const RECT& Place() const { return place_; }
    void SetPlace(const RECT& place);

    /// The form file's block for the control as it is now. Throws Com::HresultError.
    FormControl Save() const;

    /// Gives the control its window, in run mode. Throws Com::HresultError.
    void Activate();

    /// Gives the control the keyboard.
    void FocusControl();

    /// Draws a control that has no window of its own.
    void Draw(HDC context) const;

    /// Carries out a verb of the control.
    HRESULT DoVerb(LONG verb);

  private:
    class PropertySink;

    void Start(const FormControl& control, Origin origin, bool runMode);
    void TellExtent();

    // SiteOwner
    HWND SiteWindow() override { return owner_.ControlWindow(); }
    RECT SiteRectangle() override { return place_; }
    void MoveSite(const RECT& rectangle) override { SetPlace(rectangle); }
    void SetActiveObject(IOleInPlaceActiveObject* object) override {
        owner_.OnActiveObject(object);
    }
    void OnSiteFocus(bool) override {}
    void ShowPropertyFrame() override { owner_.OnPropertyFrameWanted(name_); }

    PlacedControlOwner& owner_;
    Text class_;
    Text name_;
    RECT place_{};
    Com::ComPtr<IUnknown> object_;
    Com::ComPtr<InPlaceSite> site_;
    EventConnection events_;
    Com::ComPtr<PropertySink> propertySink_;
    Com::ComPtr<IConnectionPoint> propertyPoint_;
    DWORD propertyCookie_ = 0;
};

/// The value of a placement key in twips, or `byDefault`.
int PlacementOf(const FormProperties& properties, TextView key, int byDefault);

} // namespace Quorvane::Host
