// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

/// What became of a piece of work in which an allocation failed.
enum class Outcome {
    Unaffected, ///< The work came to what it comes to with memory.
    Told,       ///< The user was told; everything as it was.
    Thrown,     ///< An exception came out; everything as it was.
    Repainted,  ///< A picture came out incomplete, and right when it was painted again.
    Damaged,    ///< None of these.
};

/// A piece of work of the program, with everything that it needs ready.
class Scenario {
public:
    virtual ~Scenario() = default;
    /// What is done while allocations fail. May throw.
    virtual void run() = 0;
    /// What became of it. `thrown`: run() threw for want of memory.
    /// @param damage  is told what is damaged
    virtual Outcome judge(bool thrown, std::string& damage) = 0;
    /// Whether the files are whole, also after the process that ran has ended.
    virtual bool filesAreWhole() const { return true; }
};

struct NamedScenario {
    const char* name;
    std::unique_ptr<Scenario> (*make)();
};

const std::vector<NamedScenario>& allScenarios();
