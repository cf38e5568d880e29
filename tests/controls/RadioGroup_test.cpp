// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RadioGroup.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

const QStringList threeItems{QStringLiteral("uno"), QStringLiteral("dos"), QStringLiteral("tres")};

QRadioButton* item(const controls::RadioGroup& group, int index)
{
    return group.findChild<QRadioButton*>(QStringLiteral("GrupoItem%1").arg(index));
}

class RadioGroup : public ::testing::Test {
protected:
    controls::RadioGroup group{QStringLiteral("Grupo"), QStringLiteral("Título")};
    QSignalSpy selected{&group, &controls::RadioGroup::selected};
};

} // namespace

TEST_F(RadioGroup, NewItemsAreNotSelected)
{
    EXPECT_EQ(group.itemIndex(), -1);
    group.setItems(threeItems);
    EXPECT_EQ(group.items(), threeItems);
    EXPECT_EQ(group.itemIndex(), -1);
    EXPECT_EQ(group.title(), QStringLiteral("Título"));

    group.setItemIndex(1);
    group.setItems({QStringLiteral("cuatro"), QStringLiteral("cinco")});
    EXPECT_EQ(group.items(), QStringList({QStringLiteral("cuatro"), QStringLiteral("cinco")}));
    EXPECT_EQ(group.itemIndex(), -1);
    EXPECT_EQ(item(group, 2), nullptr);
}

TEST_F(RadioGroup, AnIndexBeyondTheLastItemMeansTheLast)
{
    group.setItemIndex(0); // no items: nothing to select
    EXPECT_EQ(group.itemIndex(), -1);
    group.setItems(threeItems);
    group.setItemIndex(7);
    EXPECT_EQ(group.itemIndex(), 2);
    group.setItemIndex(-1);
    EXPECT_EQ(group.itemIndex(), 2);
    group.setItemIndex(0);
    EXPECT_EQ(group.itemIndex(), 0);
}

TEST_F(RadioGroup, TellsOfEachNewSelectionOnce)
{
    group.setItems(threeItems);
    EXPECT_EQ(selected.count(), 0);
    group.setItemIndex(2);
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.takeFirst().first().toInt(), 2);

    group.show();
    QTest::mouseClick(item(group, 1), Qt::LeftButton);
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.takeFirst().first().toInt(), 1);
    EXPECT_EQ(group.itemIndex(), 1);
    QTest::mouseClick(item(group, 1), Qt::LeftButton);
    EXPECT_EQ(selected.count(), 0) << "selected already";
}

TEST_F(RadioGroup, ArrowKeysSelect)
{
    group.setItems(threeItems);
    group.setItemIndex(0);
    group.show();
    QApplication::setActiveWindow(&group);
    item(group, 0)->setFocus();
    QTest::keyClick(item(group, 0), Qt::Key_Down);
    EXPECT_EQ(group.itemIndex(), 1);
    QTest::keyClick(item(group, 1), Qt::Key_Down);
    EXPECT_EQ(group.itemIndex(), 2);
    QTest::keyClick(item(group, 2), Qt::Key_Up);
    EXPECT_EQ(group.itemIndex(), 1);
}

TEST(RadioGroupInAWindow, NewItemsKeepTheirPlaceInTheTabOrder)
{
    QWidget window;
    QVBoxLayout column(&window);
    QLineEdit before;
    controls::RadioGroup group(QStringLiteral("Grupo"), QStringLiteral("Título"));
    column.addWidget(&before);
    column.addWidget(&group);
    group.setItems({QStringLiteral("uno")});
    QLineEdit after;
    column.addWidget(&after);
    group.setItems(threeItems);
    group.setItemIndex(1);
    window.show();
    QApplication::setActiveWindow(&window);

    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), item(group, 1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &after);
    group.setFocus();
    EXPECT_EQ(QApplication::focusWidget(), item(group, 1));
}

TEST_F(RadioGroup, KeepsRoomForTheItemsToCome)
{
    const QStringList wide{QStringLiteral("uno que es mucho más ancho que los otros tres")};
    group.reserve({wide, threeItems});
    EXPECT_TRUE(group.items().isEmpty());
    group.setItems(wide);
    const QSize low = group.minimumSizeHint();
    group.setItems(threeItems);
    const QSize narrow = group.minimumSizeHint();
    EXPECT_GT(low.width(), narrow.width());
    EXPECT_GT(narrow.height(), low.height());
    EXPECT_EQ(group.minimumSize(), low.expandedTo(narrow));
}

TEST_F(RadioGroup, OnlyTheItemShowsTheFocus)
{
    group.setItems(threeItems);
    group.setItemIndex(0);
    group.show();
    group.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&group));
    item(group, 0)->clearFocus();
    const auto title = [this] { return group.grab(QRect(0, 0, group.width(), 14)).toImage(); };
    const QImage before = title();
    group.setAttribute(Qt::WA_KeyboardFocusChange);
    group.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(item(group, 0)->hasFocus());
    EXPECT_EQ(title(), before);
}
