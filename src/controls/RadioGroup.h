// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QStringList>

class QButtonGroup;
class QVBoxLayout;

namespace controls {

/// A framed column of radio buttons of which one is selected, addressed by its index from 0.
class RadioGroup : public QGroupBox {
    Q_OBJECT

public:
    /// The buttons take their object names from `name`.
    RadioGroup(const QString& name, const QString& caption, QWidget* parent = nullptr);

    /// Replaces all items; none of the new ones is selected. Each may have a tool tip.
    void setItems(const QStringList& items, const QStringList& tips = {});
    QStringList items() const;

    /// Keeps room for each of these sets of items, so that nothing around moves when one takes the
    /// place of another. Leaves the group empty.
    void reserve(const QList<QStringList>& offers);

    /// The selected item, -1 when none is.
    int itemIndex() const;

    /// Selects an item. An index beyond the last item means the last one; a negative one changes
    /// nothing.
    void setItemIndex(int index);

signals:
    /// Another item was selected, by the user or by setItemIndex().
    void selected(int index);

protected:
    void initStyleOption(QStyleOptionGroupBox* option) const override;

private:
    void deselect();
    void appendButton();
    /// Tab, and setFocus(), stop once at the group, at its selected item; the arrow keys go on from
    /// there.
    void reachSelectedByTab();

    QButtonGroup* m_buttons = nullptr;
    QVBoxLayout* m_column = nullptr;
};

} // namespace controls
