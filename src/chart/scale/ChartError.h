// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace chart {

/// What a chart refuses: a date-time axis without dates, or data that it may not share.
class ChartError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace chart
