// SPDX-License-Identifier: GPL-3.0-or-later
// What a saved file keeps of the one before it, and what is told of the rest.
#include "base/SavingFixture.h"
#include "support/AnotherUser.h"
#include "support/FailingCalls.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using failing::Disk;
using failing::Fault;

constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* folderList = "system.posix_acl_default";

/// An access list in the form in which the system passes it: one entry for somebody with a name.
QByteArray listNaming(uid_t user, char rights)
{
    QByteArray list("\2\0\0\0", 4);
    const auto entry = [&list](char tag, char may, uid_t who) {
        for (const char byte : {tag, '\0', may, '\0'})
            list += byte;
        for (int shift = 0; shift < 32; shift += 8)
            list += static_cast<char>(who >> static_cast<unsigned>(shift) & 0xFFU);
    };
    constexpr auto nobody = static_cast<uid_t>(-1);
    entry(0x01, 6, nobody);    // the owner
    entry(0x02, rights, user); // the one with a name
    entry(0x04, 0, nobody);    // the group
    entry(0x10, 6, nobody);    // the most that all but the owner and others may do
    entry(0x20, 0, nobody);    // others
    return list;
}

class SavedProperties : public Saving {
protected:
    QByteArray name() const { return QFile::encodeName(path("a.asc")); }
    struct stat status() const
    {
        struct stat found {};
        EXPECT_EQ(stat(name().constData(), &found), 0);
        return found;
    }
    mode_t permissions() const { return status().st_mode & 07777U; }

    void writeOld(mode_t mode = 0640)
    {
        ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
        ASSERT_EQ(chmod(name().constData(), mode), 0);
    }

    static void set(const QByteArray& file, const char* attribute, const QByteArray& value)
    {
        ASSERT_EQ(setxattr(file.constData(), attribute, value.constData(),
                           static_cast<std::size_t>(value.size()), 0),
                  0)
            << attribute << ": " << errno;
    }
    QByteArray attribute(const char* which) const
    {
        QByteArray value(1000, '\0');
        const ssize_t size = getxattr(name().constData(), which, value.data(), 1000);
        return size < 0 ? QByteArray("(none)") : value.left(size);
    }

    /// Saves. @return what is told that was not kept
    QString save()
    {
        const auto saved = base::replaceFile(path("a.asc"), "después");
        EXPECT_TRUE(saved.value) << saved.reason.toStdString();
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
        return saved.value ? saved.value->notKept : saved.reason;
    }
    QString saveWith(const char* call, int error)
    {
        const Disk faulty(folder(), {1, error, Fault::ThatCall, call});
        return save();
    }
};

QString lost(const char* what)
{
    return QStringLiteral("Del archivo anterior no se conservó: %1.").arg(QString::fromUtf8(what));
}

} // namespace

TEST_F(SavedProperties, PermissionsStay)
{
    const mode_t mask = umask(022);
    ASSERT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
    EXPECT_EQ(permissions(), 0644U) << "a new file has those that the user's mask leaves";
    for (const mode_t mode : {0600U, 0640U, 0666U, 0664U, 0604U}) {
        writeOld(mode);
        EXPECT_EQ(save(), QString());
        EXPECT_EQ(permissions(), mode);
    }
    umask(mask);
    writeOld(0640);
    EXPECT_EQ(saveWith("fchmod", EIO), lost("los permisos"));
    EXPECT_EQ(permissions(), 0600U) << "nobody gained any";
}

TEST_F(SavedProperties, ExtendedAttributesStay)
{
    writeOld();
    set(name(), "user.origen", "parcela 7");
    set(name(), "user.vacio", "");
    EXPECT_EQ(save(), QString());
    EXPECT_EQ(attribute("user.origen"), "parcela 7");
    EXPECT_EQ(attribute("user.vacio"), "");

    for (const char* call : {"lgetxattr", "fsetxattr"}) {
        EXPECT_EQ(saveWith(call, ENOSPC), lost("los atributos extendidos")) << call;
        EXPECT_EQ(permissions(), 0640U);
        ASSERT_EQ(attribute("user.origen"), "(none)");
        set(name(), "user.origen", "parcela 7");
    }
    set(name(), "user.vacio", "");
    {
        const Disk faulty(folder(), {1, ENOSPC, Fault::Once, "fsetxattr"});
        EXPECT_EQ(save(), lost("los atributos extendidos")) << "one of two is not both";
    }
    EXPECT_NE(attribute("user.origen") == "(none)", attribute("user.vacio") == "(none)");
    EXPECT_EQ(saveWith("llistxattr", EIO), lost("los permisos, los atributos extendidos"))
        << "there may have been an access list";
    EXPECT_EQ(permissions(), 0600U);
    writeOld();
    EXPECT_EQ(saveWith("llistxattr", ENOTSUP), QString()) << "a file system without any";
    EXPECT_EQ(permissions(), 0640U);
}

TEST_F(SavedProperties, WhatVouchesForOtherBytesGoes)
{
    writeOld();
    set(name(), "security.capability", QByteArray("\1\0\0\2\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 20));
    // A system that checks these refuses made-up ones.
    for (const char* hash : {"security.ima", "security.evm"})
        setxattr(name().constData(), hash, "\1", 1, 0);
    EXPECT_EQ(save(), QString());
    for (const char* gone : {"security.capability", "security.ima", "security.evm"})
        EXPECT_EQ(attribute(gone), "(none)") << gone;
}

TEST_F(SavedProperties, AccessListsStay)
{
    const QByteArray list = listNaming(12345, 4);
    writeOld();
    set(name(), accessList, list);
    const mode_t before = permissions();
    EXPECT_EQ(save(), QString());
    EXPECT_EQ(attribute(accessList), list);
    EXPECT_EQ(permissions(), before);

    EXPECT_EQ(saveWith("fsetxattr", EIO), lost("la lista de acceso"));
    EXPECT_EQ(attribute(accessList), "(none)");
    EXPECT_EQ(permissions(), 0600U) << "the mask of the list is not the right of the group";
}

TEST_F(SavedProperties, AListThatTheFolderGivesDoesNotComeToAFileWithoutOne)
{
    writeOld();
    set(QFile::encodeName(path("")), folderList, listNaming(12345, 6));
    EXPECT_EQ(save(), QString());
    EXPECT_EQ(attribute(accessList), "(none)");
    EXPECT_EQ(permissions(), 0640U);
    EXPECT_EQ(saveWith("fremovexattr", EIO), lost("la lista de acceso"));
    EXPECT_EQ(permissions() & 0070U, 0U) << "it grants nothing";

    ASSERT_EQ(base::writeFile(path("b.asc"), "nuevo"), std::nullopt);
    EXPECT_EQ(getxattr(QFile::encodeName(path("b.asc")).constData(), accessList, nullptr, 0), 44)
        << "a new file has what the folder gives";
}

TEST_F(SavedProperties, OwnerAndGroupStayWhereTheUserMaySetThem)
{
    writeOld();
    ASSERT_EQ(chown(name().constData(), 1234, 5678), 0);
    EXPECT_EQ(save(), QString());
    EXPECT_EQ(status().st_uid, 1234U);
    EXPECT_EQ(status().st_gid, 5678U);

    EXPECT_EQ(saveWith("fchown", EPERM), lost("el dueño, el grupo"));
    EXPECT_EQ(permissions(), 0600U) << "another group has not the rights of that one";
}

TEST_F(SavedProperties, AGroupThatMayDoWhatEverybodyMayIsNotMissed)
{
    writeOld(0644);
    ASSERT_EQ(chown(name().constData(), getuid(), 5678), 0);
    EXPECT_EQ(saveWith("fchown", EPERM), QString());
    EXPECT_EQ(permissions(), 0644U);
}

TEST_F(SavedProperties, AnAttributeThatIsThereIsNotMissedWhateverWasReported)
{
    writeOld();
    set(name(), "user.origen", "parcela 7");
    const Disk faulty(folder(), {1, EIO, Fault::ThatCall, "fsetxattr", true});
    EXPECT_EQ(save(), QString());
    EXPECT_EQ(attribute("user.origen"), "parcela 7");
}

TEST_F(SavedProperties, AGroupThatMayDoLessThanEverybodyGainsNothing)
{
    writeOld(0604);
    ASSERT_EQ(chown(name().constData(), getuid(), 5678), 0);
    EXPECT_EQ(saveWith("fchown", EPERM), lost("el grupo"));
    EXPECT_EQ(permissions(), 0600U) << "its members are everybody now";
}

TEST_F(SavedProperties, AFileOfSomebodyElseBecomesTheUsersAndHeIsTold)
{
    writeOld(0666);
    ASSERT_EQ(chown(name().constData(), 0, 100), 0);
    set(name(), accessList, listNaming(AnotherUser::number, 6));
    ASSERT_EQ(chmod(QFile::encodeName(path("")).constData(), 0777), 0);
    const AnotherUser stranger;
    EXPECT_EQ(save(), lost("el dueño, el grupo, la lista de acceso"));
    EXPECT_EQ(status().st_uid, AnotherUser::number);
    EXPECT_EQ(permissions() & 0077U, 0U);
}

TEST_F(SavedProperties, OtherHardLinksKeepTheOldContentsAndThatIsTold)
{
    const QString told = QStringLiteral("Los otros nombres del archivo conservan lo anterior.");
    writeOld();
    ASSERT_EQ(link(name().constData(), QFile::encodeName(path("b.asc")).constData()), 0);
    EXPECT_EQ(save(), told);
    EXPECT_EQ(base::readFile(path("b.asc")), QByteArray("antes"));
    EXPECT_EQ(save(), QString()) << "it has one name now";

    ASSERT_EQ(link(name().constData(), QFile::encodeName(path("c.asc")).constData()), 0);
    EXPECT_EQ(saveWith("fchmod", EIO), told + QLatin1Char(' ') + lost("los permisos"));
}

TEST_F(SavedProperties, AFolderThatMayNotBeWrittenToIsSaid)
{
    writeOld(0666);
    ASSERT_EQ(chmod(QFile::encodeName(path("")).constData(), 0555), 0);
    const QString refused = QStringLiteral("No tiene permiso para escribir en la carpeta.");
    {
        const AnotherUser stranger;
        EXPECT_EQ(base::writeFile(path("a.asc"), "x"), refused);
        EXPECT_EQ(base::writeFile(path("b.asc"), "x"), refused);
    }
    ASSERT_EQ(chmod(QFile::encodeName(path("")).constData(), 0777), 0);
    ASSERT_EQ(chmod(name().constData(), 0444), 0);
    {
        const AnotherUser stranger;
        EXPECT_EQ(base::writeFile(path("a.asc"), "x"),
                  QStringLiteral("El archivo está protegido contra escritura."));
    }
    EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("antes"));
}

TEST_F(SavedProperties, AFolderThatMayBeWrittenToButNotReadWillDo)
{
    ASSERT_EQ(chmod(QFile::encodeName(path("")).constData(), 0333), 0);
    {
        const AnotherUser stranger;
        EXPECT_EQ(base::writeFile(path("a.asc"), "antes"), std::nullopt);
        EXPECT_EQ(base::writeFile(path("a.asc"), "después"), std::nullopt);
        EXPECT_EQ(base::readFile(path("a.asc")), QByteArray("después"));
    }
    ASSERT_EQ(chmod(QFile::encodeName(path("")).constData(), 0777), 0);
}
