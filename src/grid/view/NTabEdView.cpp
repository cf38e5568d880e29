// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the grid: colours, row height, column widths.
#include "grid/view/NTabEd.h"

#include "grid/model/TableModel.h"
#include "grid/view/ColumnWidth.h"
#include "grid/view/NameHeader.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QPalette>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace grid {

namespace {

constexpr int usualRowHeight = 24;
constexpr int usualHeaderColumnWidth = 80;
constexpr int narrowestColumn = 16;
constexpr int textMargin = 6; // pixels above and below a number, together
/// Columns that are fitted at a time: a table of millions of columns must open at once.
constexpr int columnsFitted = 64;

} // namespace

void TNTabEd::setUpView()
{
    setObjectName(QStringLiteral("NTabEd"));
    setAccessibleName(QStringLiteral("Tabla de números"));
    m_model->setColors({colorFromInteger(8192), Qt::red, Qt::blue, colorFromInteger(13369531)});
    m_columnNames = new NameHeader(Qt::Horizontal, this);
    setHorizontalHeader(m_columnNames);
    setVerticalHeader(new NameHeader(Qt::Vertical, this));
    setModel(m_model);
    setSelectionMode(ContiguousSelection);
    setWordWrap(false);
    setCornerButtonEnabled(true);
    applyLightColors();

    horizontalHeader()->setObjectName(QStringLiteral("ColumnNames"));
    horizontalHeader()->setAccessibleName(QStringLiteral("Nombres de las columnas"));
    horizontalHeader()->setMinimumSectionSize(narrowestColumn);
    verticalHeader()->setObjectName(QStringLiteral("RowNames"));
    verticalHeader()->setAccessibleName(QStringLiteral("Nombres de las filas"));
    verticalHeader()->setMinimumSectionSize(narrowestColumn);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    if (auto* corner = findChild<QAbstractButton*>()) {
        corner->setObjectName(QStringLiteral("Corner"));
        corner->setAccessibleName(QStringLiteral("Seleccionar toda la tabla"));
        corner->setToolTip(corner->accessibleName());
    }
    applyRowHeight();
    setHeaderColumnWidth(usualHeaderColumnWidth);
    fitAllColumns();
    applyEditability();
    setCurrentIndex(m_model->index(0, 0));
}

void TNTabEd::connectWidths()
{
    connect(m_model, &TableModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                fitColumns(first.column() + 1, last.column() + 1);
            });
    connect(m_model, &TableModel::headerDataChanged, this,
            [this](Qt::Orientation orientation, int first, int last) {
                if (orientation == Qt::Horizontal)
                    fitColumns(first + 1, last + 1);
            });
    connect(m_model, &TableModel::columnsInserted, this, &TNTabEd::fitAllColumns);
    connect(m_model, &TableModel::columnsRemoved, this, [this] {
        m_columnsSetByUser.erase(m_columnsSetByUser.upper_bound(NrOfColumns()),
                                 m_columnsSetByUser.end());
    });
    connect(m_model, &TableModel::modelReset, this, [this] {
        fitAllColumns();
        setCurrentIndex(m_readOnly ? QModelIndex() : m_model->index(0, 0));
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
        // Reached by the mouse alone: fitColumns() keeps the header quiet.
        m_columnsSetByUser.insert(section + 1);
    });
}

void TNTabEd::applyLightColors()
{
    // The colours of marked and other numbers are made for white cells, so the table is light in
    // a dark desktop too; the selection is pale for their sake.
    QPalette light = palette();
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, ColorNormal());
    light.setColor(QPalette::Window, QColor(0xF2, 0xF4, 0xF6));
    light.setColor(QPalette::WindowText, QColor(0x20, 0x28, 0x30));
    light.setColor(QPalette::Button, QColor(0xE8, 0xEC, 0xF0));
    light.setColor(QPalette::ButtonText, QColor(0x20, 0x28, 0x30));
    light.setColor(QPalette::Highlight, QColor(0xCF, 0xE3, 0xF7));
    light.setColor(QPalette::HighlightedText, ColorNormal());
    light.setColor(QPalette::Link, QColor(0x1F, 0x5F, 0xA8));
    setPalette(light);
}

QSize TNTabEd::wholeSize() const
{
    const int frame = 2 * frameWidth();
    return {verticalHeader()->width() + horizontalHeader()->length() + frame,
            horizontalHeader()->height() + verticalHeader()->length() + frame};
}

void TNTabEd::applyRowHeight()
{
    const int height = std::max(usualRowHeight, fontMetrics().height() + textMargin);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setFixedHeight(height);
}

void TNTabEd::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyRowHeight();
        fitAllColumns();
    }
}

void TNTabEd::fitAllColumns()
{
    // All columns together must stay within the pixels that the toolkit can count.
    const int widest = std::max(narrowestColumn, std::numeric_limits<int>::max() / NrOfColumns());
    const int width = std::clamp(m_defaultColWidth, narrowestColumn, widest);
    if (width != horizontalHeader()->defaultSectionSize()) {
        const QSignalBlocker quiet(horizontalHeader());
        m_columnsSetByUser.clear();
        horizontalHeader()->setDefaultSectionSize(width);
    }
    fitColumns(1, NrOfColumns());
}

void TNTabEd::fitColumns(int first, int last)
{
    if (m_frozen)
        return;
    // The view takes new widths one by one, each with a repaint of its own, and to the listener
    // above they would look like the user's; so it hears of them once and all together.
    const QSignalBlocker quiet(horizontalHeader());
    for (int column = first; column <= std::min(last, first + columnsFitted - 1); ++column) {
        if (m_columnsSetByUser.count(column) != 0)
            continue;
        const int needed = neededColumnWidth(*m_model, column, fontMetrics(), *m_columnNames);
        setColumnWidth(column - 1, std::max(horizontalHeader()->defaultSectionSize(), needed));
    }
    updateGeometries();
    viewport()->update();
}

} // namespace grid
