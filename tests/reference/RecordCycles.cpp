// SPDX-License-Identifier: MIT
// Writes the recorded systems to standard output: record_cycles >tests/data/cycles.txt
#include <iostream>

#include "tests/reference/RecordedSystems.h"

int main() {
    std::cout <<
        R"(# Fuzzy systems and inference cycles, each with the outputs that belong to it to the bit.
# Written by record_cycles from the plain evaluator; not edited by hand.
#
#   system NAME                    a system begins
#   inputs, outputs, rules TEXT    its definition texts, plain; a text can be empty
#   cycle INPUTS -> OUTPUTS        the inputs are set, one inference cycle runs
#   cycle INPUTS !ID -> OUTPUTS    the same, but the cycle fails, and the message of the routine
#                                  that was running is the text with this id
#
# INPUTS has a word for every input variable, OUTPUTS one for every output variable, in the order of
# the texts. A word is the 16 hexadecimal digits of a Double's bits, or "-" for an item that is Empty
# or, among the outputs, missing because the first rule does not name it. The outputs of a cycle that
# fails are their defaults. The cycles of a system run in their order on one preparation.
)";
    for (const auto& system : Quorvane::Reference::RecordSystems()) {
        std::cout << '\n' << Quorvane::TestSupport::WriteSystem(system);
    }
    return std::cout.flush() ? 0 : 1;
}
