// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/LoadedSquare.h"

#include "base/SafeFile.h"
#include "square/file/BadFiles.h"
#include "square/file/SquareBytes.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

using namespace squarebytes;

namespace {

class LoadedSquare : public ::testing::Test {
protected:
    square::LoadedSquare load(const QByteArray& bytes)
    {
        EXPECT_EQ(base::writeFile(path(), bytes), std::nullopt);
        return square::loadSquare(path());
    }
    QString path() const { return m_folder.filePath(utf8("a.asc")); }

    QTemporaryDir m_folder;
};

void expectRefused(const square::LoadedSquare& loaded, int code, const QString& problem)
{
    EXPECT_EQ(loaded.code, code);
    EXPECT_EQ(loaded.problem, problem);
    EXPECT_FALSE(loaded.data.has_value());
}

const QString badFile = QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");

} // namespace

TEST_F(LoadedSquare, AGoodFileIsASquareWithoutAProblem)
{
    const square::LoadedSquare loaded = load(ofOrder3());
    EXPECT_EQ(loaded.code, 0);
    EXPECT_EQ(loaded.problem, QString());
    ASSERT_TRUE(loaded.data.has_value());
    EXPECT_EQ(loaded.data->observation(2, 2), 512.5);
}

TEST_F(LoadedSquare, EveryBadFileIsRefusedWithItsCodeAndAText)
{
    for (const badfiles::BadFile& file : badfiles::all()) {
        const square::LoadedSquare loaded = load(file.bytes);
        EXPECT_EQ(loaded.code, file.code) << file.what;
        EXPECT_FALSE(loaded.data.has_value()) << file.what;
        EXPECT_FALSE(loaded.problem.isEmpty()) << file.what;
    }
}

TEST_F(LoadedSquare, ABadHeaderAndABadBodyGiveTheSameText)
{
    expectRefused(load("hola"), -1, badFile);
    expectRefused(load(ofOrder3().replace("\r\n", "\n")), -4, badFile);
    expectRefused(load(ofOrder3().replace("0.0000000E+0000", "0.0000000E+0000x")), -6, badFile);
}

TEST_F(LoadedSquare, CountsThatNoSquareHasGiveTheGridsOwnTexts)
{
    const QString dimensions = QStringLiteral("array dimensions zero or negative");
    const QString memory = QStringLiteral("NTABED: not enough memory on heap");
    const auto ofSize = [](const char* columns, const char* rows) {
        return badfiles::fileOf(columns, rows, "FALSE FALSE FALSE", {"1 2 3"});
    };
    expectRefused(load(ofSize("0", "3")), -4, dimensions);
    expectRefused(load(ofSize("3", "-1")), -4, dimensions);
    expectRefused(load(ofSize("-4000", "-4000")), -4, dimensions);
    expectRefused(load(ofSize("4000", "4001")), -4, memory);
    expectRefused(load(ofSize("2147483647", "2147483647")), -4, memory);
    expectRefused(load(ofSize("4000", "4000")), -6, badFile);
}

TEST_F(LoadedSquare, WhatCannotBeOpenedIsABadFile)
{
    expectRefused(square::loadSquare(m_folder.filePath(utf8("no.asc"))), -1, badFile);
    expectRefused(square::loadSquare(m_folder.path()), -1, badFile);
    expectRefused(square::loadSquare(QString()), -1, badFile);
}
