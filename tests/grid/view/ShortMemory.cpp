// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/ShortMemory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

std::size_t bytesLeft = unlimited;

} // namespace

ShortMemory::ShortMemory(std::size_t bytes)
{
    bytesLeft = bytes;
}

ShortMemory::~ShortMemory()
{
    bytesLeft = unlimited;
}

void* operator new(std::size_t size)
{
    void* block = size > bytesLeft ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    if (bytesLeft != unlimited)
        bytesLeft -= size;
    return block;
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
