// SPDX-License-Identifier: MIT
// The answer to "which class are you, and which events do you raise".
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "com/ComObject.h"
#include "com/TypeLibrary.h"

namespace Quorvane::Com {

/// IProvideClassInfo2 for a class of the embedded type library and its default source interface:
///   ProvideClassInfo<::FISControl, __FISControl>
template <class Class, class Source>
class ProvideClassInfo : public IProvideClassInfo2 {
  public:
    using Answers = InterfaceList<IProvideClassInfo2, IProvideClassInfo>;

    // A macro of winuser.h renames this method here as it does in the platform's declaration.
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override {
        return Guard<IProvideClassInfo2>([&] {
            Out(info) = nullptr;
            DescribeEmbeddedType(__uuidof(Class))->Info.CopyTo(info);
        });
    }

    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override {
        return Guard<IProvideClassInfo2>([&] {
            Out(guid) = GUID{};
            if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
                throw HresultError(E_INVALIDARG);
            }
            *guid = __uuidof(Source);
        });
    }
};

} // namespace Quorvane::Com
