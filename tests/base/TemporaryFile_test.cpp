// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TemporaryFile.h"

#include "base/SavingFixture.h"
#include "support/FailingCalls.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>

namespace {

using base::TemporaryFile;

class TemporaryFiles : public Saving {
protected:
    /// A file for this name, whole, with a name of its own.
    void make(TemporaryFile& file, TemporaryFile::Kind kind) const
    {
        ASSERT_EQ(file.create(kind, 0600), 0);
        ASSERT_EQ(file.write("nuevo"), 0);
        ASSERT_EQ(file.settle(), 0);
        ASSERT_EQ(file.takeName(), 0);
    }
    QByteArray bytes() const { return base::readFile(path("a.asc")).value_or(QByteArray()); }

    const base::Descriptor m_folderOfFiles{open(folder().c_str(), O_RDONLY | O_DIRECTORY)};
};

} // namespace

TEST_F(TemporaryFiles, DoNotTakeANameThatSomebodyElseTookMeanwhile)
{
    for (const auto kind : {TemporaryFile::Kind::Unnamed, TemporaryFile::Kind::Named}) {
        {
            TemporaryFile file(m_folderOfFiles.number(), "a.asc");
            make(file, kind);
            ASSERT_EQ(base::writeFile(path("a.asc"), "de otro"), std::nullopt);
            EXPECT_EQ(file.takePlace(TemporaryFile::Place::New), EEXIST);
        }
        EXPECT_EQ(bytes(), QByteArray("de otro"));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
        ASSERT_TRUE(QFile::remove(path("a.asc")));
    }
}

TEST_F(TemporaryFiles, TakeTheirPlaceWhereTheFileSystemCannotTellThatItIsTaken)
{
    for (const int error : {EINVAL, ENOSYS}) {
        TemporaryFile file(m_folderOfFiles.number(), "a.asc");
        make(file, TemporaryFile::Kind::Unnamed);
        const failing::Disk older(folder(), {1, error, failing::Fault::Once, "renameat2"});
        EXPECT_EQ(file.takePlace(TemporaryFile::Place::New), 0);
        EXPECT_EQ(bytes(), QByteArray("nuevo"));
        ASSERT_TRUE(QFile::remove(path("a.asc")));
    }
}
