// SPDX-License-Identifier: GPL-3.0-or-later
// Lets every allocation of a piece of work fail, one after the other.
//
// failing_allocations [STRIDE] prints a line for each scenario and each way of failing: the name,
// how (one or all from there), the number of allocations, how many of them were made to fail, and
// how many ended unaffected, told, thrown, repainted, stopped (std::terminate, and in a library),
// crashed, damaged. Each failure has a process of its own; every STRIDEth is tried, all without it.
// Damage goes to stderr and is the exit code.
#include "reliability/AllocationScenarios.h"
#include "reliability/ShortAllocations.h"

#include "grid/model/GridError.h"
#include "stats/numbers/MATRIX.h"

#include <QApplication>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <ucontext.h>
#include <unistd.h>

using short_allocations::Failing;

namespace {

/// How a process ended that came to no outcome.
enum Ending {
    Stopped = int(Outcome::Damaged) + 1, ///< By std::terminate().
    StoppedInLibrary,                    ///< By a library that did not look at what it was given.
    Crashed,                             ///< By the program's own code.
    endings
};

constexpr unsigned patience = 60; // seconds, after which work that does not end is stopped

/// What a child tells its parent beside its exit code.
struct Told {
    long allocations;
    std::array<char, 200> damage;
};

Told* crashTold = nullptr;
bool eventThrew = false;

/// As the program's own, which lets no exception of an event handler into the toolkit.
class CatchingApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception&) {
            eventThrew = true;
        }
        return false;
    }
};

Outcome outcomeOf(Scenario& scenario, long number, Failing failing, Told& told)
{
    bool thrown = false;
    short_allocations::arm(number, failing);
    try {
        scenario.run();
    } catch (const std::bad_alloc&) {
        thrown = true;
    } catch (const grid::GridError&) {
        thrown = true;
    } catch (const stats::EMatrixError&) {
        thrown = true;
    }
    told.allocations = short_allocations::disarm();
    std::string damage;
    const Outcome outcome = scenario.judge(thrown || eventThrew, damage);
    std::snprintf(told.damage.data(), told.damage.size(), "%s", damage.c_str());
    return outcome;
}

/// Where a child crashes: in a library, which is then a stop like std::terminate(), or here.
void tellCrash(int, siginfo_t*, void* context)
{
    auto* const place = reinterpret_cast<void*>( // the instruction that crashed
        static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RIP]);
    Dl_info there{};
    Dl_info here{};
    const bool isHere = dladdr(place, &there) == 0 ||
                        dladdr(reinterpret_cast<void*>(&tellCrash), &here) == 0 ||
                        there.dli_fbase == here.dli_fbase;
    if (isHere)
        std::snprintf(crashTold->damage.data(), crashTold->damage.size(), "crashed at %p",
                      reinterpret_cast<void*>(static_cast<char*>(place) -
                                              static_cast<char*>(there.dli_fbase)));
    _exit(isHere ? Crashed : StoppedInLibrary);
}

void catchCrashes(Told& told)
{
    crashTold = &told;
    struct sigaction action {};
    action.sa_sigaction = tellCrash;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &action, nullptr);
}

/// Runs the scenario in a child of this process. @return an Outcome or an Ending
int endingOf(Scenario& scenario, long number, Failing failing, Told& told)
{
    told = {};
    const pid_t child = fork();
    if (child == 0) {
        alarm(patience);
        catchCrashes(told);
        const int silence = open("/dev/null", O_WRONLY);
        dup2(silence, STDERR_FILENO); // std::terminate() has something to say each time
        _exit(int(outcomeOf(scenario, number, failing, told)));
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!scenario.filesAreWhole())
        return int(Outcome::Damaged);
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    if (WTERMSIG(status) == SIGALRM)
        return int(Outcome::Damaged);
    return WTERMSIG(status) == SIGABRT ? Stopped : Crashed;
}

/// @return how many ended in damage
int tryAll(const NamedScenario& named, Failing failing, long stride, Told& told)
{
    const std::unique_ptr<Scenario> scenario = named.make();
    const int clean = endingOf(*scenario, 0, failing, told);
    if (clean != int(Outcome::Unaffected)) {
        std::fprintf(stderr, "%s: without a failure %d %s\n", named.name, clean,
                     told.damage.data());
        return 1;
    }
    const long allocations = told.allocations;
    long tried = 0;
    std::array<int, endings> counts{};
    for (long number = 1; number <= allocations; number += stride) {
        const int ending = endingOf(*scenario, number, failing, told);
        ++counts.at(static_cast<std::size_t>(ending));
        ++tried;
        if (ending == int(Outcome::Damaged) || ending == Crashed)
            std::fprintf(stderr, "%s: allocation %ld (%s): %s\n", named.name, number,
                         failing == Failing::One ? "one" : "all", told.damage.data());
    }
    std::printf("%s\t%s\t%ld\t%ld", named.name, failing == Failing::One ? "one" : "all",
                allocations, tried);
    for (const auto ending : {int(Outcome::Unaffected), int(Outcome::Told), int(Outcome::Thrown),
                              int(Outcome::Repainted), int(Stopped), int(StoppedInLibrary),
                              int(Crashed), int(Outcome::Damaged)})
        std::printf("\t%d", counts.at(static_cast<std::size_t>(ending)));
    std::printf("\n");
    std::fflush(stdout);
    return counts.at(std::size_t(Outcome::Damaged)) + counts.at(Crashed);
}

} // namespace

int main(int argc, char** argv)
{
    CatchingApplication application(argc, argv);
    const long stride = argc > 1 ? std::atol(argv[1]) : 1;
    const std::string only = argc > 2 ? argv[2] : "";
    auto* told = static_cast<Told*>(
        mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    int damaged = 0;
    for (const NamedScenario& scenario : allScenarios()) {
        if (!only.empty() && only != scenario.name)
            continue;
        for (const Failing failing : {Failing::One, Failing::AllFromThere})
            damaged += tryAll(scenario, failing, stride, *told);
    }
    return damaged == 0 ? 0 : 1;
}
