#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

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

    /// The bytes up to the next 0xFF, or all of them.
    std::string_view bytes() {
        const auto end = bytes_.find('\xFF');
        const auto result = bytes_.substr(0, end);
        bytes_.remove_prefix(end == std::string_view::npos ? bytes_.size() : end + 1);
        return result;
    }

    /// The same as a text, mostly of characters out of `alphabet`: chance alone hardly finds what has a
    /// meaning.
    std::wstring text(std::wstring_view alphabet) {
        std::wstring result;
        for (const char c : bytes()) {
            const auto value = static_cast<std::uint8_t>(c);
            result += value < 0xC0 ? alphabet[value % alphabet.size()]
                                   : static_cast<wchar_t>(value < 0xE0 ? value : 0xD800 + value * 7);
        }
        return result;
    }

  private:
    std::string_view bytes_;
};

}  // namespace fuzz
