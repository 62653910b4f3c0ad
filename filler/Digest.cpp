#include "filler/Digest.h"

#include <bit>
#include <cstring>

namespace filler {
namespace {

/// As FNV-1a does it, over 64 bits at a time, which are turned so that high bits reach the low ones as well;
/// the length behind each text keeps it from running over into the next.
class Hash {
  public:
    explicit Hash(std::uint64_t factor) : factor_(factor) {}

    void add(std::wstring_view text) {
        const std::size_t length = text.size();
        for (; text.size() >= kUnits; text.remove_prefix(kUnits)) {
            std::uint64_t units = 0;
            std::memcpy(&units, text.data(), sizeof units);
            add(units);
        }
        for (const wchar_t unit : text) add(std::uint64_t{unit});
        add(length + kNoUnit);
    }
    /// The bits mixed once more, so that hashes may be added up.
    std::uint64_t mixed() const {
        constexpr std::uint64_t kFirst = 0xFF51AFD7ED558CCDULL, kSecond = 0xC4CEB9FE1A85EC53ULL;
        constexpr int kHalf = 33;
        std::uint64_t value = (value_ ^ (value_ >> kHalf)) * kFirst;
        value = (value ^ (value >> kHalf)) * kSecond;
        return value ^ (value >> kHalf);
    }

  private:
    static constexpr std::uint64_t kStart = 0xCBF29CE484222325ULL, kNoUnit = 0x10000;
    static constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(wchar_t);
    static constexpr int kTurn = 29;

    void add(std::uint64_t unit) { value_ = std::rotl((value_ ^ unit) * factor_, kTurn); }

    std::uint64_t factor_;
    std::uint64_t value_ = kStart;
};

std::uint64_t hashOf(std::uint64_t factor, std::wstring_view kind, const RecordView& row) {
    Hash hash(factor);
    hash.add(kind);
    for (const std::wstring_view text : row) hash.add(text);
    return hash.mixed();
}

}  // namespace

void Digest::add(std::wstring_view kind, const RecordView& row) {
    constexpr std::uint64_t kOne = 0x100000001B3ULL, kOther = 0x9E3779B97F4A7C15ULL;
    one_ += hashOf(kOne, kind, row);
    other_ += hashOf(kOther, kind, row);
}

std::wstring Digest::text() const {
    return std::to_wstring(one_) + L"." + std::to_wstring(other_);
}

}  // namespace filler
