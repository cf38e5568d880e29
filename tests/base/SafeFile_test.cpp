// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "support/FileSizeLimit.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

class SafeFile : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    QStringList entries() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(SafeFile, WritesAndReadsBackWholeFiles)
{
    const QByteArray bytes("uno\r\n\0dos", 9);
    EXPECT_EQ(base::writeFile(path("ñandú.txt"), bytes), std::nullopt);
    EXPECT_EQ(base::readFile(path("ñandú.txt")), bytes);
    EXPECT_EQ(base::writeFile(path("ñandú.txt"), QByteArray()), std::nullopt);
    EXPECT_EQ(base::readFile(path("ñandú.txt")), QByteArray());
    EXPECT_EQ(entries().size(), 1);
}

TEST_F(SafeFile, AFailedWriteLeavesTheOldFileWholeAndNoStrayOne)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    for (const int size : {100, 100000}) {
        std::optional<QString> reason;
        {
            const FileSizeLimit full(10);
            reason = base::writeFile(path("a.asc"), QByteArray(size, 'x'));
        }
        ASSERT_TRUE(reason.has_value()) << size;
        EXPECT_FALSE(reason->isEmpty());
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("antes"));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
    }
}

TEST_F(SafeFile, SaysWhyATargetCannotBeWritten)
{
    QDir(path("")).mkdir(QStringLiteral("carpeta"));
    EXPECT_EQ(base::writeFile(path("carpeta"), "x"),
              QStringLiteral("El nombre es el de una carpeta."));
    EXPECT_EQ(base::writeFile(path("no/existe.txt"), "x"), QStringLiteral("La carpeta no existe."));
    EXPECT_EQ(base::writeFile(path("").append(QString(300, QLatin1Char('a'))), "x"),
              QStringLiteral("El nombre del archivo es demasiado largo."));
    ASSERT_EQ(mkfifo(QFile::encodeName(path("tubo")).constData(), 0600), 0);
    EXPECT_EQ(base::writeFile(path("tubo"), "x"),
              QStringLiteral("El nombre no es el de un archivo corriente."));
    EXPECT_EQ(entries(), QStringList({QStringLiteral("carpeta"), QStringLiteral("tubo")}));

    const auto inProc = base::writeFile(QStringLiteral("/proc/cuadrado.asc"), "x");
    ASSERT_TRUE(inProc.has_value());
    EXPECT_FALSE(inProc->contains(QStringLiteral("espacio")))
        << "it has no disk that could be full";
}

TEST_F(SafeFile, OnlyOrdinaryFilesAreRead)
{
    EXPECT_EQ(base::readFile(path("nada")), std::nullopt);
    EXPECT_EQ(base::readFile(path("")), std::nullopt);
    ASSERT_EQ(mkfifo(QFile::encodeName(path("tubo")).constData(), 0600), 0);
    EXPECT_EQ(base::readFile(path("tubo")), std::nullopt);
}
