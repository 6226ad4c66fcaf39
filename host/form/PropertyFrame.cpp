// SPDX-License-Identifier: MIT
// PropertyFrame: a dialog that shows the property pages of a control.
#include "host/form/PropertyFrame.h"

#include "host/ComObject.h"
#include "host/HResult.h"
#include "host/form/Window.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <commctrl.h>
#include <ocidl.h>

namespace Quorvane::Host {

namespace {

enum ButtonId { ApplyId = 100, HelpButtonId, TabsId };

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
    void CreateChildren();
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
    bool isDone_ = false;
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
        Create(L"QuorvanePropertyFrame", title.c_str(), WS_POPUP | WS_CAPTION | WS_SYSMENU, owner,
               nullptr, WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT);
        CreateChildren();
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

void Frame::CreateChildren() {
    const int gap = Scaled(8);
    const int tabHeight = Scaled(26);
    const int buttonWidth = Scaled(80);
    const int buttonHeight = Scaled(26);
    RECT client = {0, 0, pageSize_.cx + 4 * gap, pageSize_.cy + tabHeight + buttonHeight + 5 * gap};
    client.right = std::max<LONG>(client.right, 4 * (buttonWidth + gap) + gap);
    RECT window = client;
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongW(Handle(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(Handle(), GWL_EXSTYLE)));
    RECT around{};
    GetWindowRect(owner_, &around);
    SetWindowPos(Handle(), nullptr, around.left + Scaled(40), around.top + Scaled(40),
                 window.right - window.left, window.bottom - window.top, SWP_NOZORDER);

    tabs_ = CreateChild(Handle(), WC_TABCONTROLW, L"", WS_TABSTOP | WS_CLIPSIBLINGS, TabsId);
    MoveWindow(tabs_, gap, gap, client.right - 2 * gap, client.bottom - buttonHeight - 3 * gap,
               FALSE);
    int index = 0;
    for (const Page& page : pages_) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(page.Title.c_str());
        SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(index++),
                     reinterpret_cast<LPARAM>(&item));
    }
    struct Button {
        const wchar_t* Caption;
        int Id;
    };
    int left = client.right - 4 * (buttonWidth + gap);
    for (const Button& button : {Button{L"OK", IDOK}, Button{L"Cancel", IDCANCEL},
                                 Button{L"&Apply", ApplyId}, Button{L"Help", HelpButtonId}}) {
        const HWND child = CreateChild(
            Handle(), L"BUTTON", button.Caption,
            WS_TABSTOP | (button.Id == IDOK ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), button.Id);
        MoveWindow(child, left, client.bottom - buttonHeight - gap, buttonWidth, buttonHeight,
                   FALSE);
        left += buttonWidth + gap;
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
        MessageBoxW(owner, L"This control has no property pages.", title.c_str(),
                    MB_OK | MB_ICONINFORMATION);
        return;
    }
    frame.Run();
}

} // namespace Quorvane::Host
