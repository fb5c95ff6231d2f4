#include "bench/Row.h"

#include <algorithm>
#include <cstdio>

namespace corvane::bench {

void printRow(std::string_view figure, double value, std::string_view unit, std::string_view goal)
{
    std::printf("%.*s\t%.4g\t%.*s\t%.*s\n", static_cast<int>(figure.size()), figure.data(), value,
        static_cast<int>(unit.size()), unit.data(), static_cast<int>(goal.size()), goal.data());
    std::fflush(stdout);
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

} // namespace corvane::bench
