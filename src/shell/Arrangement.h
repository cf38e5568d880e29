// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointer>

class QMdiArea;
class QMdiSubWindow;

namespace shell {

/// How the children lie in the frame at one moment: in which order they were used, which is active,
/// which are minimised or maximised. Where each of them is and how large they know themselves.
class Arrangement {
public:
    explicit Arrangement(const QMdiArea& area);

    /// Lays the children that are still there as they were.
    void restore(QMdiArea& area) const;

    bool operator==(const Arrangement&) const = default;

private:
    QList<QPointer<QMdiSubWindow>> m_children; ///< The one used last at the end.
    QList<QPointer<QMdiSubWindow>> m_minimised;
    QPointer<QMdiSubWindow> m_active;
    bool m_isMaximised; ///< The active one.
};

} // namespace shell
