// SPDX-License-Identifier: GPL-3.0-or-later
// The user's commands.
#include "grid/view/NTabEd.h"

#include "base/FileText.h"
#include "experiment/Extraction.h"
#include "grid/model/ClipboardNumbers.h"
#include "grid/model/EditHistory.h"
#include "grid/model/TableModel.h"
#include "grid/view/CellDelegate.h"
#include "grid/view/ContextMenus.h"
#include "window/Asking.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

#include <algorithm>
#include <new>

namespace grid {

namespace {

/// The extracted square as a table: numbers, names, and the precisions of the table before.
TableData tableOf(const experiment::LatinSquare& square, const TableData& before)
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
QString treatmentKey(const experiment::LatinSquare& square)
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
            [this] { command([&] { setEditingAllowed(!m_editingAllowed); }); });
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
    if (window::isAsking())
        window::showQuestion();
    else if (commitEdit())
        attempt(action);
}

void TNTabEd::tellEditingIsOff()
{
    if (!m_readOnly)
        emit Notice(QStringLiteral("La edición de la tabla está desactivada."));
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
    if (range.cells() > 0)
        QGuiApplication::clipboard()->setText(copiedText(m_model->table(), range));
}

void TNTabEd::paste()
{
    if (!canEdit())
        return;
    const CellRange place = selectedRange();
    if (place.cells() == 0)
        return;
    const auto read =
        readNumberBlock(QGuiApplication::clipboard()->text(),
                        {QStringLiteral("la fila «%1», columna «%2»")
                             .arg(rowName(place.row), columnName(place.column)),
                         NrOfColumns() - place.column + 1, NrOfRows() - place.row + 1});
    if (!read.value) {
        m_dialogs.showError(this, read.reason, QStringLiteral("Pegar"));
        return;
    }
    m_history->paste(*read.value, place.column, place.row);
    select({place.column, place.row, read.value->columns, read.value->rows});
}

void TNTabEd::extract()
{
    if (!canEdit())
        return;
    const auto read = experiment::readCyclicSquare(QGuiApplication::clipboard()->text());
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
    else if (const auto place = m_history->undo())
        tellStep(QStringLiteral("Se deshizo el último cambio de la tabla."), *place);
}

void TNTabEd::redo()
{
    if (m_history->redoChangesContents() && !canEdit())
        tellEditingIsOff();
    else if (const auto place = m_history->redo())
        tellStep(QStringLiteral("Se rehízo el cambio de la tabla."), *place);
}

/// A smaller table hides cells whose history goes on.
void TNTabEd::tellStep(const QString& step, const CellRange& place)
{
    const bool hidden =
        place.cells() > 0 && (place.lastColumn() > NrOfColumns() || place.lastRow() > NrOfRows());
    emit Notice(hidden ? step + QStringLiteral(" Alcanza celdas que la tabla no muestra ahora.")
                       : step);
}

} // namespace grid
