// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"

#include "base/SavingFixture.h"
#include "support/FailingCalls.h"
#include "support/FileSizeLimit.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using failing::Disk;
using failing::Fault;

class SafeFile : public Saving {
protected:
    /// What is told where the n-th call of this name fails.
    std::optional<QString> told(const char* call, int error, const char* file = "a.asc",
                                Fault::Lasting lasting = Fault::Once)
    {
        const Disk faulty(folder(), {1, error, lasting, call});
        return base::writeFile(path(file), "después");
    }

    void expectUntouched()
    {
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("antes"));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
    }
};

const QString interrupted =
    QStringLiteral("El sistema no pudo escribirlo (%1).").arg(qt_error_string(EINTR));

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
    EXPECT_EQ(base::writeFile(path(QByteArray(300, 'a').constData()), "x"),
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

TEST_F(SafeFile, ANameAsLongAsNamesMayBeIsSavedAgainAndAgain)
{
    for (const int length : {248, 249, 254, 255}) {
        const QString name = path(QByteArray(length, 'a').constData());
        EXPECT_EQ(base::writeFile(name, "antes"), std::nullopt) << length;
        EXPECT_EQ(base::writeFile(name, "después"), std::nullopt) << length;
        EXPECT_EQ(base::readFile(name), QByteArray("después"));
    }
    EXPECT_EQ(entries().size(), 4);
}

TEST_F(SafeFile, WhatDoesNotReachTheDiskIsNotSaved)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    const std::pair<int, QString> reasons[] = {
        {EIO, QStringLiteral("El disco dio un error al escribir: puede que nada haya quedado "
                             "guardado en él.")},
        {ENOSPC, QStringLiteral("No queda espacio en el disco.")},
        {EDQUOT, QStringLiteral("Se agotó el espacio que tiene asignado en el disco.")},
        {EFBIG,
         QStringLiteral("El archivo pasa del límite de tamaño que tienen aquí los archivos.")},
        {EPERM, QStringLiteral("El sistema no pudo escribirlo (%1).").arg(qt_error_string(EPERM))},
    };
    for (const char* call : {"write", "fsync", "dup", "close", "renameat2"}) {
        for (const auto& [error, reason] : reasons) {
            EXPECT_EQ(told(call, error), reason) << call;
            EXPECT_EQ(told(call, error, "b.asc"), reason) << call;
            expectUntouched();
        }
    }
    EXPECT_EQ(told("renameat2", EEXIST, "b.asc"),
              QStringLiteral("Entretanto apareció otro archivo con ese nombre."));
    EXPECT_EQ(told("write", Fault::emptyWrite), reasons[0].second);
    expectUntouched();
    EXPECT_EQ(base::writeFile(path("a.asc"), "después"), std::nullopt);
}

TEST_F(SafeFile, WhyTheFolderCannotBeUsedIsWhatTheSystemSays)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    const std::pair<int, QString> reasons[] = {
        {EROFS, QStringLiteral("El disco es de solo lectura.")},
        {EACCES, QStringLiteral("No tiene permiso para escribir en la carpeta.")},
        {EMFILE, QStringLiteral("Hay demasiados archivos abiertos.")},
        {ENFILE, QStringLiteral("Hay demasiados archivos abiertos.")},
    };
    for (const auto& [error, reason] : reasons) {
        EXPECT_EQ(told("open", error, "a.asc", Fault::ThatCall), reason);
        EXPECT_EQ(told("openat", error, "a.asc", Fault::ThatCall), reason);
        expectUntouched();
    }
    EXPECT_EQ(told("faccessat", EROFS), reasons[0].second);
    EXPECT_EQ(told("faccessat", EACCES),
              QStringLiteral("El archivo está protegido contra escritura."));
    EXPECT_EQ(told("lstat", EACCES), reasons[1].second);
    expectUntouched();
}

TEST_F(SafeFile, ALimitInTheMiddleOfTheFileIsToldAsALimit)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    const FileSizeLimit limit(10);
    EXPECT_EQ(base::writeFile(path("a.asc"), QByteArray(15, 'x')),
              QStringLiteral("El archivo pasa del límite de tamaño que tienen aquí los archivos."));
    expectUntouched();
}

TEST_F(SafeFile, WhatIsWrittenInPiecesIsWhole)
{
    const QByteArray bytes = QByteArray(1000, 'a') + QByteArray(1000, 'b');
    const Disk faulty(folder(), {1, Fault::shortWrite, Fault::ThatCall, "write"});
    EXPECT_EQ(base::writeFile(path("a.asc"), bytes), std::nullopt);
    EXPECT_GT(faulty.count(), 10);
    EXPECT_EQ(base::readFile(path("a.asc")), bytes);
}

TEST_F(SafeFile, AnInterruptedCallIsMadeAgainButNotForEver)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    for (const char* call : {"open", "openat", "write", "fsync", "dup", "linkat", "renameat2"}) {
        EXPECT_EQ(told(call, EINTR), std::nullopt) << call;
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
        ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    }
    for (const char* call : {"open", "openat", "write", "fsync", "dup", "renameat2"}) {
        EXPECT_EQ(told(call, EINTR, "a.asc", Fault::ThatCall), interrupted) << call;
        expectUntouched();
    }
    EXPECT_EQ(told("close", EINTR), std::nullopt) << "a descriptor is closed all the same";
}

TEST_F(SafeFile, WhatWasDoneAndYetReportedAsFailedIsDone)
{
    for (const bool isUnnamed : {true, false}) {
        std::optional<failing::NoUnnamedFiles> named;
        if (!isUnnamed)
            named.emplace();
        for (const char* call : {"linkat", "renameat2"}) {
            const Disk faulty(folder(), {1, EIO, Fault::Once, call, true});
            EXPECT_EQ(base::writeFile(path("a.asc"), call), std::nullopt);
            EXPECT_EQ(base::readFile(path("a.asc")), QByteArray(call));
            EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
        }
    }
}

TEST_F(SafeFile, AFileWithoutANameThatCannotGetOneIsWrittenWithOne)
{
    for (const Fault::Lasting lasting : {Fault::Once, Fault::ThatCall}) {
        EXPECT_EQ(told("linkat", EPERM, "a.asc", lasting), std::nullopt);
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
        EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
    }
    EXPECT_EQ(told("linkat", EEXIST, "a.asc", Fault::ThatCall), std::nullopt)
        << "every name that it tries is taken";
}

TEST_F(SafeFile, ADiskThatCannotSynchroniseIsWrittenAllTheSame)
{
    for (const int error : {EINVAL, ENOSYS, EROFS}) {
        EXPECT_EQ(told("fsync", error, "a.asc", Fault::ThatCall), std::nullopt);
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
    }
}

TEST_F(SafeFile, AFolderThatTheDiskDoesNotConfirmIsTold)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    const Disk faulty(folder(), {2, EIO, Fault::Once, "fsync"});
    EXPECT_EQ(base::writeFile(path("a.asc"), "después"),
              QStringLiteral("El archivo está escrito, pero el disco no confirmó que quede en su "
                             "carpeta (%1): un corte de luz puede devolverla a como estaba.")
                  .arg(qt_error_string(EIO)));
    EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
    EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
}

TEST_F(SafeFile, ASymbolicLinkStaysAndItsTargetIsWritten)
{
    QDir(path("")).mkdir(QStringLiteral("datos"));
    ASSERT_EQ(symlink("datos/corto.asc", QFile::encodeName(path("corto")).constData()), 0);
    ASSERT_EQ(symlink(QFile::encodeName(path("corto")).constData(),
                      QFile::encodeName(path("largo")).constData()),
              0);
    for (const char* bytes : {"nuevo", "otro"}) {
        EXPECT_EQ(base::writeFile(path("largo"), bytes), std::nullopt);
        EXPECT_EQ(base::readFile(path("datos/corto.asc")), QByteArray(bytes));
        EXPECT_TRUE(QFileInfo(path("corto")).isSymLink());
        EXPECT_TRUE(QFileInfo(path("largo")).isSymLink());
    }
    EXPECT_EQ(QDir(path("datos")).entryList(QDir::Files | QDir::Hidden).size(), 1);

    EXPECT_EQ(told("readlink", EACCES, "largo"),
              QStringLiteral("No tiene permiso para escribir en la carpeta."));
    ASSERT_EQ(symlink("no/a.asc", QFile::encodeName(path("roto")).constData()), 0);
    EXPECT_EQ(base::writeFile(path("roto"), "x"), QStringLiteral("La carpeta no existe."));
    ASSERT_EQ(symlink("vueltas", QFile::encodeName(path("vueltas")).constData()), 0);
    EXPECT_EQ(base::writeFile(path("vueltas"), "x"),
              QStringLiteral("El nombre es el de un enlace que no lleva a ningún archivo."));
    ASSERT_EQ(symlink("datos/", QFile::encodeName(path("enlace")).constData()), 0);
    EXPECT_EQ(base::writeFile(path("enlace"), "x"),
              QStringLiteral("El nombre es el de una carpeta."));
    ASSERT_EQ(symlink("nada/", QFile::encodeName(path("hueco")).constData()), 0);
    EXPECT_EQ(base::writeFile(path("hueco"), "x"), QStringLiteral("La carpeta no existe."));
}

TEST_F(SafeFile, ANameWithoutAFolderIsOfTheCurrentOne)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(path("")));
    EXPECT_EQ(base::writeFile(QStringLiteral("a.asc"), "datos"), std::nullopt);
    QDir::setCurrent(before);
    EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("datos"));
    for (const char* folder : {"/", "/proc"}) {
        EXPECT_EQ(base::writeFile(QString::fromUtf8(folder), "x"),
                  QStringLiteral("El nombre es el de una carpeta."));
    }
}

TEST_F(SafeFile, NamesThatTheSystemDoesNotKnowAreRefused)
{
    EXPECT_EQ(base::writeFile(path("").append(QChar(0)).append(QLatin1Char('a')), "x"),
              QStringLiteral("El sistema no pudo escribirlo (%1).").arg(qt_error_string(EINVAL)));
    ASSERT_EQ(base::writeFile(path("a.asc"), "x"), std::nullopt);
    EXPECT_EQ(base::writeFile(path("a.asc/b.asc"), "x"), QStringLiteral("La carpeta no existe."));
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

TEST_F(SafeFile, AFileOfJustTheLimitIsRead)
{
    QFile sparse(path("hueco.asc"));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly));
    ASSERT_TRUE(sparse.resize(qint64(1) << 30));
    const auto contents = base::readLimited(path("hueco.asc"));
    ASSERT_TRUE(contents.value);
    EXPECT_EQ(contents.value->size(), qsizetype(1) << 30);
}

TEST_F(SafeFile, AFileWithoutASizeIsReadUpToOneMebibyte)
{
    // The words that a program was started with, each with the zero that ends it.
    const auto readOfLength = [](int length) {
        QStringList words{QStringLiteral("-c"), QStringLiteral("read line")};
        for (int rest = length - 21; rest > 0; rest -= 100000) // "/bin/sh" and those two have 21
            words << QString(std::min(rest, 100000) - 1, QLatin1Char('x'));
        QProcess shell;
        shell.start(QStringLiteral("/bin/sh"), words);
        EXPECT_TRUE(shell.waitForStarted());
        const QString name = QStringLiteral("/proc/%1/cmdline").arg(shell.processId());
        auto contents = base::readLimited(name);
        // For a moment after its start a program has no words yet.
        for (int tries = 0; tries < 1000 && contents.value && contents.value->isEmpty(); ++tries) {
            QThread::msleep(10);
            contents = base::readLimited(name);
        }
        shell.closeWriteChannel();
        EXPECT_TRUE(shell.waitForFinished());
        return contents;
    };
    constexpr int limit = 1 << 20;
    const auto longest = readOfLength(limit);
    ASSERT_TRUE(longest.value);
    EXPECT_EQ(longest.value->size(), limit);
    EXPECT_FALSE(readOfLength(limit + 1).value);
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

TEST_F(SafeFile, WhatCannotBeOpenedOrReadIsNotRead)
{
    ASSERT_EQ(base::writeFile(path("a.asc"), "datos"), std::nullopt);
    {
        const Disk faulty(folder(), {1, EIO, Fault::ThatCall, "open"});
        EXPECT_EQ(base::readFile(path("a.asc")), std::nullopt);
        EXPECT_EQ(faulty.failed(), std::vector<std::string>({"open"}));
    }
    // The memory of this process, of which the first bytes are nobody's.
    const auto memory = base::readLimited(QStringLiteral("/proc/self/mem"));
    EXPECT_FALSE(memory.value);
    EXPECT_EQ(memory.reason, QString());
}
