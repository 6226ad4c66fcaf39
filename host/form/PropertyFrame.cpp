// SPDX-License-Identifier: MIT
// PropertyFrame: a dialog that shows the property pages of a control.
#include "host/form/PropertyFrame.h"

#include "host/ComObject.h"
#include "host/HResult.h"
#include "host/form/KeptFocus.h"
#include "host/form/Texts.h"
#include "host/form/Window.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <commctrl.h>
#include <ocidl.h>

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

class Frame;

/// What a page tells its frame.
class PageSite final : public ComObject<IPropertyPageSite> {
  public:
    PageSite(Frame& frame, LCID locale) : frame_(&frame), locale_(locale) {}
    void Detach() { frame_ = nullptr; }

    HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* locale) noexcept override {
        *locale = locale_;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** container) noexcept override {
        *container = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) noexcept override { return S_FALSE; }

  private:
    ~PageSite() override = default;

    Frame* frame_;
    LCID locale_;
};

/// A page in the frame, from its creation to its release.
struct Page {
    ComPtr<IPropertyPage> Object;
    ComPtr<PageSite> Site;
    std::wstring Title;
    SIZE Size{};
    bool IsActive = false;
};

class Frame final : public Window {
  public:
    Frame(HWND owner, const std::wstring& title, IUnknown* object, LCID locale);
    ~Frame() override;

    bool HasPages() const { return !pages_.empty(); }

    /// Runs until the user closes the frame.
    void Run();

    void OnPageStatus();

  protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void AddPage(const CLSID& clsid, IUnknown* object, LCID locale);
    SIZE SizeFor(const SIZE& page) const;
    void Place();
    void CreateChildren();
    void Arrange();
    RECT PageRectangle() const;
    void ShowPage(std::size_t index);
    bool ApplyPages();
    void OnCommand(int id);
    bool TranslateKey(MSG& message);
    void UpdateButtons();

    HWND owner_;
    std::vector<Page> pages_;
    std::size_t shown_ = 0;
    SIZE pageSize_{};
    HWND tabs_ = nullptr;
    std::vector<HWND> buttons_;
    bool isDone_ = false;
    KeptFocus focus_;
};

HRESULT STDMETHODCALLTYPE PageSite::OnStatusChange(DWORD) noexcept {
    if (frame_) {
        frame_->OnPageStatus();
    }
    return S_OK;
}

Frame::Frame(HWND owner, const std::wstring& title, IUnknown* object, LCID locale) : owner_(owner) {
    const auto specify = Query<ISpecifyPropertyPages>(object);
    CAUUID classes{};
    if (specify) {
        Check(specify->GetPages(&classes), L"list the property pages");
    }
    const std::unique_ptr<GUID, decltype(&CoTaskMemFree)> memory(classes.pElems, CoTaskMemFree);
    for (ULONG i = 0; i < classes.cElems; ++i) {
        AddPage(classes.pElems[i], object, locale);
    }
    if (HasPages()) {
        Create(L"QuorvanePropertyFrame", title.c_str(),
               WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, owner, nullptr,
               WS_EX_CONTROLPARENT);
        CreateChildren();
        Place();
    }
}

Frame::~Frame() {
    for (Page& page : pages_) {
        if (page.IsActive) {
            page.Object->Deactivate();
        }
        page.Object->SetObjects(0, nullptr);
        page.Object->SetPageSite(nullptr);
        page.Site->Detach();
    }
}

void Frame::AddPage(const CLSID& clsid, IUnknown* object, LCID locale) {
    Page page;
    if (FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPropertyPage),
                                page.Object.ReceiveVoid()))) {
        return;
    }
    page.Site = MakeCom<PageSite>(*this, locale);
    Check(page.Object->SetPageSite(page.Site.Get()), L"open a property page");
    pages_.push_back(std::move(page));
    Page& added = pages_.back();
    PROPPAGEINFO info{};
    info.cb = sizeof info;
    Check(added.Object->GetPageInfo(&info), L"open a property page");
    added.Title = info.pszTitle ? info.pszTitle : L"";
    added.Size = info.size;
    CoTaskMemFree(info.pszTitle);
    CoTaskMemFree(info.pszDocString);
    CoTaskMemFree(info.pszHelpFile);
    Check(added.Object->SetObjects(1, &object), L"open a property page");
    pageSize_.cx = std::max(pageSize_.cx, added.Size.cx);
    pageSize_.cy = std::max(pageSize_.cy, added.Size.cy);
}

SIZE Frame::SizeFor(const SIZE& page) const {
    const int gap = Scaled(Gap);
    RECT window = {0, 0, page.cx + 4 * gap,
                   page.cy + Scaled(TabHeight) + Scaled(ButtonHeight) + 5 * gap};
    window.right = std::max<LONG>(window.right, ButtonCount * (Scaled(ButtonWidth) + gap) + gap);
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(Handle(), GWL_EXSTYLE)));
    return {window.right - window.left, window.bottom - window.top};
}

/// Opens beside the owner's upper left corner, with more room than the pages need at least, as far
/// as the screen has it.
void Frame::Place() {
    RECT around{};
    GetWindowRect(owner_, &around);
    RECT desktop{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &desktop, 0);
    const SIZE roomy =
        SizeFor({pageSize_.cx * RoomyPercent / 100, pageSize_.cy * RoomyPercent / 100});
    const LONG width = std::min(roomy.cx, desktop.right - desktop.left);
    const LONG height = std::min(roomy.cy, desktop.bottom - desktop.top);
    const LONG left = std::min(around.left + Scaled(40), desktop.right - width);
    const LONG top = std::min(around.top + Scaled(40), desktop.bottom - height);
    SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER);
}

void Frame::CreateChildren() {
    tabs_ = CreateChild(Handle(), WC_TABCONTROLW, L"", WS_TABSTOP | WS_CLIPSIBLINGS, TabsId);
    int index = 0;
    for (const Page& page : pages_) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(page.Title.c_str());
        SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                     reinterpret_cast<LPARAM>(&item));
    }
    struct Button {
        TextId Caption;
        int Id;
    };
    for (const Button& button :
         {Button{TextId::Ok, IDOK}, Button{TextId::Cancel, IDCANCEL},
          Button{TextId::Apply, ApplyId}, Button{TextId::Help, HelpButtonId}}) {
        buttons_.push_back(CreateChild(
            Handle(), L"BUTTON", GetText(button.Caption),
            WS_TABSTOP | (button.Id == IDOK ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), button.Id));
    }
}

void Frame::Arrange() {
    RECT client{};
    GetClientRect(Handle(), &client);
    const int gap = Scaled(Gap);
    const int width = Scaled(ButtonWidth);
    const int height = Scaled(ButtonHeight);
    MoveWindow(tabs_, gap, gap, client.right - 2 * gap, client.bottom - height - 3 * gap, TRUE);
    int left = client.right - ButtonCount * (width + gap);
    for (const HWND button : buttons_) {
        MoveWindow(button, left, client.bottom - height - gap, width, height, TRUE);
        left += width + gap;
    }
    const RECT area = PageRectangle();
    for (const Page& page : pages_) {
        if (page.IsActive) {
            page.Object->Move(&area);
        }
    }
}

RECT Frame::PageRectangle() const {
    RECT area{};
    GetWindowRect(tabs_, &area);
    MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&area), 2);
    SendMessageW(tabs_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    return area;
}

void Frame::Run() {
    ShowPage(0);
    EnableWindow(owner_, FALSE);
    ShowWindow(Handle(), SW_SHOW);
    MSG message{};
    while (!isDone_ && Handle() && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!TranslateKey(message) && !IsDialogMessageW(Handle(), &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    EnableWindow(owner_, TRUE);
    SetActiveWindow(owner_);
}

bool Frame::TranslateKey(MSG& message) {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST &&
           pages_[shown_].Object->TranslateAccelerator(&message) == S_OK;
}

void Frame::ShowPage(std::size_t index) {
    const RECT area = PageRectangle();
    Page& former = pages_[shown_];
    if (former.IsActive) {
        former.Object->Show(SW_HIDE);
    }
    shown_ = index;
    Page& page = pages_[index];
    if (!page.IsActive) {
        Check(page.Object->Activate(Handle(), &area, FALSE), L"open a property page");
        page.IsActive = true;
        // The page comes last of all children; it belongs over the tabs, and first for the Tab key.
        HWND const made = GetWindow(GetWindow(Handle(), GW_CHILD), GW_HWNDLAST);
        SetWindowPos(made, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SetWindowPos(tabs_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    page.Object->Move(&area);
    page.Object->Show(SW_SHOW);
    UpdateButtons();
}

void Frame::OnPageStatus() {
    if (Handle()) {
        UpdateButtons();
    }
}

void Frame::UpdateButtons() {
    const bool isDirty = std::ranges::any_of(
        pages_, [](const Page& page) { return page.Object->IsPageDirty() == S_OK; });
    EnableWindow(GetDlgItem(Handle(), ApplyId), isDirty);
}

bool Frame::ApplyPages() {
    for (Page& page : pages_) {
        if (page.Object->IsPageDirty() == S_OK && FAILED(page.Object->Apply())) {
            // The page has told the user why; the edits stay in it.
            return false;
        }
    }
    UpdateButtons();
    return true;
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
        pages_[shown_].Object->Help(nullptr);
        break;
    default:
        break;
    }
}

LRESULT Frame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (tabs_) {
            Arrange();
        }
        return 0;
    case WM_ACTIVATE:
        focus_.OnActivate(Handle(), wParam);
        return 0;
    case WM_GETMINMAXINFO:
        if (tabs_) {
            const SIZE least = SizeFor(pageSize_);
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
        }
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam));
        return 0;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.hwndFrom == tabs_ && header.code == static_cast<UINT>(TCN_SELCHANGE)) {
            ShowPage(static_cast<std::size_t>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0)));
        }
        return 0;
    }
    case WM_CLOSE:
        isDone_ = true;
        return 0;
    default:
        return Window::OnMessage(message, wParam, lParam);
    }
}

} // namespace

void ShowPropertyFrame(HWND owner, const std::wstring& title, IUnknown* object, LCID locale) {
    Frame frame(owner, title, object, locale);
    if (!frame.HasPages()) {
        MessageBoxW(owner, GetText(TextId::NoPages), title.c_str(), MB_OK | MB_ICONINFORMATION);
        return;
    }
    frame.Run();
}

} // namespace Quorvane::Host
