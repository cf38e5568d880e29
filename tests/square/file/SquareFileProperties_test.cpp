// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/SquareFile.h"

#include "square/file/SquareBytes.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace squarebytes;

namespace {

constexpr std::array<char16_t, 6> alphabet = {u'"', u' ', u'a', u'ñ', u';', u'\t'};

/// Every text over the alphabet of `length` characters, in the order of counting.
QString textOf(unsigned number, int length)
{
    QString text;
    for (int i = 0; i < length; ++i, number /= alphabet.size())
        text += QChar(alphabet[number % alphabet.size()]);
    return text;
}

unsigned textsOf(int length)
{
    unsigned texts = 1;
    for (int i = 0; i < length; ++i)
        texts *= unsigned(alphabet.size());
    return texts;
}

record::SquareData numbered(int columns, int rows)
{
    record::SquareData data(columns, rows);
    data.setIdentifier("t");
    for (int row = 1; row <= rows; ++row) {
        data.setRowAttribute(row, quint8(100 + row));
        for (int column = 1; column <= columns; ++column)
            data.setValue(column, row, 10.0 * row + column);
    }
    return data;
}

/// The name that the format allows to come back, by its stated consequences: bare names whole,
/// names with a blank but for their quotes.
void expectSurvives(const QString& name, const QString& read, const QString& defaultName)
{
    QString kept = name;
    kept.remove(u'\t');
    while (kept.startsWith(u' '))
        kept.remove(0, 1);
    while (kept.endsWith(u' '))
        kept.chop(1);
    if (!kept.contains(u' ')) {
        EXPECT_EQ(read, kept.isEmpty() ? defaultName : kept) << name.toStdString();
        return;
    }
    QString withoutQuotes = QString(kept).remove(u'"');
    QString readWithoutQuotes = QString(read).remove(u'"');
    // Blanks that stood behind a quote at an end of the name go with it.
    EXPECT_EQ(readWithoutQuotes.trimmed(),
              withoutQuotes.trimmed().isEmpty() ? defaultName : withoutQuotes.trimmed())
        << name.toStdString();
}

void expectSameNumbers(const record::SquareData& data, const square::DecodedSquare& read,
                       const QString& name)
{
    ASSERT_EQ(read.code, square::Usable) << name.toStdString();
    ASSERT_EQ(observations(*read.data), observations(data)) << name.toStdString();
    ASSERT_EQ(rowAttributes(*read.data), rowAttributes(data)) << name.toStdString();
}

} // namespace

TEST(SquareFileProperties, AnyShortNameLeavesEveryNumberInItsCell)
{
    record::SquareData data = numbered(2, 2);
    for (int length = 0; length <= 5; ++length) {
        for (unsigned number = 0; number < textsOf(length); ++number) {
            const QString name = textOf(number, length);
            const int at = 1 + int(number % 2);
            data.setColumnName(at, name);
            data.setRowName(3 - at, name);
            const square::EncodedSquare encoded = square::encode(data, QString());
            const square::DecodedSquare read = square::decode(encoded.bytes);
            ASSERT_NO_FATAL_FAILURE(expectSameNumbers(data, read, name));
            expectSurvives(name, read.data->columnName(at), record::defaultColumnName(at));
            expectSurvives(name, read.data->rowName(3 - at), record::defaultRowName(3 - at));
            const square::EncodedSquare again = square::encode(*read.data, QString());
            ASSERT_NO_FATAL_FAILURE(expectSameNumbers(data, square::decode(again.bytes), name));
            data.setColumnName(at, record::defaultColumnName(at));
            data.setRowName(3 - at, record::defaultRowName(3 - at));
        }
    }
}

TEST(SquareFileProperties, NamesSideBySideDoNotRunIntoEachOther)
{
    record::SquareData data = numbered(3, 3);
    constexpr int length = 6;
    const unsigned names = textsOf(length);
    for (unsigned number = 0; number < names; number += 6) {
        for (unsigned i = 0; i < 3; ++i) {
            data.setColumnName(int(i) + 1, textOf((number + i) % names, length));
            data.setRowName(int(i) + 1, textOf((number + 3 + i) % names, length));
        }
        const square::DecodedSquare read = square::decode(square::encode(data, QString()).bytes);
        ASSERT_NO_FATAL_FAILURE(expectSameNumbers(data, read, textOf(number, length)));
        for (int i = 1; i <= 3; ++i) {
            expectSurvives(data.columnName(i), read.data->columnName(i),
                           record::defaultColumnName(i));
            expectSurvives(data.rowName(i), read.data->rowName(i), record::defaultRowName(i));
        }
    }
}

TEST(SquareFileProperties, RandomSquaresComeBack)
{
    std::mt19937 random(20240229);
    const QString letters = utf8("\"  ab;,ñ€\u00A0\u2003\u3000\uFEFF\u2028🌾\t\n\x01\x7F\u0085'#%");
    const auto draw = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const auto randomName = [&] {
        QString name;
        for (int left = draw(0, draw(0, 3) == 0 ? 120 : 8); left > 0; --left)
            name += letters.at(draw(0, int(letters.size()) - 1));
        return name;
    };
    for (int trial = 0; trial < 3000; ++trial) {
        record::SquareData data(draw(1, 8), draw(1, 8));
        for (int column = 1; column <= data.NrOfColumns(); ++column)
            data.setColumnName(column, randomName());
        for (int row = 1; row <= data.NrOfRows(); ++row) {
            data.setRowName(row, randomName());
            data.setRowAttribute(row, quint8(draw(0, 255)));
            for (int column = 1; column <= data.NrOfColumns(); ++column) // 8 digits at most
                data.setValue(column, row, draw(-99999999, 99999999) / 1000.0);
        }
        const square::EncodedSquare encoded = square::encode(data, randomName());
        const square::DecodedSquare read = square::decode(encoded.bytes);
        ASSERT_NO_FATAL_FAILURE(expectSameNumbers(data, read, utf8("trial %1").arg(trial)));
        for (const QString& name : encoded.columnNames + encoded.rowNames) {
            EXPECT_FALSE(name.isEmpty());
            EXPECT_LE(name.size(), record::longestName);
        }
    }
}

namespace {

/// Copies of valid files with bytes changed, removed, doubled or moved between files.
class Mutator {
public:
    explicit Mutator(unsigned seed)
        : m_random(seed)
    {
    }

    QByteArray mutated(const QList<QByteArray>& files)
    {
        QByteArray bytes = files.at(below(files.size()));
        for (qsizetype changes = 1 + below(8); changes > 0; --changes)
            change(bytes, files.at(below(files.size())));
        return bytes;
    }

private:
    qsizetype below(qsizetype count)
    {
        return std::uniform_int_distribution<qsizetype>(0, count - 1)(m_random);
    }

    void change(QByteArray& bytes, const QByteArray& other)
    {
        static const QByteArrayList pieces = {
            "\"", "\"\"", "\r",   "\n",          "\r\n",     "\t",    " ",
            "0",  "-",    "-1",   "99999999999", "16000000", "1e308", "1e309",
            "e",  ".",    "TRUE", "FALSE",       "\xC3",     "\xFF",  QByteArray(1, '\0')};
        const qsizetype at = below(bytes.size() + 1);
        switch (below(5)) {
        case 0:
            bytes.insert(at, pieces.at(below(pieces.size())));
            break;
        case 1:
            bytes.remove(at, 1 + below(20));
            break;
        case 2:
            bytes.replace(at, 1, pieces.at(below(pieces.size())));
            break;
        case 3:
            bytes.insert(at, other.mid(below(other.size() + 1), below(60)));
            break;
        default:
            bytes.truncate(at);
        }
    }

    std::mt19937 m_random;
};

} // namespace

TEST(SquareFileProperties, MutatedFilesHaveACodeAndWhatLoadsSurvivesASave)
{
    Mutator mutator(7);
    int usable = 0;
    for (int trial = 0; trial < 20000; ++trial) {
        const QByteArray bytes = mutator.mutated({ofOrder3(), ofOrder5(), bare()});
        const square::DecodedSquare read = square::decode(bytes);
        ASSERT_TRUE(read.code >= square::NoObservation && read.code <= square::Usable);
        ASSERT_EQ(read.data.has_value(),
                  read.code == square::Usable || read.code <= square::NoAttribute);
        if (read.code != square::Usable)
            continue;
        ++usable;
        ASSERT_EQ(square::readHeader(bytes).code, square::Usable);
        const square::EncodedSquare saved = square::encode(*read.data, QString());
        const square::DecodedSquare again = square::decode(saved.bytes);
        ASSERT_EQ(again.code, square::Usable) << bytes.toStdString();
        EXPECT_EQ(rowAttributes(*again.data), rowAttributes(*read.data)) << bytes.toStdString();
        if (!saved.rounded) {
            EXPECT_EQ(observations(*again.data), observations(*read.data)) << bytes.toStdString();
        }
    }
    EXPECT_GT(usable, 1000); // the mutations are not all fatal
}
