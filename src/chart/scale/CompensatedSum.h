// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

namespace chart {

/// A running sum that carries the digits which each addition would lose.
///
/// Neumaier: Rundungsfehleranalyse einiger Verfahren zur Summation endlicher Summen, ZAMM 54
/// (1974).
class CompensatedSum {
public:
    void add(double term)
    {
        const double sum = m_sum + term;
        m_lost += std::abs(m_sum) >= std::abs(term) ? (m_sum - sum) + term : (term - sum) + m_sum;
        m_sum = sum;
    }
    double value() const { return m_sum + m_lost; }

private:
    double m_sum = 0.0;
    double m_lost = 0.0;
};

} // namespace chart
