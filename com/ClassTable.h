// SPDX-License-Identifier: MIT
// One row per class of the module: how it is made, and what the registry says of it.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <span>

#include "shared/Text.h"

namespace Quorvane::Com {

/// What the registry says of a class, besides its server and threading model.
struct ClassRegistration {
    /// The name that a person reads.
    TextView Title;
    /// The programmatic name without its version, such as u"Library.Class"; empty for none.
    TextView ProgId;
    /// Appended to the programmatic name, such as u"1".
    TextView ProgIdVersion;
    /// An ActiveX control: writes Control, MiscStatus and ToolboxBitmap32.
    bool IsControl;
    /// The OLEMISC bits that the control's GetMiscStatus also gives.
    DWORD MiscStatus;
    /// The resource id of the 16 by 16 bitmap of a toolbox.
    UINT ToolboxBitmap;
    std::span<const GUID> Categories;
};

struct ClassEntry {
    const CLSID* Clsid = nullptr;
    /// Makes an instance, aggregated where `outer` is not null, and asks it for `iid`. Throws.
    void (*Create)(IUnknown* outer, REFIID iid, void** result) = nullptr;
    ClassRegistration Registration;
};

} // namespace Quorvane::Com
