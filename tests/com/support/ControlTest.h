// SPDX-License-Identifier: MIT
// What every test of the control begins with: a fresh module, and a host's way to its controls.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <gtest/gtest.h>

#include <memory>

#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/EventSink.h"
#include "tests/com/support/LoadedModule.h"
#include "tests/com/support/MessageBoxes.h"
#include "tests/com/support/Systems.h"
#include "tests/com/support/TestBag.h"
#include "tests/com/support/TestSite.h"
#include "tests/com/support/Values.h"

namespace Quorvane {

/// A control and its place on a form.
struct Placed {
    Com::ComPtr<TestSite> Site;
    Com::ComPtr<_FISControl> Control;

    _FISControl* operator->() const noexcept { return Control.Get(); }
    _FISControl& operator*() const noexcept { return *Control; }
};

/// Loads the module before each test. After it, the module must let go of every object of the test
/// once a host has replaced what it assigned, and must unload.
class ControlTest : public testing::Test {
  protected:
    ControlTest();
    ~ControlTest() override;
    void TearDown() override;

    const LoadedModule& Module() const { return *module_; }

    /// Loads the module again after a TearDown within a test.
    void Load() { module_ = std::make_unique<LoadedModule>(); }

    /// Makes an instance as a host does.
    HRESULT CreateInstance(IUnknown* outer, REFIID iid, void** result) const;

    /// A control that is neither placed nor initialised nor loaded.
    Com::ComPtr<_FISControl> Create() const;

    /// A control on a site, neither initialised nor loaded.
    Placed Place(bool runMode) const;

    /// A new control, initialised on its site.
    Placed New(bool runMode) const;

    /// A control that is loaded with a system.
    Placed Run(const System& system) const;
    Placed Design(const System& system) const;

  private:
    void ReleaseHostObjects() const;

    std::unique_ptr<LoadedModule> module_;
};

/// The interface `I` of an object, which it must have.
template <class I>
Com::ComPtr<I> As(const Placed& placed) {
    auto result = placed.Control.As<I>();
    EXPECT_TRUE(result);
    return result;
}

HRESULT LoadFrom(const Com::ComPtr<_FISControl>& control, TestBag& bag, IErrorLog* log = nullptr);
HRESULT LoadSystem(const Placed& placed, const System& system);
HRESULT InitNew(const Com::ComPtr<_FISControl>& control);

/// What the control writes into an empty bag.
Com::ComPtr<TestBag> SaveToBag(const Placed& placed, bool all);

/// The dictionaries of the control; each must be there.
Com::ComPtr<IDictionary> InVals(const Placed& placed);
Com::ComPtr<IDictionary> OutVals(const Placed& placed);

/// The output, which must be a Double.
double Output(const Placed& placed, TextView name);

/// Sets X, fires, and gives Y.
double FireWith(const Placed& placed, const Com::Variant& x);
double FireWith(const Placed& placed, double x);

/// A text property, by its getter.
using TextGetter = HRESULT (STDMETHODCALLTYPE _FISControl::*)(BSTR*);
Text GetText(_FISControl& control, TextGetter getter);

/// Gives a BSTR to a setter.
using TextSetter = HRESULT (STDMETHODCALLTYPE _FISControl::*)(BSTR);
HRESULT SetText(_FISControl& control, TextSetter setter, TextView value);

} // namespace Quorvane
