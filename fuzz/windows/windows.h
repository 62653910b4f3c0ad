#pragma once

#include <cstdint>
#include <string_view>

// As much of Windows as the parsers need that are fuzzed here; texts are UTF-16 units, as there.

using BOOL = int;
using DWORD = std::uint32_t;
using WORD = std::uint16_t;
using LCID = std::uint32_t;
using HRESULT = std::int32_t;

constexpr BOOL TRUE = 1;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
constexpr unsigned CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;
constexpr DWORD LCMAP_LOWERCASE = 0x100;
constexpr DWORD NORM_IGNORECASE = 1;
constexpr int CSTR_EQUAL = 2;
constexpr WORD LANG_ENGLISH = 9, SUBLANG_ENGLISH_US = 1, SORT_DEFAULT = 0;

constexpr WORD MAKELANGID(WORD primary, WORD sub) {
    return static_cast<WORD>(sub << 10 | primary);
}
constexpr LCID MAKELCID(WORD language, WORD sort) {
    return static_cast<LCID>(sort << 16 | language);
}

/// Latin letters have cases, as far as Latin-1 goes; all others have none.
inline wchar_t lowerCase(wchar_t unit) {
    const bool isUpper = (unit >= L'A' && unit <= L'Z') || (unit >= 0xC0 && unit <= 0xDE && unit != 0xD7);
    return isUpper ? unit + 32 : unit;
}
inline int LCMapStringW(LCID, DWORD, const wchar_t* from, int length, wchar_t* to, int) {
    for (int i = 0; i < length; ++i) to[i] = lowerCase(from[i]);
    return length;
}
inline int CompareStringOrdinal(const wchar_t* left, int leftLength, const wchar_t* right, int rightLength,
                                BOOL) {
    for (int i = 0; i < leftLength && i < rightLength; ++i) {
        const wchar_t a = lowerCase(left[i]), b = lowerCase(right[i]);
        if (a != b) return a < b ? CSTR_EQUAL - 1 : CSTR_EQUAL + 1;
    }
    return CSTR_EQUAL + (leftLength > rightLength) - (leftLength < rightLength);
}
inline int CompareStringW(LCID, DWORD, const wchar_t* left, int leftLength, const wchar_t* right,
                          int rightLength) {
    return CompareStringOrdinal(left, leftLength, right, rightLength, TRUE);
}

inline BOOL IsValidCodePage(unsigned page) {
    return page == CP_UTF8 || (page >= 1250 && page <= 1258) || (page >= 28591 && page <= 28605);
}

namespace fuzz {

/// Hands units or bytes on as Windows does: only counts them when there is no room.
template <class T>
class Output {
  public:
    Output(T* to, int room) : to_(to), room_(room) {}
    void put(unsigned unit) {
        if (room_ > 0 && count_ < room_) to_[count_] = static_cast<T>(unit);
        ++count_;
    }
    /// How many there were; 0 when they did not fit.
    int count() const { return room_ > 0 && count_ > room_ ? 0 : count_; }

  private:
    T* to_;
    int room_;
    int count_ = 0;
};

/// Takes the next character off well-formed UTF-8, or one byte that is none; such a byte is 0xFFFD.
inline unsigned takeCharacter(std::string_view& bytes) {
    const auto byte = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const unsigned first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    unsigned character = length == 1 ? first : first & (0x7FU >> length);
    bool isSound = length > 0 && first < 0xF5;
    for (std::size_t i = 1; i < length; ++i) {
        isSound = isSound && (byte(i) & 0xC0) == 0x80;
        character = character << 6 | (byte(i) & 0x3F);
    }
    constexpr unsigned kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    isSound = isSound && character >= kSmallest[length] && character < 0x110000 &&
              (character < 0xD800 || character > 0xDFFF);
    bytes.remove_prefix(isSound ? length : 1);
    return isSound ? character : 0xFFFD;
}

}  // namespace fuzz

inline int MultiByteToWideChar(unsigned page, DWORD flags, const char* from, int length, wchar_t* to,
                               int room) {
    std::string_view bytes(from, static_cast<std::size_t>(length));
    fuzz::Output<wchar_t> output(to, room);
    while (!bytes.empty()) {
        if (page != CP_UTF8) {
            output.put(static_cast<unsigned char>(bytes.front()));
            bytes.remove_prefix(1);
            continue;
        }
        const bool isReplacement = bytes.starts_with("\xEF\xBF\xBD");
        const unsigned character = fuzz::takeCharacter(bytes);
        if (character == 0xFFFD && !isReplacement && (flags & MB_ERR_INVALID_CHARS)) return 0;
        if (character >= 0x10000) output.put(0xD7C0 + (character >> 10));
        output.put(character >= 0x10000 ? 0xDC00 + (character & 0x3FF) : character);
    }
    return output.count();
}

inline int WideCharToMultiByte(unsigned, DWORD, const wchar_t* from, int length, char* to, int room,
                               const char*, BOOL*) {
    fuzz::Output<char> output(to, room);
    for (int i = 0; i < length; ++i) {
        unsigned character = static_cast<unsigned>(from[i]);
        const bool isPair = character >= 0xD800 && character < 0xDC00 && i + 1 < length &&
                            from[i + 1] >= 0xDC00 && from[i + 1] < 0xE000;
        if (isPair)
            character = ((character - 0xD7C0) << 10) + (static_cast<unsigned>(from[++i]) - 0xDC00);
        else if (character >= 0xD800 && character < 0xE000)
            character = 0xFFFD;
        const int more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        constexpr unsigned kMarks[] = {0, 0xC0, 0xE0, 0xF0};
        output.put(kMarks[more] | character >> (6 * more));
        for (int part = more - 1; part >= 0; --part) output.put(0x80 | (character >> (6 * part) & 0x3F));
    }
    return output.count();
}
