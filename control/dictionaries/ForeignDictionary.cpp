// SPDX-License-Identifier: MIT
// A dictionary object of a host, as the engine reads and writes it.
#include "control/dictionaries/ForeignDictionary.h"

#include "com/Scoped.h"
#include "control/dictionaries/VariantValue.h"
#include "shared/DefaultArithmetic.h"
#include "shared/FisError.h"

namespace Quorvane {
namespace {

/// A failure of the host's object is a run-time error to the routine that asked it.
void CheckHost(HRESULT result) {
    if (FAILED(result)) {
        throw FisError(static_cast<std::uint32_t>(result), {}, {});
    }
}

} // namespace

ForeignDictionary::~ForeignDictionary() {
    const DefaultArithmetic::Pause pause;
    object_.Reset();
}

Value ForeignDictionary::Get(TextView key) {
    const DefaultArithmetic::Pause pause;
    Com::Variant keyVariant(key);
    // The platform's dictionary adds a key that is read and missing; asking first prevents that.
    VARIANT_BOOL exists = VARIANT_FALSE;
    CheckHost(object_->Exists(&keyVariant.Get(), &exists));
    Com::Variant item;
    if (exists != VARIANT_FALSE) {
        CheckHost(object_->get_Item(&keyVariant.Get(), item.Put()));
    }
    return FromVariant(item.Get());
}

void ForeignDictionary::Put(TextView key, Value value) {
    const DefaultArithmetic::Pause pause;
    Com::Variant keyVariant(key);
    Com::Variant item = ToVariant(value);
    CheckHost(object_->put_Item(&keyVariant.Get(), &item.Get()));
}

} // namespace Quorvane
