#include "benchmark/Aims.h"

#include <cstdio>

namespace benchmark {

namespace {

int reachedAims = 0;
int missedAims = 0;

}  // namespace

std::string shown(double figure) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", figure);
    return text;
}

void reportAim(const std::string& aim, const std::string& figure, bool reached) {
    ++(reached ? reachedAims : missedAims);
    std::printf("%s: %s: %s\n", reached ? "Reached" : "MISSED", aim.c_str(), figure.c_str());
    std::fflush(stdout);
}

void reportAim(const std::string& aim, double figure, double most, const char* unit) {
    reportAim(aim + " at most " + shown(most) + unit, shown(figure) + unit, figure <= most);
}

std::string countedAims() {
    return std::to_string(reachedAims) + " aims reached, " + std::to_string(missedAims) + " missed";
}

}  // namespace benchmark
