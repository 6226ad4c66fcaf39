// SPDX-License-Identifier: MIT
// Keeping the control in a stream, and streams that no control has written.
#include <olectl.h>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFont.h"

namespace Quorvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

Com::ComPtr<IStream> StreamOf(const Bytes& bytes) {
    Com::ComPtr<IStream> stream;
    EXPECT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()), S_OK);
    EXPECT_EQ(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    return stream;
}

Bytes BytesOf(IStream& stream) {
    ULARGE_INTEGER size{};
    EXPECT_EQ(stream.Seek({}, STREAM_SEEK_END, &size), S_OK);
    EXPECT_EQ(stream.Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    Bytes bytes(static_cast<std::size_t>(size.QuadPart));
    EXPECT_EQ(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
    return bytes;
}

class StreamPersistence : public ControlTest {
  protected:
    /// A control none of whose properties is at its default.
    Placed Changed() const {
        Placed placed = Design(Adder);
        EXPECT_EQ(SetText(*placed, &_FISControl::put_Caption, u"Boiler \u4E2D"), S_OK);
        EXPECT_EQ(placed->putref_Font(NewFont(20, FW_BOLD).Get()), S_OK);
        EXPECT_EQ(placed->put_BackColor(0x80000011), S_OK);
        EXPECT_EQ(placed->put_ForeColor(0x00123456), S_OK);
        EXPECT_EQ(placed->put_Enabled(VARIANT_FALSE), S_OK);
        return placed;
    }

    static Bytes Save(const Placed& placed) {
        const auto stream = StreamOf({});
        EXPECT_EQ(As<IPersistStreamInit>(placed)->Save(stream.Get(), TRUE), S_OK);
        return BytesOf(*stream);
    }

    static HRESULT Load(const Placed& placed, const Bytes& bytes) {
        return As<IPersistStreamInit>(placed)->Load(StreamOf(bytes).Get());
    }

    static void SetExtent(const Placed& placed, SIZEL extent) {
        EXPECT_EQ(As<IOleObject>(placed)->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    }

    static std::pair<LONG, LONG> ExtentOf(const Placed& placed) {
        SIZEL extent{};
        EXPECT_EQ(As<IOleObject>(placed)->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
        return {extent.cx, extent.cy};
    }

    /// Loads what may be anything; the control must take a proper stream afterwards.
    static HRESULT LoadHostile(const Placed& placed, const Bytes& hostile, const Bytes& proper) {
        const HRESULT result = Load(placed, hostile);
        EXPECT_EQ(placed->Fire(), S_OK);
        EXPECT_EQ(Load(placed, proper), S_OK);
        return result;
    }
};

TEST_F(StreamPersistence, RoundTrips) {
    const Bytes bytes = Save(Changed());
    const auto loaded = Place(true);
    ASSERT_EQ(Load(loaded, bytes), S_OK);
    EXPECT_EQ(GetText(*loaded, &_FISControl::get_Caption), u"Boiler \u4E2D");
    Com::ComPtr<IFontDisp> font;
    EXPECT_EQ(loaded->get_Font(font.Put()), S_OK);
    EXPECT_EQ(PointsOf(font.Get()), 20);
    EXPECT_EQ(WeightOf(font.Get()), FW_BOLD);
    OLE_COLOR color = 0;
    EXPECT_EQ(loaded->get_BackColor(&color), S_OK);
    EXPECT_EQ(color, 0x80000011u);
    EXPECT_EQ(loaded->get_ForeColor(&color), S_OK);
    EXPECT_EQ(color, 0x00123456u);
    VARIANT_BOOL enabled = VARIANT_TRUE;
    EXPECT_EQ(loaded->get_Enabled(&enabled), S_OK);
    EXPECT_EQ(enabled, VARIANT_FALSE);
    EXPECT_EQ(FireWith(loaded, 7), 135);
    EXPECT_EQ(Save(loaded), bytes) << "the same bytes again";
}

TEST_F(StreamPersistence, KeepsTheSamePropertySetAsABag) {
    const auto changed = Changed();
    const auto fromStream = Place(false);
    ASSERT_EQ(Load(fromStream, Save(changed)), S_OK);
    const auto expected = SaveToBag(changed, false);
    const auto actual = SaveToBag(fromStream, false);
    EXPECT_EQ(actual->Writes, expected->Writes);
    for (const auto& [name, value] : expected->Values) {
        EXPECT_EQ(Describe(actual->Values[name]), Describe(value)) << Narrow(name);
    }
}

TEST_F(StreamPersistence, OfANewControlIsShortAndLoadsAsNew) {
    const Bytes bytes = Save(New(false));
    // The head, and two lengths of 24 bytes each: the extent.
    EXPECT_EQ(bytes.size(), 8u + 2 * 24u);
    const auto loaded = Run(Adder);
    ASSERT_EQ(Load(loaded, bytes), S_OK);
    EXPECT_TRUE(SaveToBag(loaded, false)->Values.empty());
}

TEST_F(StreamPersistence, KeepsTheExtent) {
    const auto placed = New(false);
    SetExtent(placed, {5000, 4000});
    const auto other = Place(true);
    SetExtent(other, {100, 200});
    ASSERT_EQ(Load(other, Save(placed)), S_OK);
    EXPECT_EQ(ExtentOf(other), (std::pair<LONG, LONG>{5000, 4000}));
    EXPECT_EQ(As<IPersistStreamInit>(other)->IsDirty(), S_FALSE);
    ASSERT_EQ(Load(other, Save(New(false))), S_OK);
    EXPECT_EQ(ExtentOf(other), (std::pair<LONG, LONG>{8467, 5292})) << "that of a new control";
}

/// What version 1.0.4 has written of a control with the caption "Old" and a background of 255.
TEST_F(StreamPersistence, LoadsWhatFormerVersionsHaveWritten) {
    const Bytes former = {
        0x51, 0x56, 0x50, 0x42, 1,   0, 2,   0,                                         // head
        9,    0,    'B',  0,    'a', 0, 'c', 0, 'k', 0, 'C', 0, 'o', 0, 'l', 0, 'o', 0, // a name
        'r',  0,    3,    0,    255, 0, 0,   0,                                 // and its number
        7,    0,    'C',  0,    'a', 0, 'p', 0, 't', 0, 'i', 0, 'o', 0, 'n', 0, // a name
        8,    0,    3,    0,    0,   0, 'O', 0, 'l', 0, 'd', 0};                // and its text
    const auto placed = Place(true);
    SetExtent(placed, {100, 200});
    ASSERT_EQ(Load(placed, former), S_OK);
    EXPECT_EQ(GetText(*placed, &_FISControl::get_Caption), u"Old");
    OLE_COLOR color = 0;
    EXPECT_EQ(placed->get_BackColor(&color), S_OK);
    EXPECT_EQ(color, 255u);
    EXPECT_EQ(ExtentOf(placed), (std::pair<LONG, LONG>{100, 200})) << "the host's own";
}

TEST_F(StreamPersistence, RefusesAnExtentThatIsNone) {
    const Bytes proper = Save(New(false));
    const auto placed = Place(true);
    Bytes negative = proper;
    negative.back() = 0xFF;
    EXPECT_EQ(Load(placed, negative), STG_E_DOCFILECORRUPT);
    Bytes flag = proper;
    // The type of the second length, before its four bytes.
    flag[flag.size() - 6] = VT_BOOL;
    EXPECT_TRUE(FAILED(Load(placed, flag)));
    EXPECT_EQ(Load(placed, proper), S_OK);
}

TEST_F(StreamPersistence, IsNeededOfANewControlAndOfOneOfAnotherExtent) {
    const auto placed = New(false);
    const auto persistence = As<IPersistStreamInit>(placed);
    EXPECT_EQ(persistence->IsDirty(), S_OK) << "a host that keeps what has changed keeps it";
    Save(placed);
    EXPECT_EQ(persistence->IsDirty(), S_FALSE);
    SetExtent(placed, {8467, 5292});
    EXPECT_EQ(persistence->IsDirty(), S_FALSE) << "the extent that it has";
    SetExtent(placed, {8468, 5292});
    EXPECT_EQ(persistence->IsDirty(), S_OK);
    ASSERT_EQ(Load(placed, Save(placed)), S_OK);
    EXPECT_EQ(persistence->IsDirty(), S_FALSE);
    EXPECT_EQ(SaveToBag(placed, true)->Values.count(u"_ExtentX"), 0u) << "a bag is as it was";
}

TEST_F(StreamPersistence, ReadsItsOwnPartOfAStreamOnly) {
    const auto changed = Changed();
    const auto persistence = As<IPersistStreamInit>(changed);
    const auto stream = StreamOf({});
    const std::uint32_t mark = 0x12345678;
    ASSERT_EQ(persistence->Save(stream.Get(), FALSE), S_OK);
    ASSERT_EQ(stream->Write(&mark, sizeof mark, nullptr), S_OK);
    ASSERT_EQ(persistence->Save(stream.Get(), FALSE), S_OK);
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    ASSERT_EQ(persistence->Load(stream.Get()), S_OK);
    std::uint32_t read = 0;
    ASSERT_EQ(stream->Read(&read, sizeof read, nullptr), S_OK);
    EXPECT_EQ(read, mark);
    EXPECT_EQ(persistence->Load(stream.Get()), S_OK);
}

TEST_F(StreamPersistence, KnowsHowLongItsStreamWillBe) {
    const auto changed = Changed();
    ULARGE_INTEGER size{};
    EXPECT_EQ(As<IPersistStreamInit>(changed)->GetSizeMax(&size), S_OK);
    EXPECT_GE(size.QuadPart, Save(changed).size());
}

TEST_F(StreamPersistence, NamesItsClass) {
    CLSID clsid{};
    const auto placed = New(false);
    EXPECT_EQ(As<IPersistStreamInit>(placed)->GetClassID(&clsid), S_OK);
    EXPECT_EQ(clsid, CLSID_FISControl);
}

TEST_F(StreamPersistence, NeedsAStream) {
    const auto placed = New(false);
    const auto persistence = As<IPersistStreamInit>(placed);
    EXPECT_EQ(persistence->Load(nullptr), E_POINTER);
    EXPECT_EQ(persistence->Save(nullptr, TRUE), E_POINTER);
    EXPECT_EQ(persistence->GetSizeMax(nullptr), E_POINTER);
}

TEST_F(StreamPersistence, RefusesAStreamThatIsCutOffAnywhere) {
    const Bytes proper = Save(Changed());
    const auto placed = Place(true);
    for (std::size_t length = 0; length < proper.size(); ++length) {
        const Bytes cut(proper.begin(), proper.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_TRUE(FAILED(LoadHostile(placed, cut, proper))) << length << " bytes";
    }
}

TEST_F(StreamPersistence, SurvivesAnyByteChanged) {
    const Bytes proper = Save(Changed());
    const auto placed = Place(true);
    int refused = 0;
    for (std::size_t position = 0; position < proper.size(); ++position) {
        for (const unsigned change : {0x01u, 0x80u, 0xFFu}) {
            Bytes changed = proper;
            changed[position] = static_cast<std::uint8_t>(changed[position] ^ change);
            refused += FAILED(LoadHostile(placed, changed, proper)) ? 1 : 0;
        }
    }
    // Marks, versions, types and lengths among them.
    EXPECT_GT(refused, 100);
}

TEST_F(StreamPersistence, RefusesLengthsThatLie) {
    const Bytes proper = Save(Changed());
    const auto placed = Place(true);
    for (std::size_t position = 0; position + 4 <= proper.size(); ++position) {
        Bytes lying = proper;
        // As a length or count of two or four bytes these are far more than the stream has.
        std::fill_n(lying.begin() + static_cast<std::ptrdiff_t>(position), 4, std::uint8_t{0xFF});
        LoadHostile(placed, lying, proper);
    }
    EXPECT_EQ(FireWith(placed, 1), 129);
}

TEST_F(StreamPersistence, RefusesWhatIsNoStreamOfTheControl) {
    const Bytes proper = Save(Changed());
    const auto placed = Place(true);
    for (const Bytes& hostile : {Bytes{}, Bytes(1000, 0), Bytes(1000, 0xFF),
                                 Bytes{'V', 'E', 'R', 'S', 'I', 'O', 'N', ' ', '5', '.', '0'}}) {
        EXPECT_TRUE(FAILED(LoadHostile(placed, hostile, proper)));
    }
}

TEST_F(StreamPersistence, ReportsAStreamThatFails) {
    /// A stream every call of which fails.
    class Broken final : public Com::ComObject<Com::Chain<IStream, ISequentialStream>> {
      public:
        STDMETHODIMP Read(void*, ULONG, ULONG*) noexcept override { return STG_E_READFAULT; }
        STDMETHODIMP Write(const void*, ULONG, ULONG*) noexcept override {
            return STG_E_WRITEFAULT;
        }
        STDMETHODIMP Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept override {
            return E_FAIL;
        }
        STDMETHODIMP SetSize(ULARGE_INTEGER) noexcept override { return E_FAIL; }
        STDMETHODIMP CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*,
                            ULARGE_INTEGER*) noexcept override {
            return E_FAIL;
        }
        STDMETHODIMP Commit(DWORD) noexcept override { return E_FAIL; }
        STDMETHODIMP Revert() noexcept override { return E_FAIL; }
        STDMETHODIMP LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override {
            return E_FAIL;
        }
        STDMETHODIMP UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override {
            return E_FAIL;
        }
        STDMETHODIMP Stat(STATSTG*, DWORD) noexcept override { return E_FAIL; }
        STDMETHODIMP Clone(IStream**) noexcept override { return E_FAIL; }
    };
    const auto placed = Changed();
    const auto stream = Com::MakeObject<Broken>();
    const auto persistence = As<IPersistStreamInit>(placed);
    EXPECT_EQ(persistence->Load(stream.Get()), STG_E_READFAULT);
    EXPECT_EQ(persistence->Save(stream.Get(), TRUE), STG_E_WRITEFAULT);
    EXPECT_EQ(persistence->IsDirty(), S_OK);
}

} // namespace
} // namespace Quorvane
