// SPDX-License-Identifier: MIT
// Small fuzzy systems whose outputs are easily worked out by hand.
#include "tests/com/support/Systems.h"

namespace Quorvane {

Text Stored(TextView plain) {
    Text stored;
    for (const char16_t character : plain) {
        stored += u"0123456789ABCDEF"[character & 0xF];
        stored += u"0123456789ABCDEF"[character >> 4];
    }
    return stored;
}

std::map<Text, Com::Variant> PropertiesOf(const System& system) {
    return {{u"Inputs", Com::Variant(TextView(Stored(system.Inputs)))},
            {u"Outputs", Com::Variant(TextView(Stored(system.Outputs)))},
            {u"Rules", Com::Variant(TextView(Stored(system.Rules)))}};
}

} // namespace Quorvane
