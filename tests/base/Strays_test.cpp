// SPDX-License-Identifier: GPL-3.0-or-later
// The temporary files of saves that were cut short, and those of other programs at work.
#include "base/SavingFixture.h"
#include "base/TemporaryFile.h"
#include "support/AnotherUser.h"
#include "support/FailingCalls.h"

#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using base::TemporaryFile;
using failing::Disk;
using failing::Fault;

class Strays : public Saving {
protected:
    int openFolder() const
    {
        return open(QFile::encodeName(path("")).constData(), O_RDONLY | O_DIRECTORY);
    }
    QStringList strays() const
    {
        return entries().filter(QRegularExpression(QStringLiteral("^\\.cuadrado-latino-")));
    }
    void save(const char* name, const char* bytes = "datos")
    {
        EXPECT_EQ(base::writeFile(path(name), bytes), std::nullopt);
        EXPECT_EQ(base::readFile(path(name)), QByteArray(bytes));
    }

    /// Another program that has got as far as to a name for its temporary file.
    pid_t programAtWork(const QByteArray& target, TemporaryFile::Kind kind)
    {
        int pipes[2];
        EXPECT_EQ(pipe(pipes), 0);
        const pid_t program = fork();
        if (program == 0) {
            const base::Descriptor folder(openFolder());
            TemporaryFile file(folder.number(), target);
            char ready =
                file.create(kind, 0600) == 0 && file.write("a medias") == 0 && file.takeName() == 0
                    ? 'y'
                    : 'n';
            if (write(pipes[1], &ready, 1) == 1)
                pause();
            _exit(1);
        }
        char ready = 0;
        EXPECT_EQ(read(pipes[0], &ready, 1), 1);
        EXPECT_EQ(ready, 'y');
        close(pipes[0]);
        close(pipes[1]);
        return program;
    }
    static void end(pid_t program)
    {
        kill(program, SIGKILL);
        waitpid(program, nullptr, 0);
    }
};

} // namespace

TEST_F(Strays, WhatAKilledProgramLeftGoesWithTheNextSaveOfThatName)
{
    for (const auto kind : {TemporaryFile::Kind::Unnamed, TemporaryFile::Kind::Named}) {
        end(programAtWork("a.asc", kind));
        ASSERT_EQ(strays().size(), 1);
        EXPECT_LT(strays().first().size(), 100);
        save("b.asc");
        EXPECT_EQ(strays().size(), 1) << "it is not of that file";
        save("a.asc");
        EXPECT_EQ(strays(), QStringList());
    }
}

TEST_F(Strays, AProgramAtWorkIsLeftAlone)
{
    for (const auto kind : {TemporaryFile::Kind::Unnamed, TemporaryFile::Kind::Named}) {
        const pid_t program = programAtWork("a.asc", kind);
        save("a.asc");
        EXPECT_EQ(strays().size(), 1);
        end(program);
        save("a.asc");
        EXPECT_EQ(strays(), QStringList());
    }
}

TEST_F(Strays, WhatCouldNotBeRemovedGoesWithTheNextSave)
{
    const failing::NoUnnamedFiles named;
    for (const char* call : {"write", "renameat2"}) {
        {
            const Disk faulty(folder(), {1, EIO, Fault::Everything, call});
            EXPECT_TRUE(base::writeFile(path("a.asc"), "datos").has_value());
        }
        EXPECT_EQ(strays().size(), 1);
        save("a.asc");
        EXPECT_EQ(strays(), QStringList());
    }
}

TEST_F(Strays, ForeignFilesAreNotTakenForStrays)
{
    end(programAtWork("a.asc", TemporaryFile::Kind::Named));
    const QString stray = strays().first();
    const QByteArray name = QFile::encodeName(path(stray.toUtf8().constData()));
    for (const auto& make : std::initializer_list<std::function<int()>>{
             [&] { return mkdir(name.constData(), 0700); },
             [&] { return mkfifo(name.constData(), 0600); },
             [&] { return symlink("/etc/passwd", name.constData()); },
         }) {
        ASSERT_EQ(remove(name.constData()), 0);
        ASSERT_EQ(make(), 0);
        save("a.asc");
        EXPECT_EQ(strays(), QStringList(stray));
    }
}

TEST_F(Strays, AFileThatAnotherSaveTookForAStrayIsCreatedAgain)
{
    const failing::NoUnnamedFiles named;
    for (const char* call : {"flock", "fstatat"}) {
        const Disk faulty(folder(), {1, EWOULDBLOCK, Fault::Once, call});
        save("a.asc");
        EXPECT_EQ(strays(), QStringList());
    }
    {
        const Disk faulty(folder(), {1, ENOLCK, Fault::ThatCall, "flock"});
        save("a.asc");
    }
    const Disk faulty(folder(), {1, EWOULDBLOCK, Fault::ThatCall, "flock"});
    EXPECT_TRUE(base::writeFile(path("a.asc"), "x").has_value()) << "not for ever";
    EXPECT_EQ(entries(), QStringList(QStringLiteral("a.asc")));
}

TEST_F(Strays, ATakenNameIsPassedOver)
{
    for (const bool isUnnamed : {true, false}) {
        std::optional<failing::NoUnnamedFiles> named;
        if (!isUnnamed)
            named.emplace();
        const Disk faulty(
            folder(), {isUnnamed ? 1 : 2, EEXIST, Fault::Once, isUnnamed ? "linkat" : "openat"});
        save("a.asc");
        EXPECT_EQ(strays(), QStringList());
    }
    {
        const Disk faulty(folder(), {1, EEXIST, Fault::ThatCall, "linkat"});
        save("a.asc");
    }
    const Disk faulty(folder(), {1, EEXIST, Fault::ThatCall, "openat"});
    EXPECT_TRUE(base::writeFile(path("a.asc"), "x").has_value()) << "not for ever";
}

TEST_F(Strays, AFolderThatCannotBeReadKeepsItsStrays)
{
    end(programAtWork("a.asc", TemporaryFile::Kind::Named));
    const base::Descriptor folder(openFolder());
    {
        const Disk faulty(this->folder(), {1, EMFILE, Fault::ThatCall, "openat"});
        base::removeStrays(folder.number(), "a.asc");
    }
    EXPECT_EQ(strays().size(), 1);
    base::removeStrays(folder.number(), "a.asc");
    EXPECT_EQ(strays(), QStringList());
}
