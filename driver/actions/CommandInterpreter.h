#pragma once

#include <string>
#include <string_view>

namespace zelbar {

/// Whether this file is the system's command interpreter, or a batch file, which it reads: the rest of a
/// command line is then taken for commands.
bool isForInterpreter(std::wstring_view file);

/// The same for a file that is no program and is opened with what the user's settings name for its type. True
/// as well where they do not tell, as with a shortcut.
bool opensInInterpreter(const std::wstring& file);

/// Whether a text means to the interpreter more than itself.
bool steersInterpreter(std::wstring_view text);

}  // namespace zelbar
