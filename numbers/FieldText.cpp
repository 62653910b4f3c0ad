#include "numbers/FieldText.h"

#include <algorithm>
#include <array>
#include <optional>

#include "numbers/Folding.h"

namespace numbers {

namespace {

constexpr std::size_t kFewestDigits = 6;
/// From so many digits on a number can stand without its area code.
constexpr std::size_t kWholeNumber = 7;

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
bool isLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c >= 0x00C0;
}
wchar_t lower(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

std::size_t digitsIn(std::wstring_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isDigit));
}

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && text.front() == L' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ') text.remove_suffix(1);
    return text;
}

template <std::size_t size>
bool isOneOf(std::wstring_view word, const std::array<std::wstring_view, size>& words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Words behind which an extension stands, and words that may stand right before a number.
constexpr std::array<std::wstring_view, 17> kExtensionWords = {
    L"x",     L"ext", L"extn",    L"extension", L"dw",    L"durchwahl", L"app", L"apparat", L"nst",
    L"poste", L"int", L"interno", L"anexo",     L"ramal", L"wew",       L"tst", L"toestel"};
constexpr std::array<std::wstring_view, 22> kNumberWords = {
    L"t",      L"f",    L"m",     L"p",      L"h",      L"w",       L"o",     L"d",
    L"tel",    L"home", L"work",  L"fon",    L"fax",    L"telefon", L"phone", L"mobil",
    L"mobile", L"cell", L"handy", L"office", L"privat", L"direct"};

/// Words behind which a number stands that is no telephone's.
constexpr std::array<std::wstring_view, 17> kOtherWords = {
    L"iban", L"bic", L"konto", L"kto", L"blz",      L"account", L"acct",   L"kundennummer", L"kdnr",
    L"id",   L"plz", L"zip",   L"pin", L"customer", L"room",    L"zimmer", L"raum"};

/// The number groups of a text that holds nothing else but `separator`s between them.
std::vector<std::wstring_view> groupsOf(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> groups(1);
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && isDigit(text[i])) continue;
        if (i < text.size() && text[i] != separator) return {};
        groups.back() = text.substr(start, i - start);
        start = i + 1;
        if (i < text.size()) groups.emplace_back();
    }
    return groups;
}

int valueOf(std::wstring_view digits) {
    int value = 0;
    for (const wchar_t digit : digits.substr(0, 4)) value = value * 10 + (digit - L'0');
    return value;
}

bool isDayAndMonth(std::wstring_view one, std::wstring_view other) {
    if (one.empty() || one.size() > 2 || other.empty() || other.size() > 2) return false;
    const int low = std::min(valueOf(one), valueOf(other));
    const int high = std::max(valueOf(one), valueOf(other));
    return low >= 1 && low <= 12 && high <= 31;
}

bool isDate(std::wstring_view text) {
    for (const wchar_t separator : {L'.', L'-', L'/'}) {
        const auto groups = groupsOf(text, separator);
        if (groups.size() != 3) continue;
        if (groups[0].size() == 4) return isDayAndMonth(groups[1], groups[2]);
        return (groups[2].size() == 4 || groups[2].size() == 2) && isDayAndMonth(groups[0], groups[1]);
    }
    return false;
}

/// "192.168.1.20": a computer's address; no country's numbers begin so.
bool isAddress(std::wstring_view text) {
    const auto groups = groupsOf(text, L'.');
    return groups.size() == 4 && (groups[0] == L"10" || text.starts_with(L"192.168."));
}

/// "09.00-17.00": two times with a dash between them.
bool isTimeSpan(std::wstring_view text) {
    const std::size_t dash = text.find(L'-');
    if (dash == std::wstring_view::npos) return false;
    const auto isTime = [](std::wstring_view part) {
        const auto groups = groupsOf(trimmed(part), L'.');
        return groups.size() == 2 && groups[0].size() <= 2 && groups[1].size() == 2 &&
               valueOf(groups[0]) <= 24 && valueOf(groups[1]) < 60;
    };
    return isTime(text.substr(0, dash)) && isTime(text.substr(dash + 1));
}

/// Brackets with a word in them go, with all that is in them.
std::wstring withoutRemarks(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'(' || text[i] == L'[') {
            const std::size_t end = text.find_first_of(L")]", i);
            const std::wstring_view inside = text.substr(i, end == std::wstring_view::npos ? end : end - i);
            if (std::any_of(inside.begin(), inside.end(), isLetter)) {
                result += L' ';
                if (end == std::wstring_view::npos) break;
                i = end;
                continue;
            }
        }
        result += text[i];
    }
    return result;
}

/// A stretch of a piece that holds digits and the signs that are written between them.
struct Run {
    std::wstring text;
    std::wstring wordBefore;
    bool touchesWord = false;  ///< No blank between the word and the first digit.
    bool touchesSign = false;  ///< A sign that stands in no number joins it to the digits before.
};

bool isNumberSign(wchar_t c) {
    return isDigit(c) || c == L' ' || c == L'-' || c == L'.' || c == L'(' || c == L')' || c == L'[' ||
           c == L']' || c == L'/';
}

/// The runs of a piece up to the first sign that can only stand behind a number; nothing for a code
/// ("*100#").
std::vector<Run> runsOf(std::wstring_view piece) {
    std::vector<Run> runs;
    std::wstring word;
    wchar_t before = L' ';
    bool open = false;
    bool joined = false;
    for (const wchar_t c : piece) {
        if (c == L'*') return {};
        if (c == L'#' || c == L',') break;
        if (open && isNumberSign(c)) {
            runs.back().text += c;
        } else if (isDigit(c) || c == L'+' || c == L'(' || c == L'[') {
            runs.push_back({std::wstring(1, c), word, isLetter(before) && isDigit(c), joined && isDigit(c)});
            open = true;
            joined = false;
            word.clear();
        } else {
            joined = open ? isDigit(before) && !isLetter(c) : joined && c != L' ';
            open = false;
            if (isLetter(c) && !isLetter(before)) word.clear();
            if (isLetter(c)) word += lower(c);
        }
        before = c;
    }
    return runs;
}

bool isMarked(std::wstring_view text) {
    return !text.empty() && (text.front() == L'+' || text.front() == L'(' || text.front() == L'0');
}

bool isNoTelephoneNumber(std::wstring_view text) {
    const std::wstring_view firstWord = text.substr(0, text.find(L' '));
    return isDate(text) || isDate(firstWord) || isTimeSpan(text) || isAddress(text);
}

/// What of a field has been read already.
struct Found {
    std::vector<std::string> numbers;
    bool anyDigits = false;  ///< This piece had digits before, a number or not.
    bool openStart = false;  ///< The last digits were no number but began as one, "+49" or "089".
};

bool isTelephoneNumber(const Run& run, const Found& found) {
    const std::wstring_view text = trimmed(run.text);
    const std::size_t digits = digitsIn(text);
    if (digits < kFewestDigits || isNoTelephoneNumber(text) || run.touchesSign) return false;
    const bool marked = isMarked(text);
    if (isOneOf(run.wordBefore, kOtherWords)) return false;
    if (isOneOf(run.wordBefore, kExtensionWords)) return marked || digits >= kWholeNumber;
    if (run.touchesWord && !isOneOf(run.wordBefore, kNumberWords)) return false;
    if (found.openStart) return text.front() == L'+';
    // Behind a first number come hours, rooms and the like as well.
    return !found.anyDigits || (digits >= kWholeNumber && (marked || isOneOf(run.wordBefore, kNumberWords)));
}

/// Whether a number could be over here, country and area code behind it.
bool isWhole(std::wstring_view text) {
    text = trimmed(text);
    const std::size_t digits = digitsIn(text);
    if (!text.empty() && text.front() == L'+') return digits >= kWholeNumber + 2;
    if (text.substr(0, 2) == L"00") return digits >= kWholeNumber + 3;
    return digits >= kWholeNumber;
}

/// A run with a slash is one number ("089/123456"), two, or one and another last digits ("123456/57").
/// Nothing when that cannot be told.
std::vector<std::wstring> splitAtSlashes(std::wstring_view run) {
    std::vector<std::wstring> numbers(1);
    for (std::size_t i = 0; i < run.size(); ++i) {
        if (run[i] != L'/' || !isWhole(numbers.back())) {
            numbers.back() += run[i];
            continue;
        }
        const std::wstring_view rest = trimmed(run.substr(i + 1));
        const std::wstring_view next = rest.substr(0, rest.find(L'/'));
        const std::size_t digits = digitsIn(next);
        const bool marked = !next.empty() && (next.front() == L'0' || next.front() == L'(');
        if (digits >= kWholeNumber || (marked && digits >= 3)) {
            numbers.emplace_back();
            continue;
        }
        if (digits <= 2 && rest.size() == next.size()) return numbers;
        return {};
    }
    return numbers;
}

std::string dialled(std::wstring_view text) {
    std::string result;
    for (const wchar_t c : text)
        if (isDigit(c) || (c == L'+' && result.empty())) result += static_cast<char>(c);
    // "+" and the international prefix, by somebody who wanted to be sure.
    if (result.rfind("+00", 0) == 0) result.erase(1, 2);
    return result;
}

void addNumbersOf(std::wstring_view piece, Found& found) {
    if (piece.find(L'@') != std::wstring_view::npos || piece.find(L"://") != std::wstring_view::npos) return;
    found.anyDigits = false;
    for (const Run& run : runsOf(withoutRemarks(piece))) {
        const std::wstring_view text = trimmed(run.text);
        if (isTelephoneNumber(run, found)) {
            for (const std::wstring& one : splitAtSlashes(run.text))
                if (std::string number = dialled(one);
                    number.size() - number.starts_with('+') >= kFewestDigits)
                    found.numbers.push_back(std::move(number));
            found.openStart = false;
        } else if (digitsIn(text) > 0) {
            found.openStart =
                digitsIn(text) < kFewestDigits && (text.front() == L'+' || text.front() == L'0');
        }
        found.anyDigits = found.anyDigits || digitsIn(text) > 0;
    }
}

/// Where the next number of a list begins; the end when there is none. A comma right before a digit is a
/// pause in dialling.
std::size_t endOfPiece(std::wstring_view text, std::size_t start) {
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == L';') return i;
        if (text[i] != L',') continue;
        const std::wstring_view rest = text.substr(i + 1);
        const std::size_t digits = digitsIn(rest.substr(0, rest.find_first_of(L",;")));
        if (!rest.empty() && (rest[0] == L' ' || rest[0] == L'+' || digits >= kWholeNumber)) return i;
    }
    return text.size();
}

/// The part of a "tel:" address that says something about the number, as in ";ext=12".
bool isParameter(std::wstring_view piece) {
    const std::size_t equals = piece.find(L'=');
    return equals != std::wstring_view::npos && equals > 0 &&
           std::all_of(piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(equals),
                       [](wchar_t c) { return isLetter(c) || c == L'-'; });
}

/// Two writings that name their country without its code: "0xx11 3333-4444" and "0**11 ...", where the signs
/// stand for a Brazilian network operator's digits, and "+8 495 ..." for Russia's "8 495 ...".
std::wstring withCountryCodes(std::wstring text) {
    for (std::size_t i = 0; i + 3 < text.size(); ++i) {
        if (i > 0 && (isDigit(text[i - 1]) || isLetter(text[i - 1]) || text[i - 1] == L'+')) continue;
        const std::wstring signs{lower(text[i + 1]), lower(text[i + 2])};
        const bool isBrazil = text[i] == L'0' && (signs == L"xx" || signs == L"**");
        if (isBrazil) text.replace(i, 3, L"+55 ");
        if (text[i] == L'+' && text[i + 1] == L'8' && !isDigit(text[i + 2])) text[i + 1] = L'7';
    }
    return text;
}

}  // namespace

std::vector<std::string> numbersIn(std::wstring_view field) {
    const std::wstring text = withCountryCodes(folded(field));
    Found found;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = endOfPiece(text, start);
        const std::wstring_view piece = std::wstring_view(text).substr(start, end - start);
        if (!isParameter(piece)) addNumbersOf(piece, found);
        start = end + 1;
    }
    return std::move(found.numbers);
}

std::string vanityNumber(std::wstring_view field) {
    // The keys of a telephone, by the letters from A.
    constexpr std::string_view kKeys = "22233344455566677778889999";
    constexpr std::size_t kNorthAmerican = 10;
    const std::wstring text = folded(field);
    std::string number;
    std::size_t letters = 0;
    for (const wchar_t c : text) {
        const wchar_t letter = lower(c);
        if (isDigit(c)) {
            number += static_cast<char>(c);
        } else if (letter >= L'a' && letter <= L'z') {
            // An area code in digits comes first; letters behind seven digits are a remark.
            const std::size_t digits =
                number.size() - letters - (!number.empty() && number[0] == '1' ? 1 : 0);
            if (number.size() < 3 || (letters == 0 && digits > 6)) return {};
            number += kKeys[static_cast<std::size_t>(letter - L'a')];
            ++letters;
        } else if (c == L'+' ? !number.empty() : !isNumberSign(c) || c == L'/') {
            return {};
        }
    }
    const std::wstring_view start = trimmed(text);
    const bool plus = !start.empty() && start.front() == L'+';
    const bool whole =
        number.size() == kNorthAmerican || (number.size() == kNorthAmerican + 1 && number[0] == '1');
    if (letters < 3 || !whole || (plus && number[0] != '1')) return {};
    return (plus ? "+" : "") + number;
}

}  // namespace numbers
