#include "standin/outlook/mailbox/DateText.h"

#include <charconv>

namespace standin::outlook {
namespace {

Date dateOf(SYSTEMTIME time) {
    time.wMilliseconds = 0;
    double days = 0;
    SystemTimeToVariantTime(&time, &days);
    return {days};
}

}  // namespace

std::wstring textFromNumber(double number) {
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof(buffer), number).ptr;
    return std::wstring(buffer, end);
}

std::wstring textFromDate(Date date) {
    return textFromNumber(date.days);
}

Date dateFromText(const std::wstring& text) {
    const std::string narrow(text.begin(), text.end());
    Date date;
    std::from_chars(narrow.data(), narrow.data() + narrow.size(), date.days);
    return date;
}

Date now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return dateOf(time);
}

Date dayOf(int year, int month, int day) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    return dateOf(time);
}

}  // namespace standin::outlook
