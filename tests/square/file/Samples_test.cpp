// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"
#include "square/file/LoadedSquare.h"
#include "square/file/SquareBytes.h"
#include "square/file/SquareFile.h"

#include <gtest/gtest.h>

#include <QDir>

#include <array>

using namespace squarebytes;

namespace {

QDir samples()
{
    return QDir(QStringLiteral(CL_SOURCE_DIR "/ejemplos"));
}

record::SquareData sample(const char* name)
{
    const auto loaded = square::loadSquare(samples().filePath(utf8(name)));
    EXPECT_TRUE(loaded.value) << name;
    return loaded.value ? loaded.value->square : record::SquareData(1, 1);
}

/// The observation of each treatment letter in the row and the column of these names.
double cell(const record::SquareData& data, const char* row, const char* column, char treatment)
{
    const int r = int(rowNames(data).indexOf(utf8(row))) + 1;
    const int c = int(columnNames(data).indexOf(utf8(column))) + 1;
    if (r == 0 || c == 0) {
        ADD_FAILURE() << "no row " << row << " or column " << column;
        return 0.0;
    }
    EXPECT_EQ((c + r - 2) % data.NrOfColumns(), treatment - 'A') << row << ", " << column;
    return data.value(c, r);
}

} // namespace

TEST(Samples, EveryOneIsAsTheProgramWritesIt)
{
    const QStringList names = samples().entryList({QStringLiteral("*.asc")}, QDir::Files);
    EXPECT_EQ(names.size(), 4);
    for (const QString& name : names) {
        const QString path = samples().filePath(name);
        const auto loaded = square::loadSquare(path);
        ASSERT_TRUE(loaded.value) << name.toStdString();
        const square::EncodedSquare encoded = square::encode(loaded.value->square, path);
        EXPECT_EQ(encoded.bytes, base::readFile(path)) << name.toStdString();
        EXPECT_FALSE(encoded.rounded) << name.toStdString();
        EXPECT_FALSE(loaded.value->square.Identifier().startsWith("Exported by"))
            << name.toStdString();
    }
}

/// Montgomery, Design and Analysis of Experiments, the rocket propellant example.
TEST(Samples, ThePropellantIsThePublishedSquare)
{
    const record::SquareData data = sample("propelente.asc");
    EXPECT_EQ(observations(data),
              std::vector<double>({24, 20, 19, 24, 24, 17, 24, 30, 27, 36, 18, 38, 26,
                                   27, 21, 26, 31, 26, 23, 22, 22, 30, 20, 29, 31}));
}

/// The same book, the assembly-method exercise: treatment and observation as laid out in the field.
TEST(Samples, TheAssemblySquareHoldsEveryCellOfTheFieldUnderItsNames)
{
    constexpr std::array<const char*, 4> field = {"C10 D14 A7 B8", "B7 C18 D11 A8", "A5 B10 C11 D9",
                                                  "D10 A10 B12 C14"};
    const record::SquareData data = sample("montaje.asc");
    for (int order = 1; order <= 4; ++order) {
        const QByteArrayList cells = QByteArray(field.at(std::size_t(order - 1))).split(' ');
        for (int worker = 1; worker <= 4; ++worker) {
            const QByteArray& published = cells.at(worker - 1);
            EXPECT_EQ(cell(data, ("Orden " + QByteArray::number(order)).constData(),
                           ("Operador " + QByteArray::number(worker)).constData(), published.at(0)),
                      published.mid(1).toDouble());
        }
    }
}

TEST(Samples, MadeUpSquaresSaySo)
{
    for (const auto& [name, order] : {std::pair("orden3.asc", 3), {"orden6.asc", 6}}) {
        const record::SquareData data = sample(name);
        EXPECT_EQ(data.NrOfColumns(), order);
        EXPECT_EQ(data.NrOfRows(), order);
        EXPECT_TRUE(data.Identifier().startsWith("Datos inventados")) << name;
    }
}
