// SPDX-License-Identifier: MIT
// How every engine routine reports: its own message on entry, its own numbered error on failure.
#pragma once

#include <exception>
#include <new>
#include <utility>

#include "shared/Definition.h"
#include "text/GetText.h"
#include "text/TextIds.h"

namespace Quorvane::RunTime {

/// The text ids of the engine's messages; each is the offset of its error number as well.
enum class Message : std::int32_t {
    InvalidInputSignal = TextIds::InvalidInputSignal,
    InvalidInputVariable = TextIds::InvalidInputVariable,
    InvalidOutputVariable = TextIds::InvalidOutputVariable,
    InvalidRule = TextIds::InvalidRule,
    InvalidInference = TextIds::InvalidInference,
};

/// The error of a routine, whatever failed inside it.
inline FisError EngineError(Message message) {
    const auto id = static_cast<std::int32_t>(message);
    return {ObjectErrorBase + static_cast<std::uint32_t>(id), Main::GetText(TextIds::Controller),
            Main::GetText(id)};
}

/// Records that a routine has started: its message is the current one.
inline void NoteRoutine(Message message) {
    Definition::State().CurrentErrorId = static_cast<std::int32_t>(message);
}

/// Runs the body of an engine routine: records its message as the current one, and turns any
/// failure inside, a host's object's included, into the routine's own error. Running out of memory
/// stays what it is.
template <class Body>
decltype(auto) RunRoutine(Message message, Body&& body) {
    NoteRoutine(message);
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        throw EngineError(message);
    }
}

} // namespace Quorvane::RunTime
