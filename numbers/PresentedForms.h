#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "numbers/Place.h"

namespace numbers {

class NumberReader;

/// How the telephone system at a place presents the numbers that a contact's fields hold. A form that could
/// mean another number as well is left out: a wrong contact is worse than none.
class PresentedForms {
  public:
    explicit PresentedForms(Place place);
    ~PresentedForms();
    PresentedForms(const PresentedForms&) = delete;
    PresentedForms& operator=(const PresentedForms&) = delete;

    /// The field's text as it stands, and behind it every form in which a number in it can be presented, each
    /// once.
    std::vector<std::wstring> of(std::wstring_view field) const;

    const Place& place() const { return place_; }

  private:
    class Writer;

    Place place_;
    std::unique_ptr<NumberReader> reader_;
};

/// The country's calling code; 0 for letters that no country has.
int callingCodeOf(std::wstring_view region);
/// The main country of a calling code, two letters; empty for none.
std::wstring regionOf(int callingCode);
/// The digits that are put before an area code inside the country ("0"); mostly one, often none.
std::wstring trunkPrefixOf(std::wstring_view region);

}  // namespace numbers
