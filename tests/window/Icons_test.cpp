// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Icons.h"

#include <QApplication>
#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace {

constexpr int pictureCount = static_cast<int>(window::Picture::Close) + 1;
constexpr std::array sizes{16, 24, 48};

/// What the eye needs to tell a picture's lines from the ground: a contrast of 3 to 1 (Web Content
/// Accessibility Guidelines 2.1, 1.4.11), in enough of the picture. Outlines and accents are a
/// third of it or more; the rest is the paper that they enclose, as light or dark as the ground.
constexpr double legibleContrast = 3.0;
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

double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The contrast ratio of the Web Content Accessibility Guidelines 2.1: 1 to 21.
double contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
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
