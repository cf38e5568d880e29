// SPDX-License-Identifier: GPL-3.0-or-later
// A long random walk of a user over the frame. After every step the frame is compared with a plain
// model of what the user did: menus, keys, status, focus, captions, and how many windows live.
//
// CL_WALK_SEED=7 takes another walk, or a failed one again.
#include "shell/walk/FrameWalk.h"

#include "support/Text.h"

#include <gtest/gtest.h>

namespace {

constexpr int steps = 2000;

unsigned seed()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("CL_WALK_SEED", &isGiven);
    return isGiven ? static_cast<unsigned>(given) : 20240611U;
}

} // namespace

TEST(RandomWalk, FrameIsAsTheModelSaysAfterEveryStep)
{
    walk::FrameWalk walk(seed());
    for (int number = 1; number <= steps; ++number) {
        const QString name = walk.step();
        const QString wrong = walk.differences().join(QStringLiteral("\n  "));
        if (qEnvironmentVariableIsSet("CL_WALK_LOG"))
            fprintf(stderr, "%d %s\n", number, qPrintable(name));
        ASSERT_TRUE(wrong.isEmpty() && !HasFailure())
            << "seed " << seed() << ", step " << number << " «" << name.toStdString() << "»\n  "
            << wrong.toStdString();
    }
    EXPECT_EQ(walk.neverTaken(), QStringList());
    EXPECT_TRUE(walk.hasBeenFull());
}
