// SPDX-License-Identifier: GPL-3.0-or-later
// Each call of the operating system with which the seven files are saved fails, one run for each:
// the file is the old one or the new one, whole, and the user knows which. With CL_LARGO in the
// environment all errors in all ways, otherwise a few.
//
// A line of figures for each file is written to the standard output, and one with the calls that
// failed.
#include "reliability/failing_saves/SevenSaves.h"

#include "base/SafeFile.h"
#include "support/FailingCalls.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <set>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using failing::Disk;
using failing::Fault;

bool isLong()
{
    return qEnvironmentVariableIsSet("CL_LARGO");
}

/// The ways in which a call fails.
std::vector<Fault> faults()
{
    using enum Fault::Lasting;
    if (!isLong())
        return {{1, EIO, Once}, {1, ENOSPC, Everything}};
    std::vector<Fault> all;
    for (const int error : {ENOSPC, EIO, EDQUOT, EINTR}) {
        for (const Fault::Lasting lasting : {Once, ThatCall, Everything})
            all.push_back({1, error, lasting});
    }
    for (const Fault::Lasting lasting : {Once, ThatCall})
        all.push_back({1, Fault::shortWrite, lasting, "write"});
    return all;
}

/// How the runs ended with one file.
struct Figures {
    int runs = 0;
    int saved = 0;
    int refused = 0;
    int unconfirmed = 0; ///< Written, but the folder's entry not known to be on the disk.
    int notKept = 0;     ///< Saved, and told what was not kept of the old file.
    int strays = 0;      ///< Left where removing failed, swept up by the next save.
};

class FailingSaves : public SevenSaves {
protected:
    const QByteArray old = "lo que había antes\n";

    QString pathOf(const Save& save) const
    {
        return folder.filePath(QString::fromLatin1(save.file));
    }
    QStringList entries() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    /// The folder with the old file, of which there is more than its bytes, or with nothing.
    void prepare(const Save& save, bool hasOld)
    {
        for (const QString& entry : entries())
            QFile::remove(folder.filePath(entry));
        if (!hasOld)
            return;
        QFile file(pathOf(save));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(old);
        const QByteArray name = QFile::encodeName(pathOf(save));
        EXPECT_EQ(chown(name.constData(), 1234, 5678), 0);
        EXPECT_EQ(chmod(name.constData(), 0640), 0);
        EXPECT_TRUE(setxattr(name.constData(), "user.nota", "x", 1, 0) == 0 || errno == ENOTSUP);
    }

    /// What a file has beside its bytes.
    QString properties(const Save& save) const
    {
        const QByteArray name = QFile::encodeName(pathOf(save));
        struct stat status {};
        stat(name.constData(), &status);
        char note = '-';
        getxattr(name.constData(), "user.nota", &note, 1);
        return QStringLiteral("%1 %2 %3 %4")
            .arg(status.st_uid)
            .arg(status.st_gid)
            .arg(status.st_mode)
            .arg(QLatin1Char(note));
    }

    QByteArray bytesOfCleanSave(const Save& save)
    {
        prepare(save, false);
        const Told told = begin(save, pathOf(save));
        EXPECT_EQ(told.error, QString());
        forgetFile(save);
        return base::readFile(pathOf(save)).value_or(QByteArray());
    }

    void sweep(const Save& save, bool hasOld, Fault fault, Figures& figures)
    {
        const QByteArray whole = bytesOfCleanSave(save);
        ASSERT_FALSE(whole.isEmpty());
        for (bool failed = true; failed; ++fault.first)
            failed = run(save, hasOld, fault, whole, figures);
    }

    /// @return whether a call failed
    bool run(const Save& save, bool hasOld, const Fault& fault, const QByteArray& whole,
             Figures& figures)
    {
        prepare(save, hasOld);
        const QString propertiesBefore = properties(save);
        const QString shownBefore = shown();
        Told told;
        std::vector<std::string> failed;
        {
            const Disk faulty(folder.path().toStdString(), fault);
            told = begin(save, pathOf(save));
            failed = faulty.failed();
        }
        std::string calls;
        for (const std::string& call : failed)
            calls += calls.size() < 200 && !calls.ends_with(call) ? ' ' + call : "";
        SCOPED_TRACE(std::string(save.file) + (hasOld ? ", old file" : ", new file") + ", error " +
                     std::to_string(fault.error) + " from call " + std::to_string(fault.first) +
                     ", failed:" + calls + "; told: " + (told.error + told.notice).toStdString());
        ++figures.runs;
        callsThatFailed.insert(failed.begin(), failed.end());

        const std::optional<QByteArray> now = base::readFile(pathOf(save));
        const bool isNew = now == whole;
        EXPECT_TRUE(isNew || (hasOld ? now == old : !now)) << "neither the old nor the new file";
        EXPECT_NE(told.error.isEmpty(), told.notice.isEmpty());
        if (told.error.isEmpty()) {
            EXPECT_TRUE(isNew) << "told that it was saved";
            const bool wasSynchronised = std::count(failed.begin(), failed.end(), "fsync") == 0;
            const bool wasRepeated = fault.error == EINTR && fault.lasting == Fault::Once;
            EXPECT_TRUE(wasSynchronised || wasRepeated) << "saved, but perhaps not on the disk";
            ++figures.saved;
            const bool isKept = !hasOld || properties(save) == propertiesBefore;
            EXPECT_NE(isKept, told.notice.contains(QStringLiteral("no se conservó")));
            figures.notKept += isKept ? 0 : 1;
        } else {
            EXPECT_EQ(isNew, told.error.contains(QStringLiteral("El archivo está escrito, pero")));
            ++(isNew ? figures.unconfirmed : figures.refused);
            EXPECT_TRUE(told.error.startsWith(QStringLiteral("No se pudo guardar el archivo «")));
            EXPECT_EQ(shown(), shownBefore) << "the window has changed";
        }
        checkStrays(save, std::count(failed.begin(), failed.end(), "unlinkat") > 0, figures);
        if (told.error.isEmpty())
            forgetFile(save);
        return !failed.empty();
    }

    void checkStrays(const Save& save, bool couldNotRemove, Figures& figures)
    {
        QStringList strays = entries();
        strays.removeAll(QString::fromLatin1(save.file));
        if (strays.isEmpty())
            return;
        EXPECT_TRUE(couldNotRemove) << strays.join(QLatin1Char(' ')).toStdString();
        ++figures.strays;
        EXPECT_EQ(begin(save, pathOf(save)).error, QString());
        EXPECT_EQ(entries(), QStringList(QString::fromLatin1(save.file)));
        forgetFile(save);
    }

    void sweepAll(const char* kind)
    {
        for (const Save& save : saves()) {
            Figures figures;
            for (const bool hasOld : {false, true}) {
                for (const Fault& fault : faults())
                    sweep(save, hasOld, fault, figures);
            }
            std::printf("FIGURES\t%s\t%s\t%d\t%d\t%d\t%d\t%d\t%d\n", kind, save.file, figures.runs,
                        figures.saved, figures.refused, figures.unconfirmed, figures.notKept,
                        figures.strays);
            EXPECT_GT(figures.runs, 60);
            EXPECT_GT(figures.saved, 5);
            EXPECT_GT(figures.refused, 5);
        }
        std::printf("CALLS\t%s", kind);
        for (const std::string& call : callsThatFailed)
            std::printf("\t%s", call.c_str());
        std::printf("\n");
    }

    std::set<std::string> callsThatFailed;
};

} // namespace

TEST_F(FailingSaves, WithFilesWithoutAName)
{
    sweepAll("unnamed");
}

TEST_F(FailingSaves, WithoutFilesWithoutAName)
{
    const failing::NoUnnamedFiles named;
    sweepAll("named");
}
