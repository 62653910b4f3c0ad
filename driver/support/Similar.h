#pragma once

#include <span>
#include <string_view>

namespace zelbar {

/// The known word that somebody most likely meant who typed `word`; empty when none is near enough. Needs no
/// Windows.
std::wstring_view similarWord(std::wstring_view word, std::span<const std::wstring_view> known);

}  // namespace zelbar
