// SPDX-License-Identifier: MIT
// The editors leave nothing behind: windows, fonts, images and what a picture is painted with.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "com/ComObject.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/PageFrame.h"
#include "win/ActivationContext.h"
#include "win/Window.h"

namespace Quorvane {
namespace {

/// How many objects of each kind the owners of the program hold at a moment.
std::vector<LONG> Held() {
    return {
        Win::LiveCount<Win::WindowKind>::Get(),       Win::LiveCount<Win::FontKind>::Get(),
        Win::LiveCount<Win::BrushKind>::Get(),        Win::LiveCount<Win::PenKind>::Get(),
        Win::LiveCount<Win::BitmapKind>::Get(),       Win::LiveCount<Win::MemoryDcKind>::Get(),
        Win::LiveCount<Win::ImageListKind>::Get(),    Win::LiveCount<Win::AcceleratorKind>::Get(),
        Win::LiveCount<Win::ActivationContext>::Get()};
}

/// The page on the control of a form, shown in the form's window.
class OpenPage {
  public:
    explicit OpenPage(Form& form)
        : page_(NewObject(CLSID_FIS_IO).As<IPropertyPage>()), frame_(Com::MakeObject<PageFrame>()) {
        const RECT area{0, 0, 400, 300};
        IUnknown* object = form.Control().Get();
        Com::Check(page_->SetPageSite(frame_.Get()));
        Com::Check(page_->SetObjects(1, &object));
        Com::Check(page_->Activate(form.Window(), &area, TRUE));
        Com::Check(page_->Show(SW_SHOW));
        window_ = ::FindWindowExW(form.Window(), nullptr, L"QuorvaneFisIO", nullptr);
    }
    ~OpenPage() {
        page_->Deactivate();
        page_->SetObjects(0, nullptr);
        page_->SetPageSite(nullptr);
    }
    OpenPage(const OpenPage&) = delete;
    OpenPage& operator=(const OpenPage&) = delete;

    /// Selects the first variable and has the graph painted.
    void Paint() const {
        HWND const tree = ::GetDlgItem(window_, 100);
        TreeView_SelectItem(tree, TreeView_GetChild(tree, TreeView_GetRoot(tree)));
        HWND const graph = ::FindWindowExW(window_, nullptr, L"QuorvaneGraph", nullptr);
        ASSERT_NE(graph, nullptr);
        ::InvalidateRect(graph, nullptr, FALSE);
        ::UpdateWindow(graph);
    }

    /// Opens the rule editor; it is closed once `look` has seen it.
    void VisitRules(std::function<void()> look) const {
        look_ = std::move(look);
        const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, CloseRules);
        ::SendMessageW(window_, WM_COMMAND, MAKEWPARAM(105, BN_CLICKED), 0);
        ::KillTimer(nullptr, timer);
        EXPECT_FALSE(look_) << "the rule editor did not open";
    }

  private:
    static void CALLBACK CloseRules(HWND, UINT, UINT_PTR, DWORD) {
        HWND const editor = ::FindWindowW(L"QuorvaneRuleEditor", nullptr);
        if (editor && ::IsWindowVisible(editor) && look_) {
            std::exchange(look_, {})();
            ::PostMessageW(editor, WM_CLOSE, 0, 0);
        }
    }

    static inline std::function<void()> look_;

    Com::ComPtr<IPropertyPage> page_;
    Com::ComPtr<PageFrame> frame_;
    HWND window_ = nullptr;
};

TEST(EditorLifetime, TheCountersSeeWhatTheEditorsHold) {
    Form form;
    form.Place(Start::New, false);
    const auto before = Held();
    {
        const OpenPage page(form);
        page.Paint();
        const auto withPage = Held();
        // The page, two trees with a tip each, four buttons and the graph; a font for the page and
        // one for the graph, which has it from its first painting on.
        EXPECT_EQ(withPage[0] - before[0], 10);
        EXPECT_EQ(withPage[1] - before[1], 2);
        EXPECT_EQ(withPage[6] - before[6], 1);
        EXPECT_EQ(withPage[7] - before[7], 1);
        page.VisitRules([&] { EXPECT_EQ(Held()[1] - withPage[1], 2) << "two fonts"; });
        EXPECT_EQ(Held(), withPage);
    }
    EXPECT_EQ(Held(), before);
}

TEST(EditorLifetime, LeavesNothingBehindInTenLives) {
    Form form;
    form.Place(Start::New, false);
    const auto before = Held();
    for (int i = 0; i < 10; ++i) {
        const OpenPage page(form);
        page.Paint();
        page.VisitRules([] {});
        HandleMessages();
    }
    EXPECT_EQ(Held(), before);
}

} // namespace
} // namespace Quorvane
