// SPDX-License-Identifier: MIT
// IDispatch for a dual interface, carried out through its type information.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "com/ComObject.h"
#include "com/ErrorBoundary.h"
#include "com/TypeLibrary.h"

namespace Quorvane::Com {

/// The arguments of IDispatch::Invoke.
struct DispatchCall {
    DISPID Member;
    LCID Locale;
    WORD Flags;
    DISPPARAMS* Arguments;
    VARIANT* Result;
    EXCEPINFO* Exception;
    UINT* BadArgument;
};

/// Calls a member of the dual interface `target` through its type information.
///
/// It takes more than the type information alone would:
/// - variables of scripts, and variables of another type, for by-reference parameters;
/// - an index on a property that returns an object, which goes to the object's default member;
/// - surplus arguments, which are dropped;
/// and it hands unsigned results over as signed ones. Returns what IDispatch::Invoke returns; a
/// failed member gives DISP_E_EXCEPTION with the number, source and description in `Exception`.
/// Throws std::bad_alloc, and HresultError for an argument that does not convert.
HRESULT InvokeMember(const TypeDescription& type, IDispatch* target, const DispatchCall& call);

/// The error of a COM method and the thread's error information as an EXCEPINFO. The information
/// is taken from the thread. Nothing happens for a null `exception`.
void FillException(HRESULT result, EXCEPINFO* exception) noexcept;

/// Throws HresultError(E_INVALIDARG) where the names to look up, one of them, or the place for
/// their ids is not there: the type information follows them unseen.
void RequireNames(const LPOLESTR* names, UINT count, const DISPID* ids);

/// IDispatch over the dual interface I, described by the embedded type library unless another
/// source is given. The class derived from it implements the members of I.
template <class I, auto Describe = DescribeEmbeddedType>
class DualDispatch : public I {
  public:
    using Answers = InterfaceList<I, IDispatch>;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        return Guard<I>([&] { Out(count) = 1; });
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
        return Guard<I>([&] {
            Out(info) = nullptr;
            if (index != 0) {
                throw HresultError(DISP_E_BADINDEX);
            }
            Description()->Info.CopyTo(info);
        });
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept override {
        return Guard<I>([&] {
            RequireNames(names, count, ids);
            return Description()->Info->GetIDsOfNames(names, count, ids);
        });
    }

    STDMETHODIMP Invoke(DISPID member, REFIID, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept override {
        return Guard<I>([&] {
            // Copied, since the member may release this object.
            const auto type = Description();
            return InvokeMember(*type, this,
                                {member, locale, flags, arguments, result, exception, badArgument});
        });
    }

  private:
    const std::shared_ptr<const TypeDescription>& Description() {
        if (!type_) {
            type_ = Describe(__uuidof(I));
        }
        return type_;
    }

    std::shared_ptr<const TypeDescription> type_;
};

/// ISupportErrorInfo for the given interfaces.
template <class... I>
class SupportsErrorInfo : public ISupportErrorInfo {
  public:
    using Answers = InterfaceList<ISupportErrorInfo>;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return ((iid == __uuidof(I)) || ...) ? S_OK : S_FALSE;
    }
};

} // namespace Quorvane::Com
