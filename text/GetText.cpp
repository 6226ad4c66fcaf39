// SPDX-License-Identifier: MIT
// Lookup in the text table.
#include "text/GetText.h"

#include <algorithm>

#include "shared/Definition.h"
#include "text/TextTable.h"

namespace Quorvane::Main {

static_assert(std::ranges::is_sorted(TextTable, {}, &TextRow::Id));

Text GetText(std::int32_t id) {
    const TextRow* const row = std::ranges::lower_bound(TextTable, id, {}, &TextRow::Id);
    if (row == std::end(TextTable) || row->Id != id) {
        return {};
    }
    return Text(Definition::State().LanguageId == SimplifiedChinese ? row->Chinese : row->English);
}

Text GetText(std::int32_t id, TextView limit) {
    Text filled;
    for (const char16_t character : GetText(id)) {
        if (character == u'?') {
            filled += limit;
        } else {
            filled += character;
        }
    }
    return filled;
}

} // namespace Quorvane::Main
