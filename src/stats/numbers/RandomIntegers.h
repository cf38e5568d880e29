// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

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

} // namespace stats
