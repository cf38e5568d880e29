// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/GridCommands.h"

#include "base/FileText.h"
#include "grid/model/EditHistory.h"
#include "grid/model/GridError.h"
#include "grid/model/TableModel.h"
#include "grid/view/CellDelegate.h"
#include "window/Dialogs.h"
#include "window/OpenQuestion.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTableView>

#include <algorithm>
#include <new>

namespace grid {

namespace {

struct Shortcut {
    QKeySequence::StandardKey key;
    void (*command)(GridCommands& commands);
};

constexpr Shortcut shortcuts[] = {
    {QKeySequence::Undo, [](GridCommands& commands) { commands.undo(); }},
    {QKeySequence::Redo, [](GridCommands& commands) { commands.redo(); }},
    {QKeySequence::Copy, [](GridCommands& commands) { commands.copy(Scope::Range); }},
    {QKeySequence::Paste, [](GridCommands& commands) { commands.paste(); }},
    {QKeySequence::Delete, [](GridCommands& commands) { commands.clear(Scope::Range); }},
};

const Shortcut* shortcutOf(const QKeyEvent& key)
{
    const auto* const found =
        std::find_if(std::begin(shortcuts), std::end(shortcuts),
                     [&key](const Shortcut& shortcut) { return key.matches(shortcut.key); });
    return found != std::end(shortcuts) ? found : nullptr;
}

} // namespace

GridCommands::GridCommands(TableModel& model, EditHistory& history, CellDelegate& cells,
                           window::Dialogs& dialogs, QTableView* view)
    : QObject(view)
    , m_model(model)
    , m_history(history)
    , m_cells(cells)
    , m_dialogs(dialogs)
    , m_view(*view)
{
    connect(&cells, &CellDelegate::entered, this, [this](int column, int row, double value) {
        attempt([&] { m_history.setValue(column, row, value); });
    });
    connect(&cells, &CellDelegate::notice, this, &GridCommands::notice);
    connect(&history, &EditHistory::stepped, this,
            [this](const CellRange& place) { select(m_view, place); });
}

void GridCommands::setRights(const EditRights& rights)
{
    m_rights = rights;
    m_model.setEditable(rights.canEdit());
    m_view.setEditTriggers(rights.canEdit()
                               ? QTableView::DoubleClicked | QTableView::EditKeyPressed |
                                     QTableView::AnyKeyPressed
                               : QTableView::NoEditTriggers);
    // In a table to look at, Tab goes on to the next control; the cursor keys still move.
    m_view.setTabKeyNavigation(!rights.readOnly);
    if (rights.readOnly)
        m_view.setCurrentIndex({});
}

bool GridCommands::isShortcut(const QKeyEvent& key) const
{
    const Shortcut* shortcut = shortcutOf(key);
    if (shortcut == nullptr)
        return false;
    return (shortcut->key != QKeySequence::Undo || m_history.canUndo()) &&
           (shortcut->key != QKeySequence::Redo || m_history.canRedo());
}

bool GridCommands::take(const QKeyEvent& key)
{
    const Shortcut* shortcut = shortcutOf(key);
    if (shortcut != nullptr)
        run([&] { shortcut->command(*this); });
    return shortcut != nullptr;
}

void GridCommands::run(const std::function<void()>& command)
{
    if (window::isAsking())
        window::showQuestion();
    else if (m_cells.accept())
        attempt(command);
}

void GridCommands::attempt(const std::function<void()>& action)
{
    const auto tell = [this](const QString& problem) {
        m_dialogs.showError(&m_view, problem, QStringLiteral("Error"));
    };
    try {
        action();
    } catch (const GridError& error) {
        tell(QString::fromUtf8(error.what()));
    } catch (const std::bad_alloc&) {
        tell(record::outOfMemoryMessage());
    }
}

void GridCommands::mark(Scope scope, std::uint8_t set, std::uint8_t unset)
{
    m_history.mark(rangeOf(m_view, scope), set, unset);
}

void GridCommands::clear(Scope scope)
{
    if (!m_rights.canEdit())
        tellNotEditable();
    else
        m_history.clear(rangeOf(m_view, scope));
}

void GridCommands::copy(Scope scope)
{
    const CellRange range = rangeOf(m_view, scope);
    if (range.cells() > 0)
        QGuiApplication::clipboard()->setText(copiedText(m_model.square(), range));
}

void GridCommands::paste()
{
    if (!m_rights.canEdit()) {
        tellNotEditable();
        return;
    }
    const CellRange place = selectedRange(m_view);
    if (place.cells() == 0)
        return;
    const auto read = readNumberBlock(QGuiApplication::clipboard()->text(),
                                      {m_model.square(), place.column, place.row, m_sizeAdvice});
    if (!read.value) {
        m_dialogs.showError(&m_view, read.reason, QStringLiteral("Pegar"));
        return;
    }
    m_history.paste(*read.value, place.column, place.row);
    QStringList told = {read.value->foreignMarks.notice()};
    if (!m_model.table().treatments.isEmpty())
        told << QStringLiteral("Filas, columnas y tratamientos siguen como se extrajeron");
    told.removeAll(QString());
    if (!told.isEmpty())
        emit notice(told.join(QStringLiteral(". ")));
    select(m_view, {place.column, place.row, read.value->columns, read.value->rows});
}

void GridCommands::extract()
{
    if (!m_rights.canEdit() || !m_extractor)
        return;
    auto read = m_extractor(QGuiApplication::clipboard()->text(), m_model.square().Identifier());
    if (!read.value) {
        m_dialogs.showError(&m_view, read.reason, QStringLiteral("Extraer del portapapeles"));
        return;
    }
    TableData table(std::move(read.value->square));
    table.treatments = read.value->treatments;
    const int columns = std::min(table.square.NrOfColumns(), m_model.square().NrOfColumns());
    for (int column = 1; column <= columns; ++column)
        table.setPrecision(column, m_model.table().precision(column));
    m_history.replaceTable(std::move(table));
    emit notice(read.value->notice);
}

void GridCommands::switchEditing()
{
    setRights({!m_rights.editingAllowed, m_rights.readOnly});
}

void GridCommands::editIdentifier()
{
    if (m_rights.readOnly)
        return;
    const QString shown =
        base::withoutControlCharacters(base::decodedText(m_model.square().Identifier()));
    const auto edited = m_dialogs.editLine(&m_view, QStringLiteral("Identificador"),
                                           QStringLiteral("Comment:"), shown);
    if (!edited)
        return;
    const QString text = base::withoutControlCharacters(*edited);
    if (text != shown)
        m_history.setIdentifier(text.toUtf8());
}

void GridCommands::changePrecision(int column)
{
    const auto decimals = m_dialogs.editInteger(
        &m_view, QStringLiteral("Precisión"),
        QStringLiteral("Decimales de la columna «%1» (-1: los que tenga cada número):")
            .arg(m_model.square().columnName(column)),
        m_model.table().precision(column), -1, 8);
    if (decimals)
        m_history.setPrecision(column, std::clamp(*decimals, -1, 8));
}

void GridCommands::undo()
{
    step(m_history.undoChangesContents(), &EditHistory::undo,
         QStringLiteral("Se deshizo el último cambio de la tabla."));
}

void GridCommands::redo()
{
    step(m_history.redoChangesContents(), &EditHistory::redo,
         QStringLiteral("Se rehízo el cambio de la tabla."));
}

void GridCommands::step(bool changesContents, std::optional<CellRange> (EditHistory::*takeIt)(),
                        const QString& told)
{
    if (changesContents && !m_rights.canEdit()) {
        tellNotEditable();
        return;
    }
    const std::optional<CellRange> place = (m_history.*takeIt)();
    if (!place)
        return;
    // A smaller table hides cells whose history goes on.
    const CellRange shown = m_model.table().range();
    const bool hidden = place->cells() > 0 && (place->lastColumn() > shown.lastColumn() ||
                                               place->lastRow() > shown.lastRow());
    emit notice(hidden ? told + QStringLiteral(" Alcanza celdas que la tabla no muestra ahora.")
                       : told);
}

void GridCommands::tellNotEditable()
{
    emit notice(m_rights.readOnly ? QStringLiteral("Esta tabla es solo para consultar.")
                                  : QStringLiteral("La edición de la tabla está desactivada."));
}

} // namespace grid
