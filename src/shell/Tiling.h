// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMdiArea;

namespace shell {

/// Tiles the children of an area: all alike, as Qt does it, or, where that would put some of them
/// beyond the edge, as wide and high as each needs to be, the widest ones in one column. Where that
/// is too little still they stand as Qt puts them, and the area scrolls.
void tile(QMdiArea& area);

} // namespace shell
