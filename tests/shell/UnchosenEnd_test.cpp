// SPDX-License-Identifier: GPL-3.0-or-later
// The end that nobody chose in the program, as it comes: by signals to this very process.
#include "shell/UnchosenEnd.h"

#include "shell/PrincipalFixture.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFile>
#include <QMenu>
#include <QTest>

#include <csignal>
#include <cstdlib>
#include <memory>

namespace {

constexpr int moreThanOneCall = 1100; // ms

class UnchosenEnd : public Principal {
protected:
    UnchosenEnd()
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        qputenv("TMPDIR",
                QFile::encodeName(folder.path())); // who dies by a signal tidies nothing up
    }
    ~UnchosenEnd() override
    {
        if (temporaryBefore.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", temporaryBefore);
    }
    UnchosenEnd(const UnchosenEnd&) = delete;
    UnchosenEnd& operator=(const UnchosenEnd&) = delete;

    bool hasClosed()
    {
        return QTest::qWaitFor([this] { return !frame.isVisible(); }, 10000);
    }

    /// Both have something to lose.
    void twoEditors()
    {
        frame.NuevoArchivo1Click();
        frame.NuevoArchivo1Click();
    }

    std::size_t asked() const { return dialogs.questions.size(); }

    /// Stays: asked for a file name, the user thinks again.
    void answerWithCancel()
    {
        dialogs.yesNoAnswers = {true};
        dialogs.saveAnswers = {std::nullopt};
    }

    /// Also where this process was started below nohup or in the background.
    std::unique_ptr<shell::UnchosenEnd> hearing()
    {
        for (const int signal : {SIGHUP, SIGINT, SIGTERM})
            std::signal(signal, SIG_DFL);
        return std::make_unique<shell::UnchosenEnd>(frame);
    }

    const QByteArray temporaryBefore = qgetenv("TMPDIR");
    std::unique_ptr<shell::UnchosenEnd> end = hearing();
};

} // namespace

/// A child that leaves by exit() keeps what fontconfig keeps for as long as the process lasts.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

TEST_F(UnchosenEnd, ASignalClosesAFrameWithNothingToLose)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        frame.show();
        std::raise(signal);
        EXPECT_TRUE(hasClosed()) << signal;
    }
    EXPECT_EQ(asked(), 0U);
}

TEST_F(UnchosenEnd, ASignalAsksAsLeavingDoes)
{
    twoEditors();
    dialogs.yesNoAnswers = {false, false};
    std::raise(SIGTERM);
    EXPECT_TRUE(hasClosed());
    EXPECT_EQ(asked(), 2U);
}

TEST_F(UnchosenEnd, WhoCancelsGoesOnAndTheNextSignalIsAFirstOne)
{
    twoEditors();
    for (const std::size_t time : {1U, 2U}) {
        answerWithCancel();
        std::raise(SIGINT);
        ASSERT_TRUE(QTest::qWaitFor([&] { return asked() == time; }));
        QTest::qWait(moreThanOneCall);
        EXPECT_TRUE(frame.isVisible());
        EXPECT_EQ(children().size(), 2);
    }
}

TEST_F(UnchosenEnd, ASignalWaitsForAnOpenQuestion)
{
    twoEditors();
    QDialog question(&frame);
    question.open();
    std::raise(SIGTERM);
    QTest::qWait(300);
    EXPECT_EQ(asked(), 0U);
    EXPECT_TRUE(frame.isVisible());
    EXPECT_TRUE(question.isVisible());

    dialogs.yesNoAnswers = {false, false};
    question.reject();
    EXPECT_TRUE(hasClosed());
    EXPECT_EQ(asked(), 2U);
}

TEST_F(UnchosenEnd, ASignalWaitsForTheStudyThatRuns)
{
    frame.ClculodePotencia1Click();
    auto* study = qobject_cast<window::ChildWindow*>(children().constFirst()->widget());
    int points = 0;
    QObject::connect(study, &window::ChildWindow::statusText, [&](const QString& text) {
        if (!text.startsWith(QStringLiteral("Calculando potencias")))
            return;
        if (++points == 3)
            std::raise(SIGTERM);
        QTest::qSleep(5); // long enough together for whoever would not wait
    });
    study->findChild<QAbstractButton*>(QStringLiteral("BtnCalcular"))->click();
    EXPECT_EQ(points, 21);
    EXPECT_TRUE(hasClosed());
}

TEST_F(UnchosenEnd, AMenuStepsAside)
{
    twoEditors();
    entry({QStringLiteral("&Archivo")})->menu()->popup({});
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    dialogs.whenAskedYesNo = [] { EXPECT_EQ(QApplication::activePopupWidget(), nullptr); };
    dialogs.yesNoAnswers = {false, false};
    std::raise(SIGTERM);
    EXPECT_TRUE(hasClosed());
}

TEST_F(UnchosenEnd, SignalsThatComeTogetherAreOneCall)
{
    twoEditors();
    dialogs.yesNoAnswers = {false, false};
    for (const int signal : {SIGTERM, SIGTERM, SIGHUP, SIGINT})
        std::raise(signal);
    EXPECT_TRUE(hasClosed());
    EXPECT_EQ(asked(), 2U);
}

TEST_F(UnchosenEnd, ASecondCallEndsTheProgramUnasked)
{
    twoEditors();
    const auto call = [](int first, int second) {
        std::raise(first);
        QTest::qWait(moreThanOneCall);
        std::raise(second);
        QTest::qWait(moreThanOneCall);
    };
    QDialog question(&frame);
    question.open();
    const char* const why = "segunda vez.*no estaba guardado";
    EXPECT_EXIT(call(SIGTERM, SIGTERM), ::testing::ExitedWithCode(128 + SIGTERM), why);
    EXPECT_EXIT(call(SIGHUP, SIGINT), ::testing::ExitedWithCode(128 + SIGINT), why);
    call(SIGTERM, SIGHUP); // a terminal that goes too does not insist
    EXPECT_TRUE(frame.isVisible());
}

TEST_F(UnchosenEnd, WhatWasIgnoredFromTheStartStaysIgnored)
{
    end.reset();
    const auto before = std::signal(SIGHUP, SIG_IGN); // as nohup does
    end = std::make_unique<shell::UnchosenEnd>(frame);
    std::raise(SIGHUP);
    QTest::qWait(300);
    EXPECT_TRUE(frame.isVisible());
    end.reset();
    std::signal(SIGHUP, before);
}

TEST_F(UnchosenEnd, AfterTheEventLoopSignalsEndTheProcess)
{
    end.reset();
    EXPECT_EXIT(std::raise(SIGTERM), ::testing::KilledBySignal(SIGTERM), "");
    EXPECT_EXIT(std::exit(0), ::testing::ExitedWithCode(0), "");
}

TEST_F(UnchosenEnd, AnExitFromBelowSaysThatTheDisplayIsGone)
{
    EXPECT_EXIT(std::exit(0), ::testing::ExitedWithCode(EXIT_FAILURE),
                "pantalla.*no estaba guardado");
}

TEST_F(UnchosenEnd, AReaderThatGoesIsNoReasonToEnd)
{
    std::raise(SIGPIPE);
    EXPECT_TRUE(frame.isVisible());
}
