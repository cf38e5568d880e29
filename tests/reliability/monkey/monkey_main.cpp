// SPDX-License-Identifier: GPL-3.0-or-later
// The monkey as a program of its own, so that nothing that befalls it befalls who looks after it:
//
//   monkey SEED SECONDS     as many steps as there is time for
//   monkey -                the steps whose numbers stand in the standard input
//
// It tells each step on the standard output before and after it is taken, a line that begins with
// its number, and ends with 1 where something is lost, with 3 where a step does not end.
#include "reliability/monkey/Monkey.h"
#include "shell/Application.h"

#include <gtest/gtest.h>

#include <QLoggingCategory>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

constexpr double longestStep = 2;  // seconds of processor time
constexpr double longestWait = 20; // seconds in which it neither computes nor waits for a processor
constexpr double longestWork = 60; // seconds of processor time, after which it is not waited for

double secondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double processorTime()
{
    return secondsOf(CLOCK_PROCESS_CPUTIME_ID);
}

/// The seconds in which the program wanted a processor and another had it: on a loaded machine most
/// of them.
double timeInQueue()
{
    double computed = 0;
    double queued = 0;
    std::ifstream("/proc/self/schedstat") >> computed >> queued;
    return queued * 1e-9;
}

/// Ends the program where a step does not end by itself.
class Watchdog {
public:
    Watchdog()
    {
        stepBegins();
        std::thread([] {
            for (;;) {
                std::this_thread::sleep_for(std::chrono::milliseconds(500));
                const double work = processorTime() - workBefore;
                const double wait = secondsOf(CLOCK_MONOTONIC) - timeInQueue() - idleBefore - work;
                if (work > longestWork || wait > longestWait) {
                    std::fputs("WRONG hang: the step does not end\n", stdout);
                    std::fflush(stdout);
                    _exit(3);
                }
            }
        }).detach();
    }
    void stepBegins()
    {
        workBefore = processorTime();
        idleBefore = secondsOf(CLOCK_MONOTONIC) - timeInQueue();
    }

private:
    // Of the whole program: the thread looks at them to the very end.
    static inline std::atomic<double> workBefore = 0;
    static inline std::atomic<double> idleBefore = 0;
};

/// Takes one step and tells it. @return whether all is well
bool take(monkey::Monkey& monkey, Watchdog& watchdog, unsigned number)
{
    watchdog.stepBegins();
    std::printf("STEP %u\n", number);
    std::fflush(stdout);
    const double before = processorTime();
    const std::optional<QString> told = monkey.take(number);
    const double took = processorTime() - before;
    if (!told)
        return true;
    std::printf("DONE %u %s\n", number, qPrintable(*told));
    QStringList wrongs = monkey.wrongs();
    if (took > longestStep && !told->contains(QStringLiteral("power study")))
        wrongs << QStringLiteral("slow: %1 s of processor time").arg(took);
    if (::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed())
        wrongs << QStringLiteral("the hands could not do what they set out to do");
    for (const QString& wrong : wrongs)
        std::printf("WRONG %s\n", qPrintable(wrong));
    std::fflush(stdout);
    return wrongs.isEmpty();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    const bool isReplay = argv[1] == std::string("-");
    QCoreApplication::setSetuidAllowed(
        true); // the folder makes an ordinary user of the administrator
    monkey::Folder folder;
    monkey::RandomDialogs dialogs(folder);
    shell::Application application(argc, argv, dialogs);
    QLocale::setDefault(QLocale(QStringLiteral("es_ES")));
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.*=false"));
    monkey::Monkey monkey(folder, dialogs);
    Watchdog watchdog;
    bool isWell = true;
    if (isReplay) {
        for (unsigned number = 0; isWell && std::cin >> number;)
            isWell = take(monkey, watchdog, number);
    } else if (argc > 2) {
        std::mt19937 numbers(static_cast<unsigned>(std::atoi(argv[1])));
        const double end = secondsOf(CLOCK_MONOTONIC) + std::atoi(argv[2]);
        while (isWell && secondsOf(CLOCK_MONOTONIC) < end)
            isWell = take(monkey, watchdog, static_cast<unsigned>(numbers()));
    }
    return isWell ? 0 : 1;
}
