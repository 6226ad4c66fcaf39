// SPDX-License-Identifier: MIT
// Nothing stays behind: windows, fonts, icons, image lists and objects over many lives.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/PageFrame.h"
#include "win/ActivationContext.h"
#include "win/Window.h"

namespace Quorvane {
namespace {

/// What all owners of the program hold at a moment.
struct Holdings {
    LONG Objects = Com::ModuleLockCount();
    LONG Windows = Win::LiveCount<Win::WindowKind>::Get();
    LONG Fonts = Win::LiveCount<Win::FontKind>::Get();
    LONG Brushes = Win::LiveCount<Win::BrushKind>::Get();
    LONG Icons = Win::LiveCount<Win::IconKind>::Get();
    LONG ImageLists = Win::LiveCount<Win::ImageListKind>::Get();
    LONG Contexts = Win::LiveCount<Win::ActivationContext>::Get();

    bool operator==(const Holdings&) const = default;

    friend void PrintTo(const Holdings& held, std::ostream* stream) {
        *stream << held.Objects << " objects, " << held.Windows << " windows, " << held.Fonts
                << " fonts, " << held.Brushes << " brushes, " << held.Icons << " icons, "
                << held.ImageLists << " image lists, " << held.Contexts << " contexts";
    }
};

void FailCycle(const Form& form) {
    Com::ComPtr<IDictionary> inputs;
    Com::Check(form.Control()->get_InVals(inputs.Put()));
    Com::Variant key(TextView(u"Error"));
    Com::Variant value(TextView(u"hot"));
    Com::Check(inputs->put_Item(&key.Get(), &value.Get()));
    Com::Check(form.Control()->Fire());
}

TEST(Lifetime, TheCountersSeeWhatAControlHolds) {
    const Holdings before;
    {
        Form form;
        form.Place();
        form.DoVerb(OLEIVERB_UIACTIVATE);
        const Holdings usual;
        EXPECT_EQ(usual.ImageLists - before.ImageLists, 0) << "it is made when a cycle fails";
        EXPECT_EQ(usual.Icons - before.Icons, 0);
        FailCycle(form);
        const Holdings during;
        EXPECT_EQ(during.Windows - before.Windows, 6) << "surface, strip, label, lists, status bar";
        EXPECT_EQ(during.Fonts - before.Fonts, 4);
        EXPECT_EQ(during.ImageLists - before.ImageLists, 1);
        EXPECT_EQ(during.Icons - before.Icons, 1);
        EXPECT_EQ(during.Contexts - before.Contexts, 1);
        EXPECT_GT(during.Objects, before.Objects);
    }
    EXPECT_EQ(Holdings(), before);
}

/// One life of a control on a form that lasts.
using Life = void (*)(Form& form);

void ClosedByTheHost(Form& form) {
    form.Place();
    Com::Check(form.DoVerb(OLEIVERB_UIACTIVATE));
    // What could not be made for lack of handles is not there.
    Com::Check(::SendMessageW(form.Input(), WM_GETFONT, 0, 0) ? S_OK : E_OUTOFMEMORY);
    Com::Check(form.Control()->Fire());
    form.Remove();
}

void SiteTakenAwayFirst(Form& form) {
    form.Place();
    form.Activate();
    form.As<IOleObject>()->SetClientSite(nullptr);
    form.Remove();
}

void NeverActivated(Form& form) {
    form.Place();
    form.Control()->put_Caption(Com::Bstr(u"Never seen").Get());
    form.Remove();
}

void NeverStarted(Form& form) {
    form.Place(Start::Not);
    form.Remove();
}

void ReleasedWhileActive(Form& form) {
    form.Place();
    Com::Check(form.DoVerb(OLEIVERB_UIACTIVATE));
    form.TheSite().FrameWindow()->SetActiveObject(nullptr, nullptr);
    form.Forget();
}

void WindowDestroyedFirst(Form& form) {
    form.Place();
    form.Activate();
    ::DestroyWindow(form.Surface());
    form.Remove();
}

void PageOpened(Form& form) {
    form.Place(Start::New, false);
    form.Activate();
    {
        const auto page = NewObject(CLSID_FIS_IO).As<IPropertyPage>();
        const auto frame = Com::MakeObject<PageFrame>();
        const RECT area{0, 0, 400, 300};
        IUnknown* object = form.Control().Get();
        Com::Check(page->SetPageSite(frame.Get()));
        Com::Check(page->Activate(form.Window(), &area, TRUE));
        Com::Check(page->SetObjects(1, &object));
        Com::Check(page->Show(SW_SHOW));
        Com::Check(page->Deactivate());
        Com::Check(page->SetObjects(0, nullptr));
        Com::Check(page->SetPageSite(nullptr));
    }
    form.Remove();
}

/// Takes nearly all handles that a process may have, of the window system and of graphics.
class CrowdedProcess {
  public:
    CrowdedProcess() {
        Fill(menus_, [] { return ::CreatePopupMenu(); });
        Fill(brushes_, [] { return ::CreateSolidBrush(RGB(1, 2, 3)); });
        Release(Room);
    }
    ~CrowdedProcess() { Release(std::max(menus_.size(), brushes_.size())); }
    CrowdedProcess(const CrowdedProcess&) = delete;
    CrowdedProcess& operator=(const CrowdedProcess&) = delete;

    /// So many of each are left.
    static constexpr std::size_t Room = 64;

    bool IsCrowded() const { return menus_.size() < Most && brushes_.size() < Most; }

  private:
    /// More than any system lets a process have.
    static constexpr std::size_t Most = 200000;

    template <class H, class F>
    static void Fill(std::vector<H>& handles, F make) {
        while (handles.size() < Most) {
            H const handle = make();
            if (!handle) {
                return;
            }
            handles.push_back(handle);
        }
    }

    void Release(std::size_t count) {
        for (std::size_t i = 0; i < count && !menus_.empty(); ++i) {
            ::DestroyMenu(menus_.back());
            menus_.pop_back();
        }
        for (std::size_t i = 0; i < count && !brushes_.empty(); ++i) {
            ::DeleteObject(brushes_.back());
            brushes_.pop_back();
        }
    }

    std::vector<HMENU> menus_;
    std::vector<HBRUSH> brushes_;
};

constexpr Life ActiveLives[] = {&ClosedByTheHost, &SiteTakenAwayFirst, &ReleasedWhileActive,
                                &WindowDestroyedFirst, &PageOpened};

TEST(Lifetime, LeavesNothingBehindInAThousandLivesOfEveryKindInTurn) {
    // Unseen, as painting a thousand times proves nothing more.
    Form form({10, 10, 330, 210}, SW_HIDE);
    PageOpened(form);
    const Holdings before;
    for (int lives = 0; lives < 1000;) {
        for (const Life live : ActiveLives) {
            live(form);
            HandleMessages();
            ++lives;
        }
        for (const Life live : {&NeverActivated, &NeverStarted}) {
            live(form);
            ++lives;
        }
        ASSERT_EQ(Holdings(), before) << lives << " lives";
    }
}

/// One handle leaked in each life would use up the rest of them before the last.
TEST(Lifetime, NeedsNoMoreThanTheLastFewHandlesOfAProcessHoweverALifeEnds) {
    constexpr int Lives = 70;
    static_assert(CrowdedProcess::Room < Lives);
    Form form({10, 10, 330, 210}, SW_HIDE);
    PageOpened(form);
    const Holdings before;
    const CrowdedProcess process;
    ASSERT_TRUE(process.IsCrowded());
    for (const Life live : ActiveLives) {
        for (int i = 0; i < Lives; ++i) {
            ASSERT_NO_THROW(live(form)) << "life " << i;
            HandleMessages();
        }
        EXPECT_EQ(Holdings(), before);
    }
}

TEST(Lifetime, FormsLeaveNothingBehind) {
    const Holdings before;
    for (int i = 0; i < 20; ++i) {
        Form form;
        form.Place();
        form.DoVerb(OLEIVERB_UIACTIVATE);
        ::DestroyWindow(form.Window());
    }
    EXPECT_EQ(Holdings(), before);
}

} // namespace
} // namespace Quorvane
