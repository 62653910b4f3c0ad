#include "actions/CallTime.h"

#include <oleauto.h>

#include "automation/Bstr.h"
#include "automation/Fault.h"

namespace zelbar {

namespace {

std::wstring textOfDate(DATE date, ULONG part) {
    Bstr text;
    if (const HRESULT result = VarBstrFromDate(date, LOCALE_USER_DEFAULT, part, text.put()); FAILED(result))
        throw runtimeFault(numberOf(result));
    return text.text();
}

}  // namespace

std::wstring dayText(DATE date) {
    return textOfDate(date, VAR_DATEVALUEONLY);
}

std::wstring timeText(DATE date) {
    return textOfDate(date, VAR_TIMEVALUEONLY);
}

DATE dateFromText(const std::wstring& text) {
    DATE date = 0;
    if (const HRESULT result = VarDateFromStr(Bstr(text).get(), LOCALE_USER_DEFAULT, 0, &date);
        FAILED(result))
        throw runtimeFault(numberOf(result));
    return date;
}

}  // namespace zelbar
