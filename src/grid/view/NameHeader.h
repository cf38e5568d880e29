// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>

namespace grid {

/// A header that cuts a name too long for it in the middle, "Parc…o 12", since names often differ
/// in the number at their end; the toolkit's own cuts off both ends.
class NameHeader : public QHeaderView {
public:
    NameHeader(Qt::Orientation orientation, QWidget* parent);

    /// The width in pixels in which a name is shown whole, also while the cursor makes it bold.
    int neededWidth(const QString& name) const;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;

private:
    QFontMetrics boldMetrics() const;
};

} // namespace grid
