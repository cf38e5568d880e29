// SPDX-License-Identifier: GPL-3.0-or-later
// How the windows stand in the frame.
#include "shell/PrincipalFixture.h"

#include <QGroupBox>
#include <QRadioButton>
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
