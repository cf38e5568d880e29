// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Allocations that fail by number, in a program linked with ShortAllocations.cpp: every one of the
/// C library's that is made while armed counts, whoever makes it. Under the sanitizers, which keep
/// the C library's for themselves, those of operator new.
namespace short_allocations {

enum class Failing { One, AllFromThere };

/// From now on the `number`th allocation fails (from 1; 0 fails none), and with AllFromThere all
/// behind it.
void arm(long number, Failing failing);

/// @return how many were asked for while armed
long disarm();

} // namespace short_allocations
