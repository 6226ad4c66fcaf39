// SPDX-License-Identifier: MIT
// What the control's window shows: rows, values, headers, colours, fonts, states, status panel.
#include <windows.h>

#include <commctrl.h>
#include <olectl.h>

#include <gtest/gtest.h>

#include "com/ErrorBoundary.h"
#include "control/display/Colors.h"
#include "shared/Definition.h"
#include "tests/com/support/Systems.h"
#include "tests/com/support/TestBag.h"
#include "tests/com/support/Values.h"
#include "tests/windows/support/Form.h"
#include "tests/windows/support/Picture.h"
#include "win/Handle.h"
#include "win/WindowText.h"

namespace Quorvane {
namespace {

Com::Bstr Text16(TextView text) {
    return Com::Bstr(text);
}

/// The input values of the process.
Com::ComPtr<IDictionary> InputsOf(const Form& form) {
    Com::ComPtr<IDictionary> values;
    Com::Check(form.Control()->get_InVals(values.Put()));
    return values;
}

void SetInput(const Form& form, TextView name, Com::Variant value) {
    Com::Variant key(name);
    Com::Check(InputsOf(form)->put_Item(&key.Get(), &value.Get()));
}

struct Panel {
    bool Visible;
    bool HasPicture;
    Text Message;

    bool operator==(const Panel&) const = default;
};

Panel PanelOf(HWND bar) {
    int edge = 0;
    ::SendMessageW(bar, SB_GETPARTS, 1, reinterpret_cast<LPARAM>(&edge));
    return {edge != 0, ::SendMessageW(bar, SB_GETICON, 0, 0) != 0, PanelText(bar)};
}

TEST(Display, ShowsTheVariablesWithTheirBoundsInFullRows) {
    Form form;
    form.Place();
    form.Activate();
    ASSERT_EQ(ListView_GetItemCount(form.Input()), 2);
    ASSERT_EQ(ListView_GetItemCount(form.Output()), 1);
    EXPECT_EQ(CellText(form.Input(), 0, 0), u"Error [-1, 1]");
    EXPECT_EQ(CellText(form.Input(), 1, 0), u"Rate [-1, 1]");
    EXPECT_EQ(CellText(form.Output(), 0, 0), u"Action [-1, 1]");
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"");
    EXPECT_TRUE(ListView_GetExtendedListViewStyle(form.Input()) & LVS_EX_FULLROWSELECT);
    EXPECT_EQ(::GetWindowLongW(form.Input(), GWL_STYLE) & LVS_TYPEMASK, DWORD{LVS_REPORT});
}

TEST(Display, ShowsValuesAfterACycleOnlyWhereTheHostAsksForThem) {
    Form form;
    form.Place();
    form.Activate();
    SetInput(form, u"Error", Com::Variant(0.25));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"");
    form.Control()->put_DataShow(VARIANT_TRUE);
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"0.25");
    EXPECT_EQ(CellText(form.Input(), 1, 1), u"-1");
    EXPECT_NE(CellText(form.Output(), 0, 1), u"");
}

TEST(Display, ShowsWhatWasSetBeforeThereWasAWindow) {
    Form form;
    form.Place();
    form.Control()->put_DataShow(VARIANT_TRUE);
    form.Control()->put_Caption(Text16(u"Boiler").Get());
    form.Control()->put_BackColor(0x00C0FFC0);
    form.Control()->put_ForeColor(0x000000FF);
    form.Control()->put_Enabled(VARIANT_FALSE);
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    form.Activate();
    EXPECT_EQ(Win::TextOf(form.Label()), u"Boiler");
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"-1");
    EXPECT_EQ(ListView_GetBkColor(form.Output()), COLORREF{0x00C0FFC0});
    EXPECT_EQ(ListView_GetTextColor(form.Input()), COLORREF{0x000000FF});
    EXPECT_FALSE(::IsWindowEnabled(form.Output()));
    EXPECT_FALSE(PanelOf(form.Status()).Visible);
}

TEST(Display, KeepsValuesAndStateOverADeactivation) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    form.Control()->Fire();
    form.As<IOleInPlaceObject>()->InPlaceDeactivate();
    form.Activate();
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"-1");
}

TEST(Display, HidesThePanelInEachCycleAndKeepsItHiddenWithPictureAndTextAfterAFailure) {
    Form form;
    form.Place();
    form.Activate();
    EXPECT_EQ(PanelOf(form.Status()), (Panel{true, false, u""}));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(PanelOf(form.Status()), (Panel{false, false, u""}));
    SetInput(form, u"Error", Com::Variant(TextView(u"hot")));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(PanelOf(form.Status()), (Panel{false, true, u"Invalid linguistic input signal."}));
}

TEST(Display, ShowsTheErrorOutputsOfAFailedCycle) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    SetInput(form, u"Error", Com::Variant(TextView(u"hot")));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"hot");
    EXPECT_EQ(CellText(form.Output(), 0, 1), u"0");
}

TEST(Display, ShowsNoRowsForAnEmptyModel) {
    Form form;
    form.Place(Start::New, false);
    form.Activate();
    Definition::State().InputVariables.emplace(KeyComparison::IgnoreCase);
    Definition::State().OutputVariables.emplace(KeyComparison::IgnoreCase);
    ASSERT_EQ(form.Control()->put_Inputs(nullptr), S_OK);
    EXPECT_EQ(ListView_GetItemCount(form.Input()), 0);
    EXPECT_EQ(ListView_GetItemCount(form.Output()), 0);
    EXPECT_EQ(HeaderText(form.Input(), 0), u"Input");
    EXPECT_EQ(HeaderText(form.Output(), 1), u"Value");
}

TEST(Display, RefillsTheListsForInputsAndOutputsButNotForRules) {
    Form form;
    form.Place(Start::New, false);
    form.Activate();
    auto& state = Definition::State();
    state.InputVariables->Remove(u"Rate");
    ASSERT_EQ(form.Control()->put_Rules(nullptr), S_OK);
    EXPECT_EQ(ListView_GetItemCount(form.Input()), 2);
    ASSERT_EQ(form.Control()->put_Outputs(nullptr), S_OK);
    EXPECT_EQ(ListView_GetItemCount(form.Input()), 1);
}

TEST(Display, ShowsNoValuesAndRaisesNothingOnceAnotherControlHasEndedTheModel) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    {
        Form other;
        other.Place();
        other.Activate();
    }
    EXPECT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Input(), 0, 0), u"Error [-1, 1]");
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"");
    EXPECT_EQ(CellText(form.Output(), 0, 1), u"");
}

TEST(Display, DisablesCaptionAndBothListsByThePropertyButOnlyTheInputListByLoading) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_Enabled(VARIANT_FALSE);
    EXPECT_FALSE(::IsWindowEnabled(form.Label()));
    EXPECT_FALSE(::IsWindowEnabled(form.Input()));
    EXPECT_FALSE(::IsWindowEnabled(form.Output()));

    Form loaded;
    loaded.Place(Start::Not);
    const auto bag = Com::MakeObject<TestBag>();
    bag->Values[u"Enabled"] = Com::Variant(false);
    ASSERT_EQ(loaded.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr), S_OK);
    loaded.Activate();
    EXPECT_TRUE(::IsWindowEnabled(loaded.Label()));
    EXPECT_FALSE(::IsWindowEnabled(loaded.Input()));
    EXPECT_TRUE(::IsWindowEnabled(loaded.Output()));
}

TEST(Display, ColoursTheStripByTheHostsBackground) {
    struct Case {
        LONG Ambient;
        OLE_COLOR Strip;
    };
    constexpr auto Desktop = static_cast<LONG>(0x80000001);
    constexpr auto Title = static_cast<LONG>(0x80000002);
    constexpr auto Button = static_cast<LONG>(0x8000000F);
    for (const Case& item : {Case{Desktop, 0x80000002}, Case{Title, 0x80000001},
                             Case{Button, 0x80000001}, Case{0, 0x80000001}}) {
        Form form;
        form.Place();
        form.Activate();
        form.SetAmbient(DISPID_AMBIENT_BACKCOLOR, Com::Variant(item.Ambient),
                        DISPID_AMBIENT_BACKCOLOR);
        COLORREF expected = 0;
        ::OleTranslateColor(item.Strip, nullptr, &expected);
        ::RedrawWindow(form.Strip(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        HDC const context = ::GetDC(form.Strip());
        EXPECT_EQ(::GetPixel(context, 2, 2), expected) << item.Ambient;
        ::ReleaseDC(form.Strip(), context);
    }
}

TEST(Display, TakesAColourOfTheHostInAnyNumberType) {
    COLORREF title = 0;
    ::OleTranslateColor(0x80000002, nullptr, &title);
    for (const VARTYPE type : {VT_UI4, VT_R8, VT_I8}) {
        Form form;
        form.Place();
        form.Activate();
        form.SetAmbient(DISPID_AMBIENT_BACKCOLOR, Typed(type, 2147483649.0),
                        DISPID_AMBIENT_BACKCOLOR);
        ::RedrawWindow(form.Strip(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const Win::WindowDc context(form.Strip());
        EXPECT_EQ(::GetPixel(context.Get(), 2, 2), title) << type;
    }
}

TEST(Display, LooksUpLocaleAndColourWhereSeveralAmbientsChanged) {
    Form form;
    form.Place(Start::New, false);
    form.Activate();
    form.TheSite().Ambients[DISPID_AMBIENT_BACKCOLOR] = Com::Variant(LONG{0});
    form.SetAmbient(DISPID_AMBIENT_LOCALEID, Com::Variant(2052), DISPID_UNKNOWN);
    EXPECT_EQ(Definition::State().LanguageId, 2052);
    ::RedrawWindow(form.Strip(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    HDC const context = ::GetDC(form.Strip());
    EXPECT_EQ(::GetPixel(context, 2, 2), ::GetSysColor(COLOR_DESKTOP));
    ::ReleaseDC(form.Strip(), context);
}

TEST(Display, TranslatesTheHeadersAtTheNextResize) {
    Form form({0, 0, 300, 200});
    form.Place(Start::New, false);
    form.Activate();
    form.SetAmbient(DISPID_AMBIENT_LOCALEID, Com::Variant(2052), DISPID_AMBIENT_LOCALEID);
    EXPECT_EQ(HeaderText(form.Input(), 0), u"Input");
    form.Move({0, 0, 310, 200});
    EXPECT_EQ(HeaderText(form.Input(), 0), u"输入");
    EXPECT_EQ(HeaderText(form.Input(), 1), u"值");
    EXPECT_EQ(HeaderText(form.Output(), 0), u"输出");
    form.SetAmbient(DISPID_AMBIENT_LOCALEID, Com::Variant(1033), DISPID_AMBIENT_LOCALEID);
    form.Move({0, 0, 300, 200});
    EXPECT_EQ(HeaderText(form.Output(), 0), u"Output");
}

TEST(Display, LaysTheListsOutWithOneAndAHalfTimesTheCaptionAbove) {
    Form form({0, 0, 400, 200});
    form.Place();
    form.Activate();
    form.Control()->put_Caption(Text16(u"Speed").Get());
    const RECT input = PlaceOf(form.Input());
    const RECT output = PlaceOf(form.Output());
    EXPECT_EQ(input.left, 0);
    EXPECT_EQ(input.right, 201);
    EXPECT_EQ(output.left, 200);
    EXPECT_EQ(output.right, 400);
    EXPECT_EQ(ListView_GetColumnWidth(form.Input(), 0), 100);
    EXPECT_EQ(ListView_GetColumnWidth(form.Output(), 1), 100);
    EXPECT_EQ(PlaceOf(form.Strip()).bottom, input.top);
    EXPECT_EQ(input.bottom, PlaceOf(form.Status()).top);
    EXPECT_EQ(PlaceOf(form.Status()).bottom, 200);
    const RECT label = PlaceOf(form.Label());
    EXPECT_GT(label.right, label.left);
    form.Control()->put_Caption(nullptr);
    const RECT none = PlaceOf(form.Label());
    EXPECT_EQ(none.right, none.left);
}

TEST(Display, KeepsTheListsHeightWhereThereIsNoRoomForIt) {
    Form form({0, 0, 400, 200});
    form.Place();
    form.Activate();
    const RECT before = PlaceOf(form.Input());
    form.Move({0, 0, 400, 30});
    const RECT after = PlaceOf(form.Input());
    EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
    form.Move({0, 0, 400, 100});
    EXPECT_EQ(PlaceOf(form.Input()).bottom, PlaceOf(form.Status()).top);
}

TEST(Display, ShowsNoHorizontalScrollBarForItsOwnColumns) {
    Form form({0, 0, 301, 200});
    form.Place();
    form.Activate();
    HandleMessages();
    EXPECT_FALSE(::GetWindowLongW(form.Input(), GWL_STYLE) & WS_HSCROLL);
    EXPECT_FALSE(::GetWindowLongW(form.Output(), GWL_STYLE) & WS_HSCROLL);
    ListView_SetColumnWidth(form.Input(), 0, 400);
    HandleMessages();
    EXPECT_TRUE(::GetWindowLongW(form.Input(), GWL_STYLE) & WS_HSCROLL);
}

TEST(Display, ShowsNoHorizontalScrollBarAfterItHasBecomeNarrower) {
    Form form({10, 10, 330, 210});
    form.Place();
    form.Activate();
    ASSERT_TRUE(form.WaitUntilSeen());
    for (const int width : {200, 140, 320, 61}) {
        form.Move({10, 10, 10 + width, 210});
        HandleMessages();
        EXPECT_FALSE(::GetWindowLongW(form.Input(), GWL_STYLE) & WS_HSCROLL) << width;
        EXPECT_FALSE(::GetWindowLongW(form.Output(), GWL_STYLE) & WS_HSCROLL) << width;
    }
}

TEST(Display, StacksItsWindowsInTheOrderInWhichTheyAreDrawn) {
    Form form;
    form.Place();
    form.Activate();
    HWND window = ::GetWindow(form.Surface(), GW_CHILD);
    for (HWND const expected : {form.Strip(), form.Input(), form.Output(), form.Status()}) {
        EXPECT_EQ(window, expected);
        window = ::GetWindow(window, GW_HWNDNEXT);
    }
}

LONG FontHeight(HWND window) {
    LOGFONTW description{};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)),
                 sizeof description, &description);
    return description.lfHeight;
}

TEST(Display, ShowsAChangeOfTheFontObjectInBothListsAndTellsTheHost) {
    Form form;
    form.Place();
    form.Activate();
    Com::ComPtr<IFontDisp> font;
    ASSERT_EQ(form.Control()->get_Font(font.Put()), S_OK);
    // A font of the control's own, as a host sets one.
    Com::ComPtr<IFont> copy;
    ASSERT_EQ(font.As<IFont>()->Clone(copy.Put()), S_OK);
    ASSERT_EQ(form.Control()->putref_Font(copy.As<IFontDisp>().Get()), S_OK);
    Com::ComPtr<IConnectionPoint> point;
    ASSERT_EQ(form.As<IConnectionPointContainer>()->FindConnectionPoint(
                  __uuidof(IPropertyNotifySink), point.Put()),
              S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(static_cast<IPropertyNotifySink*>(&form.TheSite()), &cookie), S_OK);
    CY size{};
    size.int64 = 240000;
    ASSERT_EQ(copy->put_Size(size), S_OK);
    EXPECT_EQ(FontHeight(form.Input()), -32);
    EXPECT_EQ(FontHeight(form.Output()), -32);
    EXPECT_EQ(form.TheSite().Changed, std::vector<DISPID>{DISPID_FONT});
    EXPECT_EQ(form.As<IPersistStreamInit>()->IsDirty(), S_OK);
    point->Unadvise(cookie);
}

TEST(Display, LeavesAFontThatItNoLongerHas) {
    Form form;
    form.Place();
    form.Activate();
    Com::ComPtr<IFontDisp> old;
    ASSERT_EQ(form.Control()->get_Font(old.Put()), S_OK);
    Com::ComPtr<IFont> other;
    ASSERT_EQ(old.As<IFont>()->Clone(other.Put()), S_OK);
    ASSERT_EQ(form.Control()->putref_Font(other.As<IFontDisp>().Get()), S_OK);
    const LONG height = FontHeight(form.Input());
    CY size{};
    size.int64 = 300000;
    ASSERT_EQ(old.As<IFont>()->put_Size(size), S_OK);
    EXPECT_EQ(FontHeight(form.Input()), height);
}

TEST(Display, RepaintsOnRefresh) {
    Form form;
    form.Place();
    form.Activate();
    HandleMessages();
    ::InvalidateRect(form.Output(), nullptr, TRUE);
    ASSERT_EQ(form.Control()->Refresh(), S_OK);
    EXPECT_FALSE(::GetUpdateRect(form.Output(), nullptr, FALSE));
    EXPECT_FALSE(::GetUpdateRect(form.Surface(), nullptr, FALSE));
}

TEST(Display, ShowsWhatIsLoadedAfterTheActivation) {
    Form form;
    form.Place(Start::Not);
    form.Activate();
    const auto bag = Com::MakeObject<TestBag>();
    bag->Values[u"Caption"] = Com::Variant(TextView(u"Late"));
    bag->Values[u"ForeColor"] = Com::Variant(LONG{0x00112233});
    bag->Values[u"Enabled"] = Com::Variant(false);
    ASSERT_EQ(form.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr), S_OK);
    EXPECT_EQ(Win::TextOf(form.Label()), u"Late");
    EXPECT_EQ(ListView_GetTextColor(form.Output()), COLORREF{0x00112233});
    EXPECT_FALSE(::IsWindowEnabled(form.Input()));
    EXPECT_EQ(CellText(form.Input(), 0, 0), u"Error [-1, 1]");
}

TEST(Display, ShowsWhatWasReadBeforeALoadFailed) {
    Form form;
    form.Place(Start::Not);
    form.Activate();
    const auto bag = Com::MakeObject<TestBag>();
    bag->Values[u"Caption"] = Com::Variant(TextView(u"Half"));
    bag->Values[u"ForeColor"] = Com::Variant(LONG{0x00112233});
    bag->Values[u"Inputs"] = Com::Variant(TextView(u"no system"));
    ASSERT_TRUE(FAILED(form.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr)));
    EXPECT_EQ(Win::TextOf(form.Label()), u"Half");
    EXPECT_EQ(ListView_GetTextColor(form.Output()), COLORREF{0x00112233});
}

TEST(Display, TellsAHostThatDrawsItOfNewValues) {
    Form form;
    form.Place();
    ASSERT_EQ(form.As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, &form.TheSite()), S_OK);
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 0) << "no values are shown";
    form.Control()->put_DataShow(VARIANT_TRUE);
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 1);
    ASSERT_EQ(form.Control()->Refresh(), S_OK);
    EXPECT_EQ(form.Calls().Count("OnViewChange"), 2);
}

TEST(Display, LeavesOutAVariableThatCameAfterTheListsWereFilled) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    auto& state = Definition::State();
    LinguisticVariable late = *state.InputVariables->Find(u"Rate");
    state.InputVariables->Add(u"Late", std::move(late));
    state.InputValues->Put(u"Late", Value(0.5));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(ListView_GetItemCount(form.Input()), 2);
    EXPECT_EQ(CellText(form.Input(), 1, 1), u"-1");
}

TEST(Display, KeepsItsRowsWhenAnotherControlBringsAnotherSystem) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    Form other;
    other.Place(Start::Not);
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    ASSERT_EQ(other.As<IPersistPropertyBag>()->Load(bag.Get(), nullptr), S_OK);
    other.Activate();
    EXPECT_EQ(CellText(other.Input(), 0, 0), u"X [-128, 128]");
    EXPECT_EQ(ListView_GetItemCount(form.Input()), 2) << "nothing refreshes the lists by itself";
    EXPECT_EQ(CellText(form.Input(), 0, 0), u"Error [-1, 1]");
    // It fires the system of the other, and has no rows for its values.
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Input(), 0, 1), u"");
}

TEST(Display, ShowsAnEmptyTextForAnOutputThatTheErrorValuesLack) {
    Form form;
    form.Place();
    form.Activate();
    form.Control()->put_DataShow(VARIANT_TRUE);
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    ASSERT_EQ(CellText(form.Output(), 0, 1), u"-1");
    // A dictionary that holds the inputs has no outputs.
    ASSERT_EQ(form.Control()->putref_ErrOutVals(InputsOf(form).Get()), S_OK);
    SetInput(form, u"Error", Com::Variant(TextView(u"hot")));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_EQ(CellText(form.Output(), 0, 1), u"");
    ASSERT_EQ(form.Control()->putref_ErrOutVals(nullptr), S_OK);
}

TEST(Display, HidesThePanelAgainWithTheNextCycle) {
    Form form;
    form.Place();
    form.Activate();
    SetInput(form, u"Error", Com::Variant(TextView(u"hot")));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    SetInput(form, u"Error", Com::Variant(0.5));
    ASSERT_EQ(form.Control()->Fire(), S_OK);
    EXPECT_FALSE(PanelOf(form.Status()).Visible);
}

TEST(Display, ShowsThatItIsDisabled) {
    Form form;
    form.Place();
    ASSERT_TRUE(form.WaitUntilSeen());
    form.Activate();
    form.Control()->put_Enabled(VARIANT_FALSE);
    form.Control()->Refresh();
    const auto colours = [&form](HWND window) {
        RECT area{};
        ::GetClientRect(window, &area);
        return Picture::OfWindow(window).Colours(area);
    };
    EXPECT_TRUE(colours(form.Output()).contains(::GetSysColor(COLOR_GRAYTEXT)));
    const COLORREF faint = CaptionColor(ActiveTitleColor, false);
    EXPECT_NE(faint, CaptionColor(ActiveTitleColor, true));
    EXPECT_TRUE(colours(form.Label()).contains(faint));
}

TEST(Display, PassesTheFocusOnWhereTheListThatHasItIsDisabled) {
    Form form;
    form.Place();
    form.DoVerb(OLEIVERB_UIACTIVATE);
    ASSERT_EQ(::GetFocus(), form.Input());
    form.Control()->put_Enabled(VARIANT_FALSE);
    EXPECT_EQ(::GetFocus(), form.Surface());
    EXPECT_EQ(form.Calls().Count("OnFocus out"), 0);
    form.Control()->put_Enabled(VARIANT_TRUE);
    ::SetFocus(form.Window());
    EXPECT_EQ(form.Calls().Count("OnFocus out"), 1);
}

TEST(Display, DrawsAnUnknownColourAsTheDefault) {
    Form form;
    form.Place();
    form.Activate();
    ASSERT_EQ(form.Control()->put_BackColor(0xFF123456), S_OK);
    EXPECT_EQ(ListView_GetBkColor(form.Input()), ::GetSysColor(COLOR_WINDOW));
}

TEST(Display, IsInTheUsersLanguageInRunModeAndInTheHostsInDesignMode) {
    Form run;
    run.TheSite().Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(2052);
    run.Place(Start::FromEmptyBag, true);
    EXPECT_EQ(Definition::State().LanguageId, ::GetUserDefaultLangID());
    Form design;
    design.TheSite().Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(2052);
    design.Place(Start::FromEmptyBag, false);
    design.Activate();
    EXPECT_EQ(HeaderText(design.Input(), 0), u"输入");
}

} // namespace
} // namespace Quorvane
