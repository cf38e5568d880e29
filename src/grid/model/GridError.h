// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace grid {

/// What the grid cannot do; what() is the text for the user.
class GridError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace grid
