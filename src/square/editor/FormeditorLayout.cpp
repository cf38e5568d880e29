// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Formeditor: the order of the square, its names and its treatments, and how
// their changes are taken back.
#include "square/editor/Formeditor.h"

#include "controls/UpDown.h"
#include "grid/view/NTabEd.h"
#include "window/OpenQuestion.h"

#include <QLineEdit>
#include <QPointer>

#include <memory>
#include <new>
#include <utility>

namespace square {

namespace {

constexpr int observationDecimals = 3;
constexpr int treatmentDecimals = 0;

QString numbered(const QString& prefix, int number)
{
    return QStringLiteral("%1 %2").arg(prefix, QString::number(number));
}

/// Frozen, or the table would fit its columns once for each of them.
void setPrecisions(grid::TNTabEd& table, int decimals)
{
    const grid::Freeze freeze(table);
    for (int column = 1; column <= table.NrOfColumns(); ++column)
        table.setPrecision(column, decimals);
}

} // namespace

void TEditor::NumTratamientosClick()
{
    const QPointer<TEditor> stillThere(this);
    if (m_datos->commitEdit())
        setOrder(m_numTratamientos->Position());
    else if (stillThere)
        m_numTratamientos->setPosition(m_refTratamientos->NrOfColumns());
}

void TEditor::NFilasChange()
{
    takePrefix(*m_nFilas, m_rowPrefix, RowPrefix, &TEditor::nameRows);
}

void TEditor::NColumnasChange()
{
    takePrefix(*m_nColumnas, m_columnPrefix, ColumnPrefix, &TEditor::nameColumns);
}

void TEditor::aleatorizar()
{
    const grid::Freeze freeze(*m_refTratamientos);
    const int n = m_refTratamientos->NrOfColumns();
    for (int row = 1; row <= n; ++row) {
        int treatment = row;
        for (int column = 1; column <= n; ++column) {
            m_refTratamientos->setValue(column, row, treatment);
            treatment = treatment < n ? treatment + 1 : 1;
        }
    }
}

/// Shows a square that was read, with its treatments beside it, all or nothing.
/// @return what stood in the way
QString TEditor::showLoaded(record::SquareData square, const File& file)
{
    const int order = square.NrOfColumns();
    const Layout before = layoutNow();
    struct OtherFile {
        File file;
        bool isIn = false; ///< It is the editor's, and the editor's is here.
        bool isNew = true; ///< Read just now.
    };
    const auto other = std::make_shared<OtherFile>(OtherFile{file});
    const auto step = [this, other](const Layout& wanted, bool isOther) {
        return [this, other, wanted, isOther] {
            if (std::exchange(other->isIn, isOther) != isOther) {
                exchangeFile(other->file);
                if (!std::exchange(other->isNew, false))
                    compareWithDisk();
            }
            putAround(wanted);
            aleatorizar();
        };
    };
    const auto takeBack = [this, &before](const QString& problem) {
        m_refTratamientos->setShape(before.treatments);
        return problem;
    };
    try {
        m_refTratamientos->resizeTable(order, order);
        setPrecisions(*m_refTratamientos, treatmentDecimals);
        m_datos->exchangeSquare(std::move(square), {step(layoutNow(), true), step(before, false)});
    } catch (const grid::GridError& error) {
        return takeBack(QString::fromUtf8(error.what()));
    } catch (const std::bad_alloc&) {
        return takeBack(record::outOfMemoryMessage());
    }
    return {};
}

/// A new order for both grids, with the headers named after the prefixes.
void TEditor::setOrder(int order)
{
    const Layout before = layoutNow();
    for (grid::TNTabEd* const table : {m_refTratamientos, m_datos}) {
        table->resizeTable(order, order);
        nameColumns(*table);
        nameRows(*table);
    }
    setPrecisions(*m_refTratamientos, treatmentDecimals);
    setPrecisions(*m_datos, observationDecimals);
    keepChange(before, Order);
}

/// The user brought a whole experiment into the grid: everything around it follows.
void TEditor::DatosResized(int columns)
{
    m_refTratamientos->resizeTable(columns, columns);
    m_numTratamientos->setPosition(columns);
    setPrecisions(*m_refTratamientos, treatmentDecimals);
    setPrecisions(*m_datos, observationDecimals);
    nameColumns(*m_refTratamientos);
    nameRows(*m_refTratamientos);
    aleatorizar();
}

/// What the user has made of a prefix, and of the names by it.
void TEditor::takePrefix(QLineEdit& edit, QString& prefix, ChangeKind kind,
                         void (TEditor::*name)(grid::TNTabEd&) const)
{
    // A character that the edit refuses comes here too, without a change.
    if (edit.text() == prefix)
        return;
    if (window::isAsking()) {
        edit.setText(prefix);
        return;
    }
    const Layout before = layoutNow();
    prefix = edit.text();
    for (grid::TNTabEd* const table : {m_refTratamientos, m_datos})
        (this->*name)(*table);
    keepChange(before, kind);
}

TEditor::Layout TEditor::layoutNow() const
{
    return {m_datos->shape(), m_refTratamientos->shape(), m_rowPrefix, m_columnPrefix};
}

/// Makes what stands around the observations follow their layout, but for the treatments' values.
void TEditor::putAround(const Layout& layout)
{
    m_refTratamientos->setShape(layout.treatments);
    m_numTratamientos->setPosition(layout.treatments.columns);
    m_rowPrefix = layout.rowPrefix;
    m_columnPrefix = layout.columnPrefix;
    for (const auto& [edit, prefix] :
         {std::pair(m_nFilas, m_rowPrefix), std::pair(m_nColumnas, m_columnPrefix)}) {
        if (edit->text() != prefix) // not while it is typed: the cursor would go to its end
            edit->setText(prefix);
    }
    FormActivate(); // the status line speaks of the square that is there now
}

/// Makes a step of what has just been done to names and order.
void TEditor::keepChange(const Layout& before, ChangeKind kind)
{
    m_file.saved = false;
    const Layout after = layoutNow();
    if (after == before)
        return;
    const auto step = [this, isOrder = kind == Order](const Layout& wanted) {
        return [this, isOrder, wanted] {
            m_file.saved = false;
            putAround(wanted);
            if (isOrder)
                aleatorizar();
        };
    };
    m_datos->keepShape(before.observations, {step(after), step(before)}, kind);
}

void TEditor::nameColumns(grid::TNTabEd& table) const
{
    const grid::Freeze freeze(table);
    for (int column = 1; column <= table.NrOfColumns(); ++column)
        table.setColumnName(column, numbered(m_columnPrefix, column));
}

void TEditor::nameRows(grid::TNTabEd& table) const
{
    const grid::Freeze freeze(table);
    for (int row = 1; row <= table.NrOfRows(); ++row)
        table.setRowName(row, numbered(m_rowPrefix, row));
}

} // namespace square
