// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/file/LoadedSquare.h"

#include "base/SafeFile.h"
#include "square/file/SquareFile.h"

#include <new>

namespace square {

namespace {

LoadedSquare refused(int code, const QString& problem)
{
    return {code, std::nullopt, problem, {}};
}

/// Tells counts that no square can have from a file that is no square.
QString problemOf(const QByteArray& bytes)
{
    const SquareHeader header = readHeader(bytes);
    const QString size =
        header.code == Usable ? sizeProblem(header.nrOfColumns, header.nrOfRows) : QString();
    return size.isEmpty() ? badFileMessage() : size;
}

} // namespace

QString badFileMessage()
{
    return QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");
}

LoadedSquare loadSquare(const QString& fileName)
{
    try {
        const auto [bytes, limit] = base::readLimited(fileName);
        if (!bytes)
            return refused(NoColumnCount, limit.isEmpty() ? badFileMessage() : limit);
        DecodedSquare decoded = decode(*bytes);
        if (decoded.code != Usable)
            return refused(decoded.code, problemOf(*bytes));
        return {Usable, std::move(decoded.data), QString(), base::fingerprint(*bytes)};
    } catch (const std::bad_alloc&) {
        return refused(NoRoomOrLineFeed, outOfMemoryMessage());
    }
}

} // namespace square
