// SPDX-License-Identifier: MIT
// The verbs of a control.
#include "com/Verbs.h"

#include <ocidl.h>
#include <olectl.h>

#include <vector>

#include "com/Enumerator.h"
#include "com/Scoped.h"
#include "com/TaskMemory.h"

namespace Quorvane::Com {
namespace {

/// The first verb that a control may number as it likes; hosts list it in their menus.
constexpr LONG PropertiesVerb = 1;

/// A verb that a host lists.
struct MenuVerb {
    LONG Id;
    TextView Name;
};

} // namespace

template <>
struct EnumeratorTraits<OLEVERB> {
    using Owned = MenuVerb;
    static void Copy(const Owned& from, OLEVERB* to) {
        *to = {from.Id, NewTaskText(from.Name), 0, OLEVERBATTRIB_ONCONTAINERMENU};
    }
    static void Discard(OLEVERB* item) noexcept { ::CoTaskMemFree(item->lpszVerbName); }
};

ComPtr<IEnumOLEVERB> NewVerbEnumerator(ControlCore& core) {
    std::vector<MenuVerb> verbs = {{PropertiesVerb, core.Traits().PropertiesVerb}};
    return MakeObject<Enumerator<IEnumOLEVERB, OLEVERB>>(std::move(verbs));
}

HRESULT ShowPropertyPages(ControlCore& core, HWND parent) {
    const auto alive = core.SelfReference();
    const auto site = core.Site().Get().As<IOleControlSite>();
    if (site && site->ShowPropertyFrame() == S_OK) {
        return S_OK;
    }
    const ControlTraits& traits = core.Traits();
    HWND const owner = parent ? parent : core.Site().Window();
    IUnknown* objects[] = {core.Unknown()};
    const Text caption(traits.UserType);
    const ModelessPause pause(core.InPlace());
    // The platform's declaration lacks const.
    auto* const pages = const_cast<CLSID*>(traits.PropertyPages.data());
    return ::OleCreatePropertyFrame(owner, 0, 0, Wide(caption), 1, objects,
                                    static_cast<ULONG>(traits.PropertyPages.size()), pages,
                                    core.Site().LocaleId(), 0, nullptr);
}

HRESULT RunVerb(ControlCore& core, LONG verb, const VerbCall& call) {
    Activation& activation = core.InPlace();
    switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_OPEN:
    case OLEIVERB_UIACTIVATE:
        return activation.ActivateUI(call.Parent, call.Position, call.Message);
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
        return activation.Activate(call.Parent, call.Position);
    case OLEIVERB_HIDE:
        activation.Hide();
        return S_OK;
    case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
    case OLEIVERB_PROPERTIES:
    case PropertiesVerb:
        return ShowPropertyPages(core, call.Parent);
    default:
        break;
    }
    if (verb < 0) {
        return E_NOTIMPL;
    }
    const HRESULT result = activation.ActivateUI(call.Parent, call.Position, call.Message);
    return result == S_OK ? OLEOBJ_S_INVALIDVERB : result;
}

} // namespace Quorvane::Com
