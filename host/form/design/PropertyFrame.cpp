// SPDX-License-Identifier: MIT
// PropertyFrame: a dialog that shows the property pages of a control.
#include "host/form/design/PropertyFrame.h"

#include <commctrl.h>
#include <ocidl.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "com/FailedCall.h"
#include "host/form/design/PropertyPage.h"
#include "host/form/parts/ProgramWindow.h"
#include "host/form/parts/Texts.h"
#include "win/Keyboard.h"
#include "win/MessageBox.h"
#include "win/SavedFocus.h"
#include "win/WideText.h"
#include "win/WorkArea.h"

namespace Quorvane::Host {
namespace {

enum ButtonId { ApplyId = 100, HelpButtonId, TabsId };

// In pixels at 96 dots per inch.
constexpr int Gap = 8;
constexpr int TabHeight = 26;
constexpr int ButtonWidth = 80;
constexpr int ButtonHeight = 25;
constexpr int ButtonCount = 4;
/// What a page gets of its own size at first.
constexpr int RoomyPercent = 140;

class Frame final : public ProgramWindow {
  public:
    static constexpr const wchar_t* ClassName = L"QuorvanePropertyFrame";

    Frame(HWND owner, const Text& title, IUnknown* object, LCID locale);
    ~Frame() override { Destroy(); }

    bool HasPages() const { return !pages_.empty(); }

    /// Runs until the user closes the frame.
    void Run();

  protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    void AddPage(std::unique_ptr<PropertyPage> page);
    SIZE SizeFor(const SIZE& page) const;
    void Place();
    void CreateChildren();
    void Arrange();
    RECT PageRectangle() const;
    void ShowPage(std::size_t index);
    void TurnPage(bool isBackward);
    bool ApplyPages();
    void OnCommand(int id);
    bool TranslateKey(MSG& message);
    void UpdateButtons();

    HWND owner_;
    std::vector<std::unique_ptr<PropertyPage>> pages_;
    std::size_t shown_ = 0;
    SIZE pageSize_{};
    Win::ChildWindow tabs_;
    std::vector<Win::ChildWindow> buttons_;
    bool isDone_ = false;
    Win::SavedFocus focus_;
};

Frame::Frame(HWND owner, const Text& title, IUnknown* object, LCID locale) : owner_(owner) {
    const auto specify = Com::Query<ISpecifyPropertyPages>(object);
    CAUUID classes{};
    if (specify) {
        Com::Check(specify->GetPages(&classes), u"list the property pages");
    }
    const std::unique_ptr<GUID, decltype(&CoTaskMemFree)> memory(classes.pElems, CoTaskMemFree);
    for (ULONG i = 0; i < classes.cElems; ++i) {
        AddPage(PropertyPage::Open(classes.pElems[i], object, locale, [this] {
            if (Get()) {
                UpdateButtons();
            }
        }));
    }
    if (HasPages()) {
        Create<Frame>(title, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN,
                      owner, WS_EX_CONTROLPARENT);
        CreateChildren();
        Place();
    }
}

void Frame::AddPage(std::unique_ptr<PropertyPage> page) {
    if (page) {
        pageSize_.cx = std::max(pageSize_.cx, page->Size().cx);
        pageSize_.cy = std::max(pageSize_.cy, page->Size().cy);
        pages_.push_back(std::move(page));
    }
}

SIZE Frame::SizeFor(const SIZE& page) const {
    const int gap = Scaled(Gap);
    RECT window = {0, 0, page.cx + 4 * gap,
                   page.cy + Scaled(TabHeight) + Scaled(ButtonHeight) + 5 * gap};
    window.right = std::max<LONG>(window.right, ButtonCount * (Scaled(ButtonWidth) + gap) + gap);
    ::AdjustWindowRectEx(&window, static_cast<DWORD>(::GetWindowLongW(Get(), GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(Get(), GWL_EXSTYLE)));
    return {window.right - window.left, window.bottom - window.top};
}

/// Opens beside the owner's upper left corner, with more room than the pages need at least, as far
/// as the owner's screen has it.
void Frame::Place() {
    RECT around{};
    ::GetWindowRect(owner_, &around);
    const RECT desktop = Win::WorkAreaOf(owner_);
    const SIZE roomy =
        SizeFor({pageSize_.cx * RoomyPercent / 100, pageSize_.cy * RoomyPercent / 100});
    const LONG width = std::min(roomy.cx, desktop.right - desktop.left);
    const LONG height = std::min(roomy.cy, desktop.bottom - desktop.top);
    const LONG left = std::clamp(around.left + Scaled(40), desktop.left, desktop.right - width);
    const LONG top = std::clamp(around.top + Scaled(40), desktop.top, desktop.bottom - height);
    ::SetWindowPos(Get(), nullptr, left, top, width, height, SWP_NOZORDER);
}

void Frame::CreateChildren() {
    tabs_ = MakeChild(Get(), WC_TABCONTROLW, {}, WS_TABSTOP | WS_CLIPSIBLINGS, TabsId);
    int index = 0;
    for (const auto& page : pages_) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(Win::Wide(page->Title()));
        ::SendMessageW(tabs_.Get(), TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                       reinterpret_cast<LPARAM>(&item));
    }
    struct Button {
        TextId Caption;
        int Id;
    };
    for (const Button& button :
         {Button{TextId::Ok, IDOK}, Button{TextId::Cancel, IDCANCEL},
          Button{TextId::Apply, ApplyId}, Button{TextId::Help, HelpButtonId}}) {
        buttons_.push_back(MakeChild(
            Get(), L"BUTTON", GetText(button.Caption),
            WS_TABSTOP | (button.Id == IDOK ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), button.Id));
    }
}

void Frame::Arrange() {
    const RECT client = Win::ClientArea(Get());
    const int gap = Scaled(Gap);
    const int width = Scaled(ButtonWidth);
    const int height = Scaled(ButtonHeight);
    MoveChild(tabs_, gap, gap, client.right - 2 * gap, client.bottom - height - 3 * gap);
    int left = client.right - ButtonCount * (width + gap);
    for (const Win::ChildWindow& button : buttons_) {
        MoveChild(button, left, client.bottom - height - gap, width, height);
        left += width + gap;
    }
    const RECT area = PageRectangle();
    for (const auto& page : pages_) {
        page->Move(area);
    }
}

RECT Frame::PageRectangle() const {
    RECT area{};
    ::GetWindowRect(tabs_.Get(), &area);
    ::MapWindowPoints(nullptr, Get(), reinterpret_cast<POINT*>(&area), 2);
    ::SendMessageW(tabs_.Get(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    return area;
}

void Frame::Run() {
    ShowPage(0);
    ::EnableWindow(owner_, FALSE);
    ::ShowWindow(Get(), SW_SHOW);
    MSG message{};
    while (!isDone_ && Get()) {
        if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The end of the program is for the loop of the main window, too.
            ::PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!TranslateKey(message) && !::IsDialogMessageW(Get(), &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
    ::EnableWindow(owner_, TRUE);
    ::SetActiveWindow(owner_);
}

bool Frame::TranslateKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
        return false;
    }
    if (pages_[shown_]->TranslateKey(message)) {
        return true;
    }
    // What the page does not take is the frame's.
    const bool turnsPage =
        message.message == WM_KEYDOWN && message.wParam == VK_TAB && Win::IsPressed(VK_CONTROL);
    if (turnsPage) {
        TurnPage(Win::IsPressed(VK_SHIFT));
    }
    return turnsPage;
}

void Frame::ShowPage(std::size_t index) {
    const RECT area = PageRectangle();
    pages_[shown_]->Hide();
    shown_ = index;
    if (const HWND made = pages_[index]->Show(Get(), area)) {
        // The page comes last of all children; it belongs over the tabs, and first for the Tab key.
        ::SetWindowPos(made, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ::SetWindowPos(tabs_.Get(), HWND_BOTTOM, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ::SendMessageW(tabs_.Get(), TCM_SETCURSEL, index, 0);
    UpdateButtons();
}

void Frame::TurnPage(bool isBackward) {
    const std::size_t count = pages_.size();
    ShowPage((shown_ + (isBackward ? count - 1 : 1)) % count);
}

void Frame::UpdateButtons() {
    const bool isDirty =
        std::ranges::any_of(pages_, [](const auto& page) { return page->IsDirty(); });
    ::EnableWindow(::GetDlgItem(Get(), ApplyId), isDirty);
}

bool Frame::ApplyPages() {
    // A page that refuses has told the user why; the edits stay in it.
    const bool areApplied =
        std::ranges::all_of(pages_, [](const auto& page) { return page->Apply(); });
    UpdateButtons();
    return areApplied;
}

void Frame::OnCommand(int id) {
    switch (id) {
    case IDOK:
        isDone_ = ApplyPages();
        break;
    case IDCANCEL:
        isDone_ = true;
        break;
    case ApplyId:
        ApplyPages();
        break;
    case HelpButtonId:
        pages_[shown_]->Help();
        break;
    default:
        break;
    }
}

LRESULT Frame::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SIZE:
        if (tabs_) {
            Arrange();
        }
        return 0;
    case WM_ACTIVATE:
        focus_.OnActivate(Get(), first);
        return 0;
    case WM_GETMINMAXINFO:
        if (tabs_) {
            const SIZE least = SizeFor(pageSize_);
            reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {least.cx, least.cy};
        }
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(first));
        return 0;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(second);
        if (header.hwndFrom == tabs_.Get() && header.code == static_cast<UINT>(TCN_SELCHANGE)) {
            ShowPage(static_cast<std::size_t>(::SendMessageW(tabs_.Get(), TCM_GETCURSEL, 0, 0)));
        }
        return 0;
    }
    case WM_CLOSE:
        isDone_ = true;
        return 0;
    default:
        return ProgramWindow::OnMessage(message, first, second);
    }
}

} // namespace

void ShowPropertyFrame(HWND owner, const Text& title, IUnknown* object, LCID locale) {
    Frame frame(owner, title, object, locale);
    if (!frame.HasPages()) {
        Win::ShowMessage(owner, GetText(TextId::NoPages), title, MB_OK | MB_ICONINFORMATION);
        return;
    }
    frame.Run();
}

} // namespace Quorvane::Host
