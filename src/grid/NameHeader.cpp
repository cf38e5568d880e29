// SPDX-License-Identifier: GPL-3.0-or-later
#include "grid/NameHeader.h"

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

void NameHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    QFont bold = font(); // as the style draws the name of the cursor's row and column
    bold.setBold(true);
    const int width = orientation() == Qt::Horizontal ? sectionSize(section) : viewport()->width();
    option->text = QFontMetrics(bold).elidedText(option->text, Qt::ElideRight, width - nameMargin);
}

} // namespace grid
