// SPDX-License-Identifier: MIT
// One of the system's own dictionaries as a host sees it.
#include "control/dictionaries/ScriptingDictionary.h"

#include "com/Enumerator.h"
#include "control/dictionaries/DictionaryKey.h"
#include "control/dictionaries/ForeignDictionary.h"
#include "control/dictionaries/VariantValue.h"

namespace Quorvane {
namespace {

using Item = OwnValueDictionary::Item;

/// The scripting runtime's type library, version 1.0.
constexpr GUID ScriptingLibrary = {
    0x420b2830, 0xe718, 0x11cf, {0x89, 0x3d, 0x00, 0xa0, 0xc9, 0x05, 0x42, 0x28}};

Value ItemValue(VARIANT* item) {
    return FromVariant(Com::In(item));
}

Com::Variant KeyVariant(const Text& key, const Item& item) {
    return item.HostKey ? ToVariant(*item.HostKey) : Com::Variant(TextView(key));
}

void PutItem(OwnValueDictionary& dictionary, VARIANT* key, VARIANT* item) {
    const DictionaryKey name(Com::In(key));
    Value value = ItemValue(item);
    if (!dictionary.Replace(name.View(), value)) {
        dictionary.Items.Add(Text(name.View()), {std::move(value), name.HostKey()});
    }
}

/// A new array of variants, one for each entry, as a VARIANT that the caller owns.
template <class Element>
VARIANT ArrayOf(const OwnValueDictionary& dictionary, Element element) {
    SAFEARRAY* const array =
        ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(dictionary.Items.Count()));
    if (!array) {
        throw std::bad_alloc();
    }
    VARIANT owner{};
    owner.vt = VT_ARRAY | VT_VARIANT;
    owner.parray = array;
    Com::Variant result = Com::Variant::Attach(owner);
    // A vector of this size is never locked by anyone else, so its data may be written directly.
    auto* slot = static_cast<VARIANT*>(array->pvData);
    for (const auto& [key, item] : dictionary.Items) {
        *slot++ = element(key, item).Detach();
    }
    return result.Detach();
}

} // namespace

std::shared_ptr<const Com::TypeDescription> DescribeScriptingType(REFGUID type) {
    // Shared by all objects in use, and gone with the last of them.
    static std::weak_ptr<const Com::TypeDescription> shared;
    auto description = shared.lock();
    if (!description) {
        Com::ComPtr<ITypeLib> library;
        Com::Check(::LoadRegTypeLib(ScriptingLibrary, 1, 0, LOCALE_NEUTRAL, library.Put()));
        Com::ComPtr<ITypeInfo> info;
        Com::Check(library->GetTypeInfoOfGuid(type, info.Put()));
        description = Com::DescribeType(std::move(info));
        shared = description;
    }
    return description;
}

Com::ComPtr<IDictionary>
ScriptingDictionary::Of(const std::shared_ptr<OwnValueDictionary>& dictionary) {
    if (dictionary->Face) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-static-cast-downcast): no other class is a face
        return Com::ComPtr<IDictionary>{static_cast<ScriptingDictionary*>(dictionary->Face)};
    }
    return Com::MakeObject<ScriptingDictionary>(dictionary).As<IDictionary>();
}

ScriptingDictionary::ScriptingDictionary(std::shared_ptr<OwnValueDictionary> dictionary)
    : dictionary_(std::move(dictionary)) {
    dictionary_->Face = this;
}

ScriptingDictionary::~ScriptingDictionary() {
    dictionary_->Face = nullptr;
}

STDMETHODIMP ScriptingDictionary::putref_Item(VARIANT* key, VARIANT* item) noexcept {
    return Com::Guard<IDictionary>([&] { PutItem(*dictionary_, key, item); });
}

STDMETHODIMP ScriptingDictionary::put_Item(VARIANT* key, VARIANT* item) noexcept {
    return Com::Guard<IDictionary>([&] { PutItem(*dictionary_, key, item); });
}

STDMETHODIMP ScriptingDictionary::get_Item(VARIANT* key, VARIANT* item) noexcept {
    return Com::Guard<IDictionary>([&] {
        Com::Out(item).vt = VT_EMPTY;
        const DictionaryKey name(Com::In(key));
        if (const Item* const found = dictionary_->Items.Find(name.View())) {
            *item = ToVariant(found->Content).Detach();
        } else {
            dictionary_->Items.Add(Text(name.View()), {{}, name.HostKey()});
        }
    });
}

STDMETHODIMP ScriptingDictionary::Add(VARIANT* key, VARIANT* item) noexcept {
    return Com::Guard<IDictionary>([&] {
        const DictionaryKey name(Com::In(key));
        dictionary_->Items.Add(Text(name.View()), {ItemValue(item), name.HostKey()});
    });
}

STDMETHODIMP ScriptingDictionary::get_Count(LONG* count) noexcept {
    return Com::Guard<IDictionary>(
        [&] { Com::Out(count) = static_cast<LONG>(dictionary_->Items.Count()); });
}

STDMETHODIMP ScriptingDictionary::Exists(VARIANT* key, VARIANT_BOOL* exists) noexcept {
    return Com::Guard<IDictionary>([&] {
        const bool found = dictionary_->Items.Exists(DictionaryKey(Com::In(key)).View());
        Com::Out(exists) = found ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP ScriptingDictionary::Items(VARIANT* items) noexcept {
    return Com::Guard<IDictionary>([&] {
        Com::Out(items) = ArrayOf(
            *dictionary_, [](const Text&, const Item& item) { return ToVariant(item.Content); });
    });
}

STDMETHODIMP ScriptingDictionary::put_Key(VARIANT* key, VARIANT* newKey) noexcept {
    return Com::Guard<IDictionary>([&] {
        const DictionaryKey name(Com::In(key));
        const DictionaryKey newName(Com::Out(newKey));
        dictionary_->Items.Rekey(name.View(), Text(newName.View()));
        dictionary_->Items.At(newName.View()).HostKey = newName.HostKey();
    });
}

STDMETHODIMP ScriptingDictionary::Keys(VARIANT* keys) noexcept {
    return Com::Guard<IDictionary>([&] { Com::Out(keys) = ArrayOf(*dictionary_, KeyVariant); });
}

STDMETHODIMP ScriptingDictionary::Remove(VARIANT* key) noexcept {
    return Com::Guard<IDictionary>(
        [&] { dictionary_->Items.Remove(DictionaryKey(Com::In(key)).View()); });
}

STDMETHODIMP ScriptingDictionary::RemoveAll() noexcept {
    return Com::Guard<IDictionary>([&] { dictionary_->Items.RemoveAll(); });
}

STDMETHODIMP ScriptingDictionary::put_CompareMode(int mode) noexcept {
    return Com::Guard<IDictionary>([&] {
        const auto comparison = static_cast<KeyComparison>(mode);
        if (comparison != KeyComparison::Exact && comparison != KeyComparison::IgnoreCase) {
            throw FisError(RuntimeError::InvalidCall);
        }
        dictionary_->Items.SetComparison(comparison);
    });
}

STDMETHODIMP ScriptingDictionary::get_CompareMode(int* mode) noexcept {
    return Com::Guard<IDictionary>(
        [&] { Com::Out(mode) = static_cast<int>(dictionary_->Items.Comparison()); });
}

STDMETHODIMP ScriptingDictionary::_NewEnum(IUnknown** enumerator) noexcept {
    return Com::Guard<IDictionary>([&] {
        Com::Out(enumerator) = nullptr;
        std::vector<Com::Variant> keys;
        keys.reserve(dictionary_->Items.Count());
        for (const auto& [key, item] : dictionary_->Items) {
            keys.push_back(KeyVariant(key, item));
        }
        *enumerator =
            Com::MakeObject<Com::Enumerator<IEnumVARIANT, VARIANT>>(std::move(keys)).Detach();
    });
}

STDMETHODIMP ScriptingDictionary::get_HashVal(VARIANT* key, VARIANT* hash) noexcept {
    return Com::Guard<IDictionary>([&] {
        const LONG value = DictionaryKey(Com::In(key)).Hash(dictionary_->Items.Comparison());
        Com::Out(hash) = Com::Variant(value).Detach();
    });
}

std::shared_ptr<ValueDictionary> FromHost(IDictionary* object) {
    if (const auto own = Com::Query<IOwnDictionary>(object)) {
        return own->Dictionary();
    }
    return std::make_shared<ForeignDictionary>(object);
}

Com::ComPtr<IDictionary> ToHost(const std::shared_ptr<ValueDictionary>& dictionary) {
    if (!dictionary) {
        return {};
    }
    if (const auto own = std::dynamic_pointer_cast<OwnValueDictionary>(dictionary)) {
        return ScriptingDictionary::Of(own);
    }
    return dynamic_cast<const ForeignDictionary&>(*dictionary).Object();
}

} // namespace Quorvane
