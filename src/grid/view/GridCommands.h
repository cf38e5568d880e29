// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/ClipboardNumbers.h"
#include "grid/model/Extraction.h"
#include "grid/view/Cursor.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

class QKeyEvent;
class QTableView;

namespace window {
class Dialogs;
}

namespace grid {

class CellDelegate;
class EditHistory;
class TableModel;

/// What the user may do to a table.
struct EditRights {
    bool editingAllowed = true; ///< What "Edit on/Off" switches.
    bool readOnly = false;
    bool canEdit() const { return editingAllowed && !readOnly; }
};

/// What the user can do to a table beside typing: the commands of its menus and keys.
class GridCommands : public QObject {
    Q_OBJECT

public:
    /// All of them outlive the commands, which the view owns.
    GridCommands(TableModel& model, EditHistory& history, CellDelegate& cells,
                 window::Dialogs& dialogs, QTableView* view);

    const EditRights& rights() const { return m_rights; }
    void setRights(const EditRights& rights);
    void setExtractor(Extractor extractor) { m_extractor = std::move(extractor); }
    void setSizeAdvice(SizeAdvice advice) { m_sizeAdvice = std::move(advice); }

    /// Whether a key belongs to the table even where a menu or the window has the same shortcut: a
    /// table without a step to take leaves it to its window.
    bool isShortcut(const QKeyEvent& key) const;
    /// Runs the command of a key. @return false where it has none
    bool take(const QKeyEvent& key);

    /// Runs one of the commands below once the open cell is taken over; none while a question is
    /// open, nor where the text of the cell is refused.
    void run(const std::function<void()>& command);
    /// Does what changes the table and shows a lack of memory as an error.
    void attempt(const std::function<void()>& action);

    void mark(Scope scope, std::uint8_t set, std::uint8_t unset);
    void clear(Scope scope);
    void copy(Scope scope);
    void paste();
    void extract();
    void switchEditing();
    void editIdentifier();
    void changePrecision(int column);
    void undo();
    void redo();
    void tellNotEditable();

signals:
    /// A short message for a status line.
    void notice(const QString& text);

private:
    /// Takes a step of the history and tells it.
    void step(bool changesContents, std::optional<CellRange> (EditHistory::*takeIt)(),
              const QString& told);

    TableModel& m_model;
    EditHistory& m_history;
    CellDelegate& m_cells;
    window::Dialogs& m_dialogs;
    QTableView& m_view;
    EditRights m_rights;
    Extractor m_extractor;
    SizeAdvice m_sizeAdvice;
};

} // namespace grid
