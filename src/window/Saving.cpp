// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Saving.h"

#include <QPointer>
#include <QWidget>

namespace window {

std::optional<QString> save(Dialogs& dialogs, QWidget& owner, const Saving& saving,
                            const QString& known)
{
    const QPointer<QWidget> stillThere(&owner);
    FileRequest request = saving.request;
    std::optional<QString> name = known;
    if (known.isEmpty())
        name = dialogs.saveFileName(&owner, request);
    while (name && stillThere) {
        const std::optional<QString> reason = saving.write(*name);
        if (!reason)
            return name;
        const QString written = request.writtenName ? request.writtenName(*name) : *name;
        dialogs.showError(
            &owner, QStringLiteral("No se pudo guardar el archivo «%1».\n%2").arg(written, *reason),
            saving.caption);
        if (!stillThere)
            break;
        request.fileName = *name;
        name = dialogs.saveFileName(&owner, request);
    }
    return std::nullopt;
}

} // namespace window
