// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FoldingRow.h"

#include <QBoxLayout>
#include <QEvent>

#include <algorithm>

namespace controls {

FoldingRow::FoldingRow(QWidget* parent)
    : QWidget(parent)
    , m_groups(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_first(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_second(new QBoxLayout(QBoxLayout::LeftToRight))
{
    constexpr int margin = 6;
    constexpr int betweenGroups = 10;
    m_groups->setContentsMargins(margin, margin, margin, margin);
    m_groups->setSpacing(betweenGroups);
    m_groups->addLayout(m_first);
    m_groups->addLayout(m_second, 1);
    for (QBoxLayout* const group : {m_first, m_second})
        m_groups->setAlignment(group, Qt::AlignLeft);
}

QSize FoldingRow::minimumSizeHint() const
{
    const QMargins margins = m_groups->contentsMargins();
    const int widest = std::max(m_first->minimumSize().width(), m_second->minimumSize().width());
    return {margins.left() + widest + margins.right(), m_groups->minimumSize().height()};
}

bool FoldingRow::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        fold();
    return QWidget::event(event);
}

void FoldingRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fold();
}

void FoldingRow::fold()
{
    const QMargins margins = m_groups->contentsMargins();
    const int unfolded = margins.left() + m_first->minimumSize().width() + m_groups->spacing() +
                         m_second->minimumSize().width() + margins.right();
    const auto direction = width() < unfolded ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (direction != m_groups->direction())
        m_groups->setDirection(direction);
}

} // namespace controls
