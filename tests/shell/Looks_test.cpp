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
