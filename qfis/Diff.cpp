// SPDX-License-Identifier: MIT
// qfis diff: what two systems differ in.
#include "compare/Differences.h"
#include "qfis/Commands.h"
#include "qfis/Files.h"
#include "qfis/Json.h"

namespace Quorvane::Qfis {
namespace {

using Compare::Change;
using Compare::Difference;

const char* NameOf(Change change) {
    return change == Change::Added ? "added" : change == Change::Removed ? "removed" : "changed";
}

void WriteLine(std::ostream& out, const Difference& difference) {
    out << NameOf(difference.Change) << ' ' << Host::EncodeUtf8(difference.Subject);
    if (difference.Change == Change::Changed && !difference.After.empty()) {
        out << ": " << Host::EncodeUtf8(difference.Before) << " -> "
            << Host::EncodeUtf8(difference.After);
    } else if (difference.Change != Change::Changed) {
        out << ": " << Host::EncodeUtf8(difference.Before + difference.After);
    }
    out << '\n';
}

} // namespace

int Diff(const DiffOptions& options, const Console& console) {
    const auto differences = Compare::Differences(LoadSystem(options.File, options.Control),
                                                  LoadSystem(options.Other, options.Control));
    if (options.Json) {
        Json json = Json::array();
        for (const Difference& difference : differences) {
            json.push_back({{"change", NameOf(difference.Change)},
                            {"subject", ToJson(difference.Subject)},
                            {"before", ToJson(difference.Before)},
                            {"after", ToJson(difference.After)}});
        }
        console.Out << json.dump(2) << '\n';
    } else {
        for (const Difference& difference : differences) {
            WriteLine(console.Out, difference);
        }
    }
    return differences.empty() ? Fine : Findings;
}

} // namespace Quorvane::Qfis
