// SPDX-License-Identifier: MIT
// Number, source and description of the errors that a host is given.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

constexpr auto NotAtRunTime = static_cast<HRESULT>(0x800A017E);
constexpr auto NotAtDesignTime = static_cast<HRESULT>(0x800A017F);
constexpr auto NotPermitted = static_cast<HRESULT>(0x800A0183);
constexpr auto TypeMismatch = static_cast<HRESULT>(0x800A000D);
constexpr auto InvalidRule = static_cast<HRESULT>(0x80040052);

/// The error of a late-bound call.
struct LateError {
    HRESULT Result = S_OK;
    HRESULT Number = S_OK;
    Text Source;
    Text Description;
};

class ErrorInformation : public ControlTest {
  protected:
    /// Calls a member by its name as scripts do, with one argument or none.
    static LateError Call(_FISControl& control, const wchar_t* name, WORD flags,
                          const Com::Variant* argument = nullptr) {
        DISPID id = DISPID_UNKNOWN;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        EXPECT_EQ(control.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        VARIANT copy = argument ? argument->Get() : VARIANT{};
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPPARAMS parameters{argument ? &copy : nullptr, isPut ? &put : nullptr,
                              argument ? 1u : 0u, isPut ? 1u : 0u};
        Com::Variant result;
        EXCEPINFO exception{};
        LateError error;
        error.Result = control.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                      result.Put(), &exception, nullptr);
        error.Number = exception.scode;
        error.Source = Com::View(exception.bstrSource);
        error.Description = Com::View(exception.bstrDescription);
        ::SysFreeString(exception.bstrSource);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
        return error;
    }

    /// A running control the rules of which cannot be prepared.
    Placed WithBrokenRules() const {
        Placed placed = Design({Adder.Inputs, Adder.Outputs, u"broken"});
        placed.Site->Ambients[DISPID_AMBIENT_USERMODE] = Com::Variant(true);
        return placed;
    }
};

TEST_F(ErrorInformation, IsSupportedForTheControlsInterface) {
    const auto support = As<ISupportErrorInfo>(New(true));
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_FISControl)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IPersistPropertyBag)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IPersistStreamInit)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IPersistStorage)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IOleObject)), S_FALSE);
}

TEST_F(ErrorInformation, OfValuesAtDesignTimeIsThePlatformsNumberAlone) {
    const auto placed = New(false);
    const auto dictionary = NewPlatformDictionary();
    Com::ComPtr<IDictionary> values;
    const struct {
        const char* Name;
        HRESULT Expected;
        std::function<HRESULT()> Use;
    } cases[] = {
        {"InVals get", NotAtDesignTime, [&] { return placed->get_InVals(values.Put()); }},
        {"InVals set", NotAtDesignTime, [&] { return placed->putref_InVals(dictionary.Get()); }},
        {"InVals Nothing", NotAtDesignTime, [&] { return placed->putref_InVals(nullptr); }},
        {"OutVals", NotAtDesignTime, [&] { return placed->get_OutVals(values.Put()); }},
        {"DefOutVals", NotAtDesignTime,
         [&] { return placed->putref_DefOutVals(dictionary.Get()); }},
        {"ErrOutVals", NotAtDesignTime,
         [&] { return placed->putref_ErrOutVals(dictionary.Get()); }},
        {"DataShow", NotPermitted, [&] { return placed->put_DataShow(VARIANT_TRUE); }},
    };
    for (const auto& [name, expected, use] : cases) {
        // What an earlier call has left must not be taken for this one's error.
        Com::ComPtr<ICreateErrorInfo> stale;
        ASSERT_EQ(::CreateErrorInfo(stale.Put()), S_OK);
        ::SetErrorInfo(0, stale.As<IErrorInfo>().Get());
        EXPECT_EQ(use(), expected) << name;
        EXPECT_FALSE(values) << name;
        Com::ComPtr<IErrorInfo> info;
        EXPECT_EQ(::GetErrorInfo(0, info.Put()), S_FALSE) << name;
    }
}

TEST_F(ErrorInformation, ReachesScriptsAsTheSameNumbers) {
    const auto dictionary = NewPlatformDictionary();
    const Com::Variant object(static_cast<IDispatch*>(dictionary.Get()));
    const Com::Variant text = TextValue(u"14");
    const Com::Variant flag(true);
    const struct {
        bool RunMode;
        const wchar_t* Name;
        WORD Flags;
        const Com::Variant* Argument;
        HRESULT Expected;
    } cases[] = {
        {true, L"Inputs", DISPATCH_PROPERTYPUT, &text, NotAtRunTime},
        {true, L"Outputs", DISPATCH_PROPERTYPUT, &text, NotAtRunTime},
        {true, L"Rules", DISPATCH_PROPERTYPUT, &text, NotAtRunTime},
        {false, L"DataShow", DISPATCH_PROPERTYPUT, &flag, NotPermitted},
        {false, L"InVals", DISPATCH_PROPERTYGET, nullptr, NotAtDesignTime},
        {false, L"InVals", DISPATCH_PROPERTYPUTREF, &object, NotAtDesignTime},
        {false, L"OutVals", DISPATCH_PROPERTYGET, nullptr, NotAtDesignTime},
        {false, L"DefOutVals", DISPATCH_PROPERTYPUTREF, &object, NotAtDesignTime},
        {false, L"ErrOutVals", DISPATCH_PROPERTYPUTREF, &object, NotAtDesignTime},
    };
    for (const auto& [runMode, name, flags, argument, expected] : cases) {
        const auto placed = New(runMode);
        const LateError error = Call(*placed, name, flags, argument);
        EXPECT_EQ(error.Result, DISP_E_EXCEPTION) << Narrow(Com::ToText(name));
        EXPECT_EQ(error.Number, expected) << Narrow(Com::ToText(name));
        EXPECT_EQ(error.Source, u"");
        EXPECT_EQ(error.Description, u"");
    }
}

TEST_F(ErrorInformation, OfRulesThatCannotBePreparedIsTheEngines) {
    const auto placed = WithBrokenRules();
    const auto dictionary = NewPlatformDictionary();
    EXPECT_EQ(placed->putref_DefOutVals(dictionary.Get()), InvalidRule);
    Com::ComPtr<IErrorInfo> info;
    ASSERT_EQ(::GetErrorInfo(0, info.Put()), S_OK);
    Com::Bstr text;
    GUID guid{};
    EXPECT_EQ(info->GetSource(text.Put()), S_OK);
    EXPECT_EQ(text.Characters(), u"Quorvane Controller");
    EXPECT_EQ(info->GetDescription(text.Put()), S_OK);
    EXPECT_EQ(text.Characters(), u"Invalid linguistict rule.");
    EXPECT_EQ(info->GetGUID(&guid), S_OK);
    EXPECT_EQ(guid, __uuidof(_FISControl));

    const Com::Variant object(static_cast<IDispatch*>(dictionary.Get()));
    const LateError error = Call(*placed, L"DefOutVals", DISPATCH_PROPERTYPUTREF, &object);
    EXPECT_EQ(error.Result, DISP_E_EXCEPTION);
    EXPECT_EQ(error.Number, InvalidRule);
    EXPECT_EQ(error.Source, u"Quorvane Controller");
    EXPECT_EQ(error.Description, u"Invalid linguistict rule.");
}

TEST_F(ErrorInformation, OfALoadThatFailsIsTheEngines) {
    const auto placed = Place(true);
    EXPECT_EQ(LoadSystem(placed, {Adder.Inputs, Adder.Outputs, u"X>Low/Y<None:1"}), InvalidRule);
    Com::ComPtr<IErrorInfo> info;
    ASSERT_EQ(::GetErrorInfo(0, info.Put()), S_OK);
    Com::Bstr text;
    EXPECT_EQ(info->GetDescription(text.Put()), S_OK);
    EXPECT_EQ(text.Characters(), u"Invalid linguistict rule.");
}

TEST_F(ErrorInformation, OfAnythingButADictionaryIsATypeMismatch) {
    const auto placed = Run(Adder);
    const auto before = InVals(placed);
    EXPECT_EQ(placed->putref_InVals(nullptr), TypeMismatch);
    EXPECT_EQ(placed->putref_DefOutVals(nullptr), TypeMismatch);
    const Com::Variant nothing(static_cast<IDispatch*>(nullptr));
    for (const wchar_t* name : {L"InVals", L"DefOutVals"}) {
        const LateError ofNothing = Call(*placed, name, DISPATCH_PROPERTYPUTREF, &nothing);
        EXPECT_EQ(ofNothing.Result, DISP_E_EXCEPTION);
        EXPECT_EQ(ofNothing.Number, TypeMismatch);
    }
    EXPECT_TRUE(Com::IsSameObject(InVals(placed).Get(), before.Get())) << "nothing has changed";
    EXPECT_EQ(FireWith(placed, 1), 129);
}

TEST_F(ErrorInformation, OfAnObjectThatIsNoDictionaryIsATypeMismatchOfTheCall) {
    const auto placed = Run(Adder);
    const auto inputs = InVals(placed);
    const auto outputs = OutVals(placed);
    const auto errors = NewPlatformDictionary();
    PutItem(errors, u"Y", -1);
    EXPECT_EQ(placed->putref_ErrOutVals(errors.Get()), S_OK);
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(1));
    VARIANT unknown{};
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = object.Get();
    for (const Com::Variant& stranger :
         {object->AsVariant(), Com::Variant(unknown), Com::Variant(5), TextValue(u"X"),
          Com::Variant(true), Com::Variant(), Bare(VT_NULL), ArrayValue()}) {
        for (const wchar_t* name : {L"InVals", L"DefOutVals", L"ErrOutVals"}) {
            const LateError error = Call(*placed, name, DISPATCH_PROPERTYPUTREF, &stranger);
            EXPECT_EQ(error.Result, DISP_E_TYPEMISMATCH)
                << Describe(stranger) << std::hex << ' ' << error.Number;
        }
        EXPECT_EQ(Call(*placed, L"InVals", DISPATCH_PROPERTYPUT, &stranger).Result,
                  DISP_E_MEMBERNOTFOUND)
            << "only Set assigns an object";
    }
    EXPECT_TRUE(Com::IsSameObject(InVals(placed).Get(), inputs.Get())) << "nothing has changed";
    EXPECT_TRUE(Com::IsSameObject(OutVals(placed).Get(), outputs.Get()));
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(FireWith(placed, TextValue(u"none")), -1);
}

TEST_F(ErrorInformation, OfAnObjectThatIsNoFontIsATypeMismatchOfTheCall) {
    const auto placed = Run(Adder);
    Com::ComPtr<IFontDisp> before;
    ASSERT_EQ(placed->get_Font(before.Put()), S_OK);
    const Com::Variant stranger(static_cast<IDispatch*>(NewPlatformDictionary().Get()));
    EXPECT_EQ(Call(*placed, L"Font", DISPATCH_PROPERTYPUTREF, &stranger).Result,
              DISP_E_TYPEMISMATCH);
    Com::ComPtr<IFontDisp> after;
    ASSERT_EQ(placed->get_Font(after.Put()), S_OK);
    EXPECT_TRUE(Com::IsSameObject(before.Get(), after.Get()));
}

TEST_F(ErrorInformation, NamesMembersThatDoNotExist) {
    const auto placed = Run(Adder);
    DISPID id = 0;
    wchar_t unknown[] = L"InferComplete";
    LPOLESTR names[] = {unknown};
    EXPECT_EQ(placed->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNNAME);
    // Set-only and get-only properties.
    EXPECT_EQ(Call(*placed, L"DataShow", DISPATCH_PROPERTYGET).Result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Call(*placed, L"DefOutVals", DISPATCH_PROPERTYGET).Result, DISP_E_MEMBERNOTFOUND);
    const Com::Variant object(static_cast<IDispatch*>(NewPlatformDictionary().Get()));
    EXPECT_EQ(Call(*placed, L"OutVals", DISPATCH_PROPERTYPUTREF, &object).Result,
              DISP_E_MEMBERNOTFOUND);
}

} // namespace
} // namespace Quorvane
