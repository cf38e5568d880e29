// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/view/NameHeader.h"

#include <QStyleOption>

namespace grid {

namespace {

constexpr int nameMargin = 8; // pixels left and right of a name, together

} // namespace

NameHeader::NameHeader(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    setHighlightSections(true);
}

int NameHeader::neededWidth(const QString& name) const
{
    return boldMetrics().horizontalAdvance(name) + nameMargin;
}

void NameHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    const int width = orientation() == Qt::Horizontal ? sectionSize(section) : viewport()->width();
    option->text = boldMetrics().elidedText(option->text, Qt::ElideMiddle, width - nameMargin);
}

/// As the style draws the name of the cursor's row and column.
QFontMetrics NameHeader::boldMetrics() const
{
    QFont bold = font();
    bold.setBold(true);
    return QFontMetrics(bold);
}

} // namespace grid
