// SPDX-License-Identifier: GPL-3.0-or-later
// Tests, graphs and studies, and hands that go anywhere.
#include "reliability/monkey/Monkey.h"

#include "distribution/Frmgraf.h"
#include "power/window/Frmpotencia.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

namespace monkey {

Monkey::Told Monkey::analyse(Random& random)
{
    Window* window = activeOf(Window::Kind::Analysis);
    if (window == nullptr)
        return std::nullopt;
    for (const char* group : {"RadioGroup1", "RadioGroup2"}) {
        const QString name =
            QStringLiteral("%1Item%2").arg(QLatin1String(group)).arg(below(random, 3));
        auto* choice = window->child->findChild<QWidget*>(name);
        if (m_hands.canClick(choice))
            m_hands.click(choice);
        m_hands.settle();
    }
    comeBack(); // a text that was refused may have been told in a box
    runBy(*window, "SpeedButton1");
    aim(*window, [](Window&) {});
    return QStringLiteral("a test of %1").arg(window->name());
}

/// A button that is pressed by its key stays down for a tenth of a second.
void Monkey::runBy(const Window& window, const char* button)
{
    const auto* run = window.child->findChild<QAbstractButton*>(QString::fromLatin1(button));
    press(Qt::Key_F9);
    static_cast<void>(QTest::qWaitFor([run] { return !run->isDown(); }));
}

Monkey::Told Monkey::exportSomething(Random& random)
{
    const Window* window = active();
    if (window == nullptr || window->kind == Window::Kind::Editor)
        return std::nullopt;
    QStringList path;
    if (window->kind == Window::Kind::Analysis)
        path = {QStringLiteral("Aná&lisis"), QStringLiteral("&Exportar...")};
    else if (qobject_cast<const power::TPotencia*>(window->child.data()) != nullptr)
        path = {QStringLiteral("&Potencia"), QStringLiteral("Guardar &Reporte...")};
    else
        path = {QStringLiteral("&Gráfica"), oneIn(random, 2)
                                                ? QStringLiteral("Guardar &Datos...")
                                                : QStringLiteral("&Guardar Gráfica...")};
    chooseOfBar(random, path);
    return QStringLiteral("save what %1 shows").arg(window->name());
}

Monkey::Told Monkey::showGraph(Random&)
{
    const Window* window = activeOf(Window::Kind::Analysis);
    if (window == nullptr || !hasRoom())
        return std::nullopt;
    auto* see = window->child->findChild<QWidget*>(QStringLiteral("ve"));
    if (!m_hands.canClick(see))
        return std::nullopt;
    m_hands.click(see);
    return QStringLiteral("the distribution of %1").arg(window->name());
}

/// Enlarging by a drag, going along by keys and wheel, and back.
Monkey::Told Monkey::handleGraph(Random& random)
{
    const Window* window = active();
    if (window == nullptr ||
        qobject_cast<const distribution::TGrafica*>(window->child.data()) == nullptr)
        return std::nullopt;
    const QRect inside = window->child->rect().translated(window->child->mapTo(&m_frame, QPoint()));
    const auto somewhere = [&] {
        return inside.topLeft() +
               QPoint(below(random, inside.width()), below(random, inside.height()));
    };
    const QPoint from = somewhere();
    const QPoint to = somewhere();
    if (!window->child->isAncestorOf(m_frame.childAt(from)))
        return std::nullopt;
    QWindow* frame = m_frame.windowHandle();
    QTest::mousePress(frame, Qt::LeftButton, {}, from);
    QTest::mouseMove(frame, (from + to) / 2);
    QTest::mouseMove(frame, to);
    QTest::mouseRelease(frame, Qt::LeftButton, {}, to);
    constexpr Qt::Key keys[] = {Qt::Key_Left,   Qt::Key_Plus, Qt::Key_Minus,
                                Qt::Key_Escape, Qt::Key_Home, Qt::Key_Up};
    press(keys[below(random, 6)]);
    return QStringLiteral("drag and press in %1").arg(window->name());
}

Monkey::Told Monkey::study(Random&)
{
    constexpr int mostStudies = 3; // they take long
    const Window* window = active();
    if (m_studies >= mostStudies || window == nullptr ||
        qobject_cast<const power::TPotencia*>(window->child.data()) == nullptr)
        return std::nullopt;
    auto* trials = window->child->findChild<QWidget*>(QStringLiteral("Edit2"));
    if (!m_hands.canClick(trials))
        return std::nullopt;
    m_hands.click(trials);
    press(Qt::Key_PageDown); // down to 500 trials
    runBy(*window, "BtnCalcular");
    ++m_studies;
    return QStringLiteral("a power study");
}

namespace {

void closeMenus()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
}

} // namespace

/// Keys that mean something in one place and nothing in the next, and menus only looked at.
Monkey::Told Monkey::wander(Random& random)
{
    constexpr Qt::Key keys[] = {Qt::Key_F5,   Qt::Key_F6,     Qt::Key_F10, Qt::Key_Menu,
                                Qt::Key_Tab,  Qt::Key_Insert, Qt::Key_Alt, Qt::Key_F12,
                                Qt::Key_Left, Qt::Key_Right,  Qt::Key_Meta};
    QTimer closing; // the menu of a title bar waits for an answer before it lets anybody go on
    QObject::connect(&closing, &QTimer::timeout, &closeMenus);
    closing.start(1);
    if (oneIn(random, 2)) {
        const QPoint point(below(random, m_frame.width()), below(random, m_frame.height()));
        QTest::mouseMove(m_frame.windowHandle(), point);
        QTest::mouseClick(m_frame.windowHandle(), Qt::RightButton, {}, point);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, point, m_frame.mapToGlobal(point));
        QWidget* under = m_frame.childAt(point);
        if (under != nullptr)
            QApplication::sendEvent(under, &menu);
        closeMenus();
        return QStringLiteral("right click at %1, %2").arg(point.x()).arg(point.y());
    }
    const Qt::Key key = keys[below(random, static_cast<int>(std::size(keys)))];
    press(key);
    closeMenus();
    return QStringLiteral("press %1").arg(QKeySequence(key).toString());
}

Monkey::Told Monkey::turnWheel(Random& random)
{
    Window* window = active();
    if (window == nullptr || !window->hasSquare())
        return std::nullopt;
    const QPoint point(below(random, m_frame.width()), below(random, m_frame.height()));
    QWidget* under = m_frame.childAt(point);
    constexpr int notch = 120;
    const int turn = oneIn(random, 2) ? notch : -notch;
    // Over the order of the square, where the keyboard is in it, this changes the order.
    if (under == nullptr || QApplication::focusWidget() == nullptr ||
        QApplication::focusWidget()->inherits("QAbstractSpinBox"))
        return std::nullopt;
    QWheelEvent wheel(under->mapFrom(&m_frame, point), m_frame.mapToGlobal(point), {}, {0, turn},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(under, &wheel);
    return QStringLiteral("turn the wheel at %1, %2").arg(point.x()).arg(point.y());
}

} // namespace monkey
