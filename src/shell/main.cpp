// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Application.h"
#include "shell/Principal.h"
#include "shell/UnchosenEnd.h"
#include "window/QtDialogs.h"

namespace {

/// Qt 6.4 puts pieces of different sizes on the screen at a scale below 1, and nobody can read
/// them.
void dropUnreadableScale()
{
    bool isNumber = false;
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(&isNumber);
    if (isNumber && scale < 1)
        qunsetenv("QT_SCALE_FACTOR");
}

} // namespace

int main(int argc, char** argv)
{
    dropUnreadableScale();
    window::QtDialogs dialogs;
    shell::Application application(argc, argv, dialogs);
    shell::TPrincipal frame(dialogs);
    const shell::UnchosenEnd unchosenEnd(frame);
    frame.showMaximized();
    frame.NuevoArchivo1Click();
    return shell::Application::exec();
}
