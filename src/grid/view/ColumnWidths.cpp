// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/ColumnWidths.h"

#include "grid/model/TableModel.h"
#include "grid/view/NameHeader.h"

#include <QFontMetrics>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace grid {

namespace {

constexpr int widest = 200; // pixels; a longer number is shown cut
constexpr int rowsLookedAt = 200;
/// Columns that are fitted at a time: a table of millions of columns must open at once.
constexpr int columnsFitted = 64;
constexpr int cellMargin = 12; // pixels left and right of a number, together
constexpr int columnGap = 4;   // pixels between a name and its neighbour

} // namespace

ColumnWidths::ColumnWidths(const TableModel& model, NameHeader& header, QWidget* view)
    : QObject(view)
    , m_model(model)
    , m_header(header)
    , m_view(*view)
{
    connect(&model, &TableModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                fit(first.column() + 1, last.column() + 1);
            });
    connect(&model, &TableModel::headerDataChanged, this,
            [this](Qt::Orientation orientation, int first, int last) {
                if (orientation == Qt::Horizontal)
                    fit(first + 1, last + 1);
            });
    connect(&model, &TableModel::columnsInserted, this, &ColumnWidths::fitAll);
    connect(&model, &TableModel::columnsRemoved, this, [this] {
        m_setByUser.erase(m_setByUser.upper_bound(m_model.columnCount()), m_setByUser.end());
    });
    connect(&model, &TableModel::modelReset, this, &ColumnWidths::fitAll);
    connect(&header, &QHeaderView::sectionResized, this, [this](int section) {
        // Reached by the mouse alone: fit() keeps the header quiet.
        m_setByUser.insert(section + 1);
    });
}

void ColumnWidths::setUsual(int width)
{
    m_usual = width;
    fitAll();
}

void ColumnWidths::fitAll()
{
    // All columns together must stay within the pixels that the toolkit can count.
    const int columns = m_model.columnCount();
    const int narrowest = m_header.minimumSectionSize();
    const int most = std::max(narrowest, std::numeric_limits<int>::max() / columns);
    const int width = std::clamp(m_usual, narrowest, most);
    if (width != m_header.defaultSectionSize()) {
        const QSignalBlocker quiet(m_header);
        m_setByUser.clear();
        m_header.setDefaultSectionSize(width);
    }
    fit(1, columns);
}

void ColumnWidths::fit(int first, int last)
{
    if (m_frozen)
        return;
    // The view takes new widths one by one, each with a repaint of its own, and to the listener
    // above they would look like the user's; so it hears of them once and all together.
    const QSignalBlocker quiet(m_header);
    for (int column = first; column <= std::min(last, first + columnsFitted - 1); ++column) {
        if (m_setByUser.count(column) == 0)
            m_header.resizeSection(column - 1,
                                   std::max(m_header.defaultSectionSize(), needed(column)));
    }
    emit fitted();
}

/// What a column's name and the numbers of its first rows need, at most `widest`.
int ColumnWidths::needed(int column) const
{
    const QString name = m_model.headerData(column - 1, Qt::Horizontal).toString();
    const QFontMetrics cells = m_view.fontMetrics();
    int width = m_header.neededWidth(name) + columnGap;
    const int rows = std::min(m_model.rowCount(), rowsLookedAt);
    for (int row = 0; row < rows && width < widest; ++row) {
        const QString number = m_model.data(m_model.index(row, column - 1)).toString();
        width = std::max(width, cells.horizontalAdvance(number) + cellMargin);
    }
    return std::min(width, widest);
}

} // namespace grid
