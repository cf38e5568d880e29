// SPDX-License-Identifier: GPL-3.0-or-later
// What the toolkit takes to show a window with an empty table of the same size and nothing else.
#include "shell/FirstPaint.h"

#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow frame;
    auto* table = new QTableWidget(3, 3);
    frame.setCentralWidget(table);
    frame.showMaximized();
    new FirstPaint(*table->viewport());
    return QApplication::exec();
}
