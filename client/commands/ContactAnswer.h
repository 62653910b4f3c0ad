#pragma once

#include "client/commands/Commands.h"

namespace pimcall {

/// Tells about a contact; where there is none, or none that the PIM knows, JSON says null and a person reads
/// the sentence `none`.
ExitCode answerWithContact(const Context& context, Contact* contact, const wchar_t* none);

}  // namespace pimcall
