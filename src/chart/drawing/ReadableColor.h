// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace chart {

/// The wanted colour where text in it can be read on the background, otherwise black or white.
///
/// Readable is a contrast of at least 3, which WCAG 2.1 (1.4.11) asks of graphical objects.
QColor readableOn(const QColor& background, const QColor& wanted);

} // namespace chart
