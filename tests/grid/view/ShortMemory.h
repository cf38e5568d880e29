// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// While it lives, operator new hands out no more than some bytes in all, blocks given back not
/// counted. For a program linked with ShortMemory.cpp, which brings an operator new of its own.
class ShortMemory {
public:
    explicit ShortMemory(std::size_t bytes);
    ~ShortMemory();
    ShortMemory(const ShortMemory&) = delete;
    ShortMemory& operator=(const ShortMemory&) = delete;
};
