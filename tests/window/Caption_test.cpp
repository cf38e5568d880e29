// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Caption.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <QWindow>

namespace {

QString shownBy(const QString& caption)
{
    QWidget widget;
    widget.setWindowTitle(caption);
    widget.winId();
    return widget.windowHandle()->title();
}

} // namespace

TEST(Caption, ReachesTheWindowSystemWithEveryCharacterOfTheFileName)
{
    for (const char* name : {"a.asc", "[*] x [*][*].asc", "a&b %1 100%.asc", "[*", "*]"}) {
        const QString fileName = QString::fromUtf8(name);
        const QString caption = window::fileCaption(QStringLiteral("Editor"), fileName);
        EXPECT_EQ(shownBy(caption), QStringLiteral("Editor - ") + fileName);
        EXPECT_EQ(window::readCaption(caption), QStringLiteral("Editor - ") + fileName);
    }
}

TEST(Caption, IsReadOnOneLine)
{
    EXPECT_EQ(window::readCaption(QStringLiteral("Editor - a\tb\nc")),
              QStringLiteral("Editor - a b c"));
}
