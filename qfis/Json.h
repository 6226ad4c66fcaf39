// SPDX-License-Identifier: MIT
// What commands tell other programs.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>

#include "host/formfile/Utf8.h"
#include "shared/Text.h"

namespace Quorvane::Qfis {

using Json = nlohmann::ordered_json;

/// A number to all its digits; null where there is none. JSON has no other numbers than finite
/// ones.
inline Json ToJson(const std::optional<double>& number) {
    return number ? Json(*number) : Json(nullptr);
}

inline Json ToJson(TextView text) {
    return Host::EncodeUtf8(text);
}

} // namespace Quorvane::Qfis
