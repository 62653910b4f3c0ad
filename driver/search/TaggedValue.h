#pragma once

#include <string>
#include <string_view>

namespace zelbar {

/// One field of a string of fields: what stands between the first occurrence of `key` (letter case counts,
/// and the key's "=" is part of it) and the next ";". Empty when there is no such field. Without a ";" behind
/// it the last field loses its final character: a client closes every field. Data of more than 32767
/// characters throws std::overflow_error, since positions have 16 bits.
std::wstring GetTaggedValue(std::wstring_view data, std::wstring_view key);

}  // namespace zelbar
