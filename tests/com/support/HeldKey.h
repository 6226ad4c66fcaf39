// SPDX-License-Identifier: MIT
// A key that a test holds down while it sends messages.
#pragma once

#include <windows.h>

namespace Quorvane {

/// Holds a key of this thread down, such as VK_SHIFT, for as long as it lives.
class HeldKey {
  public:
    explicit HeldKey(int key) : key_(key) { Set(0x80); }
    ~HeldKey() { Set(0); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

  private:
    void Set(BYTE state) const {
        BYTE keys[256]{};
        ::GetKeyboardState(keys);
        keys[key_] = state;
        ::SetKeyboardState(keys);
    }

    int key_;
};

} // namespace Quorvane
