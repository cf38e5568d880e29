// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>

/// What the fuzz targets share.
namespace fuzzing {

/// Ends the run where a property does not hold: libFuzzer then keeps the input.
inline void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

/// Takes the processor's time of one input, and at the end of the run tells the longest. A clock on
/// the wall would tell how busy the machine is.
class Stopwatch {
public:
    Stopwatch() = default;
    ~Stopwatch()
    {
        constexpr double mostSeconds = 1.0;
        const double seconds = static_cast<double>(std::clock() - m_start) / CLOCKS_PER_SEC;
        longest().seconds = std::max(longest().seconds, seconds);
        require(seconds <= mostSeconds, "an input takes a second at most");
    }
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    struct Longest {
        double seconds = 0.0;
        Longest() = default;
        ~Longest() { std::fprintf(stderr, "slowest_input_seconds: %.3f\n", seconds); }
        Longest(const Longest&) = delete;
        Longest& operator=(const Longest&) = delete;
    };
    static Longest& longest()
    {
        static Longest longest;
        return longest;
    }

    std::clock_t m_start = std::clock();
};

/// Any double, those at the ends of the format among them as often as those in between.
inline double anyDouble(FuzzedDataProvider& data)
{
    using Limits = std::numeric_limits<double>;
    static constexpr std::array ends = {0.0,
                                        -0.0,
                                        1.0,
                                        -1.0,
                                        10.0,
                                        Limits::max(),
                                        Limits::lowest(),
                                        Limits::min(),
                                        Limits::denorm_min(),
                                        -Limits::denorm_min(),
                                        Limits::epsilon(),
                                        1e-100,
                                        1e15,
                                        9.9999999999999995e14,
                                        Limits::infinity(),
                                        -Limits::infinity(),
                                        Limits::quiet_NaN()};
    switch (data.ConsumeIntegralInRange<int>(0, 3)) {
    case 0:
        return ends.at(data.ConsumeIntegralInRange<std::size_t>(0, ends.size() - 1));
    case 1:
        return data.ConsumeIntegral<std::int8_t>();
    case 2:
        return data.ConsumeIntegral<std::int32_t>() / 1000.0;
    default:
        return std::bit_cast<double>(data.ConsumeIntegral<std::uint64_t>());
    }
}

/// The same, 0 for what is not finite.
inline double anyFinite(FuzzedDataProvider& data)
{
    const double value = anyDouble(data);
    return std::isfinite(value) ? value : 0.0;
}

} // namespace fuzzing
