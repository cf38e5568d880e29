// SPDX-License-Identifier: GPL-3.0-or-later
// What is seen of controls in a dark theme, and the pictures of dialogs.
#include "shell/Style.h"

#include "support/Contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QStyleOptionTitleBar>

namespace {

const QColor darkGround(49, 54, 59);

/// The program's style on a dark desktop.
class DarkStyle : public ::testing::Test {
protected:
    DarkStyle()
        : before(QApplication::palette())
    {
        QApplication::setStyle(new shell::Style(QStringLiteral("fusion")));
        QPalette dark(darkGround, darkGround);
        QApplication::setPalette(dark);
    }
    ~DarkStyle() override
    {
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(before);
    }

    /// Pixels of a picture that stand out from a ground.
    static int seen(const QImage& image, const QColor& ground)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += contrast(image.pixelColor(x, y), ground) >= legibleContrast ? 1 : 0;
        return count;
    }

    const QPalette before;
};

/// A desktop's style that notes down with which palettes it draws.
class NotingStyle : public QProxyStyle {
public:
    explicit NotingStyle(QSet<qint64>& palettes)
        : QProxyStyle(QStringLiteral("fusion"))
        , m_palettes(palettes)
    {
    }
    void drawControl(ControlElement, const QStyleOption* option, QPainter*,
                     const QWidget*) const override
    {
        m_palettes.insert(option->palette.cacheKey());
    }
    void drawComplexControl(ComplexControl, const QStyleOptionComplex* option, QPainter*,
                            const QWidget*) const override
    {
        m_palettes.insert(option->palette.cacheKey());
    }

private:
    QSet<qint64>& m_palettes;
};

} // namespace

// Qt keeps what it has drawn by the identity of the palette.
TEST(Style, DrawsWhatIsAlikeWithOnePalette)
{
    QSet<qint64> palettes;
    const shell::Style style(new NotingStyle(palettes));
    QPixmap paper(10, 10);
    QPainter painter(&paper);
    const auto draw = [&](const QColor& color) {
        QStyleOptionHeader header;
        header.palette = QPalette(color);
        const qint64 own = header.palette.cacheKey();
        style.drawControl(QStyle::CE_HeaderSection, &header, &painter);
        EXPECT_EQ(header.palette.cacheKey(), own);
        QStyleOptionSlider bar;
        bar.palette = QPalette(color);
        style.drawComplexControl(QStyle::CC_ScrollBar, &bar, &painter);
    };
    for (int window = 0; window < 3; ++window)
        draw(Qt::white);
    EXPECT_EQ(palettes.size(), 1);
    draw(darkGround);
    EXPECT_EQ(palettes.size(), 2);
    for (int color = 0; color < 300; ++color) // more than are remembered
        draw(QColor::fromHsv(color, 200, 200));
    const auto before = palettes.size();
    draw(QColor::fromHsv(299, 200, 200));
    EXPECT_EQ(palettes.size(), before);
}

// A palette knows beside its colours which of them are meant, and is the same with the others.
TEST(Style, DrawsADisabledControlAsDisabledAfterAnEnabledOne)
{
    const shell::Style style(QStringLiteral("fusion"));
    const auto drawn = [&style](QPalette::ColorGroup group, const QPalette& palette) {
        QImage paper(100, 30, QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        QStyleOptionButton button;
        button.rect = paper.rect();
        button.text = QStringLiteral("Guardar");
        button.palette = palette;
        button.palette.setCurrentColorGroup(group);
        style.drawControl(QStyle::CE_PushButtonLabel, &button, &painter);
        EXPECT_EQ(button.palette.currentColorGroup(), group);
        return paper;
    };
    const QPalette red(Qt::red);
    const QPalette blue(Qt::blue);
    const QImage disabledFirst = drawn(QPalette::Disabled, blue);
    const QImage enabled = drawn(QPalette::Active, red);
    EXPECT_NE(drawn(QPalette::Disabled, red), enabled);
    EXPECT_NE(drawn(QPalette::Active, blue), disabledFirst);
    EXPECT_EQ(drawn(QPalette::Active, red), enabled);
}

TEST_F(DarkStyle, ARadioButtonThatIsNotChosenIsSeen)
{
    QRadioButton button;
    button.show();
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRect circle =
        button.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &button);
    EXPECT_GE(seen(button.grab(circle).toImage(), darkGround), circle.width())
        << "a good part of its outline";
}

TEST_F(DarkStyle, TheButtonsOfAChildBehindOthersAreSeen)
{
    QMdiArea area;
    area.resize(800, 500);
    QMdiSubWindow* behind = area.addSubWindow(new QWidget);
    QMdiSubWindow* front = area.addSubWindow(new QWidget);
    area.show();
    behind->setGeometry(0, 0, 300, 200);
    front->setGeometry(400, 0, 300, 200);
    area.setActiveSubWindow(front);
    QStyleOptionTitleBar bar;
    bar.initFrom(behind);
    bar.subControls = QStyle::SC_All;
    bar.titleBarFlags = behind->windowFlags();
    bar.rect = QRect(0, 0, behind->width(),
                     behind->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, behind));
    const QImage picture = behind->grab().toImage();
    for (const QStyle::SubControl control :
         {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
          QStyle::SC_TitleBarCloseButton}) {
        const QRect place =
            behind->style()->subControlRect(QStyle::CC_TitleBar, &bar, control, behind);
        ASSERT_FALSE(place.isEmpty());
        const QImage button = picture.copy(place);
        EXPECT_GE(seen(button, darkGround), 8) << control;
    }
}

TEST_F(DarkStyle, PicturesOfDialogsAreSharpAtEveryScale)
{
    for (const QStyle::StandardPixmap standard :
         {QStyle::SP_MessageBoxCritical, QStyle::SP_MessageBoxQuestion, QStyle::SP_DirIcon,
          QStyle::SP_FileIcon, QStyle::SP_FileDialogToParent, QStyle::SP_FileDialogNewFolder,
          QStyle::SP_FileDialogListView, QStyle::SP_FileDialogDetailedView, QStyle::SP_ArrowBack,
          QStyle::SP_ArrowForward, QStyle::SP_TitleBarCloseButton}) {
        const QIcon icon = QApplication::style()->standardIcon(standard);
        EXPECT_EQ(icon.pixmap(QSize(32, 32), 2.0).size(), QSize(64, 64)) << standard;
    }
}

TEST_F(DarkStyle, ButtonsOfDialogsSayInWordsWhatTheyDo)
{
    QFont large;
    large.setPointSize(20);
    QDialog dialog;
    dialog.setFont(large);
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal,
                               &dialog);
    for (const QAbstractButton* button : box.buttons()) {
        EXPECT_TRUE(button->icon().isNull());
        EXPECT_FALSE(button->text().isEmpty());
        const QFontMetrics letters = button->fontMetrics();
        EXPECT_GE(button->sizeHint().width(),
                  letters.horizontalAdvance(button->text()) + 2 * letters.averageCharWidth());
    }
}
