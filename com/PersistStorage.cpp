// SPDX-License-Identifier: MIT
// IPersistStorage: a control in a compound document.
#include "com/PersistStorage.h"

#include <olectl.h>

namespace Quorvane::Com {
namespace {

/// The stream that controls keep their state in by custom.
constexpr wchar_t StreamName[] = L"Contents";

constexpr DWORD Exclusive = STGM_SHARE_EXCLUSIVE;

} // namespace

STDMETHODIMP PersistStorage::GetClassID(CLSID* clsid) noexcept {
    return Guard<IPersistStorage>([&] { Out(clsid) = *Core().Traits().Clsid; });
}

STDMETHODIMP PersistStorage::IsDirty() noexcept {
    return Core().StreamForm().IsDirty();
}

STDMETHODIMP PersistStorage::InitNew(IStorage*) noexcept {
    return Core().StreamForm().InitNew();
}

STDMETHODIMP PersistStorage::Load(IStorage* storage) noexcept {
    return Guard<IPersistStorage>([&] {
        ComPtr<IStream> stream;
        Check(In(storage).OpenStream(StreamName, nullptr, STGM_READ | Exclusive, 0, stream.Put()));
        return Core().StreamForm().Load(stream.Get());
    });
}

STDMETHODIMP PersistStorage::Save(IStorage* storage, BOOL sameAsLoad) noexcept {
    return Guard<IPersistStorage>([&] {
        Check(::WriteClassStg(&In(storage), *Core().Traits().Clsid));
        ComPtr<IStream> stream;
        Check(storage->CreateStream(StreamName, STGM_CREATE | STGM_WRITE | Exclusive, 0, 0,
                                    stream.Put()));
        Check(Core().StreamForm().Save(stream.Get(), sameAsLoad));
        isSavedElsewhere_ = !sameAsLoad;
    });
}

STDMETHODIMP PersistStorage::SaveCompleted(IStorage* storage) noexcept {
    // A new storage is the control's from here on; without one a copy was saved.
    if (storage && isSavedElsewhere_) {
        Core().SetClean();
    }
    isSavedElsewhere_ = false;
    Core().Sinks().Saved();
    return S_OK;
}

STDMETHODIMP PersistStorage::HandsOffStorage() noexcept {
    return S_OK;
}

} // namespace Quorvane::Com
