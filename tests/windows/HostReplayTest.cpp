// SPDX-License-Identifier: MIT
// The control in the containers that people use, with every answer that each may give: it lives at
// the end, or the container has been told that it cannot.
#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "com/Module.h"
#include "tests/com/support/ValueObject.h"
#include "tests/com/support/Values.h"
#include "tests/windows/support/Replay.h"

namespace Quorvane {
namespace {

/// What a changed answer makes of the control.
enum class Outcome {
    /// It lives, with a window where the container activates it.
    Living,
    /// It lives without a window, or without the user; the verb has said so.
    NotActive,
    /// It has not started, and the call that would have started it has said so. It starts once the
    /// trouble is over.
    Refused,
};

/// One answer of a site or a bag that is not the usual one.
struct Change {
    std::string Name;
    std::function<void(Replay&)> Make;
    Outcome Expected = Outcome::Living;
    HRESULT Reported = S_OK;
    /// The call without which the change makes no difference, and is not made; empty for none.
    const char* Needs = "";
    /// The same of a site that has ambient properties when the control starts.
    bool NeedsAmbients = false;
};

constexpr HRESULT NotOffered[] = {
    DISP_E_MEMBERNOTFOUND,
    DISP_E_UNKNOWNNAME,
    DISP_E_EXCEPTION,
    E_FAIL,
    E_NOTIMPL,
    E_UNEXPECTED,
    E_INVALIDARG,
    static_cast<HRESULT>(0x80131604) // the common runtime's
};

constexpr struct {
    const char* Name;
    DISPID Id;
} Ambients[] = {{"BackColor", DISPID_AMBIENT_BACKCOLOR},
                {"Font", DISPID_AMBIENT_FONT},
                {"LocaleID", DISPID_AMBIENT_LOCALEID},
                {"UserMode", DISPID_AMBIENT_USERMODE},
                {"UIDead", DISPID_AMBIENT_UIDEAD}};

std::string Hexadecimal(HRESULT result) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08lx", static_cast<unsigned long>(result));
    return digits;
}

void AddAmbients(std::vector<Change>& changes) {
    for (const auto& [name, id] : Ambients) {
        for (const HRESULT answer : {E_FAIL, E_UNEXPECTED, DISP_E_EXCEPTION}) {
            changes.push_back(
                {std::string(name) + " " + Hexadecimal(answer),
                 [id = id, answer](Replay& replay) { replay.TheSite().Failures[id] = answer; }});
        }
        const Com::Variant values[] = {
            Com::Variant(),     Bare(VT_NULL), Bare(VT_ERROR),
            TextValue(u"what"), ArrayValue(),  Com::Variant(static_cast<IDispatch*>(nullptr))};
        for (const Com::Variant& value : values) {
            changes.push_back(
                {std::string(name) + " " + Describe(value),
                 [id = id, value](Replay& replay) { replay.TheSite().Ambients[id] = value; }});
        }
    }
    for (const HRESULT answer : NotOffered) {
        changes.push_back(
            {"every ambient property " + Hexadecimal(answer), [answer](Replay& replay) {
                 replay.TheSite().Ambients.clear();
                 replay.TheSite().OtherAmbients = answer;
             }});
    }
    // A font that cannot be had for want of memory is trouble: starting without one would lose it.
    changes.push_back(
        {"no memory for a font",
         [](Replay& replay) { replay.TheSite().Failures[DISPID_AMBIENT_FONT] = E_OUTOFMEMORY; },
         Outcome::Refused, E_OUTOFMEMORY, "", true});
}

Change Answer(const char* call, HRESULT answer, Outcome expected = Outcome::Living,
              HRESULT reported = S_OK, const char* needs = "") {
    return {std::string(call) + " " + Hexadecimal(answer),
            [call, answer](Replay& replay) { replay.TheSite().Calls.Answers[call] = answer; },
            expected, reported, needs};
}

void AddActivation(std::vector<Change>& changes) {
    for (const HRESULT answer : {E_FAIL, E_NOTIMPL}) {
        for (const char* const call :
             {"GetWindow", "GetWindowContext", "ShowObject", "OnUIDeactivate",
              "OnInPlaceDeactivate", "OnFocus in", "OnFocus out", "SaveObject", "SetActiveObject",
              "SetActiveObject none", "SetBorderSpace none", "RequestUIActivate", "OnChanged"}) {
            changes.push_back(Answer(call, answer));
        }
        changes.push_back(Answer("OnInPlaceActivate", answer, Outcome::NotActive, answer));
    }
    changes.push_back({"GetWindowContext gives nothing",
                       [](Replay& replay) { replay.TheSite().Behaviour.FillsContext = false; }});
    changes.push_back({"GetWindowContext gives an empty place",
                       [](Replay& replay) { replay.TheSite().Position = {}; }});
    changes.push_back({"CanInPlaceActivate says no",
                       [](Replay& replay) { replay.TheSite().Behaviour.CanActivate = false; },
                       Outcome::NotActive, E_FAIL});
    changes.push_back({"no place for it",
                       [](Replay& replay) { replay.TheSite().Behaviour.OffersInPlace = false; },
                       Outcome::NotActive, S_OK});
    changes.push_back({"an extended site",
                       [](Replay& replay) { replay.TheSite().Behaviour.OffersInPlaceEx = true; }});
    changes.push_back({"an extended site that lacks its calls", [](Replay& replay) {
                           replay.TheSite().Behaviour.OffersInPlaceEx = true;
                           replay.TheSite().Calls.Answers["OnInPlaceActivateEx"] = E_NOTIMPL;
                           replay.TheSite().Calls.Answers["RequestUIActivate"] = E_NOTIMPL;
                       }});
    changes.push_back({"an extended site that keeps the user", [](Replay& replay) {
                           replay.TheSite().Behaviour.OffersInPlaceEx = true;
                           replay.TheSite().Behaviour.LetsUIActivate = S_FALSE;
                       }});
    for (const IID& lacking : {__uuidof(IOleControlSite), __uuidof(IDispatch)}) {
        changes.push_back(
            {lacking == __uuidof(IDispatch) ? "no ambient properties at all" : "no control site",
             [lacking](Replay& replay) { replay.TheSite().Behaviour.Lacks.push_back(lacking); }});
    }
}

void AddBags(std::vector<Change>& changes) {
    constexpr const char* Load = "IPersistPropertyBag::Load";
    for (const TextView name : {u"Caption", u"Font", u"BackColor", u"ForeColor", u"Enabled"}) {
        for (const HRESULT answer :
             {E_INVALIDARG, E_FAIL, DISP_E_MEMBERNOTFOUND, DISP_E_UNKNOWNNAME, STG_E_FILENOTFOUND,
              HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), S_FALSE}) {
            changes.push_back(
                {"bag without " + Narrow(name) + " " + Hexadecimal(answer),
                 [name, answer](Replay& replay) { replay.Bag->Failures[Text(name)] = answer; },
                 Outcome::Living, S_OK, Load});
        }
        for (const HRESULT answer : {E_OUTOFMEMORY, STG_E_ACCESSDENIED, STG_E_READFAULT}) {
            changes.push_back(
                {"bag that fails in " + Narrow(name) + " " + Hexadecimal(answer),
                 [name, answer](Replay& replay) { replay.Bag->Failures[Text(name)] = answer; },
                 Outcome::Refused, answer, Load});
        }
    }
}

std::vector<Change> AllChanges() {
    std::vector<Change> changes;
    changes.push_back({"nothing", [](Replay&) {}});
    AddAmbients(changes);
    AddActivation(changes);
    AddBags(changes);
    return changes;
}

/// The control answers, runs, computes, tells of it, and draws.
void ExpectLiving(Replay& replay) {
    const auto control = replay.As<_FISControl>();
    Com::Bstr caption;
    EXPECT_EQ(control->get_Caption(caption.Put()), S_OK);
    EXPECT_FALSE(caption.Characters().empty());
    Com::ComPtr<IFontDisp> font;
    EXPECT_EQ(control->get_Font(font.Put()), S_OK);
    EXPECT_TRUE(font);
    Com::ComPtr<IDictionary> inputs;
    ASSERT_EQ(control->get_InVals(inputs.Put()), S_OK);
    ASSERT_TRUE(inputs) << "no system: the control is dead";
    LONG count = 0;
    EXPECT_EQ(inputs->get_Count(&count), S_OK);
    EXPECT_GT(count, 0);
    const int before = replay.Events->Count;
    if (replay.IsLoaded) {
        PutItem(inputs, u"X", 1);
    }
    EXPECT_EQ(control->Fire(), S_OK);
    EXPECT_EQ(replay.Events->Count - before, replay.EventCookie != 0 ? 1 : 0);
    if (replay.IsLoaded) {
        Com::ComPtr<IDictionary> outputs;
        EXPECT_EQ(control->get_OutVals(outputs.Put()), S_OK);
        ASSERT_TRUE(outputs);
        EXPECT_EQ(Describe(ItemOf(outputs, u"Y")), "Double 129");
    }
    EXPECT_EQ(Steps::Draw.Call(replay), S_OK);
}

bool Activates(const ReplayedHost& host) {
    for (const ReplayStep& step :
         {Steps::ActivateInPlace, Steps::Show, Steps::ActivateUI, Steps::DoPrimaryVerb}) {
        if (host.Calls(step.Name)) {
            return true;
        }
    }
    return false;
}

void ExpectWindow(const Replay& replay, bool expected) {
    HWND window = nullptr;
    replay.As<IOleInPlaceObject>()->GetWindow(&window);
    EXPECT_EQ(window != nullptr, expected);
    EXPECT_EQ(window ? ::GetParent(window) : nullptr, expected ? replay.Window.Window() : nullptr);
}

/// Plays one container with one change of its answers.
void PlayChanged(const ReplayedHost& host, const Change& change) {
    const LONG before = Com::ModuleLockCount();
    {
        Replay replay(host);
        const bool hasPlace = replay.TheSite().Behaviour.OffersInPlace;
        const bool hasAmbients = replay.TheSite().Behaviour.Lacks.empty();
        change.Make(replay);
        const bool matters = !change.NeedsAmbients || hasAmbients;
        const bool activates = Activates(host) && hasPlace;
        Outcome expected = matters ? change.Expected : Outcome::Living;
        // An extended site has a call of its own for it.
        const bool isAnswered = replay.TheSite().Behaviour.OffersInPlaceEx &&
                                change.Name.starts_with("OnInPlaceActivate ");
        if (expected == Outcome::NotActive && (!activates || isAnswered)) {
            expected = Outcome::Living;
        }
        replay.Play(host.Start);
        if (expected == Outcome::Refused) {
            EXPECT_TRUE(replay.HasReported(change.Reported)) << replay.DescribeFailures();
            replay.TheSite().Failures.clear();
            replay.Bag->Failures.clear();
            EXPECT_EQ(Steps::LoadBag.Call(replay), S_OK) << "the trouble is over";
        } else if (expected == Outcome::NotActive && FAILED(change.Reported)) {
            EXPECT_TRUE(replay.HasReported(change.Reported)) << replay.DescribeFailures();
        } else {
            EXPECT_EQ(replay.DescribeFailures(), "");
        }
        ExpectLiving(replay);
        if (expected != Outcome::Refused) {
            ExpectWindow(replay, activates && expected == Outcome::Living);
        }
        replay.Play(host.End);
        ExpectWindow(replay, false);
    }
    EXPECT_EQ(Com::ModuleLockCount(), before) << "something is left";
}

class HostReplay : public testing::TestWithParam<ReplayedHost> {};

TEST_P(HostReplay, EndsWithALivingControlOrAReportedFailure) {
    for (const Change& change : AllChanges()) {
        if (*change.Needs == '\0' || GetParam().Calls(change.Needs)) {
            SCOPED_TRACE(change.Name);
            PlayChanged(GetParam(), change);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, HostReplay, testing::ValuesIn(ReplayedHosts()),
                         [](const auto& host) { return host.param.Name; });

} // namespace
} // namespace Quorvane
