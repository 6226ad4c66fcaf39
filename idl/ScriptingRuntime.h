// SPDX-License-Identifier: MIT
// The interface of the scripting runtime's dictionary, which no header of the compiler declares.
#pragma once

#include <windows.h>

#include <oaidl.h>

/// The scripting dictionary. The order of the members is the order of the platform's slots.
/// Keys and items are passed by pointer but never changed.
struct IDictionary : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE putref_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE Add(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Exists(VARIANT* key, VARIANT_BOOL* exists) = 0;
    virtual HRESULT STDMETHODCALLTYPE Items(VARIANT* items) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Key(VARIANT* key, VARIANT* newKey) = 0;
    virtual HRESULT STDMETHODCALLTYPE Keys(VARIANT* keys) = 0;
    virtual HRESULT STDMETHODCALLTYPE Remove(VARIANT* key) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveAll() = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CompareMode(int mode) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CompareMode(int* mode) = 0;
    virtual HRESULT STDMETHODCALLTYPE _NewEnum(IUnknown** enumerator) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HashVal(VARIANT* key, VARIANT* hash) = 0;
};

__CRT_UUID_DECL(IDictionary, 0x42c642c1, 0x97e1, 0x11cf, 0x97, 0x8f, 0x00, 0xa0, 0x24, 0x63, 0xe0,
                0x6f)
