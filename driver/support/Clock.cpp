#include "support/Clock.h"

#include "automation/Bstr.h"

namespace zelbar {

DATE currentDate() noexcept {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    DATE date = 0;
    SystemTimeToVariantTime(&now, &date);
    return date;
}

std::wstring dateText(DATE date) {
    Bstr text;
    if (FAILED(VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, text.put()))) return {};
    return text.text();
}

}  // namespace zelbar
