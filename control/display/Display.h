// SPDX-License-Identifier: MIT
// What the constituents of the control hold: caption strip and label, two lists, status bar.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "control/display/Colors.h"
#include "control/display/DisplayLayout.h"
#include "control/display/FontWatch.h"
#include "shared/Text.h"

namespace Quorvane {

class DisplayWindow;

/// One row of a list: a variable with its bounds, and its current value.
struct ListRow {
    Text Key;
    Text Label;
    Text Value;
};

/// One column of a list.
struct ListColumn {
    Text Key;
    Text Header;
};

/// A list view: `lvwInput` or `lvwOutput`.
struct ListFace {
    bool Enabled = true;
    FontWatch Font;
    OLE_COLOR BackColor = DefaultBackColor;
    OLE_COLOR ForeColor = DefaultForeColor;
    std::vector<ListColumn> Columns;
    std::vector<ListRow> Rows;
};

/// The picture box `picCaption`.
struct StripFace {
    OLE_COLOR BackColor = ActiveTitleColor;
};

/// The label `lblCaption` in it.
struct CaptionFace {
    Text Caption;
    bool Enabled = true;
};

/// The first panel of the status bar `sbMessage`.
struct StatusPanel {
    bool Visible = true;
    bool HasErrorPicture = false;
    Text Message;
};

/// What the owner of the display hears of its window. Each call may end the window, or the owner.
class DisplayOwner {
  public:
    /// The keyboard focus has come to the window, or left it.
    virtual void OnDisplayFocus(bool focused) = 0;

    /// The user asks for help. Returns whether any was shown.
    virtual bool OnDisplayHelp() = 0;

    /// An attribute of the font of the lists has changed.
    virtual void OnDisplayFontChanged() = 0;

  protected:
    ~DisplayOwner() = default;
};

/// The constituents as they are whether or not a window shows them: hosts set properties, load and
/// fire long before they activate a control, or never do. Whoever changes the members calls
/// Reflect or ShowFonts afterwards, which show them where there is a window.
class Display {
  public:
    explicit Display(DisplayOwner& owner);
    ~Display();

    StripFace picCaption;
    CaptionFace lblCaption;
    ListFace lvwInput;
    ListFace lvwOutput;
    StatusPanel sbMessage;

    const DisplayLayout& Layout() const noexcept { return layout_; }

    /// Makes the window, hidden, at a position in the parent's client area, in pixels. Throws
    /// std::system_error, and then there is none.
    void Open(HWND parent, const RECT& position);

    /// Destroys the window if there is one.
    void Close() noexcept;

    /// The window that shows the constituents; null while there is none.
    HWND Surface() const noexcept;

    /// The same as an object.
    DisplayWindow* Window() const noexcept { return window_.get(); }

    /// Lays out for an inner size in twips and fetches the column headers in the current language.
    /// A step that fails is left out.
    void Resize(float width, float height) noexcept;

    /// Makes the label as wide as its caption asks for.
    void FitLabel() noexcept;

    /// Shows captions, colours, states and the panel as they are now.
    void Reflect() noexcept;

    /// Shows the lists in their fonts as these are now.
    void ShowFonts() noexcept;

    /// Has the surface drawn anew, at once.
    void Repaint() const noexcept;

    /// Hides the panel, where it is not hidden already: cycles come by the thousand.
    void HidePanel() noexcept;

    /// Puts the error picture and the message of the engine routine that failed into the panel.
    /// Whether the panel is visible stays as it is. The message is left out when memory lacks.
    void ShowError() noexcept;

    /// Refills both lists from the model, with empty values. Raises ObjectNotSet without a model.
    void FillVariableLists();

    /// Writes the current inputs and outputs into the lists and repaints each. A row that has no
    /// value, and a value that has no row, are left out; nothing is ever raised.
    void ShowValues() noexcept;

  private:
    float CaptionTextWidth() const noexcept;
    void FetchHeaders();

    DisplayOwner& owner_;
    DisplayLayout layout_;
    std::unique_ptr<DisplayWindow> window_;
};

} // namespace Quorvane
