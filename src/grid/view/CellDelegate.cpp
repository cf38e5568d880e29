// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/CellDelegate.h"

#include "base/FieldLines.h"
#include "base/ForeignMarks.h"
#include "base/NumberText.h"
#include "grid/model/TableModel.h"
#include "window/Dialogs.h"

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace grid {

namespace {

constexpr int numberMargin = 3;  // pixels left and right of a number
constexpr int editorMargin = 12; // pixels left and right of the text, together

/// Whether the user is still at the open cell although it lost the focus: to another window of the
/// desktop (not to another child of the same frame) or to a menu.
bool isPassing(const QFocusEvent& event, const QWidget& editor)
{
    if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason)
        return true;
    const QWidget* focus = QApplication::focusWidget();
    return event.reason() == Qt::ActiveWindowFocusReason &&
           (focus == nullptr || focus == &editor || focus->window() != editor.window());
}

/// Ctrl+E, which a line edit takes for a second End key and a window for its command.
bool isSecondEndOfLine(const QKeyEvent& key)
{
    return key.matches(QKeySequence::MoveToEndOfLine) && key.key() != Qt::Key_End;
}

/// Something that an object is doing for as long as this lives, also where an error ends it. The
/// object may go meanwhile.
class Doing {
public:
    Doing(const QObject& who, bool& what)
        : m_who(&who)
        , m_what(what)
    {
        m_what = true;
    }
    ~Doing()
    {
        if (m_who)
            m_what = false;
    }
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

private:
    QPointer<const QObject> m_who;
    bool& m_what;
};

/// Makes an editor as wide as its text, at least as its cell and at most up to the table's edge.
void widen(QLineEdit& editor)
{
    const int needed = editor.fontMetrics().horizontalAdvance(editor.text()) + editorMargin;
    const int room = editor.parentWidget()->width() - editor.x();
    editor.resize(std::max(editor.minimumWidth(), std::min(needed, room)), editor.height());
}

} // namespace

CellDelegate::CellDelegate(const TableModel& model, window::Dialogs& dialogs, QWidget* view)
    : QStyledItemDelegate(view)
    , m_model(model)
    , m_dialogs(dialogs)
    , m_view(view)
{
}

bool CellDelegate::accept()
{
    return m_editor == nullptr || leaveBy(CursorStep::Stay);
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.state &= ~QStyle::State_HasFocus;
    const QString number = std::exchange(cell.text, QString());
    const QStyle& style = *m_view->style();
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, m_view);
    // As a header draws a name, and as high as the row with its line: both stand on one line.
    const QRect place = cell.rect.adjusted(numberMargin, 0, -numberMargin, 1);
    painter->setFont(cell.font);
    style.drawItemText(painter, place, static_cast<int>(cell.displayAlignment), cell.palette, true,
                       cell.fontMetrics.elidedText(number, cell.textElideMode, place.width()),
                       QPalette::Text);
    if (!(option.state & QStyle::State_HasFocus))
        return;
    // The cursor: a frame that stands out on selected and other cells alike.
    painter->save();
    painter->setPen(QPen(option.palette.color(QPalette::Link), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const
{
    auto* editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("CellEditor"));
    editor->setAccessibleName(nameOf(index, QStringLiteral("Dato de la fila %1, columna %2")));
    editor->setAutoFillBackground(true);
    editor->setAlignment(Qt::AlignRight);
    // Selected text stands out more than selected cells.
    QPalette colors = editor->palette();
    colors.setColor(QPalette::Highlight, colors.color(QPalette::Link));
    colors.setColor(QPalette::HighlightedText, Qt::white);
    editor->setPalette(colors);
    connect(editor, &QLineEdit::textChanged, editor, [editor] { widen(*editor); });
    m_editor = editor;
    return editor;
}

void CellDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    if (editor == m_editor)
        m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* line = static_cast<QLineEdit*>(editor);
    if (line->isModified())
        return; // what the user has typed outlasts a change of the table behind it
    m_openedText = base::fullText(m_model.square().value(index.column() + 1, index.row() + 1));
    line->setText(m_openedText);
    line->selectAll();
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                const QModelIndex& index) const
{
    const QString text = static_cast<QLineEdit*>(editor)->text();
    if (text == m_openedText)
        return;
    const base::Outcome<double> number = base::readTypedNumber(text);
    if (number.value) {
        emit entered(index.column() + 1, index.row() + 1, *number.value);
        base::ForeignMarks marks;
        marks.look(text, *number.value);
        if (const QString told = marks.notice(); !told.isEmpty())
            emit notice(told);
        return;
    }
    QString refusal = number.reason;
    if (const QString question = base::letterQuestion(text); !question.isEmpty())
        refusal += QLatin1Char(' ') + question;
    refusal += nameOf(index, QStringLiteral("\nCelda: fila «%1», columna «%2»."));
    if (m_leaving) {
        m_refusal = refusal;
        return;
    }
    // A box in the middle of a click would take the mouse's release from the widget clicked on.
    QMetaObject::invokeMethod(
        m_view,
        [this, refusal] { tell(refusal + QStringLiteral("\nSe conserva el dato anterior.")); },
        Qt::QueuedConnection);
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const
{
    auto* line = static_cast<QLineEdit*>(editor);
    line->setMinimumWidth(option.rect.width());
    line->setGeometry(option.rect);
    widen(*line);
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event)
{
    // A line edit that is being destroyed sends events when it is none any more.
    if (qobject_cast<QLineEdit*>(object) == nullptr || object != m_editor)
        return QStyledItemDelegate::eventFilter(object, event);
    if (event->type() == QEvent::KeyPress) {
        if (const auto step = stepOf(*static_cast<QKeyEvent*>(event))) {
            leaveBy(*step);
            return true;
        }
    }
    if (event->type() == QEvent::ShortcutOverride &&
        isSecondEndOfLine(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::FocusOut &&
        (m_telling || isPassing(*static_cast<QFocusEvent*>(event), *m_editor)))
        return false;
    return QStyledItemDelegate::eventFilter(object, event);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // The colour of a mark shows on selected cells too.
    option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
}

/// The names of a cell's row and column in a text that has "%1" and "%2" for them.
QString CellDelegate::nameOf(const QModelIndex& index, const QString& form) const
{
    return form.arg(m_model.square().rowName(index.row() + 1),
                    m_model.square().columnName(index.column() + 1));
}

void CellDelegate::tell(const QString& refusal) const
{
    m_dialogs.showError(m_view, refusal, QStringLiteral("Dato no válido"));
}

bool CellDelegate::leaveBy(CursorStep step)
{
    if (m_telling)
        return false;
    const QPointer<CellDelegate> stillThere(this);
    const QPointer<QLineEdit> editor = m_editor;
    m_refusal.clear();
    {
        const Doing leaving(*this, m_leaving);
        emit commitData(editor);
    }
    if (!stillThere)
        return false;
    if (!m_refusal.isEmpty()) {
        {
            const Doing telling(*this, m_telling);
            tell(m_refusal);
        }
        if (editor) {
            editor->setFocus();
            editor->selectAll();
        }
        return false;
    }
    if (editor == m_editor)
        emit closeEditor(editor, NoHint);
    emit left(step);
    return true;
}

} // namespace grid
