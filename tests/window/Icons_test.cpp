// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Icons.h"

#include "support/Contrast.h"

#include <QApplication>
#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace {

constexpr int pictureCount = static_cast<int>(window::Picture::Close) + 1;
constexpr std::array sizes{16, 24, 48};

/// Outlines and accents are a third of a picture or more; the rest is the paper that they enclose,
/// as light or dark as the ground.
constexpr double leastLegibleShare = 0.35;

/// The application's palette for the length of a test.
class Theme {
public:
    explicit Theme(const QColor& ground)
        : m_before(QApplication::palette())
    {
        QApplication::setPalette(QPalette(ground, ground));
    }
    ~Theme() { QApplication::setPalette(m_before); }
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;

private:
    QPalette m_before;
};

QImage drawn(int picture, int pixels, QIcon::Mode mode = QIcon::Normal)
{
    const QIcon icon = window::icon(static_cast<window::Picture>(picture));
    return icon.pixmap(QSize(pixels, pixels), 1.0, mode)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

/// The share of the picture's pixels that stand out from the ground.
double legibleShare(const QImage& image, const QColor& ground)
{
    int solid = 0;
    int legible = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() < 255)
                continue;
            ++solid;
            legible += contrast(pixel, ground) >= legibleContrast ? 1 : 0;
        }
    }
    return solid == 0 ? 0.0 : static_cast<double>(legible) / solid;
}

} // namespace

TEST(Icons, AreLegibleOnLightAndDarkAtEverySizeAndScale)
{
    for (const QColor& ground : {QColor(0xef, 0xef, 0xef), QColor(0x32, 0x32, 0x32)}) {
        const Theme theme(ground);
        for (int picture = 0; picture < pictureCount; ++picture)
            for (const int size : sizes)
                for (const int scale : {1, 2})
                    EXPECT_GE(legibleShare(drawn(picture, size * scale), ground), leastLegibleShare)
                        << picture << " at " << size << " x " << scale << " on "
                        << ground.name().toStdString();
    }
}

TEST(Icons, AreDifferentFromEachOtherAtTheSmallestSize)
{
    std::set<QByteArray> pictures;
    for (int picture = 0; picture < pictureCount; ++picture) {
        const QImage image = drawn(picture, sizes.front());
        pictures.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
    }
    EXPECT_EQ(pictures.size(), static_cast<std::size_t>(pictureCount));
}

TEST(Icons, UprightEdgesFallOnWholePixels)
{
    for (const auto picture : {window::Picture::Program, window::Picture::Editor,
                               window::Picture::Analysis, window::Picture::Tile}) {
        for (const int pixels : {16, 24, 32, 48, 96}) {
            const QImage image = drawn(static_cast<int>(picture), pixels);
            for (int y = 0; y < pixels; ++y)
                for (int x = 0; x < pixels; ++x)
                    ASSERT_TRUE(qAlpha(image.pixel(x, y)) == 0 || qAlpha(image.pixel(x, y)) == 255)
                        << static_cast<int>(picture) << " at " << pixels << ": " << x << ", " << y;
        }
    }
}

TEST(Icons, DisabledOnesArePaler)
{
    const QImage normal = drawn(static_cast<int>(window::Picture::Save), 24);
    const QImage disabled = drawn(static_cast<int>(window::Picture::Save), 24, QIcon::Disabled);
    EXPECT_EQ(qAlpha(normal.pixel(12, 12)), 255);
    EXPECT_LT(qAlpha(disabled.pixel(12, 12)), 128);
}
