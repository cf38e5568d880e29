// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileSizeLimit.h"

#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>
#include <random>

namespace monkey {

using Random = std::mt19937;

inline int below(Random& random, int count)
{
    return static_cast<int>(random() % static_cast<unsigned>(count));
}
inline bool oneIn(Random& random, int count)
{
    return below(random, count) == 0;
}

/// The files of this user, and what each must hold: the places to save in, good and bad.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// A name to save under: new, taken, protected, in no folder, that of a folder.
    QString nameToSave(Random& random, const QString& suffix);
    /// A name to open: a square as a rule, at times a file that is none, or no file.
    QString nameToOpen(Random& random);
    /// One of the files that can be written; empty where there is none.
    QString anyFile(Random& random) const;

    QByteArray read(const QString& name) const;
    /// Somebody else writes a file.
    void writeFromOutside(const QString& name, const QByteArray& bytes);
    void removeFromOutside(const QString& name);

    /// What a file is to hold; empty for one that is not to be there.
    QByteArray accepted(const QString& name) const { return m_wanted.value(name); }
    /// The file now holds what it is to hold.
    void accept(const QString& name) { m_wanted[name] = read(name); }
    /// Files that are not as they were accepted, and files that nobody has accepted.
    QStringList changed() const;

    /// From now on nothing more fits on the disk, until there is room again.
    void fill() { m_full.emplace(rlim_t{100}); }
    void makeRoom() { m_full.reset(); }
    bool isFull() const { return m_full.has_value(); }

private:
    QStringList files() const;

    QTemporaryDir m_folder;
    QMap<QString, QByteArray> m_wanted;
    std::optional<FileSizeLimit> m_full;
    int m_names = 0;
    bool m_wasRoot = false;
};

} // namespace monkey
