// SPDX-License-Identifier: GPL-3.0-or-later
// For tests of windows within the program's own application, with the dialogs that users have.
#include "shell/Application.h"
#include "window/QtDialogs.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    window::QtDialogs dialogs;
    const shell::Application application(argc, argv, dialogs);
    return RUN_ALL_TESTS();
}
