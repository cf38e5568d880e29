// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/LoadedSquare.h"

#include "support/Text.h"

#include <gtest/gtest.h>

using square::shapeNotice;

TEST(ShapeNotice, SaysNothingOfASquare)
{
    for (const int n : {1, 3, 6, 4000})
        EXPECT_EQ(shapeNotice(n, n), QString()) << n;
}

TEST(ShapeNotice, TellsMissingRowsFromFurtherOnes)
{
    EXPECT_EQ(shapeNotice(4, 3),
              QStringLiteral("No es un cuadrado, tiene 4 columnas y 3 filas: se analiza con orden "
                             "4, y las celdas que faltan como 0."));
    EXPECT_EQ(shapeNotice(3, 5),
              QStringLiteral("No es un cuadrado, tiene 3 columnas y 5 filas: se analiza con orden "
                             "3, sin las filas que sobran."));
}
