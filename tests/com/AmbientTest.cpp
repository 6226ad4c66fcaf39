// SPDX-License-Identifier: MIT
// Design and run mode, language and errors of a form's ambient properties.
#include <olectl.h>

#include <algorithm>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFont.h"
#include "tests/com/support/ValueObject.h"

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

/// What hosts answer to a property that they do not offer, besides DISP_E_MEMBERNOTFOUND.
constexpr HRESULT NotOffered[] = {
    E_FAIL,
    E_NOTIMPL,
    E_INVALIDARG,
    E_UNEXPECTED,
    E_POINTER,
    E_NOINTERFACE,
    DISP_E_UNKNOWNNAME,
    DISP_E_EXCEPTION,
    DISP_E_TYPEMISMATCH,
    DISP_E_BADPARAMCOUNT,
    DISP_E_PARAMNOTFOUND,
    static_cast<HRESULT>(0x80131515), // the common runtime's "not supported"
    static_cast<HRESULT>(0x80131604), // and its "the target threw"
    CTL_E_GETNOTSUPPORTED,
};

/// What tells of trouble, where the control cannot know what the host wants.
constexpr HRESULT Troubles[] = {
    E_OUTOFMEMORY,        E_ACCESSDENIED,
    RPC_E_DISCONNECTED,   RPC_E_CALL_REJECTED,
    RPC_E_SERVERFAULT,    static_cast<HRESULT>(0x800706BA), // the server is unavailable
    CO_E_OBJNOTCONNECTED,
};

constexpr DISPID Asked[] = {DISPID_AMBIENT_FONT, DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_LOCALEID,
                            DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_UIDEAD};

TEST_F(AmbientProperties, AreNotOfferedWhereTheHostAnswersWithAFailure) {
    for (const HRESULT answer : NotOffered) {
        const auto placed = Place(true);
        for (const DISPID property : Asked) {
            placed.Site->Failures[property] = answer;
        }
        EXPECT_EQ(InitNew(placed.Control), S_OK) << std::hex << answer;
        EXPECT_TRUE(IsInRunMode(*placed)) << std::hex << answer;
        EXPECT_EQ(LoadSystem(placed, Adder), S_OK) << std::hex << answer;
        EXPECT_EQ(FireWith(placed, 1), 129) << std::hex << answer;
        EXPECT_EQ(As<IOleControl>(placed)->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
        const auto bag = Com::MakeObject<TestBag>();
        EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), TRUE, FALSE), S_OK);
    }
}

TEST_F(AmbientProperties, AreNotOfferedWhereTheirValuesSayNothing) {
    const auto self = Com::MakeObject<ValueObject>(Com::Variant());
    self->Value = self->AsVariant();
    const Com::Variant values[] = {Bare(VT_NULL),
                                   Bare(VT_ERROR),
                                   ArrayValue(),
                                   TextValue(u"what"),
                                   self->AsVariant(),
                                   Com::Variant(1E300),
                                   Com::Variant(static_cast<IDispatch*>(nullptr))};
    for (const Com::Variant& value : values) {
        const auto placed = Place(true);
        for (const DISPID property : Asked) {
            placed.Site->Ambients[property] = value;
        }
        EXPECT_EQ(LoadSystem(placed, Adder), S_OK) << Describe(value);
        EXPECT_EQ(FireWith(placed, 1), 129) << Describe(value);
        EXPECT_EQ(As<IOleControl>(placed)->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    }
    self->Value = Com::Variant();
}

TEST_F(AmbientProperties, FailAStartWhereTheHostIsInTrouble) {
    for (const HRESULT trouble : Troubles) {
        for (const DISPID property : {DISPID_AMBIENT_FONT, DISPID_AMBIENT_LOCALEID}) {
            const auto placed = Place(false);
            placed.Site->Failures[property] = trouble;
            EXPECT_EQ(InitNew(placed.Control), trouble) << property;
            EXPECT_EQ(LoadSystem(placed, Adder), trouble) << property;
            placed.Site->Failures.clear();
            EXPECT_EQ(LoadSystem(placed, Adder), S_OK) << property;
        }
    }
}

TEST_F(AmbientProperties, AreNotAskedForAFontThatTheBagHas) {
    const auto placed = Place(true);
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(Adder));
    bag->Values[u"Font"] = Com::Variant(static_cast<IDispatch*>(NewFont(20).Get()));
    placed.Site->Failures[DISPID_AMBIENT_FONT] = E_OUTOFMEMORY;
    EXPECT_EQ(LoadFrom(placed.Control, *bag), S_OK);
    EXPECT_EQ(std::ranges::count(placed.Site->Asked, DISPID_AMBIENT_FONT), 0);
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
