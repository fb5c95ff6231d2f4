#pragma once

#include <string_view>
#include <vector>

/// What the benchmarks print: one line a figure, columns separated by tabs, which `tools/bench` lays out as
/// one table.
namespace corvane::bench {

/// `goal` says what the figure must hold, or is empty for a figure that only informs.
void printRow(std::string_view figure, double value, std::string_view unit, std::string_view goal = {});

/// The middle of the values, which run-to-run noise hardly moves. There must be at least one.
double median(std::vector<double> values);

} // namespace corvane::bench
