// SPDX-License-Identifier: MIT
// The event of the control: who is told, how often, and what handlers may do.
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

class InferComplate : public ControlTest {
  protected:
    /// A control that a test can release within a call.
    static HRESULT Fire(const Placed& placed) {
        _FISControl* const bare = placed.Control.Get();
        return bare->Fire();
    }
};

TEST_F(InferComplate, IsRaisedOncePerCycleGoodOrBad) {
    const auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    int expected = 0;
    for (const Com::Variant& input : {Com::Variant(1), Com::Variant(1), Com::Variant(1000),
                                      TextValue(u"none"), Bare(VT_NULL)}) {
        PutItem(InVals(placed), u"X", input);
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(sink->Count, ++expected) << Describe(input);
    }
}

TEST_F(InferComplate, IsRaisedAtDesignTimeToo) {
    const auto placed = Design(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(InferComplate, FindsTheOutputsReady) {
    const auto placed = Run(Adder);
    double seen = 0;
    const auto sink = Com::MakeObject<EventSink>([&] { seen = Output(placed, u"Y"); });
    const Connection connection(placed.Control.Get(), sink.Get());
    FireWith(placed, 2);
    EXPECT_EQ(seen, 130);
    FireWith(placed, TextValue(u"none"));
    EXPECT_EQ(seen, 500);
}

TEST_F(InferComplate, GoesToEverySinkInTurn) {
    const auto placed = Run(Adder);
    std::string order;
    const auto first = Com::MakeObject<EventSink>([&] { order += '1'; });
    const auto second = Com::MakeObject<EventSink>([&] { order += '2'; });
    const Connection one(placed.Control.Get(), first.Get());
    {
        const Connection two(placed.Control.Get(), second.Get());
        const Connection again(placed.Control.Get(), first.Get());
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(order, "121") << "a sink that is advised twice is told twice";
    }
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(order, "1211");
}

TEST_F(InferComplate, IsOfTheControlThatFired) {
    const auto first = Run(Adder);
    const auto second = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(first.Control.Get(), sink.Get());
    EXPECT_EQ(second->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 0);
    EXPECT_EQ(first->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(InferComplate, IsHeldBackWhileEventsAreFrozen) {
    const auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    const Connection connection(placed.Control.Get(), sink.Get());
    const auto control = As<IOleControl>(placed);
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(FireWith(placed, 3), 131) << "the cycle runs all the same";
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 0) << "as many thaws as freezes";
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(sink->Count, 0) << "what was held back does not come later";
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 1);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK) << "one too many";
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(InferComplate, TakesNoNoteOfWhatASinkAnswers) {
    /// A sink every call of which fails.
    class Broken final : public Com::ComObject<IDispatch> {
      public:
        int Count = 0;
        STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_FAIL; }
        STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_FAIL; }
        STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
            return E_FAIL;
        }
        STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                            UINT*) noexcept override {
            ++Count;
            if (exception) {
                exception->scode = E_FAIL;
                exception->bstrDescription = ::SysAllocString(L"no");
            }
            return DISP_E_EXCEPTION;
        }
    };
    const auto placed = Run(Adder);
    const auto broken = Com::MakeObject<Broken>();
    const auto sink = Com::MakeObject<EventSink>();
    const Connection first(placed.Control.Get(), __uuidof(__FISControl), broken.Get());
    const Connection second(placed.Control.Get(), sink.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(broken->Count, 1);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(InferComplate, AllowsItsHandlerToFire) {
    const auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>();
    sink->Handler = [&] {
        if (sink->Count < 10) {
            EXPECT_EQ(FireWith(placed, sink->Count), 128 + 9) << "the innermost is the last";
        }
    };
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(sink->Count, 10);
}

TEST_F(InferComplate, AllowsItsHandlerToUnadviseItself) {
    const auto placed = Run(Adder);
    auto sink = Com::MakeObject<EventSink>();
    auto connection = std::make_unique<Connection>(placed.Control.Get(), sink.Get());
    const auto other = Com::MakeObject<EventSink>();
    const Connection rest(placed.Control.Get(), other.Get());
    int count = 0;
    sink->Handler = [&] {
        ++count;
        connection.reset();
        sink.Reset();
    };
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(sink);
    EXPECT_EQ(other->Count, 2);
}

TEST_F(InferComplate, IsNotRaisedForASinkThatAnotherHasUnadvised) {
    const auto placed = Run(Adder);
    std::unique_ptr<Connection> victims[2];
    const auto before = Com::MakeObject<EventSink>();
    const auto after = Com::MakeObject<EventSink>();
    const auto killer = Com::MakeObject<EventSink>([&] {
        victims[0].reset();
        victims[1].reset();
    });
    victims[0] = std::make_unique<Connection>(placed.Control.Get(), before.Get());
    const Connection connection(placed.Control.Get(), killer.Get());
    victims[1] = std::make_unique<Connection>(placed.Control.Get(), after.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(before->Count, 1);
    EXPECT_EQ(after->Count, 0);
}

TEST_F(InferComplate, IsFirstRaisedForANewSinkByTheNextCycle) {
    const auto placed = Run(Adder);
    const auto late = Com::MakeObject<EventSink>();
    std::unique_ptr<Connection> connection;
    const auto sink = Com::MakeObject<EventSink>([&] {
        if (!connection) {
            connection = std::make_unique<Connection>(placed.Control.Get(), late.Get());
        }
    });
    const Connection first(placed.Control.Get(), sink.Get());
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(late->Count, 0);
    EXPECT_EQ(placed->Fire(), S_OK);
    EXPECT_EQ(late->Count, 1);
}

TEST_F(InferComplate, AllowsItsHandlerToReleaseTheControl) {
    auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>([&] { placed = {}; });
    const auto other = Com::MakeObject<EventSink>();
    const Connection first(placed.Control.Get(), sink.Get());
    const Connection second(placed.Control.Get(), other.Get());
    EXPECT_EQ(Fire(placed), S_OK);
    EXPECT_FALSE(placed.Control);
    EXPECT_EQ(sink->Count, 1);
    EXPECT_EQ(other->Count, 1);
}

TEST_F(InferComplate, AllowsItsHandlerToReleaseTheControlOfALateBoundCall) {
    auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>([&] { placed = {}; });
    const Connection connection(placed.Control.Get(), sink.Get());
    IDispatch* const bare = placed.Control.Get();
    DISPPARAMS none{};
    EXPECT_EQ(bare->Invoke(0x60030012, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                           nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_FALSE(placed.Control);
}

TEST_F(InferComplate, AllowsItsHandlerToCloseTheControl) {
    auto placed = Run(Adder);
    const auto sink = Com::MakeObject<EventSink>([&] {
        const auto object = As<IOleObject>(placed);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        placed = {};
    });
    const Connection connection(placed.Control.Get(), sink.Get());
    EXPECT_EQ(Fire(placed), S_OK);
    EXPECT_EQ(sink->Count, 1);
}

TEST_F(InferComplate, AllowsItsHandlerToChangeEverything) {
    const auto placed = Run(Adder);
    const auto dictionary = NewPlatformDictionary();
    PutItem(dictionary, u"X", 1);
    const std::function<void()> changes[] = {
        [&] { EXPECT_EQ(LoadSystem(placed, TwoInputs), S_OK); },
        [&] {
            EXPECT_EQ(LoadSystem(placed, {u"", u"", u""}), S_OK);
        },
        [&] { Run(TwoOutputs); },
        [&] { New(false); },
        [&] { Create(); },
        [&] { EXPECT_EQ(placed->putref_InVals(dictionary.Get()), S_OK); },
        [&] { EXPECT_EQ(placed->putref_DefOutVals(dictionary.Get()), S_OK); },
        [&] { EXPECT_EQ(placed->putref_ErrOutVals(dictionary.Get()), S_OK); },
        [&] { EXPECT_EQ(As<IOleControl>(placed)->FreezeEvents(TRUE), S_OK); },
    };
    for (const auto& change : changes) {
        for (const Com::Variant& input : {Com::Variant(1), TextValue(u"none")}) {
            ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
            const auto sink = Com::MakeObject<EventSink>([&] { change(); });
            const Connection connection(placed.Control.Get(), sink.Get());
            PutItem(InVals(placed), u"X", input);
            EXPECT_EQ(placed->Fire(), S_OK);
            EXPECT_EQ(sink->Count, 1);
            EXPECT_EQ(placed->Fire(), S_OK);
            As<IOleControl>(placed)->FreezeEvents(FALSE);
        }
    }
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
}

TEST_F(InferComplate, LeavesItsHandlersDataShowAlone) {
    const auto placed = Run(Adder);
    EXPECT_EQ(placed->put_DataShow(VARIANT_TRUE), S_OK);
    EXPECT_EQ(FireWith(placed, 1), 129);
    EXPECT_EQ(FireWith(placed, TextValue(u"none")), 500);
    Create();
    EXPECT_EQ(placed->Fire(), S_OK) << "nothing is left to be shown";
    EXPECT_EQ(placed->put_DataShow(VARIANT_FALSE), S_OK);
}

} // namespace
} // namespace Quorvane
