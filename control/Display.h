// SPDX-License-Identifier: MIT
// What the constituents of the control hold: caption label, two lists, status bar panel.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <vector>

#include "control/com/ComPtr.h"
#include "shared/Text.h"

namespace Quorvane {

/// The window-background and window-text colours of the system.
inline constexpr OLE_COLOR DefaultBackColor = 0x80000005;
inline constexpr OLE_COLOR DefaultForeColor = 0x80000008;

/// One row of a list: a variable with its bounds, and its current value.
struct ListRow {
    Text Key;
    Text Label;
    Text Value;
};

/// A list view: `lvwInput` or `lvwOutput`.
struct ListFace {
    bool Enabled = true;
    Com::ComPtr<IFontDisp> Font;
    OLE_COLOR BackColor = DefaultBackColor;
    OLE_COLOR ForeColor = DefaultForeColor;
    std::vector<ListRow> Rows;
};

/// The label `lblCaption`.
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

/// The constituents as they are whether or not a window shows them: hosts set properties, load and
/// fire long before they activate a control, or never do.
class Display {
  public:
    CaptionFace lblCaption;
    ListFace lvwInput;
    ListFace lvwOutput;
    StatusPanel sbMessage;

    /// The window that shows the constituents; null while there is none. Not owned.
    HWND Surface = nullptr;

    /// Has the surface drawn anew, at once.
    void Repaint() noexcept;

    /// Puts the error picture and the message of the engine routine that failed into the panel.
    /// Whether the panel is visible stays as it is. The message is left out when memory lacks.
    void ShowError() noexcept;

    /// Refills both lists from the model, with empty values. Raises ObjectNotSet without a model.
    void FillVariableLists();

    /// Writes the current inputs and outputs into the lists. A row that has no value, and a value
    /// that has no row, are left out; nothing is ever raised.
    void ShowValues() noexcept;
};

} // namespace Quorvane
