// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/RefusedBlock.h"

#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t largeBlock = 16 * 1024;

int blocksLeft = 0; ///< Until the one that is refused, which is 1; none is at 0 and below.
bool refused = false;

} // namespace

RefusedBlock::RefusedBlock(int number)
{
    refused = false;
    blocksLeft = number;
}

RefusedBlock::~RefusedBlock()
{
    blocksLeft = 0;
}

bool RefusedBlock::wasRefused() const
{
    return refused;
}

void* operator new(std::size_t size)
{
    if (blocksLeft > 0 && size >= largeBlock && --blocksLeft == 0) {
        refused = true;
        throw std::bad_alloc();
    }
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
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
