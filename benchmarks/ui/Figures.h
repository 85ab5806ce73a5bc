#pragma once

#include <vector>

namespace ovrin {

/// Milliseconds of the processor that this thread has used so far.
double threadMilliseconds();
double median(std::vector<double> values);
/// Prints the median, the 95th and 99th percentile and the largest of `times`.
void report(const char* what, std::vector<double> times, const char* unit = "ms");

} // namespace ovrin
