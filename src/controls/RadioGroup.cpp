// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RadioGroup.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QStyleOptionGroupBox>
#include <QVBoxLayout>

#include <algorithm>

namespace controls {

RadioGroup::RadioGroup(const QString& name, const QString& caption, QWidget* parent)
    : QGroupBox(caption, parent)
    , m_buttons(new QButtonGroup(this))
    , m_column(new QVBoxLayout(this))
{
    setObjectName(name);
    setAccessibleName(caption);
    m_column->setContentsMargins(2, 2, 2, 2);
    m_column->setSpacing(2);
    m_column->setAlignment(Qt::AlignTop);
    connect(m_buttons, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (!checked)
            return;
        reachSelectedByTab();
        emit selected(index);
    });
}

void RadioGroup::setItems(const QStringList& items, const QStringList& tips)
{
    deselect();
    // Buttons are kept where they are: a new one goes to the end of the window's tab order, and
    // only next to another button can it be moved from there.
    while (m_buttons->buttons().size() > items.size())
        delete m_buttons->buttons().constLast();
    while (m_buttons->buttons().size() < items.size())
        appendButton();
    for (int index = 0; index < items.size(); ++index) {
        m_buttons->button(index)->setText(items[index]);
        m_buttons->button(index)->setAccessibleName(items[index]);
        m_buttons->button(index)->setToolTip(tips.value(index));
    }
}

QStringList RadioGroup::items() const
{
    QStringList texts;
    for (const QAbstractButton* button : m_buttons->buttons())
        texts << button->text();
    return texts;
}

void RadioGroup::reserve(const QList<QStringList>& offers)
{
    QSize room;
    for (const QStringList& items : offers) {
        setItems(items);
        room = room.expandedTo(minimumSizeHint());
    }
    setItems({});
    setMinimumSize(room);
}

/// The selected item shows the focus. The frame has it too, by proxy, but is not told when it goes,
/// so its mark would stay.
void RadioGroup::initStyleOption(QStyleOptionGroupBox* option) const
{
    QGroupBox::initStyleOption(option);
    option->state &= ~QStyle::State_HasFocus;
}

int RadioGroup::itemIndex() const
{
    return m_buttons->checkedId();
}

void RadioGroup::setItemIndex(int index)
{
    const int last = static_cast<int>(m_buttons->buttons().size()) - 1;
    if (QAbstractButton* button = m_buttons->button(std::min(index, last)))
        button->setChecked(true);
}

void RadioGroup::deselect()
{
    QAbstractButton* button = m_buttons->checkedButton();
    if (!button)
        return;
    m_buttons->setExclusive(false);
    button->setChecked(false);
    m_buttons->setExclusive(true);
}

void RadioGroup::appendButton()
{
    const QList<QAbstractButton*> before = m_buttons->buttons();
    const int index = static_cast<int>(before.size());
    auto* button = new QRadioButton(this);
    button->setObjectName(QStringLiteral("%1Item%2").arg(objectName()).arg(index));
    m_buttons->addButton(button, index);
    m_column->addWidget(button, 0, Qt::AlignLeft);
    if (!before.isEmpty())
        setTabOrder(before.constLast(), button);
}

void RadioGroup::reachSelectedByTab()
{
    setFocusProxy(m_buttons->checkedButton());
    for (QAbstractButton* button : m_buttons->buttons())
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace controls
