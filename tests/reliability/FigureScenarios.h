// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reliability/AllocationScenarios.h"

/// Pieces of work without a file: a chart that is laid out and painted, and a power study.
std::unique_ptr<Scenario> drawing();
std::unique_ptr<Scenario> studying();
