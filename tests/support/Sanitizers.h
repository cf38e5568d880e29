// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Whether the test runs under the address sanitizer, where everything takes some ten times as
/// long. Large samples are smaller there: it looks for other mistakes than the sample does.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif
#else
constexpr bool isSanitized = false;
#endif
