// SPDX-License-Identifier: MIT
// What the generated QuorvaneAxEditor.h includes in place of platform.idl.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>
#include <olectl.h>
