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
    base::Outcome<square::LoadedSquare> load(const QByteArray& bytes)
    {
        EXPECT_EQ(base::writeFile(path(), bytes), std::nullopt);
        return square::loadSquare(path());
    }
    QString path() const { return m_folder.filePath(utf8("a.asc")); }

    QTemporaryDir m_folder;
};

void expectRefused(const base::Outcome<square::LoadedSquare>& loaded, const QString& problem)
{
    EXPECT_EQ(loaded.reason, problem);
    EXPECT_FALSE(loaded.value.has_value());
}

const QString badFile = QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");

} // namespace

TEST_F(LoadedSquare, AGoodFileIsASquareWithoutAProblem)
{
    const base::Outcome<square::LoadedSquare> loaded = load(ofOrder3());
    EXPECT_EQ(loaded.reason, QString());
    ASSERT_TRUE(loaded.value.has_value());
    EXPECT_EQ(loaded.value->square.value(2, 2), 512.5);
    EXPECT_EQ(loaded.value->fingerprint, base::fingerprint(path()));
}

TEST_F(LoadedSquare, EveryBadFileIsRefusedWithAText)
{
    for (const badfiles::BadFile& file : badfiles::all()) {
        const base::Outcome<square::LoadedSquare> loaded = load(file.bytes);
        EXPECT_FALSE(loaded.value.has_value()) << file.what;
        EXPECT_FALSE(loaded.reason.isEmpty()) << file.what;
    }
}

TEST_F(LoadedSquare, ABadHeaderAndABadBodyGiveTheSameText)
{
    expectRefused(load("hola"), badFile);
    expectRefused(load(ofOrder3().replace("\r\n", "\n")), badFile);
    expectRefused(load(ofOrder3().replace("0.0000000E+0000", "0.0000000E+0000x")), badFile);
}

TEST_F(LoadedSquare, CountsThatNoSquareHasGiveTheGridsOwnTexts)
{
    const QString dimensions = QStringLiteral("array dimensions zero or negative");
    const QString memory = QStringLiteral("NTABED: not enough memory on heap");
    const auto ofSize = [](const char* columns, const char* rows) {
        return badfiles::fileOf(columns, rows, "FALSE FALSE FALSE", {"1 2 3"});
    };
    expectRefused(load(ofSize("0", "3")), dimensions);
    expectRefused(load(ofSize("3", "-1")), dimensions);
    expectRefused(load(ofSize("-4000", "-4000")), dimensions);
    expectRefused(load(ofSize("4000", "4001")), memory);
    expectRefused(load(ofSize("2147483647", "2147483647")), memory);
    expectRefused(load(ofSize("4000", "4000")), badFile);
}

TEST_F(LoadedSquare, WhatCannotBeOpenedIsABadFile)
{
    expectRefused(square::loadSquare(m_folder.filePath(utf8("no.asc"))), badFile);
    expectRefused(square::loadSquare(m_folder.path()), badFile);
    expectRefused(square::loadSquare(QString()), badFile);
}
