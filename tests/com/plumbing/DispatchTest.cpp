// SPDX-License-Identifier: MIT
// Late-bound calls as hosts and scripts make them.
#include "com/Dispatch.h"

#include <oleauto.h>
#include <olectl.h>

#include "tests/com/plumbing/PlumbingTest.h"
#include "tests/com/support/ValueObject.h"

namespace Quorvane {
namespace {

constexpr WORD Get = DISPATCH_PROPERTYGET;
constexpr WORD Put = DISPATCH_PROPERTYPUT;
constexpr WORD PutRef = DISPATCH_PROPERTYPUTREF;
constexpr WORD Method = DISPATCH_METHOD;

/// What a late-bound call gave.
struct Outcome {
    HRESULT Result = E_UNEXPECTED;
    Com::Variant Value;
    HRESULT Number = S_OK;
    Text Source;
    Text Description;
    UINT BadArgument = 99;
};

class Dispatch : public PlumbingTest {
  protected:
    void TearDown() override {
        dispatch_.Reset();
        trial_.Reset();
        PlumbingTest::TearDown();
    }

    /// Calls a member by name; the arguments are in their natural order and not copied.
    Outcome Call(WORD flags, const wchar_t* name, std::vector<VARIANT*> arguments = {}) {
        Outcome outcome;
        wchar_t* names = const_cast<wchar_t*>(name);
        DISPID member = DISPID_UNKNOWN;
        EXPECT_EQ(dispatch_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member),
                  S_OK);
        std::vector<VARIANT> values;
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            values.push_back(**argument);
        }
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = (flags & (Put | PutRef)) != 0;
        DISPPARAMS parameters{values.data(), isPut ? &put : nullptr,
                              static_cast<UINT>(values.size()), isPut ? 1u : 0u};
        EXCEPINFO exception{};
        outcome.Result =
            dispatch_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                              outcome.Value.Put(), &exception, &outcome.BadArgument);
        outcome.Number = exception.scode;
        outcome.Source = Take(exception.bstrSource);
        outcome.Description = Take(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
        return outcome;
    }

    Outcome CallWith(WORD flags, const wchar_t* name, std::vector<Com::Variant> arguments) {
        std::vector<VARIANT*> pointers;
        for (Com::Variant& argument : arguments) {
            pointers.push_back(&argument.Get());
        }
        return Call(flags, name, pointers);
    }

    static Text Take(BSTR text) {
        const Text taken(Com::View(text));
        ::SysFreeString(text);
        return taken;
    }

    /// A script's variable, as scripts pass it.
    static VARIANT ReferenceTo(Com::Variant& variable) {
        VARIANT reference{};
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &variable.Get();
        return reference;
    }

    Com::ComPtr<Trial> trial_ = Com::MakeObject<Trial>();
    Com::ComPtr<IDispatch> dispatch_ = Com::Query<IDispatch>(trial_->ControllingUnknown());
};

TEST_F(Dispatch, GetsAndPutsProperties) {
    EXPECT_EQ(CallWith(Put, L"Number", {Com::Variant(42)}).Result, S_OK);
    EXPECT_EQ(trial_->Number, 42);
    const Outcome read = Call(Get, L"number");
    EXPECT_EQ(read.Result, S_OK);
    EXPECT_EQ(read.Value.Type(), VT_I4);
    EXPECT_EQ(read.Value.Get().lVal, 42);
    EXPECT_EQ(Call(Get | Method, L"Number").Value.Get().lVal, 42) << "as VBScript asks";
    EXPECT_EQ(CallWith(Put, L"Number", {Com::Variant(u"17")}).Result, S_OK);
    EXPECT_EQ(trial_->Number, 17) << "a text that converts";
}

TEST_F(Dispatch, TakesAVariableForAValue) {
    Com::Variant variable(23.0);
    VARIANT reference = ReferenceTo(variable);
    EXPECT_EQ(Call(Put, L"Number", {&reference}).Result, S_OK);
    EXPECT_EQ(trial_->Number, 23);
}

TEST_F(Dispatch, AnswersForItsTypeInformation) {
    UINT count = 0;
    EXPECT_EQ(dispatch_->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    Com::ComPtr<ITypeInfo> info;
    EXPECT_EQ(dispatch_->GetTypeInfo(1, 0, info.Put()), DISP_E_BADINDEX);
    ASSERT_EQ(dispatch_->GetTypeInfo(0, 0, info.Put()), S_OK);
    EXPECT_TRUE(info);
    EXPECT_EQ(dispatch_->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST_F(Dispatch, RefusesUnknownMembersAndWrongKinds) {
    wchar_t* name = const_cast<wchar_t*>(L"NoSuchMember");
    DISPID member = 0;
    EXPECT_EQ(dispatch_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &member),
              DISP_E_UNKNOWNNAME);
    DISPPARAMS none{};
    EXPECT_EQ(dispatch_->Invoke(999, IID_NULL, 0, Get, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(CallWith(Put, L"Nothing", {Com::Variant(1)}).Result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Dispatch, RefusesNamesThatAreNotThere) {
    wchar_t* names[] = {const_cast<wchar_t*>(L"Number"), nullptr};
    DISPID members[2]{};
    const auto lookUp = [&](LPOLESTR* given, UINT count, DISPID* ids) {
        return dispatch_->GetIDsOfNames(IID_NULL, given, count, LOCALE_USER_DEFAULT, ids);
    };
    EXPECT_EQ(lookUp(nullptr, 1, members), E_INVALIDARG);
    EXPECT_EQ(lookUp(names, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(lookUp(names, 2, members), E_INVALIDARG);
    EXPECT_EQ(lookUp(names + 1, 1, members), E_INVALIDARG);
    EXPECT_EQ(lookUp(names, 0, members), E_INVALIDARG);
    EXPECT_EQ(lookUp(names, 1, members), S_OK);
}

TEST_F(Dispatch, TakesTheDefaultPropertyOfAnObjectForAValue) {
    const auto object = Com::MakeObject<ValueObject>(Com::Variant(7));
    const auto outer = Com::MakeObject<ValueObject>(object->AsVariant());
    for (Com::Variant argument : {object->AsVariant(), outer->AsVariant()}) {
        trial_->Number = 0;
        EXPECT_EQ(CallWith(Put, L"Number", {argument}).Result, S_OK);
        EXPECT_EQ(trial_->Number, 7);
        trial_->Number = 0;
        VARIANT reference = ReferenceTo(argument);
        EXPECT_EQ(Call(Put, L"Number", {&reference}).Result, S_OK);
        EXPECT_EQ(trial_->Number, 7);
    }
}

TEST_F(Dispatch, RefusesAnObjectThatIsItsOwnDefault) {
    const auto self = Com::MakeObject<ValueObject>(Com::Variant());
    const auto other = Com::MakeObject<ValueObject>(self->AsVariant());
    // By itself, and by way of another one.
    for (const auto& next : {self, other}) {
        self->Value = next->AsVariant();
        const Outcome put = CallWith(Put, L"Number", {self->AsVariant()});
        EXPECT_EQ(put.Result, DISP_E_TYPEMISMATCH);
        EXPECT_EQ(put.BadArgument, 0u);
        EXPECT_EQ(CallWith(Method, L"Advance", {self->AsVariant(), Com::Variant(1)}).Result,
                  DISP_E_TYPEMISMATCH);
    }
    self->Value = Com::Variant();
}

TEST_F(Dispatch, RefusesAnObjectThatAnswersWithAReferenceToItself) {
    const auto self = Com::MakeObject<ValueObject>(Com::Variant());
    IDispatch* object = self.Get();
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_DISPATCH;
    reference.ppdispVal = &object;
    self->Value.Get() = reference;
    EXPECT_EQ(CallWith(Put, L"Number", {self->AsVariant()}).Result, DISP_E_TYPEMISMATCH);
}

// A script's variable arrives as a reference to a variant; the type information refuses it for a
// typed by-reference parameter.
TEST_F(Dispatch, HandsValuesBackToTheVariablesOfAScript) {
    const struct {
        const char* Name;
        Com::Variant Number;
        VARTYPE Type;
    } cases[] = {
        {"Long", Com::Variant(LONG{5}), VT_I4},
        {"Integer", Com::ChangeType(Com::Variant(5).Get(), VT_I2), VT_I2},
        {"Double", Com::Variant(5.0), VT_R8},
        {"text", Com::Variant(u"5"), VT_BSTR},
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.Name);
        Com::Variant text(u"abc");
        Com::Variant number = given.Number;
        VARIANT arguments[] = {ReferenceTo(text), ReferenceTo(number)};
        EXPECT_EQ(Call(Method, L"Advance", {&arguments[0], &arguments[1]}).Result, S_OK);
        EXPECT_EQ(Com::View(text.Get().bstrVal), u"abc+");
        EXPECT_EQ(number.Type(), given.Type) << "the variable keeps its type";
        EXPECT_EQ(Com::ChangeType(number.Get(), VT_I4).Get().lVal, 6);
    }
}

TEST_F(Dispatch, GivesAnUnassignedVariableItsFirstValue) {
    Com::Variant text;
    Com::Variant number;
    VARIANT arguments[] = {ReferenceTo(text), ReferenceTo(number)};
    EXPECT_EQ(Call(Method, L"Advance", {&arguments[0], &arguments[1]}).Result, S_OK);
    ASSERT_EQ(text.Type(), VT_BSTR);
    EXPECT_EQ(Com::View(text.Get().bstrVal), u"+");
    ASSERT_EQ(number.Type(), VT_I4);
    EXPECT_EQ(number.Get().lVal, 1);
}

TEST_F(Dispatch, HandsValuesBackThroughTypedReferences) {
    BSTR text = ::SysAllocString(L"abc");
    SHORT number = 5;
    VARIANT arguments[2]{};
    arguments[0].vt = VT_BYREF | VT_BSTR;
    arguments[0].pbstrVal = &text;
    arguments[1].vt = VT_BYREF | VT_I2;
    arguments[1].piVal = &number;
    EXPECT_EQ(Call(Method, L"Advance", {&arguments[0], &arguments[1]}).Result, S_OK);
    EXPECT_EQ(Com::View(text), u"abc+");
    EXPECT_EQ(number, 6);
    ::SysFreeString(text);
}

TEST_F(Dispatch, FollowsAReferenceToATypedReference) {
    LONG number = 5;
    Com::Variant typed;
    typed.Get().vt = VT_BYREF | VT_I4;
    typed.Get().plVal = &number;
    Com::Variant text(u"abc");
    VARIANT arguments[] = {ReferenceTo(text), ReferenceTo(typed)};
    EXPECT_EQ(Call(Method, L"Advance", {&arguments[0], &arguments[1]}).Result, S_OK);
    EXPECT_EQ(number, 6);
}

TEST_F(Dispatch, TakesValuesForReferences) {
    EXPECT_EQ(CallWith(Method, L"Advance", {Com::Variant(u"abc"), Com::Variant(5)}).Result, S_OK);
}

TEST_F(Dispatch, NamesTheArgumentThatDoesNotConvert) {
    Com::Variant text(u"abc");
    Com::Variant number(u"no number");
    VARIANT arguments[] = {ReferenceTo(text), ReferenceTo(number)};
    const Outcome outcome = Call(Method, L"Advance", {&arguments[0], &arguments[1]});
    EXPECT_EQ(outcome.Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.BadArgument, 0u) << "the last argument is the first of the array";
    EXPECT_EQ(Com::View(text.Get().bstrVal), u"abc") << "nothing was called";
}

TEST_F(Dispatch, TakesNamedArguments) {
    wchar_t* names[] = {const_cast<wchar_t*>(L"Advance"), const_cast<wchar_t*>(L"number"),
                        const_cast<wchar_t*>(L"text")};
    DISPID ids[3];
    ASSERT_EQ(dispatch_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    Com::Variant number(5);
    Com::Variant text(u"abc");
    VARIANT values[] = {ReferenceTo(number), ReferenceTo(text)};
    DISPPARAMS parameters{values, &ids[1], 2, 2};
    EXPECT_EQ(
        dispatch_->Invoke(ids[0], IID_NULL, 0, Method, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(number.Get().lVal, 6);
    EXPECT_EQ(Com::View(text.Get().bstrVal), u"abc+");
}

// Scripts cannot even name an unsigned value.
TEST_F(Dispatch, GivesAColourAsASignedNumber) {
    EXPECT_EQ(CallWith(Put, L"Colour", {Com::Variant(static_cast<LONG>(0x80000005))}).Result, S_OK);
    EXPECT_EQ(trial_->Colour, 0x80000005u);
    const Outcome read = Call(Get, L"Colour");
    EXPECT_EQ(read.Value.Type(), VT_I4);
    EXPECT_EQ(read.Value.Get().lVal, static_cast<LONG>(0x80000005));
}

// trial.Bag("k") = 1 is one call on Bag, with an index.
TEST_F(Dispatch, ForwardsAnIndexToTheDefaultMemberOfAnObject) {
    const Outcome put = CallWith(Put, L"Bag", {Com::Variant(u"k"), Com::Variant(1.5)});
    EXPECT_EQ(put.Result, S_OK);
    EXPECT_EQ(trial_->Bag->Items[u"k"].Get().dblVal, 1.5);
    const Outcome get = CallWith(Get | Method, L"Bag", {Com::Variant(u"k")});
    EXPECT_EQ(get.Result, S_OK);
    EXPECT_EQ(get.Value.Get().dblVal, 1.5);
    const Outcome whole = Call(Get, L"Bag");
    ASSERT_EQ(whole.Value.Type(), VT_DISPATCH);
    EXPECT_TRUE(Com::IsSameObject(whole.Value.Get().pdispVal, trial_->Bag->ControllingUnknown()));
}

TEST_F(Dispatch, ForwardsAnObjectForAnIndex) {
    const Outcome set =
        CallWith(PutRef, L"Bag", {Com::Variant(u"k"), Com::Variant(dispatch_.Get())});
    EXPECT_EQ(set.Result, S_OK);
    EXPECT_EQ(trial_->Bag->Items[u"k"].Type(), VT_DISPATCH);
    trial_->Bag->Items.clear();
}

TEST_F(Dispatch, StillAssignsAWholeObject) {
    auto other = Com::MakeObject<TrialBag>();
    other->Items[u"copied"] = Com::Variant(7);
    Com::Variant variable(static_cast<IDispatch*>(other.Get()));
    VARIANT reference = ReferenceTo(variable);
    EXPECT_EQ(Call(PutRef, L"Bag", {&reference}).Result, S_OK);
    EXPECT_EQ(trial_->Bag->Items[u"copied"].Get().lVal, 7);
}

TEST_F(Dispatch, RefusesAnObjectOfAnotherKind) {
    auto other = Com::MakeObject<Trial>();
    IUnknown* unknown = other->ControllingUnknown();
    IDispatch* object = dispatch_.Get();
    Com::Variant variable(object);
    VARIANT strangers[4] = {variable.Get(), ReferenceTo(variable), {}, {}};
    strangers[2].vt = VT_UNKNOWN;
    strangers[2].punkVal = unknown;
    strangers[3].vt = VT_BYREF | VT_DISPATCH;
    strangers[3].ppdispVal = &object;
    for (VARIANT& stranger : strangers) {
        const Outcome outcome = Call(PutRef, L"Bag", {&stranger});
        EXPECT_EQ(outcome.Result, DISP_E_TYPEMISMATCH) << stranger.vt;
        EXPECT_EQ(outcome.BadArgument, 0u);
    }
    // An interface that every automation object has is no reason to refuse one.
    EXPECT_EQ(CallWith(PutRef, L"Bag", {Com::Variant(u"k"), variable}).Result, S_OK);
    EXPECT_EQ(trial_->Bag->Items[u"k"].Get().pdispVal, object);
    trial_->Bag->Items.clear();
}

TEST_F(Dispatch, ReportsAnIndexOnNothing) {
    const Outcome outcome = CallWith(Get, L"Nothing", {Com::Variant(u"k")});
    EXPECT_EQ(outcome.Result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.Number, static_cast<HRESULT>(0x800A005B));
}

TEST_F(Dispatch, DropsSurplusArguments) {
    trial_->Number = 42;
    EXPECT_EQ(CallWith(Get, L"Number", {Com::Variant(1), Com::Variant(2)}).Value.Get().lVal, 42);
    EXPECT_EQ(CallWith(Method, L"Happen", {Com::Variant(1)}).Result, S_OK);
    Com::Variant text(u"abc");
    Com::Variant number(5);
    Com::Variant surplus(9);
    VARIANT arguments[] = {ReferenceTo(text), ReferenceTo(number), ReferenceTo(surplus)};
    EXPECT_EQ(Call(Method, L"Advance", {&arguments[0], &arguments[1], &arguments[2]}).Result, S_OK);
    EXPECT_EQ(Com::View(text.Get().bstrVal), u"abc+");
    EXPECT_EQ(number.Get().lVal, 6);
    EXPECT_EQ(surplus.Get().lVal, 9);
}

TEST_F(Dispatch, TakesAPropertysNewValueWithoutItsName) {
    Com::Variant value(42);
    DISPPARAMS parameters{&value.Get(), nullptr, 1, 0};
    EXPECT_EQ(dispatch_->Invoke(1, IID_NULL, 0, Put, &parameters, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(trial_->Number, 42);
}

TEST_F(Dispatch, RefusesArgumentsThatArePromisedButNotThere) {
    Com::Variant value(42);
    DISPID names[2]{};
    DISPPARAMS cases[] = {
        {nullptr, nullptr, 1, 0},
        {&value.Get(), nullptr, 1, 1},
        {&value.Get(), names, 1, 2},
    };
    for (DISPPARAMS& parameters : cases) {
        EXPECT_EQ(dispatch_->Invoke(1, IID_NULL, 0, Put, &parameters, nullptr, nullptr, nullptr),
                  E_INVALIDARG);
    }
}

TEST_F(Dispatch, RefusesANullReference) {
    VARIANT text{};
    text.vt = VT_BYREF | VT_BSTR;
    VARIANT number{};
    number.vt = VT_BYREF | VT_VARIANT;
    Com::Variant good(5);
    EXPECT_EQ(Call(Method, L"Advance", {&text, &good.Get()}).Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(Method, L"Advance", {&good.Get(), &number}).Result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(Put, L"Number", {&number}).Result, DISP_E_TYPEMISMATCH);
    number.pvarVal = &text;
    EXPECT_EQ(Call(Put, L"Number", {&number}).Result, DISP_E_TYPEMISMATCH);
}

TEST_F(Dispatch, MissesArgumentsThatAreNotThere) {
    EXPECT_EQ(CallWith(Method, L"Advance", {Com::Variant(u"abc")}).Result, DISP_E_BADPARAMCOUNT);
}

TEST_F(Dispatch, RefusesNamesThatFitNoParameterOrFitOneTwice) {
    DISPID advance = DISPID_UNKNOWN;
    wchar_t* name = const_cast<wchar_t*>(L"Advance");
    ASSERT_EQ(dispatch_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &advance), S_OK);
    const struct {
        DISPID Names[2];
        UINT NamedCount;
        UINT BadArgument;
    } cases[] = {
        {{7, 0}, 2, 0}, {{0, 7}, 2, 1}, {{0, 0}, 2, 1}, {{-5, 1}, 2, 0}, {{0, 0}, 1, 1},
    };
    for (const auto& [names, count, bad] : cases) {
        VARIANT arguments[] = {Com::Variant(1).Get(), Com::Variant(2).Get()};
        DISPID copied[] = {names[0], names[1]};
        DISPPARAMS parameters{arguments, copied, 2, count};
        UINT badArgument = 99;
        EXPECT_EQ(dispatch_->Invoke(advance, IID_NULL, LOCALE_USER_DEFAULT, Method, &parameters,
                                    nullptr, nullptr, &badArgument),
                  DISP_E_PARAMNOTFOUND);
        EXPECT_EQ(badArgument, bad);
    }
}

TEST_F(Dispatch, KeepsNoReferenceToTheArgumentsOfACallThatItRefuses) {
    const auto bag = Com::MakeObject<TrialBag>();
    const Com::Variant object(static_cast<IDispatch*>(bag.Get()));
    bag->AddRef();
    const ULONG before = bag->Release();
    for (const WORD flags : {Get, Put, PutRef, Method}) {
        for (const wchar_t* member : {L"Number", L"Bag", L"Advance", L"Fail", L"Happen"}) {
            for (std::size_t count = 0; count < 5; ++count) {
                CallWith(flags, member, std::vector<Com::Variant>(count, object));
                trial_->Bag->Items.clear();
            }
        }
    }
    bag->AddRef();
    EXPECT_EQ(bag->Release(), before);
}

TEST_F(Dispatch, FillsTheExceptionFromTheErrorInformation) {
    const struct {
        LONG Number;
        const char16_t* Source;
        const char16_t* Description;
    } cases[] = {
        {static_cast<LONG>(0x80040052), u"source", u"description"},
        {CTL_E_SETNOTSUPPORTEDATRUNTIME, u"", u""},
    };
    for (const auto& given : cases) {
        const Outcome outcome =
            CallWith(Method, L"Fail",
                     {Com::Variant(given.Number), Com::Variant(TextView(given.Source)),
                      Com::Variant(TextView(given.Description))});
        EXPECT_EQ(outcome.Result, DISP_E_EXCEPTION);
        EXPECT_EQ(outcome.Number, given.Number);
        EXPECT_EQ(outcome.Source, given.Source);
        EXPECT_EQ(outcome.Description, given.Description);
    }
}

TEST_F(Dispatch, DoesNotNeedTheExceptionOfItsCaller) {
    const Com::Bstr text(u"text");
    VARIANT values[3]{};
    values[0].vt = values[1].vt = VT_BSTR;
    values[0].bstrVal = values[1].bstrVal = text.Get();
    values[2].vt = VT_I4;
    values[2].lVal = E_FAIL;
    DISPPARAMS parameters{values, nullptr, 3, 0};
    EXPECT_EQ(dispatch_->Invoke(6, IID_NULL, 0, Method, &parameters, nullptr, nullptr, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(dispatch_->Invoke(7, IID_NULL, 0, Method, nullptr, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(Dispatch, SurvivesACallThatReleasesTheObject) {
    const auto sink = Com::MakeObject<TrialSink>([&] {
        dispatch_.Reset();
        trial_.Reset();
    });
    Advise(PointOf(trial_->ControllingUnknown(), __uuidof(TrialEvents)),
           sink->ControllingUnknown());
    IDispatch* const raw = dispatch_.Get();
    DISPPARAMS none{};
    EXPECT_EQ(raw->Invoke(7, IID_NULL, 0, Method, &none, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(sink->Events.size(), 1u);
}

} // namespace
} // namespace Quorvane
