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
#include <iostream>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// Processor time by itself does not grow on a loaded machine; the clock is for who waits.
constexpr double longestStep = 2; // seconds of processor time
constexpr auto longestWait = std::chrono::seconds(60);

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Ends the program where a step does not end by itself.
class Watchdog {
public:
    Watchdog()
    {
        std::thread([] {
            for (;;) {
                std::this_thread::sleep_for(std::chrono::milliseconds(200));
                if (Clock::now().time_since_epoch().count() - began > longestWaitCount) {
                    std::fputs("WRONG hang: the step does not end\n", stdout);
                    std::fflush(stdout);
                    _exit(3);
                }
            }
        }).detach();
    }
    void stepBegins() { began = Clock::now().time_since_epoch().count(); }

private:
    static constexpr auto longestWaitCount =
        std::chrono::duration_cast<Clock::duration>(longestWait).count();
    // Of the whole program: the thread looks at it to the very end.
    static inline std::atomic<Clock::rep> began = Clock::now().time_since_epoch().count();
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
        const auto end = Clock::now() + std::chrono::seconds(std::atoi(argv[2]));
        while (isWell && Clock::now() < end)
            isWell = take(monkey, watchdog, static_cast<unsigned>(numbers()));
    }
    return isWell ? 0 : 1;
}
