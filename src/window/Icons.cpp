// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Icons.h"

#include "window/IconDrawing.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace window {

namespace {

constexpr float disabledOpacity = 0.4F;

/// Draws a picture at the size and in the palette of the moment.
class PictureEngine : public QIconEngine {
public:
    explicit PictureEngine(Picture picture)
        : m_picture(picture)
    {
    }

    QIconEngine* clone() const override { return new PictureEngine(*this); }

    /// `size` is in pixels of the screen.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        const int side = std::min(size.width(), size.height());
        painter.translate(QPoint((size.width() - side) / 2, (size.height() - side) / 2));
        PixelCanvas canvas(painter, side);
        drawPicture(canvas, m_picture, QGuiApplication::palette());
        if (mode == QIcon::Disabled) {
            painter.resetTransform();
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            painter.fillRect(pixmap.rect(), QColor::fromRgbF(0, 0, 0, disabledOpacity));
        }
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatio();
        QPixmap pixels = pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state);
        pixels.setDevicePixelRatio(scale);
        painter->drawPixmap(rect.topLeft(), pixels);
    }

    /// The sizes that a desktop asks a window's icon for.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {96, 96}};
    }

private:
    Picture m_picture;
};

} // namespace

QIcon icon(Picture picture)
{
    return QIcon(new PictureEngine(picture));
}

} // namespace window
