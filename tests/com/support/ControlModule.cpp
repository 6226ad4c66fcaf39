// SPDX-License-Identifier: MIT
// The way from the test program to the control in the same build.
#include "tests/com/support/ControlModule.h"

#include "com/Module.h"
#include "com/Scoped.h"

namespace Quorvane {

Text ControlModulePath() {
    const Text program = Com::ModulePath();
    const Text way = program.substr(0, program.find_last_of(u'\\') + 1) + Widen(QUORVANE_PRODUCTS) +
                     u"\\QuorvaneAxEditor.ocx";
    // Without the steps back: not every function of the platform follows them.
    Text full(32768, u'\0');
    full.resize(::GetFullPathNameW(Com::Wide(way), static_cast<DWORD>(full.size()),
                                   reinterpret_cast<wchar_t*>(full.data()), nullptr));
    return full;
}

Text ControlFolder() {
    const Text module = ControlModulePath();
    return module.substr(0, module.find_last_of(u'\\'));
}

} // namespace Quorvane
