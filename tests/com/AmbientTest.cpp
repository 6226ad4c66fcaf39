// SPDX-License-Identifier: MIT
// Design and run mode, language and errors of a form's ambient properties.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

constexpr TextView EnglishCaption = u"Quorvane Inference System";
constexpr TextView ChineseCaption = u"Quorvane \u63A8\u7406\u7CFB\u7EDF";

class AmbientProperties : public ControlTest {
  protected:
    /// Whether the control takes itself to be in run mode.
    static bool IsInRunMode(_FISControl& control) {
        Com::ComPtr<IDictionary> values;
        const HRESULT result = control.get_InVals(values.Put());
        EXPECT_TRUE(result == S_OK || result == CTL_E_SETNOTSUPPORTED) << std::hex << result;
        return SUCCEEDED(result);
    }
    static Text Caption(const Placed& placed) {
        return GetText(*placed, &_FISControl::get_Caption);
    }
};

TEST_F(AmbientProperties, GiveTheModeInAnyFormOfATruthValue) {
    const auto placed = New(true);
    const struct {
        Com::Variant UserMode;
        bool RunMode;
    } cases[] = {
        {Com::Variant(true), true},   {Com::Variant(false), false}, {Com::Variant(0), false},
        {Com::Variant(-1), true},     {Com::Variant(1), true},      {Typed(VT_I2, 0), false},
        {TextValue(u"False"), false}, {TextValue(u"True"), true},   {Com::Variant(), true},
    };
    for (const auto& [userMode, runMode] : cases) {
        placed.Site->Ambients[DISPID_AMBIENT_USERMODE] = userMode;
        EXPECT_EQ(IsInRunMode(*placed), runMode) << Describe(userMode);
    }
}

TEST_F(AmbientProperties, MeanRunModeWhereTheFormDoesNotSay) {
    EXPECT_TRUE(IsInRunMode(*Create())) << "no site at all";
    const auto placed = Place(false);
    EXPECT_FALSE(IsInRunMode(*placed));
    placed.Site->Ambients.clear();
    EXPECT_TRUE(IsInRunMode(*placed)) << "a site that offers none";
    placed.Site->Failures[DISPID_AMBIENT_USERMODE] = E_NOTIMPL;
    EXPECT_TRUE(IsInRunMode(*placed)) << "a site that has none";
}

TEST_F(AmbientProperties, MeanRunModeOnASiteWithoutAutomation) {
    /// A site and nothing more.
    class PlainSite final : public Com::ComObject<IOleClientSite> {
      public:
        STDMETHODIMP SaveObject() noexcept override { return S_OK; }
        STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
        STDMETHODIMP GetContainer(IOleContainer**) noexcept override { return E_NOINTERFACE; }
        STDMETHODIMP ShowObject() noexcept override { return S_OK; }
        STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
        STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }
    };
    const auto control = Create();
    const auto site = Com::MakeObject<PlainSite>();
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(site.Get()), S_OK);
    EXPECT_TRUE(IsInRunMode(*control));
    EXPECT_EQ(InitNew(control), S_OK);
}

TEST_F(AmbientProperties, ReportAFailureToTheHost) {
    const auto placed = New(true);
    placed.Site->Failures[DISPID_AMBIENT_USERMODE] = RPC_E_DISCONNECTED;
    Com::ComPtr<IDictionary> values;
    EXPECT_EQ(placed->get_InVals(values.Put()), RPC_E_DISCONNECTED);
    EXPECT_EQ(placed->put_DataShow(VARIANT_TRUE), RPC_E_DISCONNECTED);
    EXPECT_EQ(SetText(*placed, &_FISControl::put_Rules, u""), RPC_E_DISCONNECTED);
    EXPECT_EQ(placed->Fire(), S_OK) << "a cycle does not ask for the mode";
}

TEST_F(AmbientProperties, EndALoadWhereTheyFail) {
    const auto placed = Run(TwoInputs);
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    bag->Values[u"Caption"] = TextValue(u"New");

    placed.Site->Failures[DISPID_AMBIENT_USERMODE] = E_ACCESSDENIED;
    EXPECT_EQ(LoadFrom(placed.Control, *bag), E_ACCESSDENIED);
    EXPECT_EQ(Caption(placed), u"New");
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), Stored(TwoInputs.Inputs));

    placed.Site->Failures.clear();
    placed.Site->Failures[DISPID_AMBIENT_FONT] = E_ACCESSDENIED;
    bag->Values[u"Caption"] = TextValue(u"Newer");
    EXPECT_EQ(LoadFrom(placed.Control, *bag), E_ACCESSDENIED);
    EXPECT_EQ(Caption(placed), u"Newer");

    placed.Site->Failures.clear();
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
}

TEST_F(AmbientProperties, EndTheInitialisationWhereTheyFail) {
    const auto placed = Run(Adder);
    placed.Site->Failures[DISPID_AMBIENT_LOCALEID] = E_ACCESSDENIED;
    EXPECT_EQ(InitNew(placed.Control), E_ACCESSDENIED);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Inputs), Stored(Adder.Inputs));
    EXPECT_EQ(As<IOleControl>(placed)->OnAmbientPropertyChange(DISPID_AMBIENT_LOCALEID),
              E_ACCESSDENIED);
}

TEST_F(AmbientProperties, AreThoseOfTheLastSite) {
    const auto placed = New(true);
    const auto design = NewSite(false);
    const auto object = As<IOleObject>(placed);
    EXPECT_EQ(object->SetClientSite(design.Get()), S_OK);
    EXPECT_FALSE(IsInRunMode(*placed));
    Com::ComPtr<IOleClientSite> site;
    EXPECT_EQ(object->GetClientSite(site.Put()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(site.Get(), static_cast<IOleClientSite*>(design.Get())));
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    EXPECT_TRUE(IsInRunMode(*placed));
    EXPECT_EQ(object->GetClientSite(site.Put()), S_OK);
    EXPECT_FALSE(site);
}

TEST_F(AmbientProperties, MayTakeTheSiteAwayWhileTheyAreAsked) {
    const auto placed = New(true);
    placed.Site->OnAsked = [&placed](DISPID) { As<IOleObject>(placed)->SetClientSite(nullptr); };
    EXPECT_TRUE(IsInRunMode(*placed));
    placed.Site->OnAsked = {};
}

TEST_F(AmbientProperties, ChooseTheLanguageOfTheNextDefaultCaption) {
    const auto chinese = Place(false);
    chinese.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    EXPECT_EQ(InitNew(chinese.Control), S_OK);
    EXPECT_EQ(Caption(chinese), EnglishCaption)
        << "the caption is taken before the language is chosen";

    const auto second = New(false);
    EXPECT_EQ(Caption(second), ChineseCaption);
    const auto third = New(false);
    EXPECT_EQ(Caption(third), EnglishCaption) << "the second form is English";
}

TEST_F(AmbientProperties, ShowTheEnglishCaptionOfAChineseFormInANewProcess) {
    const auto placed = Place(false);
    placed.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(Caption(placed), EnglishCaption);
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(Caption(placed), ChineseCaption) << "the language is chosen now";
}

TEST_F(AmbientProperties, LeaveTextsThatAreShownAsTheyAre) {
    const auto placed = New(false);
    placed.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    EXPECT_EQ(As<IOleControl>(placed)->OnAmbientPropertyChange(DISPID_AMBIENT_LOCALEID), S_OK);
    EXPECT_EQ(Caption(placed), EnglishCaption);
}

TEST_F(AmbientProperties, ChooseTheLanguageOfErrorsToo) {
    // The rules are not looked at before defaults are assigned.
    const auto placed = Place(false);
    placed.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    ASSERT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"broken"}), S_OK);
    placed.Site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(true);
    EXPECT_EQ(placed->putref_DefOutVals(NewPlatformDictionary().Get()),
              static_cast<HRESULT>(0x80040052));
    Com::ComPtr<IErrorInfo> info;
    ASSERT_EQ(::GetErrorInfo(0, info.Put()), S_OK);
    Com::Bstr text;
    EXPECT_EQ(info->GetDescription(text.Put()), S_OK);
    EXPECT_EQ(text.Characters(), u"\u65E0\u6548\u7684\u8BED\u8A00\u89C4\u5219\u3002");
    EXPECT_EQ(info->GetSource(text.Put()), S_OK);
    EXPECT_EQ(text.Characters(), u"Quorvane \u63A7\u5236\u5668");
}

TEST_F(AmbientProperties, AreNotNeededForALoadBeforeAnySite) {
    const auto site = NewSite(false);
    const auto control = Create();
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    ASSERT_EQ(LoadFrom(control, *bag), S_OK);
    // In run mode, so the rules are prepared.
    const Placed placed{site, control};
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(control.As<IOleObject>()->SetClientSite(site.Get()), S_OK);
    EXPECT_FALSE(IsInRunMode(*control));
}

TEST_F(AmbientProperties, LetALoadFollowAnInitialisationAndTheOtherWayRound) {
    const auto placed = New(true);
    EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(InitNew(placed.Control), S_OK);
    EXPECT_TRUE(SaveToBag(placed, false)->Values.empty());
    EXPECT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 2), 130);
}

} // namespace
} // namespace Quorvane
