#include "Figures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace ovrin {

namespace {

double percentile(const std::vector<double>& sorted, double part)
{
    const auto at = static_cast<size_t>(part * static_cast<double>(sorted.size()));
    return sorted[std::min(sorted.size() - 1, at)];
}

} // namespace

double threadMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return percentile(values, 0.5);
}

void report(const char* what, std::vector<double> times, const char* unit)
{
    std::sort(times.begin(), times.end());
    std::printf("%-44s 50%% %7.2f  95%% %7.2f  99%% %7.2f  most %7.2f %s  (%zu)\n", what,
                percentile(times, 0.5), percentile(times, 0.95), percentile(times, 0.99), times.back(), unit,
                times.size());
    std::fflush(stdout);
}

} // namespace ovrin
