// SPDX-License-Identifier: GPL-3.0-or-later
// Closing the frame: everybody is asked before anybody goes.
#include "shell/PrincipalFixture.h"

#include "support/CellTyping.h"

#include <QTableView>
#include <QTest>

namespace {

/// Where and how a child lies.
struct Lie {
    QWidget* child;
    QRect normalPlace;
    Qt::WindowStates state;

    bool operator==(const Lie&) const = default;
};

class Leaving : public Principal {
protected:
    /// The children from the undermost to the one on top.
    std::vector<Lie> lies()
    {
        std::vector<Lie> result;
        for (const QMdiSubWindow* place : area().subWindowList(QMdiArea::StackingOrder)) {
            const Qt::WindowStates state = place->windowState() & ~Qt::WindowActive;
            result.push_back(
                {place->widget(), state == Qt::WindowNoState ? place->geometry() : QRect(), state});
        }
        return result;
    }

    QWidget* active() { return area().activeSubWindow()->widget(); }

    void openAnalysis(const char* name)
    {
        dialogs.openAnswers.push_back(sample(name));
        frame.AnlisisdeDatos1Click();
    }

    void forget() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

} // namespace

TEST_F(Leaving, AsksEveryUnsavedEditorAndOneThatStaysKeepsThemAll)
{
    frame.NuevoArchivo1Click();
    openSample("orden3.asc");
    frame.NuevoArchivo1Click();

    dialogs.yesNoAnswers = {false, true};
    dialogs.saveAnswers = {std::nullopt}; // asked for a name, the user thinks again
    EXPECT_FALSE(frame.close());
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(dialogs.questions.size(), 2U);
    forget();
    EXPECT_EQ(children().size(), 3);

    // An answer given in vain does not count the next time.
    dialogs.yesNoAnswers = {false, false};
    EXPECT_TRUE(frame.close());
    EXPECT_FALSE(frame.isVisible());
    EXPECT_EQ(dialogs.questions.size(), 4U);
    forget();
    EXPECT_TRUE(children().isEmpty());
}

TEST_F(Leaving, TheFirstThatStaysIsTheLastAsked)
{
    for (int i = 0; i < 3; ++i)
        frame.NuevoArchivo1Click();
    dialogs.yesNoAnswers = {true};
    dialogs.saveAnswers = {std::nullopt};
    EXPECT_FALSE(frame.close());
    EXPECT_EQ(dialogs.questions.size(), 1U);
    EXPECT_EQ(dialogs.saveRequests.size(), 1U);
}

TEST_F(Leaving, TheEditorThatAsksIsInFront)
{
    for (int i = 0; i < 3; ++i)
        frame.NuevoArchivo1Click();
    openAnalysis("orden3.asc"); // maximised, above them all
    QList<QWidget*> editors;
    for (const QMdiSubWindow* place : children().first(3))
        editors.append(place->widget());
    area().subWindowList().at(1)->showMinimized();

    QList<QWidget*> seen;
    dialogs.whenAskedYesNo = [&] {
        seen.append(active());
        EXPECT_EQ(area().subWindowList(QMdiArea::StackingOrder).last()->widget(), active());
        EXPECT_FALSE(area().activeSubWindow()->isMinimized());
    };
    dialogs.yesNoAnswers = {false, false, false};
    EXPECT_TRUE(frame.close());
    EXPECT_EQ(QSet<QWidget*>(seen.begin(), seen.end()),
              QSet<QWidget*>(editors.begin(), editors.end()));
}

TEST_F(Leaving, GivenUpLeavesEveryWindowAsItWas)
{
    for (int i = 0; i < 4; ++i)
        frame.NuevoArchivo1Click();
    frame.Cascada1Click();
    children().at(2)->showMinimized();
    for (const bool withAnalysis : {false, true}) {
        if (withAnalysis)
            openAnalysis("orden3.asc");
        else
            area().setActiveSubWindow(children().at(1));
        QWidget* const before = active();
        const std::vector<Lie> liesBefore = lies();
        dialogs.yesNoAnswers = {false, false, false, true};
        dialogs.saveAnswers = {std::nullopt};
        EXPECT_FALSE(frame.close());
        forget();
        EXPECT_EQ(active(), before);
        EXPECT_EQ(lies(), liesBefore) << (withAnalysis ? "with" : "without") << " an analysis";
        EXPECT_TRUE(dialogs.yesNoAnswers.empty()) << "all four editors were asked";
    }
    EXPECT_TRUE(area().activeSubWindow()->isMaximized());
}

TEST_F(Leaving, ARefusedCellEndsItWithTheCellOpen)
{
    frame.NuevoArchivo1Click();
    frame.NuevoArchivo1Click();
    auto* table = active()->findChild<QTableView*>(QStringLiteral("Datos"));
    typeIntoCurrentCell(*table, QStringLiteral("1..2"));
    EXPECT_FALSE(frame.close());
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("CellEditor"));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    dialogs.yesNoAnswers = {false, false};
    EXPECT_TRUE(frame.close());
}

TEST_F(Leaving, AnEditorThatClosesAloneIsInFrontWhenItAsks)
{
    frame.NuevoArchivo1Click();
    frame.NuevoArchivo1Click();
    QMdiSubWindow* behind = children().at(0);
    ASSERT_NE(area().activeSubWindow(), behind);
    dialogs.whenAskedYesNo = [&] { EXPECT_EQ(area().activeSubWindow(), behind); };
    dialogs.yesNoAnswers = {false};
    EXPECT_TRUE(behind->close());
    EXPECT_EQ(dialogs.questions.size(), 1U);
}
