// SPDX-License-Identifier: GPL-3.0-or-later
// Saves a file again and again, each time with other contents, until it is killed.
//
//   saving_loop FILE BYTES [--named]
//
// Contents number n are the line "n BYTES" and then BYTES times the last digit of n. With --named
// there are no files without a name, as on many file systems. A line is written for each save that
// was confirmed: its number.
#include "base/SafeFile.h"
#include "support/FailingCalls.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

int main(int argc, char** argv)
{
    if (argc < 3)
        return EXIT_FAILURE;
    const int size = std::atoi(argv[2]);
    std::optional<failing::NoUnnamedFiles> named;
    if (argc > 3 && std::string_view(argv[3]) == "--named")
        named.emplace();
    for (int number = 1;; ++number) {
        const QByteArray contents = QByteArray::number(number) + ' ' + QByteArray::number(size) +
                                    '\n' + QByteArray(size, static_cast<char>('0' + number % 10));
        if (const auto reason = base::writeFile(QString::fromLocal8Bit(argv[1]), contents)) {
            std::fprintf(stderr, "%s\n", qPrintable(*reason));
            return EXIT_FAILURE;
        }
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
}
