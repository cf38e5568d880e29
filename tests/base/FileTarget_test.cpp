// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileTarget.h"

#include "base/SavingFixture.h"
#include "support/FailingCalls.h"

#include <gtest/gtest.h>

#include <QFile>

#include <cerrno>

namespace {

using FileTarget = Saving;

} // namespace

TEST_F(FileTarget, OfANameInTheRootIsTheRoot)
{
    const auto found = base::findTarget(QStringLiteral("/ningún archivo.asc"));
    ASSERT_TRUE(found.value);
    EXPECT_EQ(found.value->folder, "/.");
    EXPECT_EQ(found.value->name, QStringLiteral("ningún archivo.asc").toUtf8());
}

TEST_F(FileTarget, OfANameWithoutAFolderIsTheCurrentOne)
{
    const auto found = base::findTarget(QStringLiteral("ningún archivo.asc"));
    ASSERT_TRUE(found.value);
    EXPECT_EQ(found.value->path(), QStringLiteral("./ningún archivo.asc").toUtf8());
}

// As the system does with a stranger's link in a folder where everybody may write.
TEST_F(FileTarget, IsNotBehindALinkThatTheSystemDoesNotFollow)
{
    for (const char* name : {"a.asc", "missing.asc"}) {
        ASSERT_TRUE(QFile::link(path(name), path("link.asc")));
        ASSERT_TRUE(base::findTarget(path("link.asc")).value);
        const failing::Disk barred(folder(), {1, EACCES, failing::Fault::Once, "faccessat"});
        EXPECT_EQ(base::findTarget(path("link.asc")).reason,
                  QStringLiteral("El nombre es el de un enlace que el sistema no deja seguir."));
        QFile::remove(path("link.asc"));
    }
}
