// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace power {

/// Drops the clicks and keys that arrived while the program was too busy to look at them, so that
/// none of them starts anything now.
///
/// The request to close a window is kept: it is carried out once the caller has returned to the
/// event loop. Whatever else has arrived is handled now, painting for example.
void discardPendingInput();

} // namespace power
