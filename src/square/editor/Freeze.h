// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/view/NTabEd.h"

namespace square {

/// Keeps a grid from repainting while it lives, and repaints it once at the end of its life.
class Freeze {
public:
    explicit Freeze(grid::TNTabEd& table)
        : m_table(table)
    {
        m_table.freeze();
    }
    ~Freeze() { m_table.release(); }
    Freeze(const Freeze&) = delete;
    Freeze& operator=(const Freeze&) = delete;

private:
    grid::TNTabEd& m_table;
};

} // namespace square
