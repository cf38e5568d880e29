// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSplitter>

namespace grid {
class TNTabEd;
}

namespace square {

/// The observations and, to their right, the treatments, each below its title.
///
/// Three fifths of the width are for the observations, but what either table lacks it gets of what
/// the other can spare, the observations first. Once the user has drawn the divider it stays.
class TablePanes : public QSplitter {
    Q_OBJECT

public:
    TablePanes(grid::TNTabEd& observations, const QString& observationsTitle,
               grid::TNTabEd& treatments, const QString& treatmentsTitle);

    /// Both tables whole.
    QSize wholeSize() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void share();

    grid::TNTabEd& m_observations;
    grid::TNTabEd& m_treatments;
    bool m_isUsers = false;
};

} // namespace square
