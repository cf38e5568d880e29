// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reliability/monkey/Table.h"

#include <functional>
#include <vector>

namespace monkey {

/// What a window must know of its square: the observations that were typed, pasted and loaded, the
/// way back from each step, and, of an editor, the file that it was last loaded from or saved in.
class SquareMemory {
public:
    struct File {
        QString name;
        QByteArray bytes; ///< As last loaded or saved.
        bool saved = false;
    };
    /// What stands on the disk under a name.
    using OnDisk = std::function<QByteArray(const QString& name)>;

    /// Steps of one kind in a row become one; of None each stays alone.
    enum class Kind { None, RowPrefix, ColumnPrefix };

    Table now;
    File file;

    /// The user made this of the table. No step where it is as it was.
    void change(const Table& after);
    /// Another table, be it the same, has come in its place, which is a step in any case.
    void replace(const Table& table);
    /// The window changed what stands around the observations, which counts as unsaved even where
    /// it is no step.
    void changeAround(const Table& after, bool isStep, Kind kind = Kind::None);
    /// How the table is shown was changed.
    void changeLooks();
    void load(const Table& table, const File& loaded);
    /// @return whether there was a step that could be taken
    bool undo(bool mayChange, const OnDisk& onDisk);
    bool redo(bool mayChange, const OnDisk& onDisk);

private:
    struct Step {
        Table before;
        Table after;
        Kind kind = Kind::None;
        bool ofContents = true;
        bool isLoad = false;
        File other = {}; ///< Of a load: the file that is not the present one.
    };

    void push(const Step& step);
    void take(Step& step, const Table& table, const OnDisk& onDisk);

    std::vector<Step> m_steps;
    std::size_t m_taken = 0; ///< So many of the steps are not undone.
};

} // namespace monkey
