#pragma once

#include "automation/Fault.h"
#include "automation/Object.h"

namespace zelbar {

/// The answer to the question for an Outlook item. There are two kinds of "none", and only the first may ever
/// lead to a deletion or to a new contact.
struct LookUp {
    enum class Verdict {
        Found,   ///< The item is there.
        Gone,    ///< Outlook has said that no store has it, or there was no identifier to ask for.
        Failed,  ///< Outlook did not answer the question: closed, busy, a store that does not open.
    };

    Verdict verdict = Verdict::Gone;
    Object item;
    Fault fault;  ///< Why the look-up failed.

    bool found() const { return verdict == Verdict::Found; }
    bool gone() const { return verdict == Verdict::Gone; }
    bool failed() const { return verdict == Verdict::Failed; }
};

}  // namespace zelbar
