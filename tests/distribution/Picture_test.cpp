// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of C and of M beside kept pictures.
#include "chart/control/RChart.h"
#include "distribution/Frmgraf.h"
#include "distribution/SequenceDistributions.h"
#include "support/ScriptedDialogs.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontInfo>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace {

/// Versions of the font engine set glyphs a little differently, and versions of the painter blend
/// edges differently: single pixels may differ, the picture as a whole may not.
constexpr int sameColour = 48;                // per channel, of 255
constexpr double mostDifferentPixels = 0.006; // of all pixels; the text covers some 4 %
constexpr double mostMeanDifference = 1.0;    // per channel, of 255

struct Difference {
    double pixels; ///< The share of pixels that differ by more than sameColour.
    double mean;   ///< The mean of the differences per channel.
};

Difference differenceOf(const QImage& one, const QImage& other)
{
    qint64 different = 0;
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int red = std::abs(qRed(a) - qRed(b));
            const int green = std::abs(qGreen(a) - qGreen(b));
            const int blue = std::abs(qBlue(a) - qBlue(b));
            sum += red + green + blue;
            different += std::max({red, green, blue}) > sameColour ? 1 : 0;
        }
    }
    const double count = static_cast<double>(one.width()) * one.height();
    return {static_cast<double>(different) / count, static_cast<double>(sum) / (3 * count)};
}

/// Whether the picture is the kept one. Where it is not, it is written to pictures/ beside the test
/// programs; a kept picture is remade by looking at that one and copying it to
/// tests/distribution/data.
::testing::AssertionResult looksAsKept(const QString& name, const QImage& picture)
{
    const QString kept = QStringLiteral(CL_SOURCE_DIR "/tests/distribution/data/") + name;
    const QString actual = QStringLiteral(CL_BINARY_DIR "/bin/pictures/") + name;
    const QImage expected(kept);
    const bool comparable = expected.size() == picture.size();
    const Difference difference =
        comparable ? differenceOf(expected, picture) : Difference{1.0, 255.0};
    if (difference.pixels <= mostDifferentPixels && difference.mean <= mostMeanDifference)
        return ::testing::AssertionSuccess();
    QDir().mkpath(QFileInfo(actual).path());
    picture.save(actual);
    return ::testing::AssertionFailure()
           << kept.toStdString() << " differs in " << 100 * difference.pixels
           << " % of its pixels, on average by " << difference.mean << "; see "
           << actual.toStdString();
}

class Picture : public ::testing::Test {
protected:
    Picture()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        font.setHintingPreference(QFont::PreferNoHinting);
        QApplication::setFont(font);
        QPalette palette;
        palette.setColor(QPalette::Button, QColor(239, 239, 239));
        palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(190, 190, 190));
        QApplication::setPalette(palette);
    }

    static void expectKept(sequence_distributions::Statistic statistic, const QString& letter)
    {
        ASSERT_EQ(QFontInfo(QApplication::font()).family(), QStringLiteral("DejaVu Sans"))
            << "install fonts-dejavu-core";
        ScriptedDialogs dialogs;
        distribution::TGrafica window(dialogs);
        window.setDistribution(
            {sequence_distributions::exactDistribution(statistic),
             QStringLiteral("Distribución exacta de %1 para cuadrados de 3x3").arg(letter),
             letter.toLower()});
        window.ShowDistribution();
        window.resize(544, 375);
        window.show();
        QApplication::processEvents();
        for (const char* name : {"Graph", "Graph2"}) {
            const auto* chart = window.findChild<chart::TRChart*>(QString::fromLatin1(name));
            EXPECT_TRUE(looksAsKept(QStringLiteral("%1_%2.png")
                                        .arg(QString::fromLatin1(name).toLower(), letter.toLower()),
                                    chart->picture(false)));
        }
    }

private:
    UserLocale m_comma{"es_ES"};
};

} // namespace

TEST_F(Picture, ChartsOfC)
{
    expectKept(sequence_distributions::statisticC, QStringLiteral("C"));
}

TEST_F(Picture, ChartsOfM)
{
    expectKept(sequence_distributions::statisticM, QStringLiteral("M"));
}
