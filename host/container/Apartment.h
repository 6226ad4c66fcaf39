// SPDX-License-Identifier: MIT
// COM and OLE for the main thread of a host program.
#pragma once

#include <ole2.h>

#include "host/container/HResult.h"

namespace Quorvane::Host {

/// Makes the thread a single-threaded apartment for as long as it lives. Throws HResultError.
class Apartment {
  public:
    Apartment() { Check(OleInitialize(nullptr), L"initialise COM"); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { OleUninitialize(); }
};

} // namespace Quorvane::Host
