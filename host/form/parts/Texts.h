// SPDX-License-Identifier: MIT
// Texts: what the form program says, in English or in Simplified Chinese.
#pragma once

#include "shared/Text.h"

namespace Quorvane::Host {

enum class TextId {
    ProgramName,
    NewForm,
    RunModeMark,
    DesignModeMark,
    FileMenu,
    NewItem,
    OpenItem,
    SaveItem,
    SaveAsItem,
    ExitItem,
    FormMenu,
    DesignItem,
    RunItem,
    AddItem,
    RemoveItem,
    PropertiesItem,
    HelpMenu,
    AboutItem,
    FormFiles,
    AllFiles,
    SaveChanges,
    PropertiesOf,
    NoPages,
    Ok,
    Cancel,
    Apply,
    Help,
    Property,
    Value,
    Output,
    Event,
    Count,
    Fire,
    AutoFire,
    DataShow,
    Divisions,
    Batch,
    BatchFolder,
    NoBatchYet,
    TooManyInputs,
    IncompleteBatch,
};

/// The text in the user's language: Simplified Chinese where that is Chinese of the mainland, else
/// English. A "?" in it stands for a name.
Text GetText(TextId id);

/// The text with its "?" replaced.
Text GetText(TextId id, const Text& name);

} // namespace Quorvane::Host
