// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Application.h"
#include "shell/Principal.h"
#include "shell/UnchosenEnd.h"
#include "window/QtDialogs.h"

int main(int argc, char** argv)
{
    window::QtDialogs dialogs;
    shell::Application application(argc, argv, dialogs);
    shell::TPrincipal frame(dialogs);
    const shell::UnchosenEnd unchosenEnd(frame);
    frame.showMaximized();
    frame.NuevoArchivo1Click();
    return shell::Application::exec();
}
