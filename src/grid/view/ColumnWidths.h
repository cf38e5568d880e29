// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <set>

class QWidget;

namespace grid {

class NameHeader;
class TableModel;

/// Keeps the columns of a table as wide as their names and the numbers of their first rows need.
///
/// A column that the user has drawn wider or narrower is left alone. Widths are pixels; columns
/// count from 1.
class ColumnWidths : public QObject {
    Q_OBJECT

public:
    /// Follows the changes of the model from now on. `view` gives the cells their font; it owns the
    /// new object, which model and header outlive.
    ColumnWidths(const TableModel& model, NameHeader& header, QWidget* view);

    /// The width of a column that needs no more.
    void setUsual(int width);
    /// While frozen nothing is fitted.
    bool isFrozen() const { return m_frozen; }
    void setFrozen(bool frozen) { m_frozen = frozen; }
    void forgetUsers() { m_setByUser.clear(); }
    void fitAll();

signals:
    /// The view has to lay itself out again.
    void fitted();

private:
    void fit(int first, int last);
    int needed(int column) const;

    const TableModel& m_model;
    NameHeader& m_header;
    const QWidget& m_view;
    std::set<int> m_setByUser;
    int m_usual = 64;
    bool m_frozen = false;
};

} // namespace grid
