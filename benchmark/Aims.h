#pragma once

#include <string>

namespace benchmark {

/// How much is measured: everything, or smaller sizes and fewer rounds for a first look.
struct Scale {
    bool isQuick = false;

    /// The size or number of rounds for this run.
    long operator()(long whole, long quick) const { return isQuick ? quick : whole; }
};

/// One line below a table: an aim, the figure that was measured, and whether it is reached.
void reportAim(const std::string& aim, double figure, double most, const char* unit = "");
void reportAim(const std::string& aim, const std::string& figure, bool reached);

/// How many aims were reached and missed so far, as a sentence.
std::string countedAims();

/// A figure with two digits behind the point.
std::string shown(double figure);

}  // namespace benchmark
