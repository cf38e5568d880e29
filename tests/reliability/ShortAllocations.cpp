// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/ShortAllocations.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

bool armed = false;
long asked = 0;
long failingNumber = 0;
bool goesOn = false;

bool isRefused()
{
    if (!armed)
        return false;
    ++asked;
    return failingNumber > 0 && (asked == failingNumber || (goesOn && asked > failingNumber));
}

} // namespace

namespace short_allocations {

void arm(long number, Failing failing)
{
    asked = 0;
    failingNumber = number;
    goesOn = failing == Failing::AllFromThere;
    armed = true;
}

long disarm()
{
    armed = false;
    return asked;
}

} // namespace short_allocations

#ifdef __SANITIZE_ADDRESS__
#define CL_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CL_SANITIZED
#endif
#endif

#ifdef CL_SANITIZED

void* operator new(std::size_t size)
{
    void* block = isRefused() ? nullptr : std::malloc(size == 0 ? 1 : size);
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

#else

// The C library's own, under the names that it keeps for those who replace them. operator new asks
// malloc().
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) noexcept
{
    if (isRefused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    if (isRefused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) noexcept
{
    if (isRefused()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(block, size);
}
}

#endif
