// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/view/Cursor.h"

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

namespace window {
class Dialogs;
}

namespace grid {

class TableModel;

/// Shows the cells, and edits one as the full text of its number.
///
/// A text that is no number is refused with a box. By a key that would leave the cell, or by
/// accept(), the cell stays open with the text selected; where the user has gone elsewhere already,
/// the old value stays and the box follows once that click has been dealt with. A change to another
/// window of the desktop and an open menu leave the cell as it is.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `model` and `dialogs` outlive the delegate.
    CellDelegate(const TableModel& model, window::Dialogs& dialogs, QWidget* view);

    /// Takes over the text of the open cell, if there is one, and closes it.
    /// @return false when the text was refused
    bool accept();

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

signals:
    /// The user gave a cell another number.
    void entered(int column, int row, double value) const;
    /// How a number was read that its writer may have meant otherwise, for a status line.
    void notice(const QString& text) const;
    /// The user left a cell by a key, its text taken over.
    void left(grid::CursorStep step);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QString nameOf(const QModelIndex& index, const QString& form) const;
    void tell(const QString& refusal) const;
    bool leaveBy(CursorStep step);

    const TableModel& m_model;
    window::Dialogs& m_dialogs;
    QWidget* m_view;
    // The one open cell: the toolkit makes, fills and reads editors through const routines.
    mutable QPointer<QLineEdit> m_editor;
    mutable QString m_openedText;
    mutable QString m_refusal; ///< Of the text that a key or accept() is about to leave.
    bool m_leaving = false;    ///< By a key or accept().
    bool m_telling = false;
};

} // namespace grid
