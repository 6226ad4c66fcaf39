// SPDX-License-Identifier: MIT
// The verbs of a control: what a host's menu offers, and what each does.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include "com/ControlCore.h"

namespace Quorvane::Com {

/// What comes with a verb; all of it may be null.
struct VerbCall {
    const MSG* Message;
    HWND Parent;
    const RECT* Position;
};

/// Runs a verb: one of OLEIVERB_..., or 1, the first of a control's own, which opens its property
/// pages. An unknown positive verb is treated as the primary one and answered with
/// OLEOBJ_S_INVALIDVERB; an unknown negative one with E_NOTIMPL.
HRESULT RunVerb(ControlCore& core, LONG verb, const VerbCall& call);

/// The verbs that a menu offers.
ComPtr<IEnumOLEVERB> NewVerbEnumerator(ControlCore& core);

/// Opens the property pages: the host's frame for them where it has one, else the platform's.
HRESULT ShowPropertyPages(ControlCore& core, HWND parent);

} // namespace Quorvane::Com
