// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileTarget.h"

#include <gtest/gtest.h>

TEST(FileTarget, OfANameInTheRootIsTheRoot)
{
    const auto found = base::findTarget(QStringLiteral("/ningún archivo.asc"));
    ASSERT_TRUE(found.value);
    EXPECT_EQ(found.value->folder, "/.");
    EXPECT_EQ(found.value->name, QStringLiteral("ningún archivo.asc").toUtf8());
}

TEST(FileTarget, OfANameWithoutAFolderIsTheCurrentOne)
{
    const auto found = base::findTarget(QStringLiteral("ningún archivo.asc"));
    ASSERT_TRUE(found.value);
    EXPECT_EQ(found.value->path(), QStringLiteral("./ningún archivo.asc").toUtf8());
}
