// SPDX-License-Identifier: MIT
// One of the system's own dictionaries as a host sees it: with the scripting dictionary's
// interface.
#pragma once

#include "com/ComObject.h"
#include "com/Dispatch.h"
#include "idl/ScriptingRuntime.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

/// Describes a type of the scripting runtime's type library, which is part of the platform.
std::shared_ptr<const Com::TypeDescription> DescribeScriptingType(REFGUID type);

/// By this interface the module knows its own dictionaries again when a host hands one back.
struct IOwnDictionary : public IUnknown {
    virtual std::shared_ptr<OwnValueDictionary> Dictionary() noexcept = 0;
};

} // namespace Quorvane

__CRT_UUID_DECL(Quorvane::IOwnDictionary, 0xf49c8a36, 0x7dcb, 0x4bf7, 0xbb, 0xe0, 0xe6, 0x0f, 0x09,
                0x31, 0xa1, 0x78)

namespace Quorvane {

/// The object that InVals and OutVals hand out. It behaves as the platform's dictionary does,
/// reading a missing key included: to a host that adds the key with an empty item. The engine
/// reads the dictionary beneath, where nothing is ever added by reading.
///
/// A dictionary has at most one such object at a time, so a host that compares two of them for
/// identity is told the truth. The object keeps its dictionary alive, not the other way round.
class ScriptingDictionary final
    : public Com::ComObject<Com::DualDispatch<IDictionary, DescribeScriptingType>,
                            Com::SupportsErrorInfo<IDictionary>, IOwnDictionary>,
      public DictionaryFace {
  public:
    /// The host's object for a dictionary: the one there is, or a new one.
    static Com::ComPtr<IDictionary> Of(const std::shared_ptr<OwnValueDictionary>& dictionary);

    explicit ScriptingDictionary(std::shared_ptr<OwnValueDictionary> dictionary);
    ~ScriptingDictionary() override;

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

    // IOwnDictionary
    std::shared_ptr<OwnValueDictionary> Dictionary() noexcept override { return dictionary_; }

  private:
    std::shared_ptr<OwnValueDictionary> dictionary_;
};

/// The engine's view of a dictionary object: the system's own again, or a view of a foreign one.
std::shared_ptr<ValueDictionary> FromHost(IDictionary* object);

/// The object that a host sees for a dictionary; null for none.
Com::ComPtr<IDictionary> ToHost(const std::shared_ptr<ValueDictionary>& dictionary);

} // namespace Quorvane
