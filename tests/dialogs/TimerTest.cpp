#include "dialogs/FTimer.h"

#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

using Timer = DialogTest;

TEST_F(Timer, TicksOnceAndOnlyForASearch) {
    FTimer& timer = timerForm();
    connector();
    EXPECT_EQ(timer.Interval(), 10u);
    EXPECT_FALSE(timer.Enabled());
    int finds = 0;
    timer.TimerFind = [&] { ++finds; };
    for (const int mode : {0, 1}) {
        timer.Mode = mode;
        timer.Enabled(true);
        EXPECT_TRUE(serveUntil([&] { return !timer.Enabled(); }));
        const DWORD start = GetTickCount();
        serveUntil([&] { return GetTickCount() - start > 10 * timer.Interval(); });
        EXPECT_EQ(finds, mode);
    }
    finish();
    EXPECT_FALSE(timer.isLoaded());
    timer.TimerFind = nullptr;
}

}  // namespace

}  // namespace zelbar
