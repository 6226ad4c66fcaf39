// SPDX-License-Identifier: MIT
// A key as a host gives it, and the text under which a string-keyed dictionary holds it.
#pragma once

#include "com/Scoped.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

/// The key of one call. A text is viewed as it is, so the call's VARIANT must outlive the key. Any
/// other value is held under a text that no text key equals, so that the keys 1 and "1" differ as
/// they do in the platform's dictionary; numbers of equal value and one object are the same key.
class DictionaryKey {
  public:
    /// Raises InvalidCall for arrays, which cannot be keys.
    explicit DictionaryKey(const VARIANT& key);
    DictionaryKey(const DictionaryKey&) = delete;
    DictionaryKey& operator=(const DictionaryKey&) = delete;

    TextView View() const { return view_; }

    /// The key as the host gave it where it was no text, else null.
    std::shared_ptr<const HostValue> HostKey() const;

    /// The number by which the platform's dictionary spreads keys.
    LONG Hash(KeyComparison comparison) const;

  private:
    const VARIANT& key_;
    Text text_;
    TextView view_;
};

} // namespace Quorvane
