// SPDX-License-Identifier: GPL-3.0-or-later
// How the windows stand in the frame.
#include "shell/PrincipalFixture.h"

#include "support/Contrast.h"

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace {

class Looks : public Principal {
protected:
    QWidget& child() { return *area().activeSubWindow()->widget(); }
    template <typename Control>
    Control* find(const char* name)
    {
        return child().findChild<Control*>(QString::fromLatin1(name));
    }
    void openAnalysis()
    {
        dialogs.openAnswers.push_back(sample("orden3.asc"));
        frame.AnlisisdeDatos1Click();
    }
    /// All children are within the area, and none covers another.
    void expectTiled()
    {
        frame.Mosaico1Click();
        QApplication::processEvents();
        for (const QMdiSubWindow* one : children()) {
            const std::string kind = one->widget()->objectName().toStdString();
            EXPECT_TRUE(area().viewport()->rect().contains(one->geometry()))
                << kind << " among " << children().size();
            for (const QMdiSubWindow* other : children())
                EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
                    << kind << " among " << children().size();
        }
    }
    void openGraph()
    {
        find<QRadioButton>("RadioGroup1Item2")->click();
        find<QToolButton>("SpeedButton1")->click();
        find<QToolButton>("ve")->click();
    }
};

} // namespace

TEST_F(Looks, TheOptionsKeepTheirWidthFromTestToTest)
{
    openAnalysis();
    const auto* options = find<QGroupBox>("GroupBox1");
    const int width = options->width();
    for (const char* approach : {"RadioGroup1Item1", "RadioGroup1Item2", "RadioGroup1Item0"}) {
        QTest::mouseClick(find<QRadioButton>(approach), Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(options->width(), width) << approach;
    }
    area().activeSubWindow()->showNormal();
    area().activeSubWindow()->resize(300, 400); // where the window scrolls
    QApplication::processEvents();
    EXPECT_EQ(options->width(), width);
}

TEST_F(Looks, TableAndReportAreOfOnePaperOnADarkDesktop)
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(49, 54, 59), QColor(49, 54, 59)));
    openAnalysis();
    const auto* table = find<QTableView>("Datos");
    const auto* report = find<QPlainTextEdit>("Reporte");
    for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Highlight}) {
        const QColor color = report->palette().color(ground);
        EXPECT_EQ(color, table->palette().color(ground));
        EXPECT_GE(contrast(report->palette().color(QPalette::Text), color), 7.0);
    }
    QApplication::setPalette(before);
}

TEST_F(Looks, TiledChildrenStandSideBySideOnASmallScreen)
{
    frame.resize(1280, 780);
    openAnalysis();
    openGraph();
    frame.ClculodePotencia1Click();
    expectTiled();
    for (int editors = 1; editors <= 2; ++editors) {
        frame.NuevoArchivo1Click();
        expectTiled();
    }
    openAnalysis();
    expectTiled();
    area().activeSubWindow()->showMinimized();
    expectTiled();
}

TEST_F(Looks, TiledChildrenStandSideBySideInLargeLetters)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(15);
    QApplication::setFont(large);
    frame.resize(1280, 780);
    frame.NuevoArchivo1Click();
    openAnalysis();
    frame.ClculodePotencia1Click();
    expectTiled();
    QApplication::setFont(before);
}
