// SPDX-License-Identifier: MIT
// A property bag that is kept in a stream, for hosts that save controls in binary.
#include "control/persistence/StreamPropertyBag.h"

#include <algorithm>
#include <cstdint>

#include "com/ErrorBoundary.h"
#include "com/Fonts.h"

namespace Quorvane {
namespace {

constexpr std::uint32_t Mark = 0x42505651; // "QVPB"
constexpr std::uint16_t Version = 1;

[[noreturn]] void ThrowCorrupt() {
    throw Com::HresultError(STG_E_DOCFILECORRUPT);
}

void ReadBytes(IStream& stream, void* target, ULONG size) {
    ULONG read = 0;
    Com::Check(stream.Read(target, size, &read));
    if (read != size) {
        ThrowCorrupt();
    }
}

template <class T>
T ReadNumber(IStream& stream) {
    T value{};
    ReadBytes(stream, &value, sizeof value);
    return value;
}

/// Reads in pieces, so that a length which lies takes no more memory than the stream has bytes.
Text ReadCharacters(IStream& stream, std::uint32_t length) {
    constexpr std::uint32_t Piece = 32 * 1024;
    Text text;
    while (text.size() < length) {
        const auto start = text.size();
        const auto count = std::min<std::size_t>(Piece, length - start);
        text.resize(start + count);
        ReadBytes(stream, &text[start], static_cast<ULONG>(count * sizeof(char16_t)));
    }
    return text;
}

/// A font reads itself; the stream cannot name a class to be created.
Com::Variant ReadFont(IStream& stream) {
    const Com::ComPtr<IFontDisp> font = NewDialogFont();
    const auto persistence = font.As<IPersistStream>();
    if (!persistence) {
        throw Com::HresultError(E_NOINTERFACE);
    }
    Com::Check(persistence->Load(&stream));
    return Com::Variant(static_cast<IDispatch*>(font.Get()));
}

Com::Variant ReadValue(IStream& stream) {
    switch (ReadNumber<VARTYPE>(stream)) {
    case VT_BSTR:
        return Com::Variant(TextView(ReadCharacters(stream, ReadNumber<std::uint32_t>(stream))));
    case VT_BOOL:
        return Com::Variant(ReadNumber<VARIANT_BOOL>(stream) != VARIANT_FALSE);
    case VT_I4:
        return Com::Variant(ReadNumber<LONG>(stream));
    case VT_DISPATCH:
        return ReadFont(stream);
    default:
        ThrowCorrupt();
    }
}

void WriteBytes(IStream& stream, const void* source, std::size_t size) {
    ULONG written = 0;
    Com::Check(stream.Write(source, static_cast<ULONG>(size), &written));
    if (written != size) {
        throw Com::HresultError(STG_E_MEDIUMFULL);
    }
}

template <class T>
void WriteNumber(IStream& stream, T value) {
    WriteBytes(stream, &value, sizeof value);
}

void WriteCharacters(IStream& stream, TextView text) {
    WriteBytes(stream, text.data(), text.size() * sizeof(char16_t));
}

void WriteFont(IStream& stream, IDispatch* font) {
    const auto persistence = Com::Query<IPersistStream>(font);
    if (!persistence) {
        throw Com::HresultError(E_NOINTERFACE);
    }
    Com::Check(persistence->Save(&stream, FALSE));
}

void WriteValue(IStream& stream, const VARIANT& value) {
    WriteNumber<VARTYPE>(stream, value.vt);
    switch (value.vt) {
    case VT_BSTR:
        WriteNumber(stream, static_cast<std::uint32_t>(Com::View(value.bstrVal).size()));
        WriteCharacters(stream, Com::View(value.bstrVal));
        break;
    case VT_BOOL:
        WriteNumber<VARIANT_BOOL>(stream, value.boolVal);
        break;
    case VT_I4:
        WriteNumber<LONG>(stream, value.lVal);
        break;
    default:
        WriteFont(stream, value.pdispVal);
    }
}

} // namespace

Com::ComPtr<StreamPropertyBag> StreamPropertyBag::ReadFrom(IStream& stream) {
    if (ReadNumber<std::uint32_t>(stream) != Mark || ReadNumber<std::uint16_t>(stream) != Version) {
        ThrowCorrupt();
    }
    auto bag = Com::MakeObject<StreamPropertyBag>();
    for (auto count = ReadNumber<std::uint16_t>(stream); count > 0; --count) {
        Text name = ReadCharacters(stream, ReadNumber<std::uint16_t>(stream));
        bag->properties_.insert_or_assign(std::move(name), ReadValue(stream));
    }
    return bag;
}

void StreamPropertyBag::WriteTo(IStream& stream) const {
    WriteNumber(stream, Mark);
    WriteNumber(stream, Version);
    WriteNumber(stream, static_cast<std::uint16_t>(properties_.size()));
    for (const auto& [name, value] : properties_) {
        WriteNumber(stream, static_cast<std::uint16_t>(name.size()));
        WriteCharacters(stream, name);
        WriteValue(stream, value.Get());
    }
}

const Com::Variant* StreamPropertyBag::Find(TextView name) const {
    const auto found = properties_.find(name);
    return found == properties_.end() ? nullptr : &found->second;
}

void StreamPropertyBag::Set(TextView name, Com::Variant value) {
    switch (value.Type()) {
    case VT_BSTR:
    case VT_BOOL:
    case VT_I4:
    case VT_DISPATCH:
        properties_.insert_or_assign(Text(name), std::move(value));
        break;
    default:
        throw Com::HresultError(DISP_E_BADVARTYPE);
    }
}

STDMETHODIMP StreamPropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept {
    return Com::Guard<IPropertyBag>([&] {
        VARIANT& target = Com::Out(value);
        const Com::Variant* const found = Find(Com::ToText(name));
        if (!found) {
            return E_INVALIDARG;
        }
        target = Com::Variant(*found).Detach();
        return S_OK;
    });
}

STDMETHODIMP StreamPropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    return Com::Guard<IPropertyBag>([&] { Set(Com::ToText(name), Com::Variant(Com::Out(value))); });
}

} // namespace Quorvane
