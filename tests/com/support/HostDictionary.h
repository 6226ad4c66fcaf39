// SPDX-License-Identifier: MIT
// A dictionary of a host that calls back into the test.
#pragma once

#include <windows.h>

#include <functional>
#include <map>

#include "com/ComObject.h"
#include "com/Scoped.h"
#include "idl/ScriptingRuntime.h"

namespace Quorvane {

/// The platform's dictionary with the test in between: every call that the control makes is
/// counted, runs a handler first, and can be made to fail.
class HostDictionary final : public Com::ComObject<Com::Chain<IDictionary, IDispatch>> {
  public:
    HostDictionary();

    /// Runs before the item is read, written or asked for.
    std::function<void(const Text& key)> OnGet;
    std::function<void(const Text& key)> OnPut;
    std::function<void(const Text& key)> OnExists;
    /// What the calls give, unless it is S_OK.
    HRESULT GetResult = S_OK;
    HRESULT PutResult = S_OK;
    HRESULT ExistsResult = S_OK;

    /// The dictionary behind this one; reading it is no call that counts.
    const Com::ComPtr<IDictionary>& Inner() const { return inner_; }

    /// How often each member has been called, by name.
    std::map<std::string, int> Calls;

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override;

    // IDictionary
    STDMETHODIMP putref_Item(VARIANT* key, VARIANT* item) noexcept override;
    STDMETHODIMP put_Item(VARIANT* key, VARIANT* item) noexcept override;
    STDMETHODIMP get_Item(VARIANT* key, VARIANT* item) noexcept override;
    STDMETHODIMP Add(VARIANT* key, VARIANT* item) noexcept override;
    STDMETHODIMP get_Count(LONG* count) noexcept override;
    STDMETHODIMP Exists(VARIANT* key, VARIANT_BOOL* exists) noexcept override;
    STDMETHODIMP Items(VARIANT* items) noexcept override;
    STDMETHODIMP put_Key(VARIANT* key, VARIANT* newKey) noexcept override;
    STDMETHODIMP Keys(VARIANT* keys) noexcept override;
    STDMETHODIMP Remove(VARIANT* key) noexcept override;
    STDMETHODIMP RemoveAll() noexcept override;
    STDMETHODIMP put_CompareMode(int mode) noexcept override;
    STDMETHODIMP get_CompareMode(int* mode) noexcept override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) noexcept override;
    STDMETHODIMP get_HashVal(VARIANT* key, VARIANT* hash) noexcept override;

  private:
    Com::ComPtr<IDictionary> inner_;
};

} // namespace Quorvane
