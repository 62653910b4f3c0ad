#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

/// What all fuzzers here share: the bytes that the fuzzer thought up, as texts, and the way to complain.
namespace fuzz {

/// Ends the program with the place and the broken rule; the fuzzer then keeps the input.
#define FUZZ_EXPECT(rule)                                                                  \
    do {                                                                                   \
        if (!(rule)) {                                                                     \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #rule); \
            std::abort();                                                                  \
        }                                                                                  \
    } while (false)

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

    std::uint8_t byte() {
        if (bytes_.empty()) return 0;
        const auto result = static_cast<std::uint8_t>(bytes_.front());
        bytes_.remove_prefix(1);
        return result;
    }

    /// The bytes up to the next line feed, or all of them.
    std::string_view line() {
        const auto end = bytes_.find('\n');
        const auto result = bytes_.substr(0, end);
        bytes_.remove_prefix(end == std::string_view::npos ? bytes_.size() : end + 1);
        return result;
    }
    /// What is left.
    std::string_view rest() { return std::exchange(bytes_, {}); }

    /// A line as a text, mostly of characters out of `alphabet`: chance alone hardly finds what has a
    /// meaning. A byte that is in it stands for itself, so that seeds can be read and written.
    std::wstring text(std::wstring_view alphabet) {
        std::wstring result;
        for (const char c : line()) {
            const auto value = static_cast<std::uint8_t>(c);
            const bool isItself =
                value < 0x80 && alphabet.find(static_cast<wchar_t>(value)) != std::wstring_view::npos;
            if (value < 0xC0)
                result += isItself ? static_cast<wchar_t>(value) : alphabet[value % alphabet.size()];
            else
                result += static_cast<wchar_t>(value < 0xE0 ? value : 0xD800 + value * 7);
        }
        return result;
    }

  private:
    std::string_view bytes_;
};

}  // namespace fuzz
