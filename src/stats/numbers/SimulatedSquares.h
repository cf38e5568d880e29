// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

/// Squares of random numbers, without any effect, and how they show the null distribution of C.
namespace stats {

/// Uniform whole numbers from 0 to 32767: the linear congruential generator that the C standard
/// gives as its example of rand() (ISO/IEC 9899:1990, 7.10.2.2), starting from 1.
class RandomIntegers {
public:
    int next()
    {
        m_state = m_state * 1103515245U + 12345U;
        return static_cast<int>((m_state / 65536U) % 32768U);
    }

private:
    std::uint32_t m_state = 1;
};

/// The one generator of the program. Nothing seeds it: every start of the program draws the same
/// numbers, and each user goes on where the last one stopped.
RandomIntegers& programIntegers();

/// SequenceC() of squares of order n whose observations are drawn one after the other: square after
/// square, row after row. Only the order of observations counts, so each may be the drawn number or
/// any multiple of it.
std::vector<double> sequenceCOfRandomSquares(int n, int squares, RandomIntegers& integers);

/// The null distribution of C as simulated squares show it.
struct SimulatedC {
    static constexpr int squares = 5000;

    double mean = 0.0;
    double variance = 0.0; ///< with divisor squares - 1
    double deviation = 0.0;
};

/// Up to this order C is approximated: 5000 squares take 0.4 s there (x86-64, 2 GHz or more), so
/// some two seconds on a machine five times as slow. The time rises with n^2 log n: minutes at
/// order 1000, which only a file can bring.
constexpr int largestSimulatedOrder = 40;

/// From sequenceCOfRandomSquares() of SimulatedC::squares squares.
SimulatedC simulateC(int n, RandomIntegers& integers);

} // namespace stats
