#include "client/PlaceOptions.h"

#include "client/Failure.h"
#include "numbers/PresentedOtherwise.h"

namespace pimcall {

numbers::HomePlace homePlace(const Arguments& arguments) {
    try {
        return numbers::findHomePlace({arguments.valueOrNone(L"--country"), arguments.valueOrNone(L"--area"),
                                       arguments.valueOrNone(L"--outside-line"),
                                       arguments.valueOrNone(L"--without-prefix")});
    } catch (const numbers::BadPlace& bad) {
        throw UsageError(bad.sentence);
    }
}

void noteRemark(Writer& notes, const std::wstring& number) {
    std::wstring remark;
    try {
        remark = numbers::presentedOtherwise(numbers::findHomePlace({}).place, number);
    } catch (const numbers::BadPlace& bad) {
        remark = L"The settings for numbers are wrong: " + bad.sentence;
    }
    if (!remark.empty()) notes.line(remark);
}

}  // namespace pimcall
