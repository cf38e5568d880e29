// SPDX-License-Identifier: GPL-3.0-or-later
// What the user sees while a study runs, and what becomes of clicks made meanwhile.
#include "power/window/PowerFixture.h"

#include "support/PaintCounter.h"
#include "window/QtDialogs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <iostream>
#include <utility>
#include <vector>

namespace power {
namespace {

void postClick(QWidget& widget)
{
    const QPointF centre = QRectF(widget.rect()).center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        QCoreApplication::postEvent(
            &widget,
            new QMouseEvent(type, centre, widget.mapToGlobal(centre), Qt::LeftButton,
                            type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {}));
}

/// Takes the keys on their way to a window, as assistive technology does, to give them back later.
class KeyTaker : public QObject {
public:
    KeyTaker() { qApp->installEventFilter(this); }
    int taken = 0;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        taken += isKey ? 1 : 0;
        return isKey && receiver->isWindowType();
    }
};

void postSpace(QObject* receiver)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(receiver, new QKeyEvent(type, Qt::Key_Space, {}));
}

} // namespace

TEST_F(PowerWindow, TheStatusLineSaysHowFarItIs)
{
    QSignalSpy status(window.get(), &TPotencia::statusText);
    click(button("BtnCalcular"));
    ASSERT_EQ(status.size(), 22);
    EXPECT_EQ(status.at(0).at(0).toString(), QStringLiteral("Calculando potencias: 1 de 21"));
    EXPECT_EQ(status.at(6).at(0).toString(), QStringLiteral("Calculando potencias: 7 de 21"));
    EXPECT_EQ(status.at(20).at(0).toString(), QStringLiteral("Calculando potencias: 21 de 21"));
    EXPECT_EQ(status.at(21).at(0).toString(), QStringLiteral("Listo."));
}

TEST_F(PowerWindow, TheCurvesGrowOnTheScreen)
{
    PaintCounter counter(graph());
    std::vector<int> paints;
    std::vector<int> marks;
    QObject::connect(window.get(), &TPotencia::statusText, window.get(), [&] {
        paints.push_back(counter.paints);
        marks.push_back(countOf(chart::ItemKind::Mark));
    });
    click(button("BtnCalcular"));
    ASSERT_EQ(paints.size(), 22U);
    for (std::size_t i = 1; i < paints.size(); ++i)
        EXPECT_EQ(paints[i], paints[i - 1] + 1) << "each difference is painted before the next";
    for (std::size_t i = 0; i < 21; ++i)
        EXPECT_EQ(marks[i], 4 * (static_cast<int>(i) + 1));
}

TEST_F(PowerWindow, OtherPartsOfTheFrameArePaintedToo)
{
    QWidget frame;
    auto* child = new TPotencia(dialogs, &frame);
    auto* status = new QLineEdit(&frame);
    frame.resize(900, 700);
    child->move(0, 30);
    QObject::connect(child, &TPotencia::statusText, status, &QLineEdit::setText);
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    PaintCounter counter(*status);
    click(in<QPushButton>(*child, "BtnCalcular"));
    EXPECT_GE(counter.paints, 21);
}

TEST_F(PowerWindow, TheCursorIsBusyMeanwhile)
{
    int busy = 0;
    QObject::connect(window.get(), &TPotencia::statusText, window.get(), [&] {
        const QCursor* const cursor = QGuiApplication::overrideCursor();
        busy += cursor && cursor->shape() == Qt::WaitCursor ? 1 : 0;
    });
    click(button("BtnCalcular"));
    EXPECT_EQ(busy, 22);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(PowerWindow, ClicksAndKeysMadeMeanwhileStartNothing)
{
    TPotencia other(dialogs);
    other.setAttribute(Qt::WA_DeleteOnClose, false);
    other.show();
    bool isFirst = true;
    QObject::connect(window.get(), &TPotencia::statusText, window.get(), [&] {
        if (!std::exchange(isFirst, false))
            return;
        postClick(button("BtnCalcular"));
        postClick(button("BtnSig"));
        postClick(in<QPushButton>(other, "BtnCalcular"));
        postSpace(&button("BtnCalcular"));
    });
    click(button("BtnCalcular"));
    QCoreApplication::processEvents();
    EXPECT_EQ(log().filter(QStringLiteral("Iniciado")).size(), 1);
    EXPECT_EQ(logOf(other), QStringList{QString()});
    EXPECT_FALSE(popup("MenuSig").isVisible());

    click(button("BtnCalcular"));
    EXPECT_EQ(log().filter(QStringLiteral("Iniciado")).size(), 2) << "later clicks work";
}

TEST_F(PowerWindow, KeysPressedMeanwhileAreNotGivenBackLater)
{
    KeyTaker taker;
    QObject::connect(window.get(), &TPotencia::statusText, window.get(),
                     [this] { postSpace(window->windowHandle()); });
    button("BtnCalcular").setFocus();
    click(button("BtnCalcular"));
    QCoreApplication::processEvents();
    EXPECT_EQ(taker.taken, 0);

    window->disconnect(window.get());
    postSpace(window->windowHandle());
    QCoreApplication::processEvents();
    EXPECT_EQ(taker.taken, 2) << "later keys pass";
}

TEST_F(PowerWindow, ACloseAskedForMeanwhileHappensAfterwards)
{
    QPointer<TPotencia> doomed = new TPotencia(dialogs);
    doomed->show();
    bool isFirst = true;
    QObject::connect(doomed, &TPotencia::statusText, doomed, [&] {
        if (std::exchange(isFirst, false))
            QMetaObject::invokeMethod(doomed, &QWidget::close, Qt::QueuedConnection);
    });
    click(in<QPushButton>(*doomed, "BtnCalcular"));
    ASSERT_TRUE(doomed);
    EXPECT_TRUE(doomed->isVisible()) << "not before the handler has returned";
    EXPECT_EQ(logOf(*doomed).size(), 1 + 5 + 6 * 21);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(doomed);
}

TEST_F(PowerWindow, ClosingAChildsFrameMeanwhileHappensAfterwards)
{
    QMdiArea area;
    area.resize(1000, 700);
    QPointer<TPotencia> doomed = new TPotencia(dialogs);
    QPointer<QMdiSubWindow> frame = area.addSubWindow(doomed);
    area.show();
    bool isFirst = true;
    QObject::connect(doomed, &TPotencia::statusText, doomed, [&] {
        if (std::exchange(isFirst, false))
            QMetaObject::invokeMethod(frame, &QWidget::close, Qt::QueuedConnection);
    });
    click(in<QPushButton>(*doomed, "BtnCalcular"));
    ASSERT_TRUE(doomed);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(frame);
    EXPECT_FALSE(doomed);
    EXPECT_TRUE(area.subWindowList().isEmpty());
}

/// Assistive technology chose an entry meanwhile: what that asks must not lose its keys.
TEST_F(PowerWindow, WhatIsAskedMeanwhileCanBeAnswered)
{
    window::QtDialogs shown;
    TPotencia asking(shown);
    asking.setAttribute(Qt::WA_DeleteOnClose, false);
    asking.show();
    bool isFirst = true;
    QObject::connect(&asking, &TPotencia::statusText, &asking, [&] {
        if (std::exchange(isFirst, false))
            QMetaObject::invokeMethod(&asking, &TPotencia::GuardarReporte1Click,
                                      Qt::QueuedConnection);
    });
    bool wasAsked = false;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &asking, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        hand.stop();
        wasAsked = true;
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
        dialog->reject();
    });
    hand.start(10);
    click(in<QPushButton>(asking, "BtnCalcular"));
    EXPECT_TRUE(wasAsked);
    EXPECT_EQ(logOf(asking).size(), 1 + 5 + 6 * 21);
}

/// A program of its own meets the end: the box as the dialogs were asked for it goes to stderr.
TEST_F(PowerWindow, AnUnknownKindOfErrorsIsFatal)
{
    class Loud : public ScriptedDialogs {
    public:
        void showError(QWidget*, const QString& text, const QString& caption) override
        {
            std::cerr << text.toStdString() << " in " << caption.toStdString() << std::endl;
        }
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    QCoreApplication::setApplicationName(QStringLiteral("Cuadrado Latino"));
    EXPECT_EXIT(
        {
            Loud loud;
            TPotencia broken(loud, nullptr, {3, 500, 0.95, static_cast<ErrorKind>(3)});
            in<QPushButton>(broken, "BtnCalcular").click();
        },
        testing::ExitedWithCode(1), "Error Fatal in Cuadrado Latino");
}

} // namespace power
