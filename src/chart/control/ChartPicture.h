// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"
#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ItemList.h"

#include <QImage>
#include <QPalette>

#include <optional>

namespace chart {

/// A chart as an opaque picture of its geometry's size, one pixel for each logical one; null for no
/// size. With a white background the chart's and the window's colour are white in it, and so is
/// what its shadow falls on where that is the palette's.
QImage chartPicture(ChartContents contents, const ItemList& items, const ChartGeometry& geometry,
                    QPalette palette, bool whiteBackground);

/// Puts a picture on the clipboard. @return why it could not, a whole sentence in Spanish
std::optional<QString> copyPicture(const QImage& picture);

/// Writes a picture in the Windows BMP format.
base::Outcome<base::WrittenFile> writePicture(const QString& fileName, const QImage& picture);

/// The name that a chosen one is saved under: its directory, its file name cut before the first
/// ".", and ".bmp".
QString bitmapFileName(const QString& chosen);

} // namespace chart
