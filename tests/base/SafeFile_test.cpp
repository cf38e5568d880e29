// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "support/FileSizeLimit.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// What the disk answers instead of doing its work; 0 for a sound disk.
struct DiskErrors {
    int ofSync = 0;
    int ofClose = 0;
};
DiskErrors diskErrors;

/// Whether a descriptor is of a file that is being written, the only ones that a disk can lose.
bool isWritten(int descriptor)
{
    return (fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY;
}

} // namespace

// These stand before the C library's own.

extern "C" int fsync(int descriptor)
{
    if (diskErrors.ofSync == 0)
        return static_cast<int>(syscall(SYS_fsync, descriptor));
    errno = diskErrors.ofSync;
    return -1;
}

extern "C" int close(int descriptor)
{
    const bool fails = diskErrors.ofClose != 0 && isWritten(descriptor);
    const int result = static_cast<int>(syscall(SYS_close, descriptor)); // it closes all the same
    if (!fails)
        return result;
    errno = diskErrors.ofClose;
    return -1;
}

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

TEST_F(SafeFile, WhatDoesNotReachTheDiskIsNotSaved)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    const std::pair<int DiskErrors::*, int> failures[] = {
        {&DiskErrors::ofSync, EIO},  {&DiskErrors::ofSync, ENOSPC},  {&DiskErrors::ofSync, EDQUOT},
        {&DiskErrors::ofClose, EIO}, {&DiskErrors::ofClose, ENOSPC}, {&DiskErrors::ofClose, EDQUOT},
    };
    for (const auto& [call, error] : failures) {
        diskErrors.*call = error;
        const std::optional<QString> reason = base::writeFile(path("a.asc"), "después");
        const std::optional<QString> ofNewFile = base::writeFile(path("b.asc"), "nuevo");
        diskErrors = {};
        ASSERT_TRUE(reason.has_value()) << error;
        EXPECT_EQ(ofNewFile, reason);
        EXPECT_TRUE(reason->contains(error == ENOSPC   ? QStringLiteral("No queda espacio")
                                     : error == EDQUOT ? QStringLiteral("asignado")
                                                       : QStringLiteral("error al escribir")))
            << reason->toStdString();
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("antes"));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
    }
    EXPECT_EQ(base::writeFile(path("a.asc"), "después"), std::nullopt);
}

TEST_F(SafeFile, ADiskThatCannotSynchroniseIsWrittenAllTheSame)
{
    diskErrors.ofSync = EINVAL;
    EXPECT_EQ(base::writeFile(path("a.asc"), "datos"), std::nullopt);
    diskErrors = {};
    EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("datos"));
}

TEST_F(SafeFile, AFileBeyondTheLimitIsNamedAndNotRead)
{
    QFile sparse(path("hueco.asc"));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly));
    ASSERT_TRUE(sparse.resize((qint64(1) << 30) + 1));
    const auto large = base::readLimited(path("hueco.asc"));
    EXPECT_FALSE(large.value);
    EXPECT_EQ(large.reason, QStringLiteral("El archivo tiene más de 1 GiB, lo más que se lee."));

    // It has no size and ends only with the address space.
    const auto endless = base::readLimited(QStringLiteral("/proc/self/pagemap"));
    EXPECT_FALSE(endless.value);
    EXPECT_EQ(endless.reason,
              QStringLiteral("El archivo no indica su tamaño y tiene más de 1 MiB, lo más que se "
                             "lee de un archivo así."));
    // Neither has this one, which is short.
    const auto version = base::readLimited(QStringLiteral("/proc/version"));
    ASSERT_TRUE(version.value);
    EXPECT_TRUE(version.value->startsWith("Linux"));
    EXPECT_EQ(version.reason, QString());
}

TEST_F(SafeFile, AFingerprintTellsWhetherAFileChanged)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "datos"), std::nullopt);
    const QByteArray before = base::fingerprint(path("a.asc"));
    EXPECT_EQ(before, base::fingerprint(QByteArray("datos")));
    ASSERT_EQ(base::writeFile(path("a.asc"), "datos "), std::nullopt);
    EXPECT_NE(base::fingerprint(path("a.asc")), before);
    EXPECT_EQ(base::fingerprint(path("nada")), QByteArray());
}

TEST_F(SafeFile, OnlyOrdinaryFilesAreRead)
{
    EXPECT_EQ(base::readFile(path("nada")), std::nullopt);
    EXPECT_EQ(base::readFile(path("")), std::nullopt);
    ASSERT_EQ(mkfifo(QFile::encodeName(path("tubo")).constData(), 0600), 0);
    EXPECT_EQ(base::readFile(path("tubo")), std::nullopt);
}
