#include "automation/OutlookFaults.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelbar {
namespace {

constexpr int kItemGone = 1, kServerGone = 2, kBusy = 4, kOutlookFailed = 8, kStarting = 16,
              kNotInstalled = 32;

TEST(OutlookFaults, EveryNumberSaysOneThing) {
    const struct {
        int says;
        std::vector<unsigned long> numbers;
    } kCases[] = {
        {kItemGone, {0x8004010F, 0xC1F4010F, 0x80040107, 0x80040201, 0x8004010A}},
        {kServerGone | kOutlookFailed,
         {462, 0x80010007, 0x80010012, 0x80010108, 0x800706B5, 0x800706BE, 0x800706BF, 0x800403E9}},
        {kBusy | kOutlookFailed, {0x80010001, 0x8001010A}},
        {kStarting | kOutlookFailed, {0x80080005}},
        {kNotInstalled | kOutlookFailed, {429}},
        {kOutlookFailed, {0x80010005, 0x800706C6, 7, 0x80040115, 0x8004011C, 0xC1F4011D}},
        {0, {0, 70, 91, 438, 0x80010105, 0x80004005, 0x80070057, 0x8007000E, 0x0004010F, 0xA72300FC}},
    };
    for (const auto& c : kCases)
        for (const unsigned long number : c.numbers) {
            const Fault fault{static_cast<long>(number), {}, {}};
            const int says = (saysItemGone(fault) ? kItemGone : 0) |
                             (saysServerGone(fault) ? kServerGone : 0) | (saysBusy(fault) ? kBusy : 0) |
                             (saysStarting(fault) ? kStarting : 0) |
                             (saysNotInstalled(fault) ? kNotInstalled : 0) |
                             (saysOutlookFailed(fault) ? kOutlookFailed : 0);
            EXPECT_EQ(says, c.says) << std::hex << number;
        }
}

}  // namespace
}  // namespace zelbar
