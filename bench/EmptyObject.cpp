// SPDX-License-Identifier: MIT
// The least that a late-bound call can do: what calls of the control are compared with.
#include "bench/EmptyObject.h"

#include <oleauto.h>

#include "tests/com/support/InvokeOnly.h"

namespace Quorvane::Bench {
namespace {

/// The interface that the type information describes: a table of one function.
struct IEmpty {
    virtual HRESULT STDMETHODCALLTYPE Method() noexcept = 0;

  protected:
    ~IEmpty() = default;
};

Com::ComPtr<ITypeInfo> DescribeEmpty() {
    wchar_t name[] = L"Method";
    METHODDATA method{name, nullptr, 1, 0, CC_STDCALL, 0, DISPATCH_METHOD, VT_EMPTY};
    INTERFACEDATA description{&method, 1};
    Com::ComPtr<ITypeInfo> object;
    Com::Check(::CreateDispTypeInfo(&description, LOCALE_SYSTEM_DEFAULT, object.Put()));
    // That is of a class; calls go through the interface that the class has.
    HREFTYPE reference = 0;
    Com::ComPtr<ITypeInfo> info;
    Com::Check(object->GetRefTypeOfImplType(0, &reference));
    Com::Check(object->GetRefTypeInfo(reference, info.Put()));
    return info;
}

class EmptyObject final : public InvokeOnly<>, public IEmpty {
  public:
    STDMETHODIMP Method() noexcept override { return S_OK; }

    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept override {
        return ::DispInvoke(static_cast<IEmpty*>(this), info_.Get(), member, flags, arguments,
                            result, exception, badArgument);
    }

  private:
    Com::ComPtr<ITypeInfo> info_ = DescribeEmpty();
};

} // namespace

Com::ComPtr<IDispatch> NewEmptyObject() {
    return Com::MakeObject<EmptyObject>();
}

} // namespace Quorvane::Bench
