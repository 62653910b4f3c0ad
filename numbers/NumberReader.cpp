#include "numbers/NumberReader.h"

#include <phonenumbers/phonenumberutil.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace numbers {

using i18n::phonenumbers::PhoneNumberUtil;

namespace {

constexpr char kNoRegion[] = "ZZ";
/// No town's own numbers are longer, and hardly any is longer than the second.
constexpr std::size_t kLongestInTown = 9;
constexpr std::size_t kLongInTown = 8;
constexpr int kNorthAmerica = 1;
constexpr int kMexico = 52;
constexpr int kPoland = 48;
constexpr int kArgentina = 54;

/// North American area codes that are newer than the library's data, where another country's number could
/// look like theirs.
constexpr std::array<std::string_view, 12> kNewAreaCodes = {"324", "327", "329", "353", "457", "471",
                                                            "472", "645", "679", "730", "837", "983"};

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};  // letters and digits
}

std::string digitsOf(const std::string& text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

/// In Argentina the 9 of a mobile number is not dialled inside the country; without it the number is nobody
/// else's.
std::uint64_t nationalNumber(const PhoneNumber& number) {
    constexpr std::uint64_t kMobile = 90000000000ULL, kBehind = 100000000000ULL;
    const std::uint64_t digits = number.national_number();
    const bool isMobile = number.country_code() == kArgentina && digits >= kMobile && digits < kBehind;
    return isMobile ? digits - kMobile : digits;
}

bool same(const PhoneNumber& one, const PhoneNumber& other) {
    return one.country_code() == other.country_code() && nationalNumber(one) == nationalNumber(other) &&
           one.italian_leading_zero() == other.italian_leading_zero() &&
           (!one.italian_leading_zero() || one.number_of_leading_zeros() == other.number_of_leading_zeros());
}

bool isWithoutArea(PhoneNumberUtil::PhoneNumberType type) {
    switch (type) {
        case PhoneNumberUtil::MOBILE:
        case PhoneNumberUtil::TOLL_FREE:
        case PhoneNumberUtil::PREMIUM_RATE:
        case PhoneNumberUtil::SHARED_COST:
        case PhoneNumberUtil::PERSONAL_NUMBER:
        case PhoneNumberUtil::UAN:
            return true;
        default:
            return false;
    }
}

}  // namespace

NumberReader::NumberReader(const Place& place)
    : util_(*PhoneNumberUtil::GetInstance()),
      region_(narrow(place.region)),
      areaCode_(narrow(place.areaCode)) {
    callingCode_ = region_.empty() ? 0 : util_.GetCountryCodeForRegion(region_);
    if (callingCode_ == 0) {
        region_ = kNoRegion;
        return;
    }
    internationalPrefix_ = readInternationalPrefix();
    util_.GetNddPrefixForRegion(region_, true, &trunkPrefix_);
}

std::string NumberReader::readInternationalPrefix() const {
    // What is dialled before a number abroad, taken from one that is abroad everywhere but in one country.
    const bool isBritish = callingCode_ == 44;
    PhoneNumber abroad;
    abroad.set_country_code(isBritish ? 33 : 44);
    abroad.set_national_number(isBritish ? 142685300ULL : 2079460000ULL);
    std::string text;
    util_.FormatOutOfCountryCallingNumber(abroad, region_, &text);
    if (text.empty() || text.front() == '+') return {};
    const std::string digits = digitsOf(text);
    const std::string number = e164(abroad);
    return digits.size() > number.size() ? digits.substr(0, digits.size() - number.size()) : std::string();
}

std::optional<PhoneNumber> NumberReader::parsed(const std::string& digits) const {
    PhoneNumber number;
    if (util_.ParseAndKeepRawInput(digits, region_, &number) != PhoneNumberUtil::NO_PARSING_ERROR) return {};
    return number;
}

bool NumberReader::isPossible(const PhoneNumber& number) const {
    return util_.IsPossibleNumberWithReason(number) == PhoneNumberUtil::IS_POSSIBLE;
}

bool NumberReader::isValid(const PhoneNumber& number) const {
    if (util_.IsValidNumber(number)) return true;
    const std::string area = significant(number).substr(0, 3);
    return number.country_code() == kNorthAmerica && isPossible(number) &&
           std::find(kNewAreaCodes.begin(), kNewAreaCodes.end(), area) != kNewAreaCodes.end();
}

std::optional<PhoneNumber> NumberReader::inThisTown(const std::string& digits) const {
    // A mobile number of an Argentine town begins with 15, and is another one abroad.
    const bool isMobile = callingCode_ == kArgentina && digits.rfind("15", 0) == 0;
    const std::string rest = isMobile ? digits.substr(2) : digits;
    // 116117 and its like are the same service in every town of Europe.
    const bool isService = digits.size() == 6 && digits.rfind("116", 0) == 0;
    if (areaCode_.empty() || rest.size() > kLongestInTown || isService) return {};
    auto number = parsed("+" + std::to_string(callingCode_) + areaCode_ + digits);
    if (!number || !isPossible(*number)) return {};
    return significant(*number) == (isMobile ? "9" : "") + areaCode_ + rest ? number : std::nullopt;
}

/// In a country with numbers of any length, digits without the trunk prefix may be a town's own number
/// however long they are.
bool NumberReader::leavesRoomForAreaCode(const std::string& digits) const {
    const auto hasRoom = [&](const std::string& area) {
        const auto longer = parsed("+" + std::to_string(callingCode_) + area + digits);
        return longer && significant(*longer) == area + digits &&
               util_.IsPossibleNumberForTypeWithReason(*longer, PhoneNumberUtil::FIXED_LINE) ==
                   PhoneNumberUtil::IS_POSSIBLE;
    };
    if (!areaCode_.empty()) return hasRoom(areaCode_);
    return hasRoom("2") || hasRoom("22") || hasRoom("222");
}

/// Where the town is not known, any town will do.
bool NumberReader::couldBeInThisTown(const std::string& digits) const {
    if (digits.size() > kLongestInTown) return false;
    if (areaCode_.empty()) return leavesRoomForAreaCode(digits);
    const auto local = inThisTown(digits);
    return local && isValid(*local);
}

std::optional<PhoneNumber> NumberReader::written(const std::string& digits) const {
    const auto number = parsed(digits);
    if (!number) return fromAbroad(digits, false);
    if (number->country_code_source() == PhoneNumber::FROM_DEFAULT_COUNTRY) {
        const auto whole = wholeAtHome(*number, digits);
        if (whole && isValid(*whole)) return whole;
        // Until 2009 a zero was dialled before the same digits.
        if (!whole && callingCode_ == kPoland && digits.rfind('0', 0) == 0 && digits.size() == 10)
            if (const auto old = parsed(digits.substr(1)); old && isValid(*old)) return old;
        const auto abroad = fromAbroad(digits, whole.has_value());
        if (abroad || !whole) return abroad;
        // Where numbers have no trunk prefix, digits that are no whole number may be one of this town.
        const auto local = inThisTown(digits);
        return local && isValid(*local) ? local : whole;
    }
    if (isPossible(*number)) return number;
    // "+34 (0)91 ...": by people in whose country a zero belongs there.
    PhoneNumber bare = *number;
    bare.clear_italian_leading_zero();
    bare.clear_number_of_leading_zeros();
    return number->italian_leading_zero() && isValid(bare) ? std::optional(bare) : std::nullopt;
}

/// A number of the home country with its area code.
std::optional<PhoneNumber> NumberReader::wholeAtHome(const PhoneNumber& number,
                                                     const std::string& digits) const {
    // A zero too many is another prefix, or a mistake.
    if (!isPossible(number) || (number.italian_leading_zero() && !isValid(number))) return {};
    const std::string nsn = significant(number);
    const bool hasTrunk = trunkPrefix_.empty() || nsn != digits;
    if (hasTrunk || !leavesRoomForAreaCode(digits)) return number;
    // Without the trunk prefix it is one of this town's own, but for kinds that have no area code.
    const bool isOfOneKind = isValid(number) && (isWithoutArea(util_.GetNumberType(number)) ||
                                                 util_.GetLengthOfGeographicalAreaCode(number) == 0);
    if (!isOfOneKind || (digits.size() <= kLongInTown && couldBeInThisTown(digits))) return {};
    return number;
}

/// A number abroad behind another country's international prefix or, unless only those are wanted, behind
/// none, when nobody at home has that number.
std::optional<PhoneNumber> NumberReader::fromAbroad(const std::string& digits, bool prefixed) const {
    constexpr std::size_t kSurelyAbroad = 11;
    if (digits.empty() || digits[0] == '+') return {};
    for (const std::string prefix : {"00", "011", ""}) {
        if (digits.rfind(prefix, 0) != 0) continue;
        // Without the prefix of a country that is known, too much can be meant.
        if (prefix != "00" && !knowsPlace()) continue;
        const std::string rest = digits.substr(prefix.size());
        if (prefix.empty() && (prefixed || rest.size() < kSurelyAbroad || rest[0] == '0')) continue;
        const auto number = parsed("+" + rest);
        if (!number || !util_.IsValidNumber(*number)) continue;
        if (!prefix.empty() || !hasOtherMeaning(digits, *number)) return number;
    }
    return {};
}

std::optional<PhoneNumber> NumberReader::writtenInThisTown(const std::string& digits) const {
    const auto local = inThisTown(digits);
    if (!local || isOtherAbroad(digits, *local)) return {};
    // This town's area code without the trunk prefix, or a number that begins so?
    const auto national = parsed(digits);
    if (!national || !isPossible(*national)) return local;
    const bool isBoth = digits.rfind(areaCode_, 0) == 0 ||
                        (isValid(*national) && isWithoutArea(util_.GetNumberType(*national)));
    return isBoth ? std::nullopt : local;
}

bool NumberReader::isOtherAbroad(const std::string& digits, const PhoneNumber& number) const {
    const auto other = parsed("+" + digits);
    return other && util_.IsValidNumber(*other) && !same(*other, number);
}

bool NumberReader::isOtherInCountry(const std::string& digits, const PhoneNumber& number) const {
    const auto other = parsed(digits);
    return other && isValid(*other) && !same(*other, number);
}

bool NumberReader::meansOtherInThisTown(const std::string& digits, const PhoneNumber& number) const {
    if (!areaCode_.empty()) {
        const auto local = inThisTown(digits);
        return local && isValid(*local) && !same(*local, number);
    }
    const auto national = parsed(digits);
    return couldBeInThisTown(digits) || (national && util_.IsPossibleNumberWithReason(*national) ==
                                                         PhoneNumberUtil::IS_POSSIBLE_LOCAL_ONLY);
}

bool NumberReader::hasOtherMeaning(const std::string& digits, const PhoneNumber& number) const {
    return !knowsPlace() || isOtherAbroad(digits, number) || isOtherInCountry(digits, number) ||
           isOtherInCountry(trunkPrefix_ + digits, number) || meansOtherInThisTown(digits, number);
}

bool NumberReader::reaches(const std::string& digits, const PhoneNumber& number) const {
    const auto other = parsed(digits);
    return other && same(*other, number);
}

bool NumberReader::isHome(const PhoneNumber& number) const {
    return callingCode_ != 0 && number.country_code() == callingCode_;
}

std::string NumberReader::e164(const PhoneNumber& number) const {
    return std::to_string(number.country_code()) + significant(number);
}

std::string NumberReader::significant(const PhoneNumber& number) const {
    std::string result;
    util_.GetNationalSignificantNumber(number, &result);
    return result;
}

std::string NumberReader::national(const PhoneNumber& number) const {
    const std::string nsn = significant(number);
    // How a number is written of which the library knows only that it is possible, the country tells.
    const int code = number.country_code();
    const bool isBare = trunkPrefix_.empty() || code == kNorthAmerica || code == kMexico;
    if (!util_.IsValidNumber(number)) return isBare ? nsn : trunkPrefix_ + nsn;
    PhoneNumber plain = number;
    plain.clear_extension();
    std::string text;
    util_.Format(plain, PhoneNumberUtil::NATIONAL, &text);
    return digitsOf(text);
}

}  // namespace numbers
