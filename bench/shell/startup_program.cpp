// SPDX-License-Identifier: GPL-3.0-or-later
// The program's start, up to the first editor on the screen.
#include "shell/Application.h"
#include "shell/FirstPaint.h"
#include "shell/Principal.h"
#include "window/QtDialogs.h"

#include <QTableView>

int main(int argc, char** argv)
{
    window::QtDialogs dialogs;
    shell::Application application(argc, argv, dialogs);
    shell::TPrincipal frame(dialogs);
    frame.showMaximized();
    frame.NuevoArchivo1Click();
    new FirstPaint(*frame.findChild<QTableView*>(QStringLiteral("Datos"))->viewport());
    return shell::Application::exec();
}
