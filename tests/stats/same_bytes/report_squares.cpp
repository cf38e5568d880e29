// SPDX-License-Identifier: GPL-3.0-or-later

// Prints the reports of many squares. Built by several compilers at several levels of
// optimisation, it must print the same bytes each time.

#include "stats/words/Estad.h"

#include <QLocale>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

namespace {

/// A generator of its own: the standard library's distributions may differ between libraries.
class Numbers {
public:
    /// Uniform in [0, 1) with 32 bits.
    double next()
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(m_state >> 32U) / 4294967296.0;
    }

private:
    std::uint64_t m_state = 1;
};

using Cell = std::function<double(int column, int row)>;

/// Kinds of data: ordinary, with ties, two values, behind constant digits, equal, huge, tiny.
std::vector<Cell> kindsOfCells(Numbers& numbers)
{
    return {
        [&](int, int) { return std::floor(numbers.next() * 40.0) / 4.0; },
        [&](int, int) { return numbers.next() * 100.0 - 30.0; },
        [&](int, int) { return numbers.next() < 0.5 ? 1.0 : 2.0; },
        [&](int, int) { return 1e9 + std::floor(numbers.next() * 10.0) / 10.0; },
        [](int, int) { return 0.1; },
        [](int column, int row) { return 0.1 * column + 0.7 * row; },
        [&](int, int) { return numbers.next() * 1e300; },
        [&](int, int) { return numbers.next() * 1e-300; },
    };
}

stats::TMatrix squareWith(int n, const Cell& cell)
{
    stats::TMatrix square = stats::TMatrix::Create(n, n);
    for (int row = 1; row <= n; ++row) {
        for (int column = 1; column <= n; ++column)
            square.Elem(column, row, cell(column, row));
    }
    return square;
}

void print(const QStringList& lines)
{
    for (const QString& line : lines) {
        std::fputs(line.toUtf8().constData(), stdout);
        std::fputc('\n', stdout);
    }
}

void printSequenceTests(const stats::TMatrix& square, int n, double alpha)
{
    stats::ExactValues values{};
    bool available = false;
    int count = 0;
    QString title;
    print(stats::TestC(square, n, alpha, values, available, count, title));
    print(stats::TestM(square, n, alpha, values, available, count, title));
    print({title});
}

/// Every level for the tests that are quick, one for the sequence tests, which enumerate or
/// simulate each time.
void printReports(const stats::TMatrix& square, int n)
{
    for (int position = 1; position <= 99; ++position) {
        const double alpha = (100 - position) / 100.0;
        print(stats::FTest(square, n, alpha));
        print(stats::ZimmermanTest(square, n, alpha));
        print(stats::BennettTest(square, n, alpha));
    }
    printSequenceTests(square, n, 0.05);
}

/// One level for the tests that do not simulate.
void printQuickReports(const stats::TMatrix& square, int n)
{
    constexpr double alpha = 0.05;
    print(stats::FTest(square, n, alpha));
    print(stats::ZimmermanTest(square, n, alpha));
    print(stats::BennettTest(square, n, alpha));
}

} // namespace

int main()
{
    QLocale::setDefault(QLocale::c());
    Numbers numbers;
    for (int n = 1; n <= 8; ++n) {
        for (const Cell& cell : kindsOfCells(numbers)) {
            printReports(squareWith(n, cell), n);
            for (int more = 0; more < 50; ++more)
                printQuickReports(squareWith(n, cell), n);
        }
    }
    return 0;
}
