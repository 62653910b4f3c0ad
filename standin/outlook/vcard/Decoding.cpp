#include "standin/outlook/vcard/Decoding.h"

#include <windows.h>

#include <algorithm>
#include <cctype>

#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/vcard/Card.h"

namespace standin::outlook::vcard {
namespace {

constexpr unsigned kLatin1 = 28591;
constexpr unsigned kWestern = 1252;

int hexDigit(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    return -1;
}

// 0 for a name that is not known.
unsigned codePageOf(const std::string& charset) {
    if (charset == "UTF-8" || charset == "UTF8") return CP_UTF8;
    if (charset == "US-ASCII" || charset == "ASCII") return kWestern;
    unsigned page = 0;
    for (const std::string_view prefix : {"WINDOWS-", "CP"}) {
        if (charset.starts_with(prefix))
            page = static_cast<unsigned>(std::atoi(charset.c_str() + prefix.size()));
    }
    if (charset.starts_with("ISO-8859-"))
        page = kLatin1 - 1 + static_cast<unsigned>(std::atoi(charset.c_str() + 9));
    return page != 0 && IsValidCodePage(page) ? page : 0;
}

bool isUtf8(const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    return bytes.empty() ||
           MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0) > 0;
}

int base64Digit(char letter) {
    if (letter >= 'A' && letter <= 'Z') return letter - 'A';
    if (letter >= 'a' && letter <= 'z') return letter - 'a' + 26;
    if (letter >= '0' && letter <= '9') return letter - '0' + 52;
    if (letter == '+') return 62;
    return letter == '/' ? 63 : -1;
}

}  // namespace

std::string upper(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return result;
}

std::string decodeQuotedPrintable(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool coded =
            text[i] == '=' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 && hexDigit(text[i + 2]) >= 0;
        if (coded) {
            result += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::wstring decodeCharacters(const std::string& bytes, const std::string& charset) {
    unsigned page = codePageOf(charset);
    if (page == 0) page = isUtf8(bytes) ? CP_UTF8 : kWestern;
    return fromCodePage(bytes, page);
}

std::string withoutByteOrderMark(std::string bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return bytes.substr(3);
    const bool little = bytes.starts_with("\xFF\xFE");
    if (!little && !bytes.starts_with("\xFE\xFF")) return bytes;
    std::wstring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(little ? first | second << 8 : second | first << 8);
    }
    return toUtf8(text);
}

Bytes decodeBase64(std::string_view text) {
    Bytes data;
    unsigned pending = 0;
    int bits = 0;
    for (const char letter : text) {
        if (letter == '=') break;
        if (std::isspace(static_cast<unsigned char>(letter))) continue;
        const int digit = base64Digit(letter);
        if (digit < 0) throw Malformed("a picture is not base64");
        pending = pending << 6 | static_cast<unsigned>(digit);
        bits += 6;
        if (bits < 8) continue;
        bits -= 8;
        data.push_back(static_cast<unsigned char>(pending >> bits & 0xFF));
    }
    return data;
}

}  // namespace standin::outlook::vcard
