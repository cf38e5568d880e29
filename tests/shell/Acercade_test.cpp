// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Acercade.h"

#include <QApplication>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QLabel* picture(const shell::TAcerca& box)
{
    return box.findChild<QLabel*>(QStringLiteral("Image1"));
}

QLabel* line(const shell::TAcerca& box, int number)
{
    return box.findChild<QLabel*>(QStringLiteral("Label%1").arg(number));
}

QByteArray ownPicture()
{
    QFile file(QStringLiteral(CL_SOURCE_DIR "/src/shell/acerca.jpg"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

TEST(Acercade, JpegDecoderIsRegisteredUnderBothItsNames)
{
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    EXPECT_TRUE(formats.contains("jpeg"));
    EXPECT_TRUE(formats.contains("jpg"));
}

TEST(Acercade, PictureIsAJfifImageThatDecodes)
{
    const QByteArray bytes = ownPicture();
    EXPECT_EQ(bytes.left(3), QByteArray("\xFF\xD8\xFF"));
    EXPECT_EQ(bytes.mid(6, 4), QByteArray("JFIF"));

    shell::TAcerca box;
    box.show();
    ASSERT_TRUE(picture(box)->isVisible());
    const QPixmap shown = picture(box)->pixmap(Qt::ReturnByValue);
    EXPECT_EQ(shown.size(), QImage::fromData(bytes).size());
    EXPECT_EQ(shown.devicePixelRatio(), 2.0);
}

TEST(Acercade, SixLinesTheFirstInBoldTheNextTwoNameTheSubject)
{
    shell::TAcerca box;
    box.show();
    for (int number = 1; number <= 6; ++number) {
        ASSERT_NE(line(box, number), nullptr) << number;
        EXPECT_FALSE(line(box, number)->text().isEmpty()) << number;
        EXPECT_EQ(line(box, number)->font().bold(), number == 1) << number;
    }
    EXPECT_EQ(line(box, 7), nullptr);
    EXPECT_TRUE(line(box, 2)->text().contains(QStringLiteral("potencia")));
    EXPECT_TRUE(line(box, 3)->text().contains(QStringLiteral("cuadrado latino")));
}

TEST(Acercade, StaysOnTopBlocksNothingAndOpensInTheMiddleOfTheScreen)
{
    shell::TAcerca box;
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Acerca de"));
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(box.isModal());
    box.show();
    const QPoint off = box.frameGeometry().center() - box.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 4); // what the window's frame adds is known once it is shown
}

TEST(Acercade, ButtonAndEscapeClose)
{
    shell::TAcerca box;
    box.show();
    auto* ok = box.findChild<QPushButton*>(QStringLiteral("BitBtn1"));
    QTest::mouseClick(ok, Qt::LeftButton);
    EXPECT_FALSE(box.isVisible());
    box.show();
    EXPECT_TRUE(picture(box)->isVisible());
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
}

TEST(Acercade, CorruptPictureLeavesTheBoxWithout)
{
    const QByteArray whole = ownPicture();
    const QByteArray withoutItsStart = whole.mid(2);
    const QByteArray withoutItsEnd = whole.left(whole.size() / 2);
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("GIF89a"), withoutItsStart, withoutItsEnd}) {
        shell::TAcerca box(bytes, nullptr);
        box.show();
        EXPECT_FALSE(picture(box)->isVisible()) << bytes.size();
        EXPECT_TRUE(line(box, 1)->isVisible());
    }
}
