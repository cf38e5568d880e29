// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PartNames.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QSizeGrip>
#include <QSplitter>
#include <QToolButton>

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

QString pictureName(const QMessageBox& box)
{
    return box.icon() == QMessageBox::Question ? QStringLiteral("Pregunta")
                                               : QStringLiteral("Error");
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
    const QString own = widget.objectName(); // the toolkit's
    if (own == QLatin1String("qt_toolbar_ext_button"))
        return QStringLiteral("Más botones");
    const auto* box = qobject_cast<const QMessageBox*>(widget.parent());
    if (box != nullptr && own == QLatin1String("qt_msgboxex_icon_label"))
        return pictureName(*box);
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
