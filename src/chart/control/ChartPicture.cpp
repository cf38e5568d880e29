// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/control/ChartPicture.h"

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

QImage chartPicture(ChartContents contents, const ItemList& items, const ChartGeometry& geometry,
                    QPalette palette, bool whiteBackground)
{
    QImage image(geometry.size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    if (whiteBackground) {
        contents.style.chartColor = Qt::white;
        contents.style.windColor = Qt::white;
        palette.setColor(QPalette::Button, Qt::white); // what a shadow falls on
    }
    QPainter painter(&image);
    drawChart(painter, contents, items, geometry, palette);
    return image;
}

std::optional<QString> copyPicture(const QImage& picture)
{
    if (picture.isNull())
        return noSizeReason();
    QGuiApplication::clipboard()->setImage(picture);
    return std::nullopt;
}

base::Outcome<base::WrittenFile> writePicture(const QString& fileName, const QImage& picture)
{
    using Written = base::Outcome<base::WrittenFile>;
    if (picture.isNull())
        return Written::refused(noSizeReason());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "BMP"))
        return Written::refused(QStringLiteral("No hay memoria para el mapa de bits."));
    return base::replaceFile(fileName, bytes);
}

QString bitmapFileName(const QString& chosen)
{
    const QFileInfo info(chosen);
    const QString name = info.fileName().section(QLatin1Char('.'), 0, 0) + QStringLiteral(".bmp");
    // Of a bare name the path is ".", which the user did not write.
    return chosen.contains(QLatin1Char('/')) ? QDir(info.path()).filePath(name) : name;
}

} // namespace chart
