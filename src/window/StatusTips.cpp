// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/StatusTips.h"

#include <QCoreApplication>
#include <QMenu>
#include <QStatusTipEvent>

namespace window {

void tellStatusTips(QMenu& popup, QWidget& owner)
{
    const auto tell = [&owner](const QString& text) {
        QStatusTipEvent tip(text);
        QCoreApplication::sendEvent(&owner, &tip);
    };
    // A submenu passes on what is hovered in it.
    QObject::connect(&popup, &QMenu::hovered, &owner,
                     [tell](const QAction* entry) { tell(entry->statusTip()); });
    QObject::connect(&popup, &QMenu::aboutToHide, &owner, [tell] { tell(QString()); });
}

} // namespace window
