// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>

namespace grid {

/// A header that ends a name too long for it in "…"; the toolkit's own cuts it on either side.
class NameHeader : public QHeaderView {
public:
    NameHeader(Qt::Orientation orientation, QWidget* parent);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
};

} // namespace grid
