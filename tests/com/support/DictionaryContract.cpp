// SPDX-License-Identifier: MIT
// The dictionaries that must behave alike: the control's own and the platform's.
#include "tests/com/support/DictionaryContract.h"

namespace Quorvane {
namespace {

VARIANT* Argument(const Com::Variant& value) {
    return const_cast<VARIANT*>(&value.Get());
}

} // namespace

void DictionaryContract::SetUp() {
    if (GetParam().IsOwn) {
        dictionary_ = InVals(New(true));
        ASSERT_EQ(dictionary_->RemoveAll(), S_OK);
    } else {
        dictionary_ = NewPlatformDictionary();
    }
    ASSERT_EQ(dictionary_->put_CompareMode(GetParam().CompareMode), S_OK);
}

void DictionaryContract::TearDown() {
    dictionary_.Reset();
    ControlTest::TearDown();
}

HRESULT DictionaryContract::Add(const Com::Variant& key, const Com::Variant& item) {
    return dictionary_->Add(Argument(key), Argument(item));
}

HRESULT DictionaryContract::Put(const Com::Variant& key, const Com::Variant& item) {
    return dictionary_->put_Item(Argument(key), Argument(item));
}

HRESULT DictionaryContract::PutRef(const Com::Variant& key, const Com::Variant& item) {
    return dictionary_->putref_Item(Argument(key), Argument(item));
}

std::string DictionaryContract::Get(const Com::Variant& key) {
    Com::Variant item;
    const HRESULT result = dictionary_->get_Item(Argument(key), item.Put());
    return result == S_OK ? Describe(item) : "error " + std::to_string(result);
}

bool DictionaryContract::Has(const Com::Variant& key) {
    VARIANT_BOOL exists = 1;
    EXPECT_EQ(dictionary_->Exists(Argument(key), &exists), S_OK);
    EXPECT_TRUE(exists == VARIANT_TRUE || exists == VARIANT_FALSE) << exists;
    return exists != VARIANT_FALSE;
}

HRESULT DictionaryContract::Rekey(const Com::Variant& key, const Com::Variant& newKey) {
    return dictionary_->put_Key(Argument(key), Argument(newKey));
}

HRESULT DictionaryContract::Remove(const Com::Variant& key) {
    return dictionary_->Remove(Argument(key));
}

LONG DictionaryContract::Count() {
    LONG count = -1;
    EXPECT_EQ(dictionary_->get_Count(&count), S_OK);
    return count;
}

std::string DictionaryContract::Hash(const Com::Variant& key) {
    Com::Variant hash;
    EXPECT_EQ(dictionary_->get_HashVal(Argument(key), hash.Put()), S_OK) << Describe(key);
    return Describe(hash);
}

std::vector<std::string> DictionaryContract::Keys() {
    return KeysOf(*dictionary_);
}

std::vector<std::string> DictionaryContract::Items() {
    Com::Variant items;
    EXPECT_EQ(dictionary_->Items(items.Put()), S_OK);
    return ElementsOf(items.Get());
}

Com::ComPtr<IEnumVARIANT> DictionaryContract::Enumerate() {
    Com::ComPtr<IUnknown> unknown;
    EXPECT_EQ(dictionary_->_NewEnum(unknown.Put()), S_OK);
    auto enumerator = unknown.As<IEnumVARIANT>();
    EXPECT_TRUE(enumerator);
    return enumerator;
}

void DictionaryContract::AddThree() {
    EXPECT_EQ(Add(TextValue(u"one"), Com::Variant(1)), S_OK);
    EXPECT_EQ(Add(TextValue(u"two"), Com::Variant(2)), S_OK);
    EXPECT_EQ(Add(TextValue(u"three"), Com::Variant(3)), S_OK);
}

std::vector<std::string> Rest(IEnumVARIANT& enumerator) {
    std::vector<std::string> rest;
    for (;;) {
        Com::Variant key;
        ULONG fetched = 9;
        const HRESULT result = enumerator.Next(1, key.Put(), &fetched);
        if (result != S_OK) {
            EXPECT_EQ(result, S_FALSE);
            EXPECT_EQ(fetched, 0u);
            return rest;
        }
        EXPECT_EQ(fetched, 1u);
        rest.push_back(Describe(key));
    }
}

} // namespace Quorvane
