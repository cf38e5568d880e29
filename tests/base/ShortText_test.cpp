// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ShortText.h"

#include "support/Text.h"

#include <gtest/gtest.h>

TEST(ShortText, IsCutBehindItsFortiethCharacter)
{
    const QString forty(40, QLatin1Char('x'));
    EXPECT_EQ(base::shortened(QString()), QString());
    EXPECT_EQ(base::shortened(forty), forty);
    EXPECT_EQ(base::shortened(forty + QLatin1Char('y')), forty + QStringLiteral("…"));
}
