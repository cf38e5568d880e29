// SPDX-License-Identifier: GPL-3.0-or-later
// The chart as a picture, on the clipboard and in a file.
#include "base/SafeFile.h"
#include "chart/control/RChart.h"
#include "chart/drawing/ChartDrawing.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>

namespace chart {

namespace {

QString noSizeReason()
{
    return QStringLiteral("La gráfica no tiene tamaño.");
}

} // namespace

QImage TRChart::picture(bool whiteBackground) const
{
    QImage image(size(), QImage::Format_RGB32); // opaque, at one pixel per logical pixel
    if (image.isNull())
        return image;
    ChartContents contents = m_contents;
    if (whiteBackground) {
        contents.style.chartColor = Qt::white;
        contents.style.windColor = Qt::white;
    }
    QPainter painter(&image);
    drawChart(painter, contents, items(), measure(contents, size(), font()), palette());
    return image;
}

std::optional<QString> TRChart::CopyToClipboardBitmap(bool whiteBackground) const
{
    const QImage image = picture(whiteBackground);
    if (image.isNull())
        return noSizeReason();
    QGuiApplication::clipboard()->setImage(image);
    return std::nullopt;
}

std::optional<QString> TRChart::SaveAsBitmap(const QString& fileName, bool whiteBackground) const
{
    const QImage image = picture(whiteBackground);
    if (image.isNull())
        return noSizeReason();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "BMP"))
        return QStringLiteral("No hay memoria para el mapa de bits.");
    return base::writeFile(bitmapFileName(fileName), bytes);
}

QString TRChart::bitmapFileName(const QString& chosen)
{
    const QFileInfo info(chosen);
    const QString name = info.fileName().section(QLatin1Char('.'), 0, 0) + QStringLiteral(".bmp");
    // Of a bare name the path is ".", which the user did not write.
    return chosen.contains(QLatin1Char('/')) ? QDir(info.path()).filePath(name) : name;
}

} // namespace chart
