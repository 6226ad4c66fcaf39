// SPDX-License-Identifier: MIT
// A scrolling panel of the rule editor: `picInput` with `picInCtrl` and `vsbInput`, or the
// outputs'.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "editor/rules/RulePanel.h"
#include "editor/windows/Controls.h"
#include "win/Window.h"

namespace Quorvane::Editor {

/// The frame of a panel. The run-time labels and list boxes stand on an inner window that moves up
/// and down. A list box has its name as its window text, a label as a property of its window.
class PanelWindow final : public Win::Window {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneRulePanel";

    /// Called with the variable and the item that the user has chosen in its list box.
    using Chosen = std::function<void(std::size_t variable, std::size_t item)>;

    /// The panel and the font outlive the window. Throws std::system_error.
    PanelWindow(HWND parent, UINT id, const RulePanel& panel, const DialogFont& font,
                Chosen chosen);
    ~PanelWindow() override;

    /// The width that shows labels, list boxes and the scroll bar, in pixels.
    int NaturalWidth() const;

    /// Scales what stands on the panel to another resolution; the font has been scaled before.
    void UseDpi(int dpi);

    /// Selects in each list box what the panel says.
    void ShowSelection();

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    /// The moving part: it hands what its list boxes report to the frame.
    class Content final : public Win::Window {
      public:
        static constexpr const wchar_t* ClassName = L"QuorvaneRulePanelContent";
        explicit Content(HWND parent);
        ~Content() override { Destroy(); }

      protected:
        LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
    };

    /// The name of a window whose text is something else.
    class NameOf {
      public:
        NameOf(HWND window, Text name);
        ~NameOf();
        NameOf(const NameOf&) = delete;
        NameOf& operator=(const NameOf&) = delete;

      private:
        HWND window_;
        Text name_;
    };

    struct RowControls {
        Win::ChildWindow Label;
        Win::ChildWindow List;
    };

    int Pixels(int twips) const;
    RECT PixelArea(const TwipsArea& area) const;
    void MakeRows();
    void PlaceRows() const;
    void UpdateScroll();
    int ThumbPosition(WORD lower) const;
    void OnScroll(int code, WORD position);
    void ScrollTo(int twips);
    void OnCommand(UINT id, UINT code);

    const RulePanel& panel_;
    const DialogFont& font_;
    Chosen chosen_;
    int dpi_;
    std::unique_ptr<Content> picCtrl_;
    Win::ChildWindow vsb_;
    std::vector<RowControls> rows_;
    std::deque<NameOf> names_;
    int scrollValue_ = 0;
    int scrollMax_ = 0;
};

} // namespace Quorvane::Editor
