// SPDX-License-Identifier: MIT
// A property frame of the tests, and the hands of a person who works in it.
#include "tests/editorwindows/PageTest.h"

#include <olectl.h>

#include "com/Module.h"
#include "com/Scoped.h"

namespace Quorvane {

/// The test program has no classes of its own; its frame uses the plumbing all the same.
const Com::ModuleDescription& Com::DescribeModule() noexcept {
    static constexpr ModuleDescription description{};
    return description;
}

namespace {

constexpr int TreInputId = 100;
constexpr int TreOutputId = 101;
constexpr int CmdRuleId = 105;

/// The page as the child of the frame.
HWND PageWindow(HWND frame) {
    return ::GetWindow(frame, GW_CHILD);
}

/// What is to be done once the rule editor, which is modal, is open.
std::vector<std::function<void(HWND)>> stepsInEditor;

/// That of the last WM_QUIT.
std::optional<int> quitCode;

void CALLBACK OnTime(HWND, UINT, UINT_PTR timer, DWORD) {
    HWND const editor = ::FindWindowW(L"QuorvaneRuleEditor", nullptr);
    if (editor && ::IsWindowVisible(editor)) {
        const auto step = std::move(stepsInEditor.front());
        stepsInEditor.erase(stepsInEditor.begin());
        if (stepsInEditor.empty()) {
            ::KillTimer(nullptr, timer);
        }
        step(editor);
    }
}

std::vector<HWND> ButtonsOf(HWND page) {
    std::vector<HWND> buttons;
    for (HWND child = ::GetWindow(page, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        wchar_t name[16]{};
        ::GetClassNameW(child, name, static_cast<int>(std::size(name)));
        if (Com::ToText(name) == u"Button") {
            buttons.push_back(child);
        }
    }
    return buttons;
}

} // namespace

Text WindowText(HWND window) {
    wchar_t text[256]{};
    ::GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return Com::ToText(text);
}

void AnswerYes() {
    if (HWND const box = ::FindWindowW(L"#32770", nullptr)) {
        ::PostMessageW(box, WM_COMMAND, IDYES, 0);
    }
}

std::optional<int> TakeQuit() {
    return std::exchange(quitCode, std::nullopt);
}

void Pump() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            quitCode = static_cast<int>(message.wParam);
        }
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

STDMETHODIMP FrameSite::OnStatusChange(DWORD flags) noexcept {
    if ((flags & PROPPAGESTATUS_DIRTY) != 0) {
        ++DirtyReports;
    }
    return S_OK;
}

STDMETHODIMP FrameSite::GetLocaleID(LCID* locale) noexcept {
    *locale = 0x409;
    return S_OK;
}

STDMETHODIMP FrameSite::GetPageContainer(IUnknown** container) noexcept {
    *container = nullptr;
    return E_NOTIMPL;
}

PageTest::~PageTest() = default;

void PageTest::TearDown() {
    Close();
    ControlTest::TearDown();
}

void PageTest::Open(std::initializer_list<IUnknown*> controls) {
    Com::ComPtr<IClassFactory> factory;
    ASSERT_EQ(
        Module().GetClassObject(__uuidof(::FIS_IO), __uuidof(IClassFactory), factory.PutVoid()),
        S_OK);
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(IPropertyPage), page_.PutVoid()), S_OK);
    site_ = Com::MakeObject<FrameSite>();
    ASSERT_EQ(page_->SetPageSite(site_.Get()), S_OK);
    std::vector<IUnknown*> objects(controls);
    ASSERT_EQ(page_->SetObjects(static_cast<ULONG>(objects.size()), objects.data()), S_OK);
    frame_ = ::CreateWindowExW(0, L"STATIC", L"frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                               600, 500, nullptr, nullptr, nullptr, nullptr);
    const RECT place{10, 10, 410, 380};
    ASSERT_EQ(page_->Activate(frame_, &place, FALSE), S_OK);
    ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
    Pump();
}

void PageTest::Close() {
    if (page_) {
        EXPECT_EQ(page_->Show(SW_HIDE), S_OK);
        EXPECT_EQ(page_->Deactivate(), S_OK);
        EXPECT_EQ(page_->SetObjects(0, nullptr), S_OK);
        EXPECT_EQ(page_->SetPageSite(nullptr), S_OK);
        page_.Reset();
    }
    site_.Reset();
    if (frame_) {
        ::DestroyWindow(std::exchange(frame_, nullptr));
    }
    Pump();
}

HWND PageTest::Tree(bool input) const {
    return ::GetDlgItem(PageWindow(frame_), input ? TreInputId : TreOutputId);
}

HWND PageTest::Button(const Text& caption) const {
    for (HWND const button : ButtonsOf(PageWindow(frame_))) {
        if (WindowText(button) == caption) {
            return button;
        }
    }
    return nullptr;
}

std::vector<Text> PageTest::ButtonCaptions() const {
    std::vector<Text> captions;
    for (HWND const button : ButtonsOf(PageWindow(frame_))) {
        captions.push_back((::IsWindowEnabled(button) ? u"" : u"-") + WindowText(button));
    }
    return captions;
}

Text PageTest::ItemText(HWND tree, HTREEITEM item) const {
    wchar_t text[128]{};
    TVITEMW asked{};
    asked.mask = TVIF_TEXT;
    asked.hItem = item;
    asked.pszText = text;
    asked.cchTextMax = static_cast<int>(std::size(text));
    ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
    return Com::ToText(text);
}

std::vector<Text> PageTest::ChildTexts(HWND tree, HTREEITEM item) const {
    std::vector<Text> texts;
    for (HTREEITEM child = TreeView_GetChild(tree, item); child;
         child = TreeView_GetNextSibling(tree, child)) {
        texts.push_back(ItemText(tree, child));
    }
    return texts;
}

HTREEITEM PageTest::Item(HWND tree, std::initializer_list<TextView> path) const {
    HTREEITEM item = TreeView_GetRoot(tree);
    for (const TextView part : path) {
        item = TreeView_GetChild(tree, item);
        while (item && ItemText(tree, item) != part) {
            item = TreeView_GetNextSibling(tree, item);
        }
    }
    return item;
}

void PageTest::Click(HWND tree, HTREEITEM item) {
    TreeView_EnsureVisible(tree, item);
    RECT area{};
    *reinterpret_cast<HTREEITEM*>(&area) = item;
    ASSERT_NE(::SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)), 0);
    ClickAt(tree, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

void PageTest::ClickAt(HWND window, POINT point) {
    const LPARAM place = MAKELPARAM(point.x, point.y);
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
    // The release waits already: a tree looks for a drag until it comes.
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::PostMessageW(window, WM_LBUTTONUP, 0, place);
    Pump();
}

HRESULT PageTest::Translate(HWND window, UINT message, WPARAM key) {
    MSG offered{};
    offered.hwnd = window;
    offered.message = message;
    offered.wParam = key;
    const HRESULT taken = page_->TranslateAccelerator(&offered);
    Pump();
    return taken;
}

void PageTest::Press(HWND window, WPARAM key) {
    MSG message{};
    message.hwnd = window;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    if (page_->TranslateAccelerator(&message) != S_OK) {
        ::DispatchMessageW(&message);
    }
    Pump();
}

void PageTest::Push(HWND button) {
    const LPARAM place = MAKELPARAM(5, 5);
    ::PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::PostMessageW(button, WM_LBUTTONUP, 0, place);
    Pump();
}

void PageTest::EditLabel(HWND tree, TextView text) {
    Press(tree, VK_F2);
    HWND const field = TreeView_GetEditControl(tree);
    ASSERT_NE(field, nullptr);
    ::SetWindowTextW(field, Com::Wide(Text(text)));
    Press(field, VK_RETURN);
}

void PageTest::InRuleEditor(std::function<void(HWND editor)> work) {
    InRuleEditor(std::vector{std::move(work)});
}

void PageTest::InRuleEditor(std::vector<std::function<void(HWND editor)>> steps) {
    stepsInEditor = std::move(steps);
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 20, OnTime);
    Push(::GetDlgItem(PageWindow(frame_), CmdRuleId));
    ::KillTimer(nullptr, timer);
    EXPECT_TRUE(stepsInEditor.empty()) << "the rule editor did not open";
    stepsInEditor.clear();
}

} // namespace Quorvane
