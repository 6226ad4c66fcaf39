// SPDX-License-Identifier: MIT
// The dictionaries that must behave alike: the control's own and the platform's.
#pragma once

#include <ostream>

#include "tests/com/support/ControlTest.h"

namespace Quorvane {

/// One dictionary under one way of comparing keys.
struct DictionaryKind {
    const char* Name;
    bool IsOwn;
    /// 0 tells the cases of letters apart, 1 does not.
    int CompareMode;
};

inline void PrintTo(const DictionaryKind& kind, std::ostream* out) {
    *out << kind.Name;
}

inline constexpr DictionaryKind DictionaryKinds[] = {
    {"OwnBinary", true, 0},
    {"OwnText", true, 1},
    {"PlatformBinary", false, 0},
    {"PlatformText", false, 1},
};

/// Begins with an empty dictionary.
class DictionaryContract : public ControlTest, public testing::WithParamInterface<DictionaryKind> {
  protected:
    void SetUp() override;
    void TearDown() override;

    IDictionary& Dictionary() { return *dictionary_; }
    const Com::ComPtr<IDictionary>& Object() { return dictionary_; }
    bool IgnoresCase() const { return GetParam().CompareMode == 1; }

    // The members of the dictionary with values as their arguments.
    HRESULT Add(const Com::Variant& key, const Com::Variant& item);
    HRESULT Put(const Com::Variant& key, const Com::Variant& item);
    HRESULT PutRef(const Com::Variant& key, const Com::Variant& item);
    /// The item as Describe words it, or the error.
    std::string Get(const Com::Variant& key);
    bool Has(const Com::Variant& key);
    HRESULT Rekey(const Com::Variant& key, const Com::Variant& newKey);
    HRESULT Remove(const Com::Variant& key);
    LONG Count();
    std::string Hash(const Com::Variant& key);
    std::vector<std::string> Keys();
    std::vector<std::string> Items();
    Com::ComPtr<IEnumVARIANT> Enumerate();

    /// Adds "one", "two" and "three" with 1, 2 and 3.
    void AddThree();

  private:
    Com::ComPtr<IDictionary> dictionary_;
};

/// The names of the keys that an enumerator still gives, one by one.
std::vector<std::string> Rest(IEnumVARIANT& enumerator);

/// Errors of the scripting runtime.
inline constexpr auto DuplicateKey = static_cast<HRESULT>(0x800A01C9);
inline constexpr auto MissingKey = static_cast<HRESULT>(0x800A802B);
inline constexpr auto InvalidCall = static_cast<HRESULT>(0x800A0005);

} // namespace Quorvane
