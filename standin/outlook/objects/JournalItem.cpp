#include "standin/outlook/objects/JournalItem.h"

#include <cmath>

#include "standin/outlook/mailbox/DateText.h"
#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {
namespace {

constexpr double kMinutesPerDay = 24 * 60;

}  // namespace

JournalItem::JournalItem(std::shared_ptr<Session> session, std::shared_ptr<ItemState> state)
    : Item(std::move(session), ObjectClass::Journal, std::move(state)) {
    if (record().field(L"Start").empty()) {
        const std::wstring moment = textFromDate(now());
        record().fields[L"Start"] = record().fields[L"End"] = moment;
    }
}

const MemberTable& JournalItem::members() const {
    using Self = JournalItem;
    static const MemberTable table(L"JournalItem",
                                   {
                                       property<&Self::textField, &Self::setTextField>(L"Subject", 0x37),
                                       property<&Self::textField, &Self::setTextField>(L"Type", 0x8700),
                                       property<&Self::start, &Self::setStart>(L"Start", 0x8706),
                                       property<&Self::end, &Self::setEnd>(L"End", 0x8708),
                                       property<&Self::duration, &Self::setDuration>(L"Duration", 0x8707),
                                   },
                                   L"Subject", &itemMembers());
    return table;
}

Date JournalItem::start() const {
    return dateFromText(record().field(L"Start"));
}

Date JournalItem::end() const {
    return dateFromText(record().field(L"End"));
}

long JournalItem::duration() const {
    return std::lround((end().days - start().days) * kMinutesPerDay);
}

void JournalItem::store(Date start, Date end) {
    record().fields[L"Start"] = textFromDate(start);
    record().fields[L"End"] = textFromDate(end);
    touch();
}

void JournalItem::setStart(Date date) {
    store(date, {date.days + (end().days - start().days)});
}

void JournalItem::setEnd(Date date) {
    const bool backwards = date.days < start().days;
    if (backwards && server().option(L"JournalEnd") == L"raise") throw badParameter(server());
    const Date begin = backwards ? Date{date.days - (end().days - start().days)} : start();
    store(begin, date);
}

void JournalItem::setDuration(long minutes) {
    if (minutes < 0) throw badParameter(server());
    store(start(), {start().days + static_cast<double>(minutes) / kMinutesPerDay});
}

}  // namespace standin::outlook
