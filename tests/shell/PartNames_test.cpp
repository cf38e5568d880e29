// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PartNames.h"

#include "support/Text.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSizeGrip>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

using shell::namePart;

namespace {

QString nameOf(QWidget* part)
{
    if (part == nullptr)
        return QStringLiteral("(no such part)");
    namePart(*part);
    return part->accessibleName();
}

} // namespace

TEST(PartNames, ScrollBarsSayWhichWayTheyScroll)
{
    QScrollArea area;
    EXPECT_EQ(nameOf(area.horizontalScrollBar()), QStringLiteral("Desplazamiento horizontal"));
    EXPECT_EQ(nameOf(area.verticalScrollBar()), QStringLiteral("Desplazamiento vertical"));
}

TEST(PartNames, DividerIsNamedAsItsSplitter)
{
    QSplitter splitter;
    splitter.addWidget(new QWidget);
    splitter.addWidget(new QWidget);
    splitter.setAccessibleName(QStringLiteral("Datos y tratamientos"));
    EXPECT_EQ(nameOf(splitter.handle(1)), QStringLiteral("Datos y tratamientos"));
    splitter.handle(1)->setAccessibleName(QString());
    splitter.setAccessibleName(QString());
    EXPECT_EQ(nameOf(splitter.handle(1)), QStringLiteral("Divisor"));
}

TEST(PartNames, MenuIsNamedAsItsTitleWithoutTheKey)
{
    QMenu titled(QStringLiteral("E&ditor"));
    EXPECT_EQ(nameOf(&titled), QStringLiteral("Editor"));
    QMenu untitled;
    EXPECT_EQ(nameOf(&untitled), QStringLiteral("Menú"));
    QMdiArea area;
    EXPECT_EQ(nameOf(area.addSubWindow(new QWidget)->systemMenu()),
              QStringLiteral("Menú de la ventana"));
}

TEST(PartNames, SizeGripAndHiddenButtonsAreNamed)
{
    QWidget window;
    EXPECT_EQ(nameOf(new QSizeGrip(&window)), QStringLiteral("Tamaño de la ventana"));
    QToolBar bar;
    EXPECT_EQ(nameOf(bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))),
              QStringLiteral("Más botones"));
}

TEST(PartNames, NamedPartsAndOtherWidgetsStayAsTheyAre)
{
    QScrollBar level(Qt::Horizontal);
    level.setAccessibleName(QStringLiteral("Nivel"));
    EXPECT_EQ(nameOf(&level), QStringLiteral("Nivel"));
    QWidget filler;
    EXPECT_EQ(nameOf(&filler), QString());
}
