// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with the grid: keys, menus and the commands behind them.
#include "grid/NTabEd.h"

#include "base/FileText.h"
#include "grid/CellDelegate.h"
#include "grid/ClipboardLines.h"
#include "grid/ClipboardNumbers.h"
#include "grid/ContextMenus.h"
#include "grid/EditHistory.h"
#include "grid/LatinSquare.h"
#include "grid/TableModel.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <new>

namespace grid {

namespace {

/// The keys that belong to the table even where a menu has the same shortcut.
bool isOwnShortcut(const QKeyEvent& key)
{
    return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) ||
           key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Paste) ||
           key.matches(QKeySequence::Delete);
}

bool isEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// "1 columna y 3 filas".
QString sizeText(int columns, int rows)
{
    return QStringLiteral("%1 y %2").arg(counted(columns, QStringLiteral("columna")),
                                         counted(rows, QStringLiteral("fila")));
}

/// The extracted square as a table: numbers, names, and the precisions of the table before.
TableData tableOf(const LatinSquare& square, const TableData& before)
{
    const int n = square.order();
    TableData table(n, n);
    table.identifier = before.identifier;
    for (int i = 1; i <= n; ++i) {
        table.setColumnName(i, square.columns[i - 1]);
        table.setRowName(i, square.rows[i - 1]);
        if (i <= before.columns())
            table.setPrecision(i, before.precision(i));
        for (int row = 1; row <= n; ++row)
            table.setValue(i, row, square.values[square.place(row - 1, i - 1)]);
    }
    return table;
}

/// "1 = A, 2 = B": which number each treatment has in the cyclic layout.
QString treatmentKey(const LatinSquare& square)
{
    QStringList entries;
    for (int i = 0; i < square.order(); ++i)
        entries += QStringLiteral("%1 = %2").arg(i + 1).arg(square.treatments[i]);
    return entries.join(QStringLiteral(", "));
}

} // namespace

void TNTabEd::connectUser()
{
    setItemDelegate(m_delegate);
    connect(m_delegate, &CellDelegate::entered, this, &TNTabEd::enterValue);
    connect(m_delegate, &CellDelegate::left, this, &TNTabEd::moveCursorBy);

    connect(m_history, &EditHistory::contentsChanged, this, &TNTabEd::OnChange);
    connect(m_history, &EditHistory::resized, this, &TNTabEd::TableResized);
    connect(m_history, &EditHistory::stepped, this, &TNTabEd::select);

    connect(m_menus, &ContextMenus::markRequested, this,
            [this](std::uint8_t set, std::uint8_t unset) {
                command([&] { m_history->mark(selectedRange(), set, unset); });
            });
    connect(m_menus, &ContextMenus::unmarkAllRequested, this, [this] {
        command([&] { m_history->mark(m_model->table().range(), NoMark, MarkBoth); });
    });
    connect(m_menus, &ContextMenus::clearRequested, this,
            [this](Scope scope) { command([&] { clear(rangeOf(scope)); }); });
    connect(m_menus, &ContextMenus::copyRequested, this,
            [this](Scope scope) { command([&] { copy(rangeOf(scope)); }); });
    connect(m_menus, &ContextMenus::pasteRequested, this, [this] { command([&] { paste(); }); });
    connect(m_menus, &ContextMenus::editingSwitchRequested, this,
            [this] { setEditingAllowed(!m_editingAllowed); });
    connect(m_menus, &ContextMenus::extractionRequested, this,
            [this] { command([&] { extract(); }); });
    connect(m_menus, &ContextMenus::identifierRequested, this,
            [this] { command([&] { editIdentifier(); }); });
    connect(m_menus, &ContextMenus::precisionRequested, this,
            [this] { command([&] { changePrecision(); }); });

    const auto openAt = [this](QWidget* header) {
        header->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(header, &QWidget::customContextMenuRequested, this,
                [this, header](const QPoint& position) {
                    const int column = header == horizontalHeader()
                                           ? horizontalHeader()->logicalIndexAt(position) + 1
                                           : 0;
                    openHeaderMenu(header->mapToGlobal(position), column);
                });
    };
    openAt(horizontalHeader());
    openAt(verticalHeader());
    if (auto* corner = findChild<QAbstractButton*>(QStringLiteral("Corner")))
        openAt(corner);
}

void TNTabEd::applyEditability()
{
    m_model->setEditable(canEdit());
    setEditTriggers(canEdit() ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
    // In a table to look at, Tab goes on to the next control; the cursor keys still move.
    setTabKeyNavigation(!m_readOnly);
    if (m_readOnly)
        setCurrentIndex({});
}

bool TNTabEd::canEdit() const
{
    return m_editingAllowed && !m_readOnly;
}

void TNTabEd::attempt(const std::function<void()>& action)
{
    try {
        action();
    } catch (const GridError& error) {
        m_dialogs.showError(this, QString::fromUtf8(error.what()), QStringLiteral("Error"));
    } catch (const std::bad_alloc&) {
        m_dialogs.showError(this, QStringLiteral("NTABED: not enough memory on heap"),
                            QStringLiteral("Error"));
    }
}

void TNTabEd::command(const std::function<void()>& action)
{
    if (commitEdit())
        attempt(action);
}

void TNTabEd::tellEditingIsOff()
{
    if (!m_readOnly)
        emit Notice(QStringLiteral("La edición de la tabla está desactivada."));
}

bool TNTabEd::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && state() != EditingState &&
        isOwnShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void TNTabEd::keyPressEvent(QKeyEvent* event)
{
    // What an open cell leaves over is not for the table behind it; Ctrl+A opens files.
    if (state() == EditingState || event->matches(QKeySequence::SelectAll)) {
        event->ignore();
        return;
    }
    if (handleCommandKey(*event)) {
        event->accept();
        return;
    }
    if (isEnter(*event)) {
        event->setAccepted(m_autoAdvance);
        moveCursorBy(CursorStep::Next);
        return;
    }
    const bool tab = event->key() == Qt::Key_Tab;
    if (tabKeyNavigation() && (tab || event->key() == Qt::Key_Backtab)) {
        const CursorStep step = tab ? CursorStep::Right : CursorStep::Left;
        event->setAccepted(!isAtEdge(step));
        moveCursorBy(step);
        return;
    }
    QTableView::keyPressEvent(event);
}

bool TNTabEd::handleCommandKey(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Undo))
        command([this] { undo(); });
    else if (key.matches(QKeySequence::Redo))
        command([this] { redo(); });
    else if (key.matches(QKeySequence::Copy))
        command([this] { copy(selectedRange()); });
    else if (key.matches(QKeySequence::Paste))
        command([this] { paste(); });
    else if (key.matches(QKeySequence::Delete))
        command([this] { clear(selectedRange()); });
    else
        return false;
    return true;
}

void TNTabEd::keyboardSearch(const QString&)
{
    // Reached by typing where editing is off.
    tellEditingIsOff();
}

void TNTabEd::contextMenuEvent(QContextMenuEvent* event)
{
    QModelIndex index = indexAt(event->pos());
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        index = currentIndex();
        position = viewport()->mapToGlobal(visualRect(index).center());
        if (event->modifiers().testFlag(Qt::ControlModifier)) {
            openHeaderMenu(position, 0);
            return;
        }
    }
    if (index.isValid() && index != currentIndex()) {
        selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index)
                                                     ? QItemSelectionModel::NoUpdate
                                                     : QItemSelectionModel::ClearAndSelect);
    }
    m_menus->openCellMenu(position, {m_editingAllowed, m_readOnly});
}

void TNTabEd::openHeaderMenu(const QPoint& globalPosition, int column)
{
    m_headerMenuColumn = column >= 1 ? column : std::max(1, currentIndex().column() + 1);
    m_menus->openHeaderMenu(globalPosition, {m_editingAllowed, m_readOnly});
}

bool TNTabEd::isAtEdge(CursorStep step) const
{
    const QModelIndex edge = step == CursorStep::Left
                                 ? m_model->index(0, 0)
                                 : m_model->index(NrOfRows() - 1, NrOfColumns() - 1);
    return !currentIndex().isValid() || currentIndex() == edge;
}

void TNTabEd::moveCursorBy(CursorStep step)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid() || step == CursorStep::Stay ||
        (step == CursorStep::Next && !m_autoAdvance))
        return;
    int column = current.column();
    int row = current.row();
    switch (step) {
    case CursorStep::Up:
        --row;
        break;
    case CursorStep::Down:
        ++row;
        break;
    case CursorStep::Left:
        row -= column == 0 ? 1 : 0;
        column = column == 0 ? NrOfColumns() - 1 : column - 1;
        break;
    default:
        row += column == NrOfColumns() - 1 ? 1 : 0;
        column = column == NrOfColumns() - 1 ? 0 : column + 1;
    }
    if (row >= 0 && row < NrOfRows())
        setCurrentIndex(m_model->index(row, column));
}

void TNTabEd::select(const CellRange& range)
{
    const QModelIndex first = m_model->index(std::min(range.row, NrOfRows()) - 1,
                                             std::min(range.column, NrOfColumns()) - 1);
    const QModelIndex last = m_model->index(std::min(range.lastRow(), NrOfRows()) - 1,
                                            std::min(range.lastColumn(), NrOfColumns()) - 1);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

CellRange TNTabEd::selectedRange() const
{
    // The selection is one rectangle, and empty only before the cursor has been anywhere.
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty())
        return {currentIndex().column() + 1, currentIndex().row() + 1, 1, 1};
    const QItemSelectionRange& range = selection.first();
    return {range.left() + 1, range.top() + 1, range.width(), range.height()};
}

CellRange TNTabEd::rangeOf(Scope scope) const
{
    switch (scope) {
    case Scope::Column:
        return {currentIndex().column() + 1, 1, 1, NrOfRows()};
    case Scope::Row:
        return {1, currentIndex().row() + 1, NrOfColumns(), 1};
    case Scope::All:
        return m_model->table().range();
    default:
        return selectedRange();
    }
}

void TNTabEd::enterValue(int column, int row, double value)
{
    attempt([&] { m_history->setValue(column, row, value); });
}

void TNTabEd::clear(const CellRange& range)
{
    if (canEdit())
        m_history->clear(range);
}

void TNTabEd::copy(const CellRange& range)
{
    QGuiApplication::clipboard()->setText(copiedText(m_model->table(), range));
}

void TNTabEd::paste()
{
    if (!canEdit())
        return;
    const QString caption = QStringLiteral("Pegar");
    const auto read = readNumberBlock(QGuiApplication::clipboard()->text());
    if (!read.value) {
        m_dialogs.showError(this, read.reason, caption);
        return;
    }
    const CellRange place = selectedRange();
    const int roomForColumns = NrOfColumns() - place.column + 1;
    const int roomForRows = NrOfRows() - place.row + 1;
    if (read.value->columns > roomForColumns || read.value->rows > roomForRows) {
        m_dialogs.showError(
            this,
            QStringLiteral("Los datos del portapapeles ocupan %1. Desde la fila «%2», columna «%3» "
                           "solo hay sitio para %4.")
                .arg(sizeText(read.value->columns, read.value->rows), rowName(place.row),
                     columnName(place.column), sizeText(roomForColumns, roomForRows)),
            caption);
        return;
    }
    m_history->paste(*read.value, place.column, place.row);
    select({place.column, place.row, read.value->columns, read.value->rows});
}

void TNTabEd::extract()
{
    if (!canEdit())
        return;
    const auto read = readCyclicSquare(QGuiApplication::clipboard()->text());
    if (!read.value) {
        m_dialogs.showError(this, read.reason, QStringLiteral("Extraer del portapapeles"));
        return;
    }
    m_history->replaceTable(tableOf(*read.value, m_model->table()));
    emit Notice(QStringLiteral("Tratamientos: %1.").arg(treatmentKey(*read.value)));
}

void TNTabEd::editIdentifier()
{
    if (m_readOnly)
        return;
    const QString shown = base::withoutControlCharacters(base::decodedText(Identifier()));
    const auto edited = m_dialogs.editLine(this, QStringLiteral("Identificador"),
                                           QStringLiteral("Comment:"), shown);
    if (!edited)
        return;
    const QString text = base::withoutControlCharacters(*edited);
    if (text != shown)
        m_history->setIdentifier(text.toUtf8());
}

void TNTabEd::changePrecision()
{
    const int column = m_headerMenuColumn;
    const auto decimals = m_dialogs.editInteger(
        this, QStringLiteral("Precisión"),
        QStringLiteral("Decimales de la columna «%1» (-1: los que tenga cada número):")
            .arg(columnName(column)),
        precision(column), -1, 8);
    if (decimals)
        m_history->setPrecision(column, std::clamp(*decimals, -1, 8));
}

void TNTabEd::undo()
{
    if (m_history->undoChangesContents() && !canEdit())
        tellEditingIsOff();
    else
        m_history->undo();
}

void TNTabEd::redo()
{
    if (m_history->redoChangesContents() && !canEdit())
        tellEditingIsOff();
    else
        m_history->redo();
}

} // namespace grid
