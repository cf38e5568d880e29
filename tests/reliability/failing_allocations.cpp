// SPDX-License-Identifier: GPL-3.0-or-later
// Lets every allocation of a piece of work fail, one after the other.
//
// failing_allocations [STRIDE] prints a line for each scenario and each way of failing: the name,
// how (one or all from there), the number of allocations, how many of them were made to fail, and
// how many ended unaffected, told, thrown, repainted, stopped (std::terminate), crashed in a
// library, crashed elsewhere, damaged. Each failure has a process of its own; every STRIDEth is
// tried, all without it. Damage goes to stderr and is the exit code.
#include "reliability/AllocationScenarios.h"
#include "reliability/ShortAllocations.h"

#include "grid/model/GridError.h"
#include "stats/numbers/MATRIX.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <execinfo.h>
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
    CrashedInLibrary,                    ///< In the code of a library.
    Crashed,                             ///< In the program's, or ended by anything else.
    endings
};

/// What is added to an Outcome or Ending in an exit code: whatever else ends a process, a library
/// or a sanitizer, has smaller ones.
constexpr int toldByScenario = 100;

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

/// The file that an instruction was loaded from, by its place; none for what is no instruction.
void* moduleOf(void* instruction)
{
    Dl_info info{};
    return dladdr(instruction, &info) == 0 ? nullptr : info.dli_fbase;
}

/// The instruction that crashed, or where it is the C or C++ library's, the innermost call of
/// another one into it: what these do with memory they are asked to do.
void* crashedAt(void* instruction)
{
    const std::array servants{moduleOf(reinterpret_cast<void*>(&std::abort)),
                              moduleOf(reinterpret_cast<void*>(&std::set_terminate))};
    const auto serves = [&](void* place) {
        return std::find(servants.begin(), servants.end(), moduleOf(place)) != servants.end();
    };
    std::array<void*, 64> calls{};
    const auto* const end = calls.begin() + backtrace(calls.data(), int(calls.size()));
    const auto* const crash = std::find(calls.cbegin(), end, instruction);
    const auto* const caller = std::find_if_not(crash, end, serves);
    if (caller == crash || caller == end)
        return instruction;
    return static_cast<char*>(*caller) - 1; // within the call, of which the place behind is known
}

/// Where a child crashes: in a library or here. Who called it does not count.
void tellCrash(int signal, siginfo_t*, void* context)
{
    (void)short_allocations::disarm();
    void* const place = crashedAt(
        reinterpret_cast<void*>(static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RIP]));
    void* const here = moduleOf(reinterpret_cast<void*>(&tellCrash));
    void* const there = moduleOf(place);
    const bool isHere = there == nullptr || there == here;
    if (isHere)
        std::snprintf(crashTold->damage.data(), crashTold->damage.size(),
                      "crashed at %#tx by signal %d",
                      static_cast<char*>(place) - static_cast<char*>(there), signal);
    _exit(toldByScenario + (isHere ? Crashed : CrashedInLibrary));
}

[[noreturn]] void tellStop()
{
    _exit(toldByScenario + Stopped);
}

void catchCrashes(Told& told)
{
    crashTold = &told;
    std::array<void*, 1> first{};
    backtrace(first.data(), 1); // the first one loads a library
    struct sigaction action {};
    action.sa_sigaction = tellCrash;
    action.sa_flags = SA_SIGINFO;
    for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGTRAP})
        sigaction(signal, &action, nullptr);
}

/// Runs the scenario in a child of this process. @return an Outcome or an Ending
int endingOf(Scenario& scenario, long number, Failing failing, Told& told)
{
    told = {};
    const pid_t child = fork();
    if (child == 0) {
        alarm(patience);
        catchCrashes(told);
        std::set_terminate(tellStop);
        const int silence = open("/dev/null", O_WRONLY);
        dup2(silence, STDERR_FILENO); // what libraries say of it each time
        _exit(toldByScenario + int(outcomeOf(scenario, number, failing, told)));
    }
    int status = 0;
    waitpid(child, &status, 0);
    const auto describe = [&told](const char* what, int code) {
        std::snprintf(told.damage.data(), told.damage.size(), "%s %d", what, code);
    };
    if (!scenario.filesAreWhole()) {
        describe("a file is damaged; the process's status is", status);
        return int(Outcome::Damaged);
    }
    if (WIFEXITED(status)) {
        const int ending = WEXITSTATUS(status) - toldByScenario;
        if (ending >= 0 && ending < endings)
            return ending;
        describe("ended with", WEXITSTATUS(status));
        return Crashed;
    }
    describe("ended by signal", WTERMSIG(status));
    return WTERMSIG(status) == SIGALRM ? int(Outcome::Damaged) : int(Crashed);
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
                              int(Outcome::Repainted), int(Stopped), int(CrashedInLibrary),
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
