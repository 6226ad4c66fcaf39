// SPDX-License-Identifier: MIT
// A host of the built control, which knows it through COM alone.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <cstddef>
#include <filesystem>

#include "bench/Workload.h"
#include "com/ComObject.h"
#include "idl/QuorvaneAxEditor.h"
#include "idl/ScriptingRuntime.h"
#include "tests/com/support/InvokeOnly.h"

namespace Quorvane::Bench {

/// A control that has loaded a system. Its module has a process-wide state of its own, so the
/// system is not the one that Install makes that of this program.
class ControlHost {
  public:
    /// The host of a control with this system. There is one control; asking for another system
    /// loads that. Throws where the control cannot be made or loaded.
    static ControlHost& Of(const Workload& workload);

    /// Has the system loaded again when it is asked for next: to be called after another control
    /// has ended, which takes the system of the process with it.
    static void ForgetLoaded();

    const Com::ComPtr<_FISControl>& Control() const { return control_; }
    Com::ComPtr<IDictionary> InVals() const;
    Com::ComPtr<IDictionary> OutVals() const;

    void RunBatch(const std::filesystem::path& folder, int divisions) const;

  private:
    ControlHost();

    static ControlHost& One();
    void Load(const Workload& workload);

    Com::ComPtr<_FISControl> control_;
    std::string loaded_;
};

/// A new control of the built module.
Com::ComPtr<_FISControl> NewControl();

/// An empty dictionary of the platform whose keys compare as texts without regard to case.
Com::ComPtr<IDictionary> NewPlatformDictionary();

/// A sink of InferComplate that counts and does nothing else, connected as long as it lives.
class ConnectedSink {
  public:
    explicit ConnectedSink(const Com::ComPtr<_FISControl>& control);
    ~ConnectedSink();
    ConnectedSink(const ConnectedSink&) = delete;
    ConnectedSink& operator=(const ConnectedSink&) = delete;

    /// How often the event has come.
    std::size_t Count() const;

  private:
    Com::ComPtr<CountingSink<>> sink_;
    Com::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace Quorvane::Bench
