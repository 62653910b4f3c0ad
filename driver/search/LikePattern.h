#pragma once

#include <string>
#include <string_view>

namespace zelbar {

/// A search text as a pattern of Jet's Like operator: "#", "[" and "?" stand for themselves. The asterisk
/// stays a wildcard, since clients ask for prefixes and parts by putting it into the text.
std::wstring EscapeLikePattern(std::wstring_view text);

/// A text between two double-quote characters, as a literal of Jet's SQL. Inside one, "|Name|" would be the
/// column of that name, so that a condition holds for every row: a vertical bar is put in by its code.
std::wstring quotedLiteral(std::wstring_view text);

}  // namespace zelbar
