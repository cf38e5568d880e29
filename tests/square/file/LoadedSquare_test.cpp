// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/LoadedSquare.h"

#include "base/SafeFile.h"
#include "square/file/BadFiles.h"
#include "square/file/SquareBytes.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
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
    expectRefused(load(badfiles::fileOf("2", "2", "TRUE FALSE FALSE", {"A 1 2"})), badFile);
}

TEST_F(LoadedSquare, AnObservationThatCannotBeReadIsNamed)
{
    const QString missing = utf8(" Sin ese dato no se puede analizar el cuadrado: vea «Datos que "
                                 "faltan» en el manual (F1).");
    const auto withLastRow = [](const char* row) {
        return badfiles::fileOf("3", "2", "FALSE FALSE TRUE", {"\"Lote 1\" 1 2 3", row});
    };
    expectRefused(load(withLastRow("\"Lote 2\" 7 2O 9")),
                  badFile +
                      utf8("\n«2O» no es un número: fila «Lote 2», columna «C-2». ¿Hay una "
                           "letra O o l en lugar de un 0 o un 1?") +
                      missing);
    expectRefused(load(withLastRow("\"Lote 2\" 7 8 9,5")),
                  badFile + utf8("\n«9,5» no es un número: fila «Lote 2», columna «C-3».") +
                      missing);
    expectRefused(load(withLastRow("\"Lote 2\" 7 8")),
                  badFile + utf8("\nFalta una observación: fila «Lote 2», columna «C-3».") +
                      missing);
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
    EXPECT_TRUE(load(ofSize("4000", "4000")).reason.startsWith(badFile));
}

TEST_F(LoadedSquare, AFileThatIsTooLargeIsNamedAsSuch)
{
    QFile sparse(path());
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly));
    ASSERT_TRUE(sparse.resize((qint64(1) << 30) + 1));
    expectRefused(square::loadSquare(path()),
                  utf8("El archivo tiene más de 1 GiB, lo más que se lee."));
}

TEST_F(LoadedSquare, WhatCannotBeOpenedIsABadFile)
{
    expectRefused(square::loadSquare(m_folder.filePath(utf8("no.asc"))), badFile);
    expectRefused(square::loadSquare(m_folder.path()), badFile);
    expectRefused(square::loadSquare(QString()), badFile);
}
