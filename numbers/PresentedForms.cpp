#include "numbers/PresentedForms.h"

#include <phonenumbers/phonenumberutil.h>

#include <algorithm>

#include "numbers/FieldText.h"
#include "numbers/NumberReader.h"

namespace numbers {

using i18n::phonenumbers::PhoneNumberUtil;

namespace {

constexpr int kNorthAmerica = 1;
constexpr int kMexico = 52;
constexpr int kArgentina = 54;
constexpr std::size_t kFewestDigits = 6;
/// Wider texts are no telephone numbers.
constexpr std::size_t kWidestField = 255;

std::string regionText(std::wstring_view region) {
    return {region.begin(), region.end()};
}

/// The other international writing of the same number, where a country has two; empty elsewhere. Mobile
/// numbers had a "1" before them in Mexico, and have a "9" in Argentina that is not dialled inside the
/// country.
std::string otherE164(int callingCode, const std::string& significant) {
    if (callingCode == kMexico && significant.size() == 10) return "521" + significant;
    if (callingCode == kArgentina && significant.size() == 11 && significant[0] == '9')
        return "54" + significant.substr(1);
    return {};
}

}  // namespace

/// Collects the forms of one field's numbers.
class PresentedForms::Writer {
  public:
    Writer(const Place& place, const NumberReader& reader) : place_(place), reader_(reader) {}

    void add(std::wstring form) {
        if (std::find(forms_.begin(), forms_.end(), form) == forms_.end()) forms_.push_back(std::move(form));
    }

    void addForms(const PhoneNumber& number) {
        const std::string e164 = reader_.e164(number);
        const std::string significant = reader_.significant(number);
        addInternational(e164);
        const std::string other = otherE164(number.country_code(), significant);
        if (!other.empty()) addInternational(other);
        if (reader_.isHome(number)) addHome(number, significant);
        addWithoutPrefix(WithoutPrefix::International, e164, number);
        if (!other.empty()) addWithoutPrefix(WithoutPrefix::International, other, number);
    }

    std::vector<std::wstring> take() { return std::move(forms_); }

  private:
    void addPresented(const std::string& digits) {
        add(place_.outsideLine + std::wstring(digits.begin(), digits.end()));
    }

    void addInternational(const std::string& e164) {
        add(L"+" + std::wstring(e164.begin(), e164.end()));
        if (!reader_.internationalPrefix().empty()) addPresented(reader_.internationalPrefix() + e164);
    }

    void addHome(const PhoneNumber& number, const std::string& significant) {
        const std::string& trunk = reader_.trunkPrefix();
        const std::string national = reader_.national(number);
        addNational(national, number);
        const bool isArgentineMobile =
            number.country_code() == kArgentina && significant[0] == '9' && significant.size() == 11;
        const std::string dialled = isArgentineMobile ? significant.substr(1) : significant;
        if (trunk + dialled != national && reader_.reaches(trunk + dialled, number))
            addNational(trunk + dialled, number);
        if (significant != national) addWithoutPrefix(WithoutPrefix::National, significant, number);
        if (isArgentineMobile) addWithoutPrefix(WithoutPrefix::National, dialled, number);
        addLocal(number, significant);
    }

    /// As it is dialled inside the country: nobody else's number is written so, unless the system shows
    /// foreign numbers without any prefix.
    void addNational(const std::string& digits, const PhoneNumber& number) {
        if (digits.size() < kFewestDigits) return;
        const bool foreignToo = place_.withoutPrefix == WithoutPrefix::International;
        if (!foreignToo || !reader_.isOtherAbroad(digits, number)) addPresented(digits);
    }

    void addLocal(const PhoneNumber& number, const std::string& significant) {
        const std::string& area = reader_.areaCode();
        if (area.empty() || significant.rfind(area, 0) != 0) return;
        const std::string local = significant.substr(area.size());
        if (local.size() < kFewestDigits || place_.withoutPrefix == WithoutPrefix::International) return;
        const bool other = place_.withoutPrefix == WithoutPrefix::National
                               ? reader_.isOtherInCountry(local, number)
                               : reader_.hasOtherMeaning(local, number);
        if (!other) addPresented(local);
    }

    /// Digits without any prefix, as a system of that kind shows them; of a system that is not known only
    /// when they stand for this number alone.
    void addWithoutPrefix(WithoutPrefix kind, const std::string& digits, const PhoneNumber& number) {
        if (digits.size() < kFewestDigits) return;
        const bool isKnown = place_.withoutPrefix != WithoutPrefix::Unknown;
        if (isKnown ? place_.withoutPrefix == kind : !reader_.hasOtherMeaning(digits, number))
            addPresented(digits);
    }

    const Place& place_;
    const NumberReader& reader_;
    std::vector<std::wstring> forms_;
};

PresentedForms::PresentedForms(Place place)
    : place_(std::move(place)), reader_(std::make_unique<NumberReader>(place_)) {}

PresentedForms::~PresentedForms() = default;

std::vector<std::wstring> PresentedForms::of(std::wstring_view field) const {
    if (field.empty()) return {};
    Writer writer(place_, *reader_);
    writer.add(std::wstring(field));
    if (field.size() > kWidestField) return writer.take();
    std::vector<std::string> found;
    if (std::string vanity = vanityNumber(field);
        !vanity.empty() && (vanity[0] == '+' || reader_->callingCode() == kNorthAmerica))
        found.push_back(std::move(vanity));
    else
        found = numbersIn(field);
    // Digits without area code behind a number of another town are one of that town.
    bool isThisTown = true;
    for (const std::string& digits : found) {
        auto number = reader_->written(digits);
        if (number) isThisTown = false;
        if (!number && isThisTown) number = reader_->writtenInThisTown(digits);
        if (number) writer.addForms(*number);
    }
    return writer.take();
}

int callingCodeOf(std::wstring_view region) {
    return PhoneNumberUtil::GetInstance()->GetCountryCodeForRegion(regionText(region));
}

std::wstring regionOf(int callingCode) {
    std::string region;
    PhoneNumberUtil::GetInstance()->GetRegionCodeForCountryCode(callingCode, &region);
    // "001" stands for services of no country, "ZZ" for a code that nobody has.
    return region == "ZZ" || region == "001" ? std::wstring() : std::wstring(region.begin(), region.end());
}

std::wstring trunkPrefixOf(std::wstring_view region) {
    std::string prefix;
    PhoneNumberUtil::GetInstance()->GetNddPrefixForRegion(regionText(region), true, &prefix);
    return {prefix.begin(), prefix.end()};
}

}  // namespace numbers
