// SPDX-License-Identifier: GPL-3.0-or-later
// The seven files on a disk that is nearly full, and below a limit of file sizes.
#include "base/SafeFile.h"
#include "reliability/failing_saves/SevenSaves.h"
#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <optional>
#include <sched.h>
#include <set>
#include <sys/mount.h>
#include <unistd.h>

namespace {

class FullDisk : public SevenSaves {
protected:
    const QByteArray before = "lo que había antes\n";

    QString path(const char* name) const
    {
        return folder.filePath(QStringLiteral("disco/") + QString::fromLatin1(name));
    }
    QStringList entries() const
    {
        return QDir(path("")).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    void prepare(const Save& save, bool hasOld)
    {
        for (const QString& entry : entries())
            QFile::remove(path(entry.toUtf8().constData()));
        if (hasOld) {
            ASSERT_EQ(base::writeFile(path(save.file), before), std::nullopt);
        }
    }
    QByteArray bytesOfCleanSave(const Save& save)
    {
        prepare(save, false);
        EXPECT_EQ(begin(save, path(save.file)).error, QString());
        forgetFile(save);
        return base::readFile(path(save.file)).value_or(QByteArray());
    }

    /// Saves where there may be no room. @return whether there was
    bool saveBelowLimit(const Save& save, bool hasOld, const QByteArray& whole,
                        const QString& reason)
    {
        const QString shownBefore = shown();
        const QStringList entriesBefore = entries();
        const Told told = begin(save, path(save.file));
        const std::optional<QByteArray> now = base::readFile(path(save.file));
        EXPECT_NE(told.error.isEmpty(), told.notice.isEmpty());
        if (told.error.isEmpty()) {
            EXPECT_EQ(now, whole);
            forgetFile(save);
            return true;
        }
        EXPECT_EQ(now, hasOld ? std::optional(before) : std::nullopt);
        EXPECT_TRUE(told.error.endsWith(reason)) << told.error.toStdString();
        EXPECT_EQ(shown(), shownBefore);
        EXPECT_EQ(entries(), entriesBefore);
        return false;
    }

    /// Saves each file with less and less room: all of it, and down to none.
    template <typename WithRoom>
    void saveAll(const char* kind, const QString& reason, WithRoom withRoom)
    {
        for (const Save& save : saves()) {
            const QByteArray whole = bytesOfCleanSave(save);
            const qsizetype size = whole.size();
            int runs = 0;
            int saved = 0;
            for (const bool hasOld : {false, true}) {
                for (const qsizetype room : std::set<qsizetype>{0, 1, 4096, size / 2, size - 4096,
                                                                size - 1, size, size + 4096}) {
                    SCOPED_TRACE(std::string(save.file) + ", room for " + std::to_string(room));
                    prepare(save, hasOld);
                    ++runs;
                    withRoom(std::max<qsizetype>(room, 0),
                             [&] { saved += saveBelowLimit(save, hasOld, whole, reason) ? 1 : 0; });
                }
            }
            std::printf("ROOM\t%s\t%s\t%d\t%d\n", kind, save.file, runs, saved);
            EXPECT_GT(saved, 0);
            EXPECT_LT(saved, runs);
        }
    }
};

/// A small disk of its own, seen by this process alone.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder)
        : m_folder(QFile::encodeName(folder))
    {
        m_isMounted = geteuid() == 0 && unshare(CLONE_NEWNS) == 0 &&
                      mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0 &&
                      mount("tmpfs", m_folder.constData(), "tmpfs", 0, "size=16m") == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            umount2(m_folder.constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isThere() const { return m_isMounted; }

    /// Fills it up to so many bytes; a disk gives them by whole blocks.
    void leave(qsizetype bytes) const
    {
        QFile filler(QFile::decodeName(m_folder) + QStringLiteral("/relleno"));
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
        const qsizetype blocks = bytes / block.size();
        ASSERT_TRUE(filler.resize(filler.size() - std::min(blocks * block.size(), filler.size())));
    }

private:
    QByteArray m_folder;
    bool m_isMounted = false;
};

} // namespace

TEST_F(FullDisk, ADiskThatIsFullIsSaidToBe)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("disco")));
    const SmallDisk disk(path(""));
    ASSERT_TRUE(disk.isThere()) << "only root may mount a disk";
    saveAll("full", QStringLiteral("No queda espacio en el disco."),
            [&](qsizetype room, const auto& save) {
                disk.leave(room);
                save();
                QFile::remove(path("relleno"));
            });
}

TEST_F(FullDisk, ALimitOfFileSizesIsSaidToBeOne)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("disco")));
    saveAll("limit",
            QStringLiteral("El archivo pasa del límite de tamaño que tienen aquí los archivos."),
            [](qsizetype room, const auto& save) {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                save();
            });
}
