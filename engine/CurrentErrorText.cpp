// SPDX-License-Identifier: MIT
// What the engine says of a cycle that failed.
#include "engine/CurrentErrorText.h"

#include "shared/Definition.h"
#include "text/GetText.h"

namespace Quorvane::RunTime {

Text CurrentErrorText() {
    const std::int32_t id = Definition::State().CurrentErrorId;
    return id == 0 ? Text() : Main::GetText(id);
}

} // namespace Quorvane::RunTime
