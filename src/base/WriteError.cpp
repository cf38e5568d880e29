// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/WriteError.h"

#include <cerrno>

namespace base {

QString writeError(int error)
{
    switch (error) {
    case EEXIST:
        return QStringLiteral("Entretanto apareció otro archivo con ese nombre.");
    case ENOSPC:
        return QStringLiteral("No queda espacio en el disco.");
    case EDQUOT:
        return QStringLiteral("Se agotó el espacio que tiene asignado en el disco.");
    case EIO:
        return QStringLiteral("El disco dio un error al escribir: puede que nada haya quedado "
                              "guardado en él.");
    case EFBIG:
        return QStringLiteral("El archivo pasa del límite de tamaño que tienen aquí los archivos.");
    case EROFS:
        return QStringLiteral("El disco es de solo lectura.");
    case EACCES:
        return QStringLiteral("No tiene permiso para escribir en la carpeta.");
    case EMFILE:
    case ENFILE:
        return QStringLiteral("Hay demasiados archivos abiertos.");
    case ENAMETOOLONG:
        return QStringLiteral("El nombre del archivo es demasiado largo.");
    case ELOOP:
        return QStringLiteral("El nombre es el de un enlace que no lleva a ningún archivo.");
    default:
        return QStringLiteral("El sistema no pudo escribirlo (%1).").arg(qt_error_string(error));
    }
}

} // namespace base
