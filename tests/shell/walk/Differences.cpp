// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/walk/Differences.h"

#include "square/editor/Formeditor.h"
#include "window/ChildWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStackedWidget>
#include <QToolButton>

namespace walk {

namespace {

QString yesNo(bool answer)
{
    return answer ? QStringLiteral("yes") : QStringLiteral("no");
}

QString kindOf(const QWidget& child)
{
    return QString::fromLatin1(child.metaObject()->className()).section(QStringLiteral("::"), 1);
}

QString className(Kind kind)
{
    switch (kind) {
    case Kind::Editor:
        return QStringLiteral("TEditor");
    case Kind::Analysis:
        return QStringLiteral("TAnalisis");
    case Kind::Graph:
        return QStringLiteral("TGrafica");
    default:
        return QStringLiteral("TPotencia");
    }
}

/// Every child of the program, wherever it hides.
qsizetype livingChildren()
{
    qsizetype count = 0;
    for (const QWidget* widget : QApplication::allWidgets())
        count += qobject_cast<const window::ChildWindow*>(widget) != nullptr ? 1 : 0;
    return count;
}

void compareBar(QStringList& lines, const FrameModel& model, const shell::TPrincipal& frame)
{
    QStringList titles;
    for (const QAction* action : frame.menuBar()->actions())
        titles << action->text();
    compare(lines, QStringLiteral("menu bar"), titles.join(u'|'), model.bar().join(u'|'));
    compare(lines, QStringLiteral("caption"), frame.windowTitle(), model.caption());

    // Qt puts the maximised child's icon and buttons to the left and right of the menus.
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::TopRightCorner}) {
        const QWidget* buttons = frame.menuBar()->cornerWidget(corner);
        compare(lines, QStringLiteral("buttons of a maximised child"),
                yesNo(buttons != nullptr && buttons->isVisible()), yesNo(model.isMaximised));
    }
}

void compareStatus(QStringList& lines, const FrameModel& model, const shell::TPrincipal& frame)
{
    const auto* label = frame.findChild<QLabel*>(QStringLiteral("Status"));
    compare(lines, QStringLiteral("status"), label->text(), model.status());
    compare(lines, QStringLiteral("status uncovered"), yesNo(label->isVisible()), yesNo(true));
}

void compareWindowList(QStringList& lines, const FrameModel& model, const shell::TPrincipal& frame)
{
    QMenu* menu = nullptr;
    for (const QAction* action : frame.menuBar()->actions()) {
        if (action->text() == QStringLiteral("&Ventana"))
            menu = action->menu();
    }
    emit menu->aboutToShow();
    QStringList entries;
    for (const QAction* entry : menu->actions()) {
        if (entry->isCheckable())
            entries << (entry->isChecked() ? QStringLiteral("*") : QString()) + entry->text();
    }
    QStringList wanted;
    for (const QString& caption : model.captions()) {
        const auto number = wanted.size() + 1;
        wanted << QStringLiteral("%1%2%3 %4")
                      .arg(number == model.active + 1 ? QStringLiteral("*") : QString(),
                           number < 10 ? QStringLiteral("&") : QString())
                      .arg(number)
                      .arg(caption);
    }
    compare(lines, QStringLiteral("window list"), entries.join(u'|'), wanted.join(u'|'));
}

void compareChild(QStringList& lines, const Child& child, bool isMaximised,
                  const QMdiSubWindow& place)
{
    const QWidget& real = *place.widget();
    const auto check = [&](const char* what, const QString& actual, const QString& wanted) {
        compare(lines, QStringLiteral("%1: %2").arg(child.caption, QString::fromLatin1(what)),
                actual, wanted);
    };
    check("kind", kindOf(real), className(child.kind));
    check("caption", real.windowTitle(), child.caption);
    check("maximised", yesNo(place.isMaximized()), yesNo(isMaximised));
    check("minimised", yesNo(place.isMinimized()), yesNo(child.isMinimised));
    if (const auto* editor = qobject_cast<const square::TEditor*>(&real))
        check("saved", yesNo(editor->Saved()), yesNo(child.isSaved));
    if (const auto* ve = real.findChild<QToolButton*>(QStringLiteral("ve")))
        check("has a distribution", yesNo(ve->isEnabled()), yesNo(!child.exact.isEmpty()));
}

void compareChildren(QStringList& lines, const FrameModel& model, const QMdiArea& area)
{
    const QList<QMdiSubWindow*> places = area.subWindowList();
    const QString wanted = QString::number(model.children.size());
    compare(lines, QStringLiteral("children"), QString::number(places.size()), wanted);
    compare(lines, QStringLiteral("child objects"), QString::number(livingChildren()), wanted);
    compare(lines, QStringLiteral("active"),
            QString::number(places.indexOf(area.activeSubWindow())), QString::number(model.active));
    for (int i = 0; i < std::min(places.size(), qsizetype(model.children.size())); ++i)
        compareChild(lines, model.children[static_cast<std::size_t>(i)],
                     model.isMaximised && i == model.active, *places.at(i));
}

void compareFocus(QStringList& lines, const FrameModel& model, const shell::TPrincipal& frame,
                  const QMdiArea& area)
{
    compare(lines, QStringLiteral("frame is active"), yesNo(frame.isActiveWindow()),
            yesNo(model.isFrameActive()));
    const QWidget* focus = QApplication::focusWidget();
    if (!model.isFrameActive() || !model.hasChild()) {
        compare(lines, QStringLiteral("focus in a child"),
                yesNo(focus != nullptr && area.isAncestorOf(focus)), yesNo(false));
        return;
    }
    compare(lines, QStringLiteral("focus"),
            focus == nullptr ? QStringLiteral("nowhere") : focus->objectName(), model.focus());
    const QMdiSubWindow* place = area.activeSubWindow();
    const bool isInside =
        place != nullptr && focus != nullptr && (focus == place || place->isAncestorOf(focus));
    compare(lines, QStringLiteral("focus in the active child"), yesNo(isInside), yesNo(true));
}

} // namespace

QStringList differences(const FrameModel& model, shell::TPrincipal& frame)
{
    QStringList lines;
    const auto& area = *frame.findChild<QMdiArea*>();
    compareBar(lines, model, frame);
    compareStatus(lines, model, frame);
    compareChildren(lines, model, area);
    compareWindowList(lines, model, frame);
    compareFocus(lines, model, frame, area);
    const auto* about = frame.findChild<QWidget*>(QStringLiteral("Acerca"));
    compare(lines, QStringLiteral("About box"), yesNo(about->isVisible()),
            yesNo(model.isAboutOpen));
    return lines + menuDifferences(model, frame);
}

void compare(QStringList& lines, const QString& what, const QString& actual, const QString& wanted)
{
    if (actual != wanted)
        lines << QStringLiteral("%1: «%2» instead of «%3»").arg(what, actual, wanted);
}

} // namespace walk
