// SPDX-License-Identifier: GPL-3.0-or-later
// icon_files FOLDER: writes the program's icon as FOLDER/SIZExSIZE/apps/cuadrado-latino.png, for
// the desktop to show it in its menus.
#include "window/Icons.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QDir folder(QString::fromLocal8Bit(argc == 2 ? argv[1] : "."));
    const QIcon icon = window::icon(window::Picture::Program);
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        const QString place = QStringLiteral("%1x%1/apps").arg(side);
        const QString file = folder.filePath(place + QStringLiteral("/cuadrado-latino.png"));
        if (!folder.mkpath(place) || !icon.pixmap(QSize(side, side), 1.0).save(file, "PNG"))
            return 1;
    }
    return 0;
}
