// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Dialogs.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

namespace grid {

class TableModel;

/// Where the cursor goes from a cell whose text was taken over.
enum class CursorStep { Stay, Next, Right, Left, Up, Down };

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
    /// The user left a cell by a key, its text taken over.
    void left(grid::CursorStep step);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    /// Empty when the open cell's text is a number or as it was.
    QString refusal() const;
    void tell(const QString& reason) const;
    bool leaveBy(CursorStep step);

    const TableModel& m_model;
    window::Dialogs& m_dialogs;
    QWidget* m_view;
    // The one open cell: the toolkit makes, fills and reads editors through const routines.
    mutable QPointer<QLineEdit> m_editor;
    mutable QPersistentModelIndex m_index;
    mutable QString m_openedText;
    bool m_telling = false;
};

} // namespace grid
