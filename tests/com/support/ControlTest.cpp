// SPDX-License-Identifier: MIT
// What every test of the control begins with: a fresh module, and a host's way to its controls.
#include "tests/com/support/ControlTest.h"

namespace Quorvane {
namespace {

/// Fails the test for no dictionary, and gives one that it can go on with.
Com::ComPtr<IDictionary> OrEmpty(Com::ComPtr<IDictionary> values) {
    EXPECT_TRUE(values);
    return values ? values : NewPlatformDictionary();
}

} // namespace

ControlTest::ControlTest() : module_(std::make_unique<LoadedModule>()) {}

ControlTest::~ControlTest() = default;

void ControlTest::TearDown() {
    ReleaseHostObjects();
    module_.reset();
    EXPECT_EQ(Com::ModuleLockCount(), 0) << "objects of the test are left";
    ::SetErrorInfo(0, nullptr);
}

// The process-wide values outlive every control; loading replaces them all but the error values.
void ControlTest::ReleaseHostObjects() const {
    const auto control = Create();
    const auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(LoadFrom(control, *bag), S_OK);
    EXPECT_EQ(control->putref_ErrOutVals(nullptr), S_OK);
}

HRESULT ControlTest::CreateInstance(IUnknown* outer, REFIID iid, void** result) const {
    Com::ComPtr<IClassFactory> factory;
    const HRESULT found =
        module_->GetClassObject(__uuidof(::FISControl), __uuidof(IClassFactory), factory.PutVoid());
    return FAILED(found) ? found : factory->CreateInstance(outer, iid, result);
}

Com::ComPtr<_FISControl> ControlTest::Create() const {
    Com::ComPtr<_FISControl> control;
    EXPECT_EQ(CreateInstance(nullptr, __uuidof(_FISControl), control.PutVoid()), S_OK);
    return control;
}

Placed ControlTest::Place(bool runMode) const {
    Placed placed{NewSite(runMode), Create()};
    EXPECT_EQ(As<IOleObject>(placed)->SetClientSite(placed.Site.Get()), S_OK);
    return placed;
}

Placed ControlTest::New(bool runMode) const {
    Placed placed = Place(runMode);
    EXPECT_EQ(InitNew(placed.Control), S_OK);
    return placed;
}

Placed ControlTest::Run(const System& system) const {
    Placed placed = Place(true);
    EXPECT_EQ(LoadSystem(placed, system), S_OK);
    return placed;
}

Placed ControlTest::Design(const System& system) const {
    Placed placed = Place(false);
    EXPECT_EQ(LoadSystem(placed, system), S_OK);
    return placed;
}

HRESULT LoadFrom(const Com::ComPtr<_FISControl>& control, TestBag& bag, IErrorLog* log) {
    const auto persistence = control.As<IPersistPropertyBag>();
    return persistence ? persistence->Load(&bag, log) : E_NOINTERFACE;
}

HRESULT LoadSystem(const Placed& placed, const System& system) {
    const auto bag = Com::MakeObject<TestBag>(PropertiesOf(system));
    return LoadFrom(placed.Control, *bag);
}

HRESULT InitNew(const Com::ComPtr<_FISControl>& control) {
    const auto persistence = control.As<IPersistPropertyBag>();
    return persistence ? persistence->InitNew() : E_NOINTERFACE;
}

Com::ComPtr<TestBag> SaveToBag(const Placed& placed, bool all) {
    auto bag = Com::MakeObject<TestBag>();
    EXPECT_EQ(As<IPersistPropertyBag>(placed)->Save(bag.Get(), TRUE, all), S_OK);
    return bag;
}

Com::ComPtr<IDictionary> InVals(const Placed& placed) {
    Com::ComPtr<IDictionary> values;
    EXPECT_EQ(placed->get_InVals(values.Put()), S_OK);
    return OrEmpty(std::move(values));
}

Com::ComPtr<IDictionary> OutVals(const Placed& placed) {
    Com::ComPtr<IDictionary> values;
    EXPECT_EQ(placed->get_OutVals(values.Put()), S_OK);
    return OrEmpty(std::move(values));
}

double Output(const Placed& placed, TextView name) {
    const Com::Variant value = ItemOf(OutVals(placed), name);
    EXPECT_EQ(value.Type(), VT_R8) << Describe(value);
    return value.Get().dblVal;
}

double FireWith(const Placed& placed, const Com::Variant& x) {
    PutItem(InVals(placed), u"X", x);
    EXPECT_EQ(placed->Fire(), S_OK);
    return Output(placed, u"Y");
}

double FireWith(const Placed& placed, double x) {
    return FireWith(placed, Com::Variant(x));
}

Text GetText(_FISControl& control, TextGetter getter) {
    Com::Bstr text;
    EXPECT_EQ((control.*getter)(text.Put()), S_OK);
    return Text(text.Characters());
}

HRESULT SetText(_FISControl& control, TextSetter setter, TextView value) {
    const Com::Bstr text(value);
    return (control.*setter)(text.Get());
}

} // namespace Quorvane
