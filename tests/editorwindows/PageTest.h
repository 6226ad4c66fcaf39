// SPDX-License-Identifier: MIT
// A property frame of the tests, and the hands of a person who works in it.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <ocidl.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/MessageBoxes.h"

namespace Quorvane {

/// The frame's side of a page: counts what the page reports.
class FrameSite final : public Com::ComObject<IPropertyPageSite> {
  public:
    int DirtyReports = 0;

    STDMETHODIMP OnStatusChange(DWORD flags) noexcept override;
    STDMETHODIMP GetLocaleID(LCID* locale) noexcept override;
    STDMETHODIMP GetPageContainer(IUnknown** container) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }
};

/// Opens the page FIS_IO on controls, in a frame window of its own.
class PageTest : public ControlTest {
  protected:
    ~PageTest() override;
    void TearDown() override;

    /// Creates the page, gives it the controls and shows it.
    void Open(std::initializer_list<IUnknown*> controls);

    /// Hides and releases the page as frames do.
    void Close();

    HWND Tree(bool input) const;
    HWND Button(const Text& caption) const;
    std::vector<Text> ButtonCaptions() const;

    /// The item reached by texts from the root on; null where there is none.
    HTREEITEM Item(HWND tree, std::initializer_list<TextView> path) const;
    std::vector<Text> ChildTexts(HWND tree, HTREEITEM item) const;
    Text ItemText(HWND tree, HTREEITEM item) const;

    /// Clicks an item with the mouse.
    void Click(HWND tree, HTREEITEM item);

    /// Clicks a point of a window's client area.
    void ClickAt(HWND window, POINT point);

    /// Offers a message to the page as the frame's message loop does; what the page answers.
    HRESULT Translate(HWND window, UINT message, WPARAM key);

    /// Presses a key in a window, as the frame's message loop brings it.
    void Press(HWND window, WPARAM key);

    /// Presses a button with the mouse.
    void Push(HWND button);

    /// Edits the selected label: F2, the text, Enter.
    void EditLabel(HWND tree, TextView text);

    /// Opens the rule editor; `work` runs while it is open and must close it.
    void InRuleEditor(std::function<void(HWND editor)> work);

    /// The same in steps: between them, the editor's own loop handles what waits.
    void InRuleEditor(std::vector<std::function<void(HWND editor)>> steps);

    HWND frame_ = nullptr;
    Com::ComPtr<FrameSite> site_;
    Com::ComPtr<IPropertyPage> page_;
};

/// The text of a window.
Text WindowText(HWND window);

/// For MessageBoxes: answers a question with Yes before it would be closed with OK.
void AnswerYes();

/// The exit code of a WM_QUIT that Pump has met since the last call.
std::optional<int> TakeQuit();

/// Handles the messages that are waiting.
void Pump();

} // namespace Quorvane
