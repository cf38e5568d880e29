// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/StatusLine.h"

#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace {

class StatusLine : public testing::Test {
protected:
    StatusLine()
    {
        line.resize(200, 20);
        line.show();
        line.setText(lasting);
    }

    QLabel* label(const char* name) { return line.findChild<QLabel*>(QString::fromUtf8(name)); }

    QString toolTip()
    {
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label("Status")->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(label("Status"), &help);
        return QToolTip::text();
    }

    const QString lasting = QStringLiteral("Listo.");
    shell::StatusLine line;
};

} // namespace

TEST_F(StatusLine, TipCoversTheLastingTextUntilItGoes)
{
    line.showTip(QStringLiteral("Guarda el cuadrado"));
    EXPECT_TRUE(label("StatusTip")->isVisible());
    EXPECT_FALSE(label("Status")->isVisible());
    EXPECT_EQ(label("Status")->text(), lasting);
    line.showTip(QString());
    EXPECT_TRUE(label("Status")->isVisible());
    EXPECT_FALSE(label("StatusTip")->isVisible());
}

TEST_F(StatusLine, NewLastingTextUncoversItself)
{
    line.showTip(QStringLiteral("Guarda el cuadrado"));
    line.setText(QStringLiteral("Analizando, Espere..."));
    EXPECT_TRUE(label("Status")->isVisible());
    EXPECT_EQ(label("Status")->text(), QStringLiteral("Analizando, Espere..."));
}

TEST_F(StatusLine, TextTooLongForTheLineIsWholeInItsToolTip)
{
    EXPECT_EQ(toolTip(), QString());
    const QString text = QStringLiteral("Puede manejar archivos de datos para el análisis aquí.");
    line.setText(text);
    EXPECT_EQ(line.width(), 200);
    EXPECT_EQ(toolTip(), text);
    QToolTip::hideText();
}

TEST_F(StatusLine, LongTextDoesNotWidenTheLine)
{
    const int narrow = line.minimumSizeHint().width();
    line.setText(QString(500, QLatin1Char('m')));
    EXPECT_EQ(line.minimumSizeHint().width(), narrow);
}
