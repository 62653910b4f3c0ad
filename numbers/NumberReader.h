#pragma once

#include <phonenumbers/phonenumber.pb.h>

#include <optional>
#include <string>

#include "numbers/Place.h"

namespace i18n::phonenumbers {
class PhoneNumberUtil;
}

namespace numbers {

using PhoneNumber = i18n::phonenumbers::PhoneNumber;

/// What digits mean at a place.
class NumberReader {
  public:
    explicit NumberReader(const Place& place);

    /// The number that somebody at this place means who writes these digits into an address book; none when
    /// they are no number, or could be two.
    std::optional<PhoneNumber> written(const std::string& digits) const;
    /// The same for digits without area code, which are a number of this town.
    std::optional<PhoneNumber> writtenInThisTown(const std::string& digits) const;

    /// True when digits that a system shows without any prefix could mean a number other than `number`: one
    /// abroad, one in another town, one in this town.
    bool hasOtherMeaning(const std::string& digits, const PhoneNumber& number) const;

    /// True when "+" before the digits makes a valid number other than `number`.
    bool isOtherAbroad(const std::string& digits, const PhoneNumber& number) const;
    /// True when the digits, dialled inside the country, reach a valid number other than `number`.
    bool isOtherInCountry(const std::string& digits, const PhoneNumber& number) const;

    /// True when the digits, dialled at this place, are this number.
    bool reaches(const std::string& digits, const PhoneNumber& number) const;

    bool knowsPlace() const { return callingCode_ != 0; }
    bool isHome(const PhoneNumber& number) const;
    int callingCode() const { return callingCode_; }
    const std::string& areaCode() const { return areaCode_; }
    /// The home country's prefixes for calls abroad and to other towns; empty where there is no single one.
    const std::string& internationalPrefix() const { return internationalPrefix_; }
    const std::string& trunkPrefix() const { return trunkPrefix_; }

    /// Country code and number, digits only.
    std::string e164(const PhoneNumber& number) const;
    /// The number without country code and trunk prefix.
    std::string significant(const PhoneNumber& number) const;
    /// The digits as they are dialled inside the number's country, where it is the home country.
    std::string national(const PhoneNumber& number) const;

  private:
    std::optional<PhoneNumber> parsed(const std::string& digits) const;
    std::optional<PhoneNumber> wholeAtHome(const PhoneNumber& number, const std::string& digits) const;
    std::optional<PhoneNumber> fromAbroad(const std::string& digits, bool prefixed) const;
    std::optional<PhoneNumber> inThisTown(const std::string& digits) const;
    bool isPossible(const PhoneNumber& number) const;
    bool isValid(const PhoneNumber& number) const;
    bool leavesRoomForAreaCode(const std::string& digits) const;
    bool couldBeInThisTown(const std::string& digits) const;
    bool meansOtherInThisTown(const std::string& digits, const PhoneNumber& number) const;
    std::string readInternationalPrefix() const;

    const i18n::phonenumbers::PhoneNumberUtil& util_;
    std::string region_;
    std::string areaCode_;
    int callingCode_ = 0;
    std::string internationalPrefix_;
    std::string trunkPrefix_;
};

}  // namespace numbers
