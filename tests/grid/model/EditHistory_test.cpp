// SPDX-License-Identifier: GPL-3.0-or-later
// Edits in whose middle a view that is told of them runs out of memory.
#include "grid/model/EditHistory.h"

#include <gtest/gtest.h>

#include <new>
#include <utility>

namespace {

class EditsOutOfMemory : public ::testing::Test {
protected:
    EditsOutOfMemory()
    {
        const auto failOnce = [](bool& fails) {
            if (std::exchange(fails, false))
                throw std::bad_alloc();
        };
        QObject::connect(&m_model, &grid::TableModel::dataChanged,
                         [this, failOnce] { failOnce(m_viewFails); });
        QObject::connect(&m_model, &grid::TableModel::modelAboutToBeReset,
                         [this, failOnce] { failOnce(m_failsBeforeReset); });
        QObject::connect(&m_model, &grid::TableModel::modelReset,
                         [this, failOnce] { failOnce(m_failsAfterReset); });
    }

    double value() const { return m_model.square().value(1, 1); }

    static grid::TableData otherTable()
    {
        record::SquareData square(4, 4);
        square.setValue(1, 1, 7.0);
        return grid::TableData(std::move(square));
    }

    grid::TableModel m_model;
    grid::EditHistory m_history{m_model};
    bool m_viewFails = false;
    bool m_failsBeforeReset = false;
    bool m_failsAfterReset = false;
};

} // namespace

TEST_F(EditsOutOfMemory, AValueIsTakenBack)
{
    m_viewFails = true;
    EXPECT_THROW(m_history.setValue(1, 1, 5.0), std::bad_alloc);
    EXPECT_EQ(value(), 0.0);
    EXPECT_FALSE(m_history.canUndo());
    m_history.setValue(1, 1, 5.0);
    m_viewFails = true;
    EXPECT_THROW(m_history.undo(), std::bad_alloc);
    EXPECT_EQ(value(), 5.0);
    EXPECT_TRUE(m_history.canUndo());
    m_history.undo();
    EXPECT_EQ(value(), 0.0);
}

TEST_F(EditsOutOfMemory, ATableIsTakenBackAndOnlyWhereItWasExchanged)
{
    for (bool* const fails : {&m_failsBeforeReset, &m_failsAfterReset}) {
        int place = 0; // of what the window has beside its table
        const grid::Alongside alongside{[&place] { place = 1; }, [&place] { place = 0; }};
        *fails = true;
        EXPECT_THROW(m_history.replaceTable(otherTable(), alongside), std::bad_alloc);
        EXPECT_EQ(value(), 0.0);
        EXPECT_EQ(place, 0);
        EXPECT_FALSE(m_history.canUndo());
    }
    m_history.replaceTable(otherTable());
    EXPECT_EQ(value(), 7.0);
    m_failsAfterReset = true;
    EXPECT_THROW(m_history.undo(), std::bad_alloc);
    EXPECT_EQ(value(), 7.0);
    m_history.undo();
    EXPECT_EQ(value(), 0.0);
    m_history.redo();
    EXPECT_EQ(value(), 7.0);
}

TEST_F(EditsOutOfMemory, WhatTheWindowCannotDoTakesTheTableBack)
{
    bool fails = true;
    const grid::Alongside alongside{[&fails] {
                                        if (std::exchange(fails, false))
                                            throw std::bad_alloc();
                                    },
                                    [] {}};
    EXPECT_THROW(m_history.replaceTable(otherTable(), alongside), std::bad_alloc);
    EXPECT_EQ(value(), 0.0);
    EXPECT_FALSE(m_history.canUndo());
}
