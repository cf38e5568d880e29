// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/monkey/SquareMemory.h"

#include <utility>

namespace monkey {

void SquareMemory::change(const Table& after)
{
    if (after != now)
        replace(after);
}

void SquareMemory::replace(const Table& table)
{
    file.saved = false;
    push({now, table});
}

void SquareMemory::changeAround(const Table& after, bool isStep, Kind kind)
{
    file.saved = false;
    if (isStep)
        push({now, after, kind});
}

void SquareMemory::changeLooks()
{
    Step step{now, now};
    step.ofContents = false;
    push(step);
}

void SquareMemory::load(const Table& table, const File& loaded)
{
    Step step{now, table};
    step.isLoad = true;
    step.other = std::exchange(file, loaded);
    push(step);
}

bool SquareMemory::undo(bool mayChange, const OnDisk& onDisk)
{
    if (m_taken == 0 || (m_steps[m_taken - 1].ofContents && !mayChange))
        return false;
    Step& step = m_steps[--m_taken];
    take(step, step.before, onDisk);
    return true;
}

bool SquareMemory::redo(bool mayChange, const OnDisk& onDisk)
{
    if (m_taken == m_steps.size() || (m_steps[m_taken].ofContents && !mayChange))
        return false;
    Step& step = m_steps[m_taken++];
    take(step, step.after, onDisk);
    return true;
}

void SquareMemory::push(const Step& step)
{
    m_steps.resize(m_taken);
    now = step.after;
    if (step.kind != Kind::None && m_taken > 0 && m_steps.back().kind == step.kind) {
        m_steps.back().after = step.after;
        return;
    }
    m_steps.push_back(step);
    m_taken = m_steps.size();
}

void SquareMemory::take(Step& step, const Table& table, const OnDisk& onDisk)
{
    now = table;
    if (step.isLoad) {
        std::swap(file, step.other);
        file.saved = file.saved && !file.bytes.isEmpty() && onDisk(file.name) == file.bytes;
    } else if (step.ofContents) {
        file.saved = false;
    }
}

} // namespace monkey
