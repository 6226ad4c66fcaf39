// SPDX-License-Identifier: MIT
// Times a form full of controls, from making them to seeing them, beside bare windows of the same
// kinds: what the window system takes for these is not the control's.
#include <windows.h>

#include <benchmark/benchmark.h>
#include <commctrl.h>

#include <chrono>
#include <cstdio>
#include <vector>

#include "bench/Benchmarks.h"
#include "bench/ControlHost.h"
#include "com/ErrorBoundary.h"
#include "tests/windows/support/Site.h"
#include "win/Window.h"

namespace Quorvane::Bench {
namespace {

constexpr int FormControls = 20;
constexpr int InRow = 5;
constexpr int Width = 200;
constexpr int Height = 150;
constexpr int StripHeight = 22;

RECT PlaceOf(int index) {
    const int left = index % InRow * (Width + 10);
    const int top = index / InRow * (Height + 10);
    return {left, top, left + Width, top + Height};
}

/// A window on the screen for the controls of a form.
class EmptyForm {
  public:
    EmptyForm()
        : window_(Win::MakeWindow(::GetModuleHandleW(nullptr), L"STATIC",
                                  {.Position = {0, 0, InRow * (Width + 10), 4 * (Height + 10)},
                                   .Style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN})) {
        Paint();
    }

    HWND Get() const { return window_.Get(); }
    void Paint() const { ::RedrawWindow(Get(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }

  private:
    Win::ChildWindow window_;
};

/// A control on a form, closed with it.
class ShownControl {
  public:
    ShownControl(HWND form, const RECT& place)
        : control_(NewControl()), site_(Com::MakeObject<Site>(form, place)) {
        const auto object = control_.As<IOleObject>();
        Com::Check(object->SetClientSite(site_.Get()));
        Com::Check(control_.As<IPersistStreamInit>()->InitNew());
        Com::Check(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, form, &place));
    }
    ShownControl(ShownControl&&) noexcept = default;
    ShownControl& operator=(ShownControl&&) = delete;
    ~ShownControl() {
        if (control_) {
            const auto object = control_.As<IOleObject>();
            object->Close(OLECLOSE_NOSAVE);
            object->SetClientSite(nullptr);
        }
    }

  private:
    Com::ComPtr<_FISControl> control_;
    Com::ComPtr<Site> site_;
};

/// The windows that a control at least needs: a label and two empty lists.
class BareWindows {
  public:
    BareWindows(HWND form, const RECT& place) {
        const LONG bottom = place.top + StripHeight;
        const LONG middle = place.left + Width / 2;
        Add(form, L"STATIC", {place.left, place.top, place.right, bottom}, 0);
        Add(form, WC_LISTVIEWW, {place.left, bottom, middle, place.bottom}, WS_BORDER | LVS_REPORT);
        Add(form, WC_LISTVIEWW, {middle, bottom, place.right, place.bottom},
            WS_BORDER | LVS_REPORT);
    }

  private:
    void Add(HWND form, const wchar_t* className, const RECT& place, DWORD style) {
        windows_.emplace_back(Win::MakeWindow(
            ::GetModuleHandleW(nullptr), className,
            {.Parent = form, .Position = place, .Style = WS_CHILD | WS_VISIBLE | style}));
    }

    std::vector<Win::ChildWindow> windows_;
};

/// Fills a form and paints it; emptying it is not timed.
template <class Content>
void FillForms(benchmark::State& run) {
    using Clock = std::chrono::steady_clock;
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    const EmptyForm form;
    for (auto _ : run) {
        std::vector<Content> contents;
        contents.reserve(FormControls);
        const auto start = Clock::now();
        for (int i = 0; i < FormControls; ++i) {
            contents.emplace_back(form.Get(), PlaceOf(i));
        }
        form.Paint();
        run.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    ControlHost::ForgetLoaded();
}

} // namespace

void RegisterFaceBenchmarks() {
    for (auto* const face : {benchmark::RegisterBenchmark("face/controls", FillForms<ShownControl>),
                             benchmark::RegisterBenchmark("face/bare", FillForms<BareWindows>)}) {
        face->UseManualTime();
    }
}

void PrintFaceTable(const Medians& medians) {
    const auto controls = medians.find("face/controls");
    const auto bare = medians.find("face/bare");
    if (controls != medians.end() && bare != medians.end()) {
        std::printf("A form of %d controls made and painted %.1f ms, bare windows %.1f ms: %.2fx "
                    "(at most 2.5x)\n",
                    FormControls, controls->second / 1e6, bare->second / 1e6,
                    controls->second / bare->second);
    }
}

} // namespace Quorvane::Bench
