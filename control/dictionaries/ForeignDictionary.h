// SPDX-License-Identifier: MIT
// A dictionary object of a host, as the engine reads and writes it.
#pragma once

#include "com/ComPtr.h"
#include "idl/ScriptingRuntime.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

/// The engine's view of a dictionary that a host assigned. What the host's object answers with a
/// failure raises that failure's number.
class ForeignDictionary final : public ValueDictionary {
  public:
    explicit ForeignDictionary(Com::ComPtr<IDictionary> object) : object_(std::move(object)) {}
    ~ForeignDictionary() override;

    Value Get(TextView key) override;
    void Put(TextView key, Value value) override;

    const Com::ComPtr<IDictionary>& Object() const { return object_; }

  private:
    Com::ComPtr<IDictionary> object_;
};

} // namespace Quorvane
