// SPDX-License-Identifier: MIT
// The about box.
#include "control/FISControl.h"
#include "text/GetText.h"
#include "text/TextIds.h"
#include "win/MessageBox.h"

namespace Quorvane {
namespace {

/// The name of the component, which titles a message box of no title of its own.
constexpr TextView ComponentName = u"QuorvaneAxEditor";

} // namespace

STDMETHODIMP FISControl::ShowAboutBox() noexcept {
    return Com::Guard<_FISControl>([&] {
        const Com::KeepAlive alive(this);
        const Com::ModelessPause pause(InPlace());
        Win::ShowMessage(Site().Window(), Main::GetText(TextIds::About), Text(ComponentName),
                         MB_OK | MB_ICONINFORMATION);
    });
}

} // namespace Quorvane
