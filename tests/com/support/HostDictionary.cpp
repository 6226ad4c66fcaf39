// SPDX-License-Identifier: MIT
// A dictionary of a host that calls back into the test.
#include "tests/com/support/HostDictionary.h"

#include "tests/com/support/Values.h"

namespace Quorvane {
namespace {

Text KeyText(const VARIANT* key) {
    return key->vt == VT_BSTR ? Text(Com::View(key->bstrVal)) : Text();
}

/// Copied, as the handler may replace itself.
void Run(const std::function<void(const Text&)>& handler, const VARIANT* key) {
    if (const auto copy = handler) {
        copy(KeyText(key));
    }
}

} // namespace

HostDictionary::HostDictionary() : inner_(NewPlatformDictionary()) {}

STDMETHODIMP HostDictionary::GetTypeInfoCount(UINT* count) noexcept {
    return inner_->GetTypeInfoCount(count);
}

STDMETHODIMP HostDictionary::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept {
    return inner_->GetTypeInfo(index, locale, info);
}

STDMETHODIMP HostDictionary::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                           DISPID* ids) noexcept {
    return inner_->GetIDsOfNames(iid, names, count, locale, ids);
}

STDMETHODIMP HostDictionary::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                    DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                    UINT* badArgument) noexcept {
    return inner_->Invoke(member, iid, locale, flags, arguments, result, exception, badArgument);
}

STDMETHODIMP HostDictionary::putref_Item(VARIANT* key, VARIANT* item) noexcept {
    ++Calls["putref_Item"];
    Run(OnPut, key);
    return PutResult == S_OK ? inner_->putref_Item(key, item) : PutResult;
}

STDMETHODIMP HostDictionary::put_Item(VARIANT* key, VARIANT* item) noexcept {
    ++Calls["put_Item"];
    Run(OnPut, key);
    return PutResult == S_OK ? inner_->put_Item(key, item) : PutResult;
}

STDMETHODIMP HostDictionary::get_Item(VARIANT* key, VARIANT* item) noexcept {
    ++Calls["get_Item"];
    Run(OnGet, key);
    return GetResult == S_OK ? inner_->get_Item(key, item) : GetResult;
}

STDMETHODIMP HostDictionary::Add(VARIANT* key, VARIANT* item) noexcept {
    ++Calls["Add"];
    return inner_->Add(key, item);
}

STDMETHODIMP HostDictionary::get_Count(LONG* count) noexcept {
    ++Calls["get_Count"];
    return inner_->get_Count(count);
}

STDMETHODIMP HostDictionary::Exists(VARIANT* key, VARIANT_BOOL* exists) noexcept {
    ++Calls["Exists"];
    Run(OnExists, key);
    return ExistsResult == S_OK ? inner_->Exists(key, exists) : ExistsResult;
}

STDMETHODIMP HostDictionary::Items(VARIANT* items) noexcept {
    ++Calls["Items"];
    return inner_->Items(items);
}

STDMETHODIMP HostDictionary::put_Key(VARIANT* key, VARIANT* newKey) noexcept {
    ++Calls["put_Key"];
    return inner_->put_Key(key, newKey);
}

STDMETHODIMP HostDictionary::Keys(VARIANT* keys) noexcept {
    ++Calls["Keys"];
    return inner_->Keys(keys);
}

STDMETHODIMP HostDictionary::Remove(VARIANT* key) noexcept {
    ++Calls["Remove"];
    return inner_->Remove(key);
}

STDMETHODIMP HostDictionary::RemoveAll() noexcept {
    ++Calls["RemoveAll"];
    return inner_->RemoveAll();
}

STDMETHODIMP HostDictionary::put_CompareMode(int mode) noexcept {
    ++Calls["put_CompareMode"];
    return inner_->put_CompareMode(mode);
}

STDMETHODIMP HostDictionary::get_CompareMode(int* mode) noexcept {
    ++Calls["get_CompareMode"];
    return inner_->get_CompareMode(mode);
}

STDMETHODIMP HostDictionary::_NewEnum(IUnknown** enumerator) noexcept {
    ++Calls["_NewEnum"];
    return inner_->_NewEnum(enumerator);
}

STDMETHODIMP HostDictionary::get_HashVal(VARIANT* key, VARIANT* hash) noexcept {
    ++Calls["get_HashVal"];
    return inner_->get_HashVal(key, hash);
}

} // namespace Quorvane
