// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/control/RChart.h"
#include "controls/UpDown.h"
#include "power/window/Frmpotencia.h"
#include "support/ScriptedDialogs.h"
#include "support/Text.h"
#include "support/UserLocale.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <stdexcept>
#include <string>

namespace power {

/// A power window on the screen, with the small study that tests can afford.
class PowerWindow : public testing::Test {
protected:
    void SetUp() override
    {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    template <typename Widget>
    static Widget& in(QWidget& where, const char* name)
    {
        auto* found = where.findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            throw std::runtime_error(std::string("no ") + name);
        return *found;
    }
    QPushButton& button(const char* name) { return in<QPushButton>(*window, name); }
    QLineEdit& edit(const char* name) { return in<QLineEdit>(*window, name); }
    controls::UpDown& upDown(const char* name) { return in<controls::UpDown>(*window, name); }
    QMenu& popup(const char* name) { return in<QMenu>(*window, name); }
    chart::TRChart& graph() { return in<chart::TRChart>(*window, "Graph"); }
    int countOf(chart::ItemKind kind)
    {
        return static_cast<int>(graph().items().counters()[static_cast<std::size_t>(kind)]);
    }
    QStringList log() { return logOf(*window); }
    static QStringList logOf(QWidget& where)
    {
        return in<QPlainTextEdit>(where, "log").toPlainText().split(QLatin1Char('\n'));
    }

    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

    /// Opens a popup by its button and clicks an entry.
    static void choose(QWidget& where, const char* button, const char* menu, const char* entry)
    {
        click(in<QPushButton>(where, button));
        auto& popup = in<QMenu>(where, menu);
        ASSERT_TRUE(popup.isVisible());
        auto* action = popup.findChild<QAction*>(QString::fromLatin1(entry));
        QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.actionGeometry(action).center());
        ASSERT_FALSE(popup.isVisible());
    }

    UserLocale m_point{"C"};
    ScriptedDialogs dialogs;
    std::unique_ptr<TPotencia> window = std::make_unique<TPotencia>(dialogs);
};

} // namespace power
