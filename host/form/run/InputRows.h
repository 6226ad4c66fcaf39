// SPDX-License-Identifier: MIT
// InputRows: a field and a slider for each input of a control, in a panel that scrolls.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/form/parts/ProgramWindow.h"
#include "host/form/run/StoredSystem.h"
#include "shared/Text.h"
#include "win/Subclass.h"

namespace Quorvane::Host {

class InputRows final : public ProgramWindow {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvaneInputRows";

    /// Called with the name and the text of an input that the user has changed.
    using Changed = std::function<void(const Text& name, const Text& text)>;

    InputRows(HWND parent, Changed changed);
    ~InputRows() override { Destroy(); }

    /// The height of so many rows in pixels of a window's screen.
    static int HeightOf(HWND window, int rows);

    /// Replaces the rows by one for each variable.
    void SetInputs(const std::vector<StoredVariable>& inputs);

    /// Shows a value without reporting it as a change.
    void ShowValue(const Text& name, const Text& text);

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    struct Row {
        StoredVariable Input;
        Win::ChildWindow Label;
        Win::ChildWindow Field;
        Win::ChildWindow Slider;
        std::unique_ptr<Win::Subclass> FieldMessages;
        std::unique_ptr<Win::Subclass> SliderMessages;
    };

    void Arrange();
    void Scroll(int code, int position);
    void ScrollTo(int offset);
    /// Scrolls as far as it takes to see the whole row of a child.
    void Reveal(HWND child);
    void OnSlider(HWND slider);
    void OnField(std::size_t row);
    static void PlaceSlider(const Row& row);

    /// Watches a field or a slider.
    std::unique_ptr<Win::Subclass> Watch(const Win::ChildWindow& child);

    Changed changed_;
    std::vector<Row> rows_;
    int offset_ = 0;
    bool isShowing_ = false;
};

} // namespace Quorvane::Host
