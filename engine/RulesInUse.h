// SPDX-License-Identifier: MIT
// The prepared rules of a running cycle.
#pragma once

#include <memory>

#include "engine/PreparedRules.h"
#include "shared/Definition.h"

namespace Quorvane::RunTime {

/// The prepared rules that a cycle works on, and ends on even if a host, whose code can run in the
/// middle of it, prepares the rule base anew. They are kept only before such code runs: most cycles
/// run none, and counting references would be a good part of the time of a short one.
class RulesInUse {
  public:
    /// The rules are those of the process, and no code of a host has run since they were looked
    /// up.
    explicit RulesInUse(PreparedRules& rules) : rules_(&rules) {}

    PreparedRules& operator*() const { return *rules_; }
    PreparedRules* operator->() const { return rules_; }

    /// To be called before code of a host can run.
    void Keep() {
        if (!kept_) {
            kept_ = Definition::State().Tables;
        }
    }

    /// To be called when code of a host may have run: looks up what it may have moved.
    void Refresh() { rules_->Binding.Refresh(*rules_); }

  private:
    PreparedRules* rules_;
    std::shared_ptr<PreparedRules> kept_;
};

} // namespace Quorvane::RunTime
