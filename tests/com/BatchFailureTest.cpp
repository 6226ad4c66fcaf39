// SPDX-License-Identifier: MIT
// Batches that cannot be carried out: the message, and what is left on the disk.
#include <olectl.h>

#include "tests/com/support/BatchTest.h"
#include "tests/com/support/HostDictionary.h"

namespace Quorvane {
namespace {

constexpr const char* Names[] = {"InData.txt", "OutData.txt"};

/// A file kept open.
class OpenFile {
  public:
    OpenFile(const std::filesystem::path& path, DWORD share)
        : handle_(::CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { ::CloseHandle(handle_); }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

  private:
    HANDLE handle_;
};

class BatchFailure : public BatchTest {
  protected:
    void TearDown() override {
        inputs_.Reset();
        BatchTest::TearDown();
    }

    /// Nobody else may have the files open.
    void ExpectFilesClosed() const {
        for (const char* name : Names) {
            EXPECT_TRUE(OpenFile(Folder().File(name), 0).IsOpen()) << name;
        }
    }

    /// A running adder whose inputs are a dictionary that refuses the value of one point.
    Placed RunUntil(int point) {
        inputs_ = Com::MakeObject<HostDictionary>();
        Placed placed = Run(Adder);
        EXPECT_EQ(placed->putref_InVals(inputs_.Get()), S_OK);
        puts_ = 0;
        inputs_->OnPut = [this, point](const Text&) {
            inputs_->PutResult = puts_++ == point ? E_ACCESSDENIED : S_OK;
        };
        return placed;
    }

  private:
    Com::ComPtr<HostDictionary> inputs_;
    int puts_ = 0;
};

TEST_F(BatchFailure, IsAMissingFolder) {
    const auto placed = Run(Adder);
    FailBatch(placed, Folder().Path() + u"\\missing", 1);
    FailBatch(placed, Folder().Path() + u"\\missing\\", 1);
    EXPECT_TRUE(Folder().Names().empty());
}

TEST_F(BatchFailure, IsAPathThatIsNone) {
    const auto placed = Run(Adder);
    Folder().Write("file", "kept");
    for (const Text& path : {Folder().Path() + u"\\file", Folder().Path() + u"\\a?b",
                             Folder().Path() + u"\\" + Text(400, u'x'), Text(u"QQ:\\nowhere")}) {
        FailBatch(placed, path, 1);
    }
    EXPECT_EQ(Folder().Read("file"), "kept");
    EXPECT_EQ(Folder().Names(), std::vector<std::string>{"file"});
}

TEST_F(BatchFailure, IsAPathWithAZeroCharacter) {
    // The platform reads a path as far as its first zero, so this one would name the victim.
    const auto placed = Run(Adder);
    Folder().Write("victim.dat", "kept");
    for (const Text& end : {Text(1, u'\0'), Text(2, u'\0'), u'\0' + Text(u"\\folder")}) {
        FailBatch(placed, Folder().Path() + u"\\victim.dat" + end, 1);
        FailBatch(placed, Folder().Path() + end, 1);
    }
    FailBatch(placed, Text(1, u'\0'), 1);
    EXPECT_EQ(Folder().Read("victim.dat"), "kept");
    EXPECT_EQ(Folder().Names(), std::vector<std::string>{"victim.dat"});
}

TEST_F(BatchFailure, IsAnEmptyPath) {
    const auto placed = Run(Adder);
    wchar_t before[MAX_PATH]{};
    ASSERT_NE(::GetCurrentDirectoryW(MAX_PATH, before), 0u);
    ASSERT_TRUE(::SetCurrentDirectoryW(Com::Wide(Folder().Path())));
    FailBatch(placed, u"", 1);
    EXPECT_TRUE(::SetCurrentDirectoryW(before));
    EXPECT_TRUE(Folder().Names().empty());

    BSTR none = nullptr;
    LONG part = 1;
    MessageBoxes boxes;
    EXPECT_EQ(placed->BatchData(&none, &part), S_OK);
    EXPECT_EQ(boxes.Shown.size(), 1u) << "a null text is an empty one";
    EXPECT_EQ(none, nullptr);
}

TEST_F(BatchFailure, IsASystemWithoutInputs) {
    FailBatch(Run({u"", Adder.Outputs, u""}), Folder().Path(), 1);
    ExpectFiles("", "");
    ExpectFilesClosed();
}

TEST_F(BatchFailure, IsAControlThatWasNeverSetUp) {
    FailBatch({nullptr, Create()}, Folder().Path(), 1);
    FailBatch(New(true), Folder().Path(), 1);
    ExpectFilesClosed();
}

TEST_F(BatchFailure, IsAUniverseTooWideForAStep) {
    FailBatch(Run(Silent(u"X/1.7E308/-1.7E308/A,0,0,0,0")), Folder().Path(), 1);
    ExpectFiles("", "");
    ExpectFilesClosed();
}

TEST_F(BatchFailure, IsAFileThatIsReadOnly) {
    const auto placed = Run(Adder);
    for (const char* name : Names) {
        Folder().Write(name, "kept");
        ASSERT_TRUE(::SetFileAttributesW(Folder().File(name).c_str(), FILE_ATTRIBUTE_READONLY));
        FailBatch(placed, Folder().Path(), 1);
        EXPECT_EQ(Folder().Read(name), "kept");
        ASSERT_TRUE(::SetFileAttributesW(Folder().File(name).c_str(), FILE_ATTRIBUTE_NORMAL));
        Batch(placed, 1);
        ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
    }
}

TEST_F(BatchFailure, IsAFileThatAnotherHasOpen) {
    const auto placed = Run(Adder);
    for (const char* name : Names) {
        Folder().Write(name, "kept");
        {
            const OpenFile locked(Folder().File(name), FILE_SHARE_READ);
            ASSERT_TRUE(locked.IsOpen());
            FailBatch(placed, Folder().Path(), 1);
            EXPECT_EQ(Folder().Read(name), "kept");
        }
        Batch(placed, 1);
        ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
    }
}

TEST_F(BatchFailure, IsAFolderInThePlaceOfAFile) {
    const auto placed = Run(Adder);
    for (const char* name : Names) {
        std::filesystem::create_directory(Folder().File(name));
        FailBatch(placed, Folder().Path(), 1);
        EXPECT_TRUE(std::filesystem::is_directory(Folder().File(name)));
        std::filesystem::remove(Folder().File(name));
        Batch(placed, 1);
        ExpectFiles("-128\r\n128\r\n", "0 \r\n256 \r\n");
        for (const char* file : Names) {
            std::filesystem::remove(Folder().File(file));
        }
    }
}

TEST_F(BatchFailure, OfTheSecondFileLeavesTheFirstOneNewAndEmpty) {
    Folder().Write("InData.txt", "old");
    Folder().Write("OutData.txt", "kept");
    {
        const OpenFile locked(Folder().File("OutData.txt"), FILE_SHARE_READ);
        FailBatch(Run(Adder), Folder().Path(), 1);
    }
    ExpectFiles("", "kept");
    ExpectFilesClosed();
}

TEST_F(BatchFailure, AtAPointLeavesWhatWasWrittenBefore) {
    const struct {
        int Point;
        const char* InData;
        const char* OutData;
    } cases[] = {
        {0, "", ""},
        {1, "-128\r\n", "0 \r\n"},
        {2, "-128\r\n0\r\n", "0 \r\n128 \r\n"},
    };
    for (const auto& [point, inData, outData] : cases) {
        FailBatch(RunUntil(point), Folder().Path(), 2);
        ExpectFiles(inData, outData);
        ExpectFilesClosed();
    }
}

TEST_F(BatchFailure, EndsTheLongestWalk) {
    const auto placed = RunUntil(3);
    FailBatch(placed, Folder().Path(), MostDivisions);
    ExpectFiles("-128\r\n-127.999999880791\r\n-127.999999761581\r\n",
                "0 \r\n1.19209289550781E-07 \r\n2.38418579101562E-07 \r\n");
    ExpectFilesClosed();
}

TEST_F(BatchFailure, IsAnOutputThatHasNoText) {
    const auto placed = Run(Silent(Adder.Inputs));
    const auto defaults = NewPlatformDictionary();
    for (const Com::Variant& value :
         {Bare(VT_NULL), Com::Variant(static_cast<IDispatch*>(defaults.Get()))}) {
        PutItem(defaults, u"Y", value);
        EXPECT_EQ(placed->putref_DefOutVals(defaults.Get()), S_OK);
        FailBatch(placed, Folder().Path(), 2);
        ExpectFiles("-128\r\n", "");
    }
    EXPECT_EQ(defaults->RemoveAll(), S_OK) << "it is an item of its own";
}

TEST_F(BatchFailure, SpeaksTheLanguageOfTheControl) {
    const auto placed = Place(false);
    placed.Site->Ambients[DISPID_AMBIENT_LOCALEID] = Com::Variant(0x804);
    ASSERT_EQ(LoadSystem(placed, Adder), S_OK);
    const auto shown = RunBatch(placed, u"", 1);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].Message, u"\u65E0\u6548\u7684\u68C0\u9A8C.");
    EXPECT_EQ(shown[0].Title, u"Quorvane \u63A7\u5236\u5668");
    EXPECT_EQ(shown[0].Icon, IDI_ERROR);
}

TEST_F(BatchFailure, MayReleaseTheControlWhileItsMessageIsShown) {
    auto placed = Run(Adder);
    Com::Bstr path(u"");
    BSTR folder = path.Get();
    LONG part = 1;
    MessageBoxes boxes([&placed] { placed = {}; });
    _FISControl* const bare = placed.Control.Get();
    EXPECT_EQ(bare->BatchData(&folder, &part), S_OK);
    EXPECT_EQ(boxes.Shown.size(), 1u);
    EXPECT_FALSE(placed.Control);
}

} // namespace
} // namespace Quorvane
