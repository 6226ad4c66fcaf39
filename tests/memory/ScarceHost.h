// SPDX-License-Identifier: MIT
// A host whose control's module can run out of memory.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <optional>

#include "idl/QuorvaneAxEditor.h"
#include "tests/com/support/LoadedModule.h"
#include "tests/com/support/Systems.h"
#include "tests/com/support/TestFolder.h"
#include "tests/memory/FailingAllocations.h"
#include "tests/windows/support/PageFrame.h"
#include "tests/windows/support/Site.h"

namespace Quorvane {

/// A fresh module, and a form without anything on it, which is shown when something on it is. What
/// a host calls is a member function that gives the first failure of the control. Everything is
/// released, and the module unloaded, at the end.
class ScarceHost {
  public:
    ScarceHost();
    ~ScarceHost();
    ScarceHost(const ScarceHost&) = delete;
    ScarceHost& operator=(const ScarceHost&) = delete;

    FailingAllocations& Memory() { return memory_; }
    _FISControl& Control() { return *control_.Get(); }

    /// Run mode, which it begins in, or design mode.
    void SetUserMode(bool userMode);

    HRESULT Create();
    HRESULT InitNew();
    HRESULT LoadFromBag(const System& system);
    HRESULT LoadFromStream();
    HRESULT SaveToBag();
    HRESULT SaveToStream();
    HRESULT Fire();
    HRESULT Batch();
    HRESULT Draw();
    HRESULT GetPicture();
    HRESULT Activate();
    HRESULT Deactivate();
    HRESULT OpenPage();
    HRESULT ClosePage();
    /// Opens the rule editor from the page, and closes it with Esc when it is open.
    HRESULT OpenRuleEditor();

    // What a test finds out afterwards, with memory enough.
    /// Whether a cycle gives a Sum of 8 for an A of 1 and a B of 4.
    bool Infers();
    /// Whether there are dictionaries of values, and a cycle runs.
    bool HasSystem();
    bool IsActive();
    bool HasSaved();
    bool HasBatch();
    bool HasEdited() const { return editorsSeen_ > 0; }

    /// Lets go of control, page, windows and values.
    void Clear();

    /// How many references to the host's objects and windows of the control are left after Clear.
    int Left();

  private:
    HRESULT CreateInstance(REFCLSID clsid, REFIID iid, void** result);

    LoadedModule module_;
    FailingAllocations memory_;
    std::optional<TestFolder> folder_;
    HWND form_;
    Com::ComPtr<Site> site_;
    Com::ComPtr<PageFrame> frame_;
    Com::ComPtr<_FISControl> control_;
    Com::ComPtr<IPropertyPage> page_;
    Com::ComPtr<IPropertyBag> saved_;
    Com::ComPtr<IStream> stream_;
    int editorsSeen_ = 0;
};

} // namespace Quorvane
