// SPDX-License-Identifier: MIT
// COM and OLE for the main thread of a program.
#pragma once

#include <windows.h>

#include <ole2.h>

#include "com/FailedCall.h"

namespace Quorvane::Com {

/// Makes the thread a single-threaded apartment for as long as it lives. Throws HresultError.
class Apartment {
  public:
    Apartment() { Check(::OleInitialize(nullptr), u"initialise COM"); }
    ~Apartment() { ::OleUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

} // namespace Quorvane::Com
