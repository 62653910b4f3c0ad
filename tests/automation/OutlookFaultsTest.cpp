#include <gtest/gtest.h>

#include "automation/OutlookFaults.h"

namespace zelbar {
namespace {

constexpr int kItemGone = 1, kServerGone = 2, kBusy = 4, kOutlookFailed = 8, kStarting = 16,
              kNotInstalled = 32;
constexpr int kDead = kServerGone | kOutlookFailed;

TEST(OutlookFaults, EveryNumberSaysOneThing) {
    constexpr struct {
        unsigned long number;
        int says;
    } kCases[] = {
        {0x8004010F, kItemGone},
        {0xC1F4010F, kItemGone},
        {0x80040107, kItemGone},
        {0x80040201, kItemGone},
        {0x8004010A, kItemGone},
        {462, kDead},
        {0x80010007, kDead},
        {0x80010012, kDead},
        {0x80010108, kDead},
        {0x800706B5, kDead},
        {0x800706BE, kDead},
        {0x800706BF, kDead},
        {0x800403E9, kDead},
        {0x80010001, kBusy | kOutlookFailed},
        {0x8001010A, kBusy | kOutlookFailed},
        {0x80010005, kOutlookFailed},
        {0x800706C6, kOutlookFailed},
        {7, kOutlookFailed},
        {429, kNotInstalled | kOutlookFailed},
        {0x80040115, kOutlookFailed},
        {0x8004011C, kOutlookFailed},
        {0xC1F4011D, kOutlookFailed},
        {0x80080005, kStarting | kOutlookFailed},
        {0, 0},
        {70, 0},
        {91, 0},
        {438, 0},
        {0x80010105, 0},
        {0x80004005, 0},
        {0x80070057, 0},
        {0x8007000E, 0},
        {0x0004010F, 0},
        {0xA72300FC, 0},
    };
    for (const auto& c : kCases) {
        const Fault fault{static_cast<long>(c.number), {}, {}};
        const int says = (saysItemGone(fault) ? kItemGone : 0) | (saysServerGone(fault) ? kServerGone : 0) |
                         (saysBusy(fault) ? kBusy : 0) | (saysStarting(fault) ? kStarting : 0) |
                         (saysNotInstalled(fault) ? kNotInstalled : 0) |
                         (saysOutlookFailed(fault) ? kOutlookFailed : 0);
        EXPECT_EQ(says, c.says) << std::hex << c.number;
    }
}

}  // namespace
}  // namespace zelbar
