// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/NTabEd.h"

#include "grid/view/CellDelegate.h"
#include "grid/view/ContextMenus.h"
#include "grid/view/NameHeader.h"
#include "window/Paper.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPalette>

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace grid {

namespace {

constexpr int usualRowHeight = 24;
constexpr int usualHeaderColumnWidth = 80;
constexpr int narrowestColumn = 16;
constexpr int textMargin = 6; // pixels above and below a number, together

/// The colours of marked and other numbers are made for white cells.
QPalette paperFor(QPalette palette, const QColor& number)
{
    window::makePaper(palette);
    palette.setColor(QPalette::Text, number);
    palette.setColor(QPalette::HighlightedText, number);
    return palette;
}

} // namespace

QColor colorFromInteger(std::uint32_t blueGreenRed)
{
    return {static_cast<int>(blueGreenRed & 0xFFU), static_cast<int>(blueGreenRed >> 8U & 0xFFU),
            static_cast<int>(blueGreenRed >> 16U & 0xFFU)};
}

TNTabEd::TNTabEd(window::Dialogs& dialogs, QWidget* parent)
try : QTableView(parent), m_model(new TableModel(this)), m_history(new EditHistory(*m_model, this)),
    m_delegate(new CellDelegate(*m_model, dialogs, this)),
    m_commands(new GridCommands(*m_model, *m_history, *m_delegate, dialogs, this)) {
    setUpView();
    setUpNames();
    m_widths = new ColumnWidths(*m_model, *m_columnNames, this);
    m_menus = new ContextMenus(*m_commands, this);
    connectParts();
    m_widths->fitAll();
    m_commands->setRights({});
    setCurrentIndex(m_model->index(0, 0));
} catch (const std::bad_alloc&) {
    throw GridError("NTABED: failed to initialize table editor (out of memory)");
}

TNTabEd::~TNTabEd() = default;

void TNTabEd::setUpView()
{
    setObjectName(QStringLiteral("NTabEd"));
    setAccessibleName(QStringLiteral("Tabla de números"));
    m_model->setColors({colorFromInteger(8192), Qt::red, Qt::blue, colorFromInteger(13369531)});
    m_columnNames = new NameHeader(Qt::Horizontal, this);
    setHorizontalHeader(m_columnNames);
    setVerticalHeader(new NameHeader(Qt::Vertical, this));
    setModel(m_model);
    setItemDelegate(m_delegate);
    setSelectionMode(ContiguousSelection);
    setWordWrap(false);
    setCornerButtonEnabled(true);
    setPalette(paperFor(palette(), ColorNormal()));
}

void TNTabEd::setUpNames()
{
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
}

void TNTabEd::connectParts()
{
    connect(m_delegate, &CellDelegate::left, this, &TNTabEd::leaveCell);
    connect(m_history, &EditHistory::changed, this, &TNTabEd::Edited);
    connect(m_history, &EditHistory::contentsChanged, this, &TNTabEd::OnChange);
    connect(m_history, &EditHistory::resized, this, &TNTabEd::TableResized);
    connect(m_commands, &GridCommands::notice, this, &TNTabEd::Notice);
    connect(m_widths, &ColumnWidths::fitted, this, [this] {
        updateGeometries();
        viewport()->update();
        emit WidthChanged();
    });
    connect(m_model, &TableModel::modelReset, this,
            [this] { setCurrentIndex(readOnly() ? QModelIndex() : m_model->index(0, 0)); });
}

void TNTabEd::setSquare(record::SquareData square)
{
    TableData fresh(std::move(square));
    m_widths->forgetUsers();
    m_model->exchange(fresh);
    clearHistory();
}

void TNTabEd::exchangeSquare(record::SquareData square, const Alongside& alongside)
{
    TableData fresh(std::move(square));
    m_widths->forgetUsers();
    m_history->replaceTable(std::move(fresh), alongside);
}

void TNTabEd::keepShape(const TableShape& before, const Alongside& alongside, int kind)
{
    m_history->keepShape(before, alongside, kind);
}

void TNTabEd::undo()
{
    m_commands->run([this] { m_commands->undo(); });
}

void TNTabEd::redo()
{
    m_commands->run([this] { m_commands->redo(); });
}

void TNTabEd::clearHistory()
{
    m_history->forget();
}

void TNTabEd::freeze()
{
    if (m_widths->isFrozen())
        return;
    m_widths->setFrozen(true);
    m_model->setSilent(true);
    setUpdatesEnabled(false);
}

void TNTabEd::release()
{
    if (!m_widths->isFrozen())
        return;
    m_model->setSilent(false);
    m_widths->setFrozen(false);
    m_widths->fitAll();
    setUpdatesEnabled(true);
}

bool TNTabEd::commitEdit()
{
    return m_delegate->accept();
}

QSize TNTabEd::wholeSize() const
{
    const int frame = 2 * frameWidth();
    return {verticalHeader()->width() + horizontalHeader()->length() + frame,
            horizontalHeader()->height() + verticalHeader()->length() + frame};
}

void TNTabEd::setColor(QColor MarkColors::*which, const QColor& color)
{
    MarkColors colors = m_model->colors();
    colors.*which = color;
    m_model->setColors(colors);
}

void TNTabEd::applyRowHeight()
{
    const int height = std::max(usualRowHeight, fontMetrics().height() + textMargin);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setFixedHeight(height);
}

void TNTabEd::leaveCell(CursorStep step)
{
    if (step != CursorStep::Next || m_autoAdvance)
        stepCursor(*this, step);
}

void TNTabEd::keyboardSearch(const QString&)
{
    m_commands->tellNotEditable();
}

bool TNTabEd::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && state() != EditingState &&
        m_commands->isShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void TNTabEd::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        applyRowHeight();
        m_widths->fitAll();
    }
}

void TNTabEd::keyPressEvent(QKeyEvent* event)
{
    // What an open cell leaves over is not for the table behind it; Ctrl+A opens files.
    if (state() == EditingState || event->matches(QKeySequence::SelectAll)) {
        event->ignore();
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers().testFlag(Qt::ShiftModifier)) {
        m_menus->openByKey(event->modifiers());
        event->accept();
        return;
    }
    if (m_commands->take(*event)) {
        event->accept();
        return;
    }
    const std::optional<CursorStep> step = stepOf(*event);
    if (step == CursorStep::Next) {
        event->setAccepted(m_autoAdvance);
        leaveCell(CursorStep::Next);
        return;
    }
    if (tabKeyNavigation() && (step == CursorStep::Right || step == CursorStep::Left)) {
        event->setAccepted(!isAtEdge(*this, *step));
        stepCursor(*this, *step);
        return;
    }
    QTableView::keyPressEvent(event);
}

void TNTabEd::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        m_menus->openByKey(event->modifiers());
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && index != currentIndex()) {
        selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index)
                                                     ? QItemSelectionModel::NoUpdate
                                                     : QItemSelectionModel::ClearAndSelect);
    }
    m_menus->openCellMenu(event->globalPos());
}

} // namespace grid
