// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/SquareContents.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QByteArray>

/// Square files for the tests, put together by hand rather than by the program's own writer.
namespace squarebytes {

/// The lines of a file, each ended by CR LF.
inline QByteArray lines(const QByteArrayList& text)
{
    return text.join("\r\n") + "\r\n";
}

/// The order-3 square of the tests, as the program writes it.
inline QByteArray ofOrder3()
{
    return lines({
        "Parcelas de prueba",
        "3\t;nr. of columns",
        "3\t;nr. of rows",
        "TRUE TRUE TRUE\t;row attributes, column names, row names",
        "\t\"Col 1\"\t\"Col 2\"\t\"Col 3\"",
        "0\t\"Fila 1\"\t 1.0000000E+0000\t-2.5000000E+0000\t 3.0000000E+0001",
        "0\t\"Fila 2\"\t 4.0000000E+0000\t 5.1250000E+0002\t 6.0000000E-0003",
        "0\t\"Fila 3\"\t 7.0000000E+0000\t 8.0000000E+0000\t 0.0000000E+0000",
    });
}

inline QByteArray ofOrder5()
{
    return lines({
        "Exported by NTabED component: /tmp/propelente.asc",
        "5\t;nr. of columns",
        "5\t;nr. of rows",
        "TRUE TRUE TRUE\t;row attributes, column names, row names",
        "\tuno\tdos\t\"tres y medio\"\tcu\"\"atro\tcinco",
        "0\ta\t24\t20\t19\t24\t24",
        "1\tb\t17\t24\t30\t27\t36",
        "2\tc\t18\t38\t26\t27\t21",
        "3\td\t26\t31\t26\t23\t22",
        "255\te\t22\t30\t20\t29\t31",
    });
}

/// Without names or attributes.
inline QByteArray bare()
{
    return lines({"Solo datos", "3", "3", "false false false", "1 2 3", "4 5 6", "7 8 9"});
}

inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace squarebytes
