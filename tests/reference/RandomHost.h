// SPDX-License-Identifier: MIT
// Values and dictionaries of a host's own, made up at random.
#pragma once

#include <functional>
#include <memory>

#include "shared/ValueDictionary.h"
#include "tests/reference/Random.h"

namespace Quorvane::Reference {

/// What a host's object does before it answers; may be empty, and may raise.
using HostCode = std::function<void()>;

/// A dictionary of a host's own. It answers the same as long as nothing is put; one that is broken
/// cannot be read. It may take what is put, ignore it or refuse it.
class HostDictionary final : public ValueDictionary {
  public:
    HostDictionary(Choices& choices, HostCode code);

    /// An item that it has from the beginning.
    void Give(TextView key, Value value) { items_.Put(Text(key), std::move(value)); }

    Value Get(TextView key) override;
    void Put(TextView key, Value value) override;

  private:
    enum class Writes { Taken, Ignored, Refused };

    StringKeyedDictionary<Value> items_;
    bool isBroken_;
    Writes writes_;
    HostCode code_;
};

/// A value of a type that only a host has, about a number: its text, its number, or both may be
/// missing or differ from what one would expect.
Value MakeHostValue(Choices& choices, double number, const HostCode& code);

} // namespace Quorvane::Reference
