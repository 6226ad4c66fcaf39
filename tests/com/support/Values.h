// SPDX-License-Identifier: MIT
// Values as tests write them down, and dictionaries as tests read and fill them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "com/Scoped.h"
#include "idl/ScriptingRuntime.h"

namespace Quorvane {

/// A value with its type, in the words of a script: "Double 0.5", "String 0.5", "Long 3", "Empty".
std::string Describe(const VARIANT& value);
inline std::string Describe(const Com::Variant& value) {
    return Describe(value.Get());
}

/// A text in a message of a test.
std::string Narrow(TextView text);

/// A number as a value of another type.
Com::Variant Typed(VARTYPE type, double number);

/// A value of a type that has no content, such as VT_NULL.
Com::Variant Bare(VARTYPE type);

/// A reference to a value that outlives it.
VARIANT ByReference(VARIANT& value);

/// An array of one number.
Com::Variant ArrayValue();

inline Com::Variant TextValue(TextView text) {
    return Com::Variant(text);
}

/// The item under a text key. As a host's reading does, this adds a key that is missing.
Com::Variant ItemOf(IDictionary& dictionary, TextView key);
inline Com::Variant ItemOf(const Com::ComPtr<IDictionary>& dictionary, TextView key) {
    return ItemOf(*dictionary, key);
}

void PutItem(IDictionary& dictionary, TextView key, const VARIANT& value);
inline void PutItem(const Com::ComPtr<IDictionary>& dictionary, TextView key,
                    const Com::Variant& value) {
    PutItem(*dictionary, key, value.Get());
}
inline void PutItem(const Com::ComPtr<IDictionary>& dictionary, TextView key, double value) {
    PutItem(dictionary, key, Com::Variant(value));
}

bool Exists(IDictionary& dictionary, TextView key);

/// The keys in order, each as Describe words it.
std::vector<std::string> KeysOf(IDictionary& dictionary);

/// The values of an array of variants, each as Describe words it.
std::vector<std::string> ElementsOf(const VARIANT& array);

/// An empty dictionary of the platform.
Com::ComPtr<IDictionary> NewPlatformDictionary();

} // namespace Quorvane
