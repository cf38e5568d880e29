// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileProperties.h"

#include "base/SystemCall.h"

#include <optional>
#include <sys/xattr.h>

namespace base {

namespace {

const QByteArray accessList = "system.posix_acl_access";

/// The system's own call takes a name or an open file.
ssize_t readAttribute(const QByteArray& path, const QByteArray& name, char* value, std::size_t room)
{
    return lgetxattr(path.constData(), name.constData(), value, room);
}

ssize_t readAttribute(int file, const QByteArray& name, char* value, std::size_t room)
{
    return fgetxattr(file, name.constData(), value, room);
}

/// The value of an extended attribute; nothing where there is none that can be read.
template <typename File>
std::optional<QByteArray> attribute(const File& file, const QByteArray& name)
{
    QByteArray value(XATTR_SIZE_MAX, '\0');
    const ssize_t size =
        readAttribute(file, name, value.data(), static_cast<std::size_t>(value.size()));
    return size < 0 ? std::nullopt : std::optional(value.left(size));
}

/// Attributes that vouch for the bytes of a file, which are others now.
bool vouchesForBytes(const QByteArray& name)
{
    return name == "security.capability" || name == "security.ima" || name == "security.evm";
}

/// The names of the extended attributes that a file should keep; nothing where they cannot be read.
std::optional<QByteArrayList> attributesOf(const QByteArray& path)
{
    QByteArray list(XATTR_LIST_MAX, '\0');
    const ssize_t size =
        llistxattr(path.constData(), list.data(), static_cast<std::size_t>(list.size()));
    if (size < 0)
        return errno == ENOTSUP ? std::optional(QByteArrayList()) : std::nullopt;
    QByteArrayList names;
    for (const QByteArray& name : list.left(size).split('\0')) {
        if (!name.isEmpty() && !vouchesForBytes(name))
            names << name;
    }
    return names;
}

mode_t permissionsOf(const struct stat& status)
{
    return status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
}

/// The permissions where the group is another one: what the old one and everybody may is what all
/// may. Those of the old group, who are like everybody now, do not gain what it was denied.
mode_t withoutGroup(mode_t permissions)
{
    const mode_t others = permissions & S_IRWXO & (permissions >> 3U);
    return (permissions & S_IRWXU) | (others << 3U) | others;
}

struct stat statusOf(int file)
{
    struct stat status {};
    fstat(file, &status);
    return status;
}

void giveOwnerAndGroup(const struct stat& old, int file)
{
    const struct stat now = statusOf(file);
    const auto give = [&](uid_t owner) {
        return uninterrupted([&] { return fchown(file, owner, old.st_gid); }) == 0;
    };
    constexpr auto asItIs = static_cast<uid_t>(-1);
    if (now.st_uid != old.st_uid && give(old.st_uid))
        return;
    if (now.st_gid != old.st_gid)
        give(asItIs);
}

void givePermissions(mode_t permissions, int file)
{
    if (permissionsOf(statusOf(file)) != permissions)
        uninterrupted([&] { return fchmod(file, permissions); });
}

bool giveAttribute(const QByteArray& name, const QByteArray& oldPath, int file)
{
    const std::optional<QByteArray> value = attribute(oldPath, name);
    if (!value)
        return false;
    const auto size = static_cast<std::size_t>(value->size());
    const bool isGiven = uninterrupted([&] {
                             return fsetxattr(file, name.constData(), value->constData(), size, 0);
                         }) == 0;
    return isGiven || attribute(file, name) == value; // such as a label that every file has here
}

/// @return whether all are there now
bool giveAttributes(const QByteArrayList& names, const QByteArray& oldPath, int file)
{
    bool all = true;
    for (const QByteArray& name : names)
        all = giveAttribute(name, oldPath, file) && all;
    return all;
}

} // namespace

QStringList keepProperties(const QByteArray& oldPath, const struct stat& old, int newFile)
{
    std::optional<QByteArrayList> names = attributesOf(oldPath);
    const bool hadAccessList = names && names->removeAll(accessList) > 0;
    giveOwnerAndGroup(old, newFile);
    const bool sameGroup = statusOf(newFile).st_gid == old.st_gid;

    // The folder may have given the new file a list of its own.
    uninterrupted([&] { return fremovexattr(newFile, accessList.constData()); });
    const bool hasAlienList = attribute(newFile, accessList).has_value();
    // Beside an access list the bits of the group are not the group's, and it brings its own.
    const bool bitsAreOfGroup = sameGroup && names && !hadAccessList && !hasAlienList;
    const mode_t permissions = permissionsOf(old);
    givePermissions(bitsAreOfGroup ? permissions : withoutGroup(permissions), newFile);
    const bool sameAccessList =
        hadAccessList ? sameGroup && giveAttribute(accessList, oldPath, newFile) : !hasAlienList;
    const bool sameAttributes = names && giveAttributes(*names, oldPath, newFile);

    const struct stat now = statusOf(newFile);
    QStringList lost;
    if (now.st_uid != old.st_uid)
        lost << QStringLiteral("el dueño");
    if (!sameGroup && permissions != withoutGroup(permissions))
        lost << QStringLiteral("el grupo");
    else if (permissionsOf(now) != permissions && sameAccessList)
        lost << QStringLiteral("los permisos");
    if (!sameAccessList)
        lost << QStringLiteral("la lista de acceso");
    if (!sameAttributes)
        lost << QStringLiteral("los atributos extendidos");
    return lost;
}

} // namespace base
