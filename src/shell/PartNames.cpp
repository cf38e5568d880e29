// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PartNames.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollBar>
#include <QSizeGrip>
#include <QSplitter>

namespace shell {

namespace {

QString scrollBarName(const QScrollBar& bar)
{
    return bar.orientation() == Qt::Horizontal ? QStringLiteral("Desplazamiento horizontal")
                                               : QStringLiteral("Desplazamiento vertical");
}

QString dividerName(const QSplitterHandle& handle)
{
    const QString splitter = handle.splitter()->accessibleName();
    return splitter.isEmpty() ? QStringLiteral("Divisor") : splitter;
}

QString menuName(const QMenu& menu)
{
    if (qobject_cast<const QMdiSubWindow*>(menu.parent()))
        return QStringLiteral("Menú de la ventana");
    QString title = menu.title();
    title.remove(QLatin1Char('&'));
    return title.isEmpty() ? QStringLiteral("Menú") : title;
}

QString partName(const QWidget& widget)
{
    if (const auto* bar = qobject_cast<const QScrollBar*>(&widget))
        return scrollBarName(*bar);
    if (const auto* handle = qobject_cast<const QSplitterHandle*>(&widget))
        return dividerName(*handle);
    if (const auto* menu = qobject_cast<const QMenu*>(&widget))
        return menuName(*menu);
    if (qobject_cast<const QSizeGrip*>(&widget))
        return QStringLiteral("Tamaño de la ventana");
    if (widget.objectName() == QLatin1String("qt_toolbar_ext_button")) // the toolkit's own
        return QStringLiteral("Más botones");
    return {};
}

} // namespace

void namePart(QWidget& widget)
{
    if (!widget.accessibleName().isEmpty())
        return;
    const QString name = partName(widget);
    if (!name.isEmpty())
        widget.setAccessibleName(name);
}

} // namespace shell
