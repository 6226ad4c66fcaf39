// SPDX-License-Identifier: MIT
// InputRows: a field and a slider for each input of a control, in a panel that scrolls.
#pragma once

#include "host/form/parts/Window.h"
#include "host/form/run/StoredSystem.h"

#include <functional>
#include <string>
#include <vector>

namespace Quorvane::Host {

class InputRows final : public Window {
  public:
    /// Called with the name and the text of an input that the user has changed.
    using Changed = std::function<void(const std::wstring& name, const std::wstring& text)>;

    InputRows(HWND parent, Changed changed);

    /// The height of so many rows in pixels of a window's screen.
    static int HeightOf(HWND window, int rows);

    /// Replaces the rows by one for each variable.
    void SetInputs(const std::vector<StoredVariable>& inputs);

    /// Shows a value without reporting it as a change.
    void ShowValue(const std::wstring& name, const std::wstring& text);

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    struct Row {
        StoredVariable Input;
        HWND Label = nullptr;
        HWND Field = nullptr;
        HWND Slider = nullptr;
    };

    void Arrange();
    void Scroll(int code, int position);
    void ScrollTo(int offset);
    /// Scrolls as far as it takes to see the whole row of a child.
    void Reveal(HWND child);
    void OnSlider(HWND slider);
    void OnField(std::size_t row);
    static void PlaceSlider(const Row& row);

    static LRESULT CALLBACK ChildProcedure(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR rows);

    Changed changed_;
    std::vector<Row> rows_;
    int offset_ = 0;
    bool isShowing_ = false;
};

} // namespace Quorvane::Host
