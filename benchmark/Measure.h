#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace benchmark {

/// Times of the runs of one thing, in microseconds.
class Times {
  public:
    template <class Run>
    void measure(Run&& run) {
        const double before = now();
        run();
        values_.push_back(now() - before);
    }

    double median() const {
        std::vector<double> sorted = values_;
        const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        return *middle;
    }
    double least() const { return *std::min_element(values_.begin(), values_.end()); }
    /// What is left of each run without the other's run of the same round.
    Times without(const Times& other) const {
        Times result = *this;
        for (size_t i = 0; i < result.values_.size(); ++i) result.values_[i] -= other.values_[i];
        return result;
    }
    /// The median of what is left of each run over the other's run of the same round.
    double ratioTo(const Times& other) const {
        Times result = *this;
        for (size_t i = 0; i < result.values_.size(); ++i) result.values_[i] /= other.values_[i];
        return result.median();
    }
    double total() const {
        double sum = 0;
        for (const double value : values_) sum += value;
        return sum;
    }
    size_t count() const { return values_.size(); }

    /// "120 (97 - 310)": median, least and most.
    std::string text() const {
        const auto [least, most] = std::minmax_element(values_.begin(), values_.end());
        char buffer[96];
        std::snprintf(buffer, sizeof buffer, "%.0f (%.0f - %.0f)", median(), *least, *most);
        return buffer;
    }

  private:
    static double now() {
        LARGE_INTEGER ticks, frequency;
        QueryPerformanceCounter(&ticks);
        QueryPerformanceFrequency(&frequency);
        return static_cast<double>(ticks.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
    }

    std::vector<double> values_;
};

/// Several things in turns, so that what else the machine does falls on all of them: 15 rounds to warm up,
/// then 300 rounds, or fewer (but 31) when they take more than four seconds.
template <class... Runs>
std::array<Times, sizeof...(Runs)> inTurns(Runs&&... runs) {
    constexpr int kWarmUp = 15;
    constexpr size_t kMost = 300, kLeast = 31;
    constexpr double kEnough = 4e6;
    for (int i = 0; i < kWarmUp; ++i) (runs(), ...);
    std::array<Times, sizeof...(Runs)> times;
    double spent = 0;
    while (times[0].count() < kMost && (times[0].count() < kLeast || spent < kEnough)) {
        size_t i = 0;
        (times[i++].measure(runs), ...);
        spent = 0;
        for (const Times& one : times) spent += one.total();
    }
    return times;
}

}  // namespace benchmark
