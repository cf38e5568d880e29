// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

/// Colours that have to be told from one another.
namespace color {

/// How well two colours can be told apart, from 1 for the same to 21 for black and white: the
/// contrast ratio of the Web Content Accessibility Guidelines 2.1, with the bend of IEC 61966-2-1.
/// Transparency does not count.
double contrast(const QColor& one, const QColor& other);

/// A colour on the way from `from`, share 0, to `to`, share 1.
QColor mixture(const QColor& from, const QColor& to, double share);

} // namespace color
