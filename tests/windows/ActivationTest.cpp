// SPDX-License-Identifier: MIT
// Activating and deactivating the control, by proper hosts and by odd ones, in any order.
#include <windows.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "tests/windows/support/Form.h"

namespace Quorvane {
namespace {

using Strings = std::vector<std::string>;

TEST(Activation, TellsTheSiteEachStepInOrder) {
    Form form;
    form.Place();
    form.Calls().Clear();
    ASSERT_EQ(form.DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_EQ(form.Calls().All(), (Strings{"CanInPlaceActivate", "OnInPlaceActivate",
                                           "GetWindowContext", "ShowObject"}));
    EXPECT_TRUE(::IsWindowVisible(form.Surface()));
    EXPECT_EQ(::GetParent(form.Surface()), form.Window());
}

TEST(Activation, OfTheUserInterfaceMakesItTheActiveObjectOfTheFrame) {
    Form form;
    form.Place();
    ASSERT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(Com::IsSameObject(form.TheSite().FrameWindow()->ActiveObject().Get(),
                                  form.Control().Get()));
    EXPECT_EQ(::GetFocus(), form.Input());
    EXPECT_EQ(form.Calls().Count("OnUIActivate"), 1);
    EXPECT_EQ(form.Calls().Count("OnFocus in"), 1);
}

TEST(Activation, StepsBackInTheReverseOrder) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    form.Calls().Clear();
    form.As<IOleInPlaceObject>()->InPlaceDeactivate();
    EXPECT_EQ(form.Calls().Only({"OnUIDeactivate", "OnInPlaceDeactivate"}),
              (Strings{"OnUIDeactivate", "OnInPlaceDeactivate"}));
    EXPECT_EQ(form.TheSite().FrameWindow()->ActiveObject().Get(), nullptr);
    EXPECT_EQ(form.Surface(), nullptr);
}

TEST(Activation, UsesTheExtendedSiteWhereThereIsOne) {
    Form form;
    form.TheSite().Behaviour.OffersInPlaceEx = true;
    form.Place();
    form.Activate();
    EXPECT_EQ(form.Calls().Count("OnInPlaceActivateEx"), 1);
    EXPECT_EQ(form.Calls().Count("OnInPlaceActivate"), 0);
}

TEST(Activation, AsksAnExtendedSiteBeforeItTakesTheUser) {
    Form form;
    form.TheSite().Behaviour.OffersInPlaceEx = true;
    form.TheSite().Behaviour.LetsUIActivate = S_FALSE;
    form.Place();
    form.Activate();
    form.Calls().Clear();
    EXPECT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), OLEOBJ_S_CANNOT_DOVERB_NOW);
    EXPECT_EQ(form.Calls().Only({"RequestUIActivate", "OnUIActivate", "OnUIDeactivate"}),
              (Strings{"RequestUIActivate", "OnUIDeactivate"}))
        << "the site may give the focus back";
    EXPECT_EQ(form.TheSite().FrameWindow()->ActiveObject().Get(), nullptr);
    EXPECT_FALSE(::IsChild(form.Surface(), ::GetFocus()));
    // A site that does not know the question, or fails in answering it, has nothing against it.
    for (const HRESULT answer : {S_OK, E_NOTIMPL, E_FAIL}) {
        form.TheSite().Behaviour.LetsUIActivate = answer;
        form.Calls().Clear();
        EXPECT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        EXPECT_EQ(form.Calls().Only({"RequestUIActivate", "OnUIActivate"}),
                  (Strings{"RequestUIActivate", "OnUIActivate"}));
        form.As<IOleInPlaceObject>()->UIDeactivate();
    }
}

TEST(Activation, EndsAtASiteThatDeactivatesWhenItIsAsked) {
    Form form;
    form.TheSite().Behaviour.OffersInPlaceEx = true;
    form.Place();
    form.TheSite().During["RequestUIActivate"] = [&form] {
        form.As<IOleInPlaceObject>()->InPlaceDeactivate();
    };
    EXPECT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), E_UNEXPECTED);
    EXPECT_EQ(form.Surface(), nullptr);
    EXPECT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), S_OK) << "and works again";
}

TEST(Activation, KeepsTheUserFromAControlWhoseHostHasStopped) {
    Form form;
    form.Place();
    ASSERT_EQ(form.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    ASSERT_TRUE(::IsChild(form.Surface(), ::GetFocus()));
    form.SetAmbient(DISPID_AMBIENT_UIDEAD, Com::Variant(true), DISPID_AMBIENT_UIDEAD);
    EXPECT_FALSE(::IsWindowEnabled(form.Surface()));
    EXPECT_TRUE(::IsWindowEnabled(form.Input())) << "it looks as before";
    EXPECT_FALSE(::IsChild(form.Surface(), ::GetFocus()));
    form.SetAmbient(DISPID_AMBIENT_UIDEAD, Com::Variant(false), DISPID_UNKNOWN);
    EXPECT_TRUE(::IsWindowEnabled(form.Surface()));
    form.SetAmbient(DISPID_AMBIENT_UIDEAD, Com::Variant(true), DISPID_AMBIENT_FONT);
    EXPECT_TRUE(::IsWindowEnabled(form.Surface())) << "the host has spoken of another property";
    form.As<IOleInPlaceObject>()->InPlaceDeactivate();
    form.Activate();
    EXPECT_FALSE(::IsWindowEnabled(form.Surface())) << "activated while the host stands";
}

TEST(Activation, EndsWithoutAWindowWhereTheSiteRefuses) {
    Form form;
    form.TheSite().Behaviour.CanActivate = false;
    form.Place();
    EXPECT_EQ(form.DoVerb(OLEIVERB_INPLACEACTIVATE), E_FAIL);
    EXPECT_EQ(form.Surface(), nullptr);
    form.TheSite().Behaviour.CanActivate = true;
    form.TheSite().Behaviour.OffersInPlace = false;
    EXPECT_EQ(form.DoVerb(OLEIVERB_SHOW), OLEOBJ_S_CANNOT_DOVERB_NOW);
}

TEST(Activation, TakesThePlaceFromTheVerbWhereTheSiteNamesNone) {
    Form form({20, 30, 220, 180});
    form.TheSite().Behaviour.FillsContext = false;
    form.Place();
    form.Activate();
    const RECT expected{20, 30, 220, 180};
    const RECT place = PlaceOf(form.Surface());
    EXPECT_TRUE(::EqualRect(&place, &expected));
}

TEST(Activation, IsPossibleAgainAfterEachWayBack) {
    Form form;
    form.Place();
    for (int round = 0; round < 3; ++round) {
        form.Activate();
        ASSERT_NE(form.Surface(), nullptr);
        if (round == 0) {
            form.As<IOleInPlaceObject>()->InPlaceDeactivate();
        } else {
            form.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
        }
        ASSERT_EQ(form.Surface(), nullptr);
    }
}

TEST(Activation, StepsBackOnlyOnceHoweverOftenItIsAsked) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    const auto inPlace = form.As<IOleInPlaceObject>();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
        EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
        EXPECT_EQ(form.As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    }
    EXPECT_EQ(form.Calls().Count("OnUIDeactivate"), 1);
    EXPECT_EQ(form.Calls().Count("OnInPlaceDeactivate"), 1);
}

TEST(Activation, EndsWhenTheSiteIsTakenAwayBeforeTheControlIsClosed) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    const auto object = form.As<IOleObject>();
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(form.Surface(), nullptr);
    EXPECT_EQ(form.Calls().Count("OnInPlaceDeactivate"), 1);
    EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(form.Calls().Count("SaveObject"), 0);
}

TEST(Activation, SurvivesTheEndOfTheHostsWindow) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    ::DestroyWindow(form.Window());
    EXPECT_EQ(form.Surface(), nullptr);
    EXPECT_EQ(form.Control()->put_Caption(nullptr), S_OK);
    EXPECT_EQ(form.Control()->Refresh(), S_OK);
    EXPECT_EQ(form.Control()->Fire(), S_OK);
}

TEST(Activation, LetsTheHostDeactivateInTheMiddle) {
    for (const char* call : {"OnInPlaceActivate", "GetWindowContext", "ShowObject", "OnUIActivate",
                             "SetActiveObject", "OnFocus in"}) {
        SCOPED_TRACE(call);
        Form form;
        form.Place();
        form.TheSite().During[call] = [&form] {
            form.As<IOleInPlaceObject>()->InPlaceDeactivate();
        };
        form.DoVerb(OLEIVERB_UIACTIVATE);
        HandleMessages();
        // The frame's calls are recorded without being interrupted.
        if (std::string(call) != "SetActiveObject") {
            EXPECT_EQ(form.Surface(), nullptr);
        }
        form.Activate();
        EXPECT_NE(form.Surface(), nullptr);
    }
}

TEST(Activation, LetsTheHostReleaseTheControlInTheMiddle) {
    for (const char* call : {"OnInPlaceActivate", "ShowObject", "OnUIActivate", "OnFocus in"}) {
        SCOPED_TRACE(call);
        Form form;
        form.Place();
        const auto object = form.As<IOleObject>();
        form.TheSite().During[call] = [&form] { form.Remove(); };
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &form.TheSite(), 0, form.Window(), nullptr);
        HandleMessages();
        EXPECT_FALSE(form.Control());
    }
}

TEST(Activation, HidesAndShowsTheWindow) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    EXPECT_EQ(form.DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(form.Surface()));
    EXPECT_EQ(form.DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(form.Surface()));
}

TEST(Activation, CutsTheWindowWhereTheHostScrolls) {
    Form form({0, 0, 200, 150});
    form.Place();
    form.Activate();
    const RECT position{-50, -20, 150, 130};
    const RECT clip{0, 0, 100, 100};
    ASSERT_EQ(form.As<IOleInPlaceObject>()->SetObjectRects(&position, &clip), S_OK);
    HRGN const region = ::CreateRectRgn(0, 0, 0, 0);
    RECT visible{};
    ASSERT_NE(::GetWindowRgn(form.Surface(), region), ERROR);
    ::GetRgnBox(region, &visible);
    ::DeleteObject(region);
    const RECT expected{50, 20, 150, 120};
    EXPECT_TRUE(::EqualRect(&visible, &expected));
}

TEST(Activation, AnswersUnknownVerbs) {
    Form form;
    form.Place();
    EXPECT_EQ(form.DoVerb(-100), E_NOTIMPL);
    EXPECT_EQ(form.Surface(), nullptr);
    EXPECT_EQ(form.DoVerb(100), OLEOBJ_S_INVALIDVERB);
    EXPECT_NE(form.Surface(), nullptr);
}

TEST(Activation, OpensThePropertyPagesInTheHostsFrameWhereItHasOne) {
    Form form;
    form.Place(Start::New, false);
    form.TheSite().Behaviour.ShowsPropertyFrame = S_OK;
    EXPECT_EQ(form.DoVerb(OLEIVERB_PROPERTIES), S_OK);
    EXPECT_EQ(form.DoVerb(1), S_OK);
    EXPECT_EQ(form.Calls().Count("ShowPropertyFrame"), 2);
}

} // namespace
} // namespace Quorvane
