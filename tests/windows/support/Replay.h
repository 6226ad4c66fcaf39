// SPDX-License-Identifier: MIT
// The calls of a container on one control, over a site whose every answer a test chooses.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "QuorvaneAxEditor.h"
#include "tests/com/support/EventSink.h"
#include "tests/com/support/TestBag.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {

class Replay;

/// One call of a container.
struct ReplayStep {
    const char* Name;
    HRESULT (*Call)(Replay& replay);
    /// Containers go on when it fails.
    bool MayFail = false;
};

/// A container: what its site is like, and what it calls.
struct ReplayedHost {
    const char* Name;
    /// Makes the site what that container's is.
    void (*PrepareSite)(Site& site);
    std::vector<ReplayStep> Start;
    std::vector<ReplayStep> End;

    bool Calls(const char* step) const;
};

inline void PrintTo(const ReplayedHost& host, std::ostream* stream) {
    *stream << host.Name;
}

/// A control in a container that is played back. It loads the system Adder where it loads.
class Replay {
  public:
    explicit Replay(const ReplayedHost& host);
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    Form Window;
    Com::ComPtr<IUnknown> Control;
    Com::ComPtr<TestBag> Bag;
    Com::ComPtr<EventSink> Events;
    DWORD EventCookie = 0;
    DWORD ObjectCookie = 0;
    bool IsLoaded = false;

    Site& TheSite() const { return Window.TheSite(); }

    template <class I>
    Com::ComPtr<I> As() const {
        return Control.As<I>();
    }

    /// Plays the steps, whatever they return.
    void Play(const std::vector<ReplayStep>& steps);

    /// The steps that failed though no container expects them to, each with its result.
    const std::vector<std::pair<std::string, HRESULT>>& Failures() const { return failures_; }
    std::string DescribeFailures() const;

    /// Whether some step has failed with that result.
    bool HasReported(HRESULT result) const;

  private:
    std::vector<std::pair<std::string, HRESULT>> failures_;
};

/// The calls that containers are made of.
namespace Steps {

extern const ReplayStep GetMiscStatus;
extern const ReplayStep SetClientSite;
extern const ReplayStep QuickActivate;
extern const ReplayStep SetHostNames;
extern const ReplayStep Run;
extern const ReplayStep AdviseObject;
extern const ReplayStep AdviseView;
extern const ReplayStep ConnectEvents;
extern const ReplayStep DisconnectEvents;

extern const ReplayStep InitNew;
extern const ReplayStep InitNewStorage;
extern const ReplayStep InitNewBag;
extern const ReplayStep LoadStream;
extern const ReplayStep LoadFormerStream;
extern const ReplayStep LoadStorage;
extern const ReplayStep LoadBag;
extern const ReplayStep SaveStream;
extern const ReplayStep SaveStorage;
extern const ReplayStep SaveBag;

extern const ReplayStep FreezeEvents;
extern const ReplayStep ThawEvents;
extern const ReplayStep GetControlInfo;
extern const ReplayStep TellOfAmbients;
extern const ReplayStep AskForSafety;
extern const ReplayStep AskForWindowless;
extern const ReplayStep AskForPages;
extern const ReplayStep AskForCategories;
extern const ReplayStep GetUserType;
extern const ReplayStep GetViewStatus;
extern const ReplayStep GetNaturalExtent;

extern const ReplayStep SetExtent;
extern const ReplayStep SetContentExtent;
extern const ReplayStep GetExtent;
extern const ReplayStep GetWindow;
extern const ReplayStep SetObjectRects;
extern const ReplayStep ActivateInPlace;
extern const ReplayStep Show;
extern const ReplayStep ActivateUI;
extern const ReplayStep DoPrimaryVerb;
extern const ReplayStep Hide;
extern const ReplayStep DeactivateUI;
extern const ReplayStep DeactivateInPlace;
extern const ReplayStep Draw;
extern const ReplayStep GetPicture;

extern const ReplayStep CloseWithoutSaving;
extern const ReplayStep CloseAndSave;
extern const ReplayStep TakeSiteAway;

} // namespace Steps

/// The containers that people use, each as its published source or its contract has it.
const std::vector<ReplayedHost>& ReplayedHosts();

} // namespace Quorvane
