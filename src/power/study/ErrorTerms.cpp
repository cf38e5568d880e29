// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/study/ErrorTerms.h"

#include <cmath>

namespace power {

double ErrorDraw(ErrorKind kind, double uniform, double shift)
{
    switch (kind) {
    case ErrorKind::Uniform:
        return uniform + shift;
    case ErrorKind::Exponential:
        return -std::log10(uniform) + shift;
    case ErrorKind::Triangular:
        return (1.0 - std::sqrt(uniform)) + shift;
    }
    throw ImpossibleSetting();
}

} // namespace power
