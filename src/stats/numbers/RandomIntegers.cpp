// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/numbers/RandomIntegers.h"

namespace stats {

RandomIntegers& programIntegers()
{
    static RandomIntegers generator;
    return generator;
}

} // namespace stats
