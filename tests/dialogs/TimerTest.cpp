#include "dialogs/FTimer.h"

#include "tests/dialogs/DialogTest.h"
#include "tests/dialogs/Windows.h"

namespace zelbar {

namespace {

class Timer : public DialogTest {
  protected:
    /// Serves messages for some ticks of the interval.
    void wait() {
        const DWORD start = GetTickCount();
        serveUntil([&] { return GetTickCount() - start > 10 * timer.Interval(); });
    }

    FTimer timer;
    int finds = 0;
};

TEST_F(Timer, TicksOnceAndOnlyForASearch) {
    timer.TimerFind = [this] { ++finds; };
    timer.Interval(10);
    wait();
    EXPECT_EQ(finds, 0) << "not enabled";
    timer.Enabled(true);
    EXPECT_TRUE(serveUntil([this] { return !timer.Enabled(); }));
    EXPECT_EQ(finds, 0) << "not in mode 1";
    timer.Mode = 1;
    timer.Enabled(true);
    EXPECT_TRUE(serveUntil([this] { return finds > 0; }));
    wait();
    EXPECT_EQ(finds, 1);
    timer.TimerFind = [] { throw runtimeFault(fault::kObjectNotSet); };
    timer.Enabled(true);
    EXPECT_TRUE(serveUntil([this] { return !timer.Enabled(); }));
    timer.unload();
    wait();
}

TEST_F(Timer, StandsDisabledBetweenStartUpAndShutDown) {
    connector();
    EXPECT_TRUE(timerForm().isLoaded());
    EXPECT_FALSE(timerForm().Enabled());
    EXPECT_EQ(timerForm().Interval(), 10u);
    finish();
    EXPECT_FALSE(timerForm().isLoaded());
}

}  // namespace

}  // namespace zelbar
