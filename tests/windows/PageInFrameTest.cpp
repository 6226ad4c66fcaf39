// SPDX-License-Identifier: MIT
// The property page in frames, and on objects, that are not what a page would expect.
#include <windows.h>

#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "tests/com/support/TestBag.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/PageFrame.h"

namespace Quorvane {
namespace {

constexpr int CmdRule = 105;

/// A page on some object, in a window of a form.
class Page {
  public:
    explicit Page(IUnknown* object)
        : page_(NewObject(CLSID_FIS_IO).As<IPropertyPage>()), frame_(Com::MakeObject<PageFrame>()) {
        Com::Check(page_->SetPageSite(frame_.Get()));
        Com::Check(page_->SetObjects(1, &object));
    }
    ~Page() {
        page_->Deactivate();
        page_->SetObjects(0, nullptr);
        page_->SetPageSite(nullptr);
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    IPropertyPage* operator->() const { return page_.Get(); }

    /// The window of the page in that of a frame.
    static HWND In(HWND frame) {
        return ::FindWindowExW(frame, nullptr, L"QuorvaneFisIO", nullptr);
    }

  private:
    Com::ComPtr<IPropertyPage> page_;
    Com::ComPtr<PageFrame> frame_;
};

/// What a host wraps a control in: its members by their ids, and no other interface of it.
class Wrapper final : public Com::ComObject<IDispatch> {
  public:
    explicit Wrapper(Com::ComPtr<IDispatch> control) : control_(std::move(control)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        return control_->GetTypeInfoCount(count);
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override {
        return control_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override {
        return control_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept override {
        return control_->Invoke(member, iid, locale, flags, arguments, result, exception,
                                badArgument);
    }

  private:
    Com::ComPtr<IDispatch> control_;
};

TEST(PageInFrame, FitsIntoAFrameThatIsSmallerThanThePlaceItGives) {
    Form form({10, 10, 430, 330});
    form.Place(Start::New, false);
    const Page page(form.Control().Get());
    const struct {
        RECT Given;
        RECT Taken;
    } cases[] = {
        {{0, 0, 2000, 1500}, {0, 0, 440, 340}},
        {{20, 30, 2000, 200}, {20, 30, 440, 200}},
        {{20, 30, 200, 1500}, {20, 30, 200, 340}},
        {{20, 30, 220, 230}, {20, 30, 220, 230}},
        // A frame that scrolls the page.
        {{-50, 0, 2000, 1500}, {-50, 0, 2000, 1500}},
        {{0, -50, 2000, 1500}, {0, -50, 2000, 1500}},
        // One that is to grow.
        {{500, 400, 2000, 1500}, {500, 400, 2000, 1500}},
    };
    for (const auto& [given, taken] : cases) {
        ASSERT_EQ(page->Activate(form.Window(), &given, FALSE), S_OK);
        RECT place = PlaceOf(Page::In(form.Window()));
        EXPECT_TRUE(::EqualRect(&place, &taken)) << place.right << ',' << place.bottom;
        const RECT elsewhere{1, 1, 50, 50};
        EXPECT_EQ(page->Move(&elsewhere), S_OK);
        EXPECT_EQ(page->Move(&given), S_OK);
        place = PlaceOf(Page::In(form.Window()));
        EXPECT_TRUE(::EqualRect(&place, &taken)) << place.right << ',' << place.bottom;
        page->Deactivate();
    }
}

TEST(PageInFrame, FollowsAFrameThatIsMadeSmallerAndLargerAgain) {
    Form form({10, 10, 430, 330});
    form.Place(Start::New, false);
    const Page page(form.Control().Get());
    const RECT given{0, 0, 400, 300};
    ASSERT_EQ(page->Activate(form.Window(), &given, FALSE), S_OK);
    RECT whole{};
    ::GetWindowRect(form.Window(), &whole);
    const int width = whole.right - whole.left;
    const int height = whole.bottom - whole.top;
    for (const auto& [less, expected] : {std::pair{140, RECT{0, 0, 300, 200}}, {0, given}}) {
        ::SetWindowPos(form.Window(), nullptr, 0, 0, width - less, height - less,
                       SWP_NOMOVE | SWP_NOZORDER);
        HandleMessages();
        const RECT place = PlaceOf(Page::In(form.Window()));
        EXPECT_TRUE(::EqualRect(&place, &expected)) << place.right << ',' << place.bottom;
    }
}

TEST(PageInFrame, EditsAnObjectThatIsNoOleObject) {
    Form form;
    form.Place(Start::New, false);
    const auto wrapper = Com::MakeObject<Wrapper>(form.As<IDispatch>());
    const Page page(wrapper.Get());
    const RECT area{0, 0, 340, 220};
    ASSERT_EQ(page->Activate(form.Window(), &area, FALSE), S_OK);
    EXPECT_TRUE(::IsWindowEnabled(::GetDlgItem(Page::In(form.Window()), CmdRule)));
    ASSERT_EQ(form.As<IPersistPropertyBag>()->Save(Com::MakeObject<TestBag>().Get(), TRUE, TRUE),
              S_OK);
    ASSERT_EQ(form.As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    EXPECT_EQ(page->Apply(), S_OK);
    EXPECT_EQ(form.As<IPersistStreamInit>()->IsDirty(), S_OK) << "the definition has been set";
}

TEST(PageInFrame, TellsOfAWrappedControlThatRuns) {
    Form form({10, 10, 330, 210}, SW_HIDE);
    form.Place(Start::FromEmptyBag, true);
    const auto wrapper = Com::MakeObject<Wrapper>(form.As<IDispatch>());
    const Page page(wrapper.Get());
    // In a frame that nobody sees there is nobody to tell of it.
    const RECT area{0, 0, 340, 220};
    ASSERT_EQ(page->Activate(form.Window(), &area, FALSE), S_OK);
    EXPECT_EQ(page->Apply(), CTL_E_SETNOTSUPPORTEDATRUNTIME) << "the control's own answer";
}

} // namespace
} // namespace Quorvane
