// SPDX-License-Identifier: GPL-3.0-or-later
// A close whose save runs out of memory: nothing closes over what was not saved.
#include "shell/Principal.h"

#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QTimer>

#include <new>

namespace {

/// The user wants to save, and there is no memory left for it.
class ShortOfMemory : public ScriptedDialogs {
public:
    std::optional<QString> saveFileName(QWidget*, const window::FileRequest&) override
    {
        throw std::bad_alloc();
    }
};

/// The application tells of the error in a box of its own.
class FailedClose : public ::testing::Test {
protected:
    FailedClose()
    {
        frame.NuevoArchivo1Click();
        frame.show();
        QApplication::processEvents();
        QObject::connect(&m_look, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                told << box->text();
                box->accept();
            }
        });
        m_look.start(0);
        dialogs.yesNoAnswers = {true};
    }

    QMdiSubWindow* editor() const { return frame.findChild<QMdiArea*>()->subWindowList().value(0); }

    ShortOfMemory dialogs;
    shell::TPrincipal frame{dialogs};
    QStringList told;

private:
    QTimer m_look;
};

} // namespace

TEST_F(FailedClose, LeavesTheFrameOpen)
{
    EXPECT_FALSE(frame.close());
    EXPECT_TRUE(frame.isVisible());
    EXPECT_NE(editor(), nullptr);
    EXPECT_EQ(told, QStringList(QStringLiteral("No hay memoria suficiente.")));
    dialogs.yesNoAnswers = {false};
    EXPECT_TRUE(frame.close());
}

TEST_F(FailedClose, LeavesTheEditorOpen)
{
    EXPECT_FALSE(editor()->close());
    QApplication::processEvents();
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(editor()->isVisible());
    EXPECT_EQ(told, QStringList(QStringLiteral("No hay memoria suficiente.")));
    dialogs.yesNoAnswers = {false};
    EXPECT_TRUE(editor()->close());
}
