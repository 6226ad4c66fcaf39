// SPDX-License-Identifier: MIT
// Batches into a folder of the test's own.
#pragma once

#include <limits>

#include "tests/com/support/ControlTest.h"
#include "tests/com/support/TestFolder.h"

namespace Quorvane {

class BatchTest : public ControlTest {
  protected:
    static constexpr LONG MostDivisions = std::numeric_limits<LONG>::max();

    /// Calls BatchData, which must succeed and leave its arguments as they are. The control may be
    /// released meanwhile.
    static void CallBatchData(const Placed& placed, TextView path, LONG part);

    /// Runs a batch and watches what it shows.
    static std::vector<ShownBox> RunBatch(const Placed& placed, TextView path, LONG part);

    /// Runs a batch into the folder; a message fails the test.
    void Batch(const Placed& placed, LONG part) const;

    /// What was shown must be the message of a failed batch, once and nothing else.
    static void ExpectMessage(const std::vector<ShownBox>& shown);

    /// Runs a batch that must show that message.
    static void FailBatch(const Placed& placed, TextView path, LONG part);

    /// What the files of the batch must be, byte for byte. They can be read, as they are closed.
    void ExpectFiles(std::string_view inData, std::string_view outData) const;

    const TestFolder& Folder() const { return folder_; }

  private:
    TestFolder folder_;
};

/// A system with the outputs of Adder, X between these bounds, and the default 500 everywhere: no
/// rule ever fires.
System Silent(TextView inputs);

} // namespace Quorvane
