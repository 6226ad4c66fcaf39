// SPDX-License-Identifier: MIT
// Batches into a folder of the test's own.
#include "tests/com/support/BatchTest.h"

namespace Quorvane {

void BatchTest::CallBatchData(const Placed& placed, TextView path, LONG part) {
    const Com::Bstr given(path);
    BSTR pathArgument = given.Get();
    LONG partArgument = part;
    _FISControl* const bare = placed.Control.Get();
    EXPECT_EQ(bare->BatchData(&pathArgument, &partArgument), S_OK);
    EXPECT_EQ(pathArgument, given.Get());
    EXPECT_EQ(Text(given.Characters()), Text(path));
    EXPECT_EQ(partArgument, part);
}

std::vector<ShownBox> BatchTest::RunBatch(const Placed& placed, TextView path, LONG part) {
    MessageBoxes boxes;
    CallBatchData(placed, path, part);
    return std::move(boxes.Shown);
}

void BatchTest::Batch(const Placed& placed, LONG part) const {
    for (const ShownBox& box : RunBatch(placed, Folder().Path(), part)) {
        ADD_FAILURE() << Narrow(box.Message);
    }
}

void BatchTest::ExpectMessage(const std::vector<ShownBox>& shown) {
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].Message, u"Invalid Evaluation.");
    EXPECT_EQ(shown[0].Title, u"Quorvane Controller");
    EXPECT_EQ(shown[0].Icon, IDI_ERROR);
    EXPECT_EQ(shown[0].Buttons, std::vector<Text>{u"OK"});
}

void BatchTest::FailBatch(const Placed& placed, TextView path, LONG part) {
    SCOPED_TRACE(Narrow(path));
    ExpectMessage(RunBatch(placed, path, part));
}

void BatchTest::ExpectFiles(std::string_view inData, std::string_view outData) const {
    EXPECT_EQ(Folder().Read("InData.txt"), inData);
    EXPECT_EQ(Folder().Read("OutData.txt"), outData);
}

System Silent(TextView inputs) {
    return {inputs, Adder.Outputs, u"X>[NONE]/Y<[NONE]:1"};
}

} // namespace Quorvane
