// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/Tips.h"
#include "controls/RadioGroup.h"

#include <vector>

namespace analysis {

/// What approaches or tests are called, in their order.
template <typename Choice>
QStringList captionsOf(const std::vector<Choice>& choices)
{
    QStringList captions;
    for (const Choice choice : choices)
        captions << stats::caption(choice);
    return captions;
}

/// Puts approaches or tests into a group to choose from, each with its tip.
template <typename Choice>
void offer(controls::RadioGroup& group, const std::vector<Choice>& choices)
{
    QStringList tips;
    for (const Choice choice : choices)
        tips << tipOf(choice);
    group.setItems(captionsOf(choices), tips);
}

} // namespace analysis
