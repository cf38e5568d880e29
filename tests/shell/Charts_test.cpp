// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of the graph and of the power window in the frame, by keys and by mouse.
#include "shell/PrincipalFixture.h"

#include "support/UserLocale.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QSplitter>
#include <QTest>

namespace {

class Charts : public Principal {
protected:
    template <typename Widget = QWidget>
    Widget& control(const char* name)
    {
        auto* found =
            area().activeSubWindow()->widget()->findChild<Widget*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void click(const char* name) { control<QAbstractButton>(name).click(); }

    /// What the status line shows.
    QString shown()
    {
        const auto* tip = frame.findChild<QLabel*>(QStringLiteral("StatusTip"));
        return tip->isVisible() ? tip->text() : status();
    }

    QString description(const char* chart)
    {
        return QAccessible::queryAccessibleInterface(&control(chart))
            ->text(QAccessible::Description);
    }

    void openDistributionOfC()
    {
        dialogs.openAnswers.push_back(sample("orden3.asc"));
        frame.AnlisisdeDatos1Click();
        click("RadioGroup1Item2");
        click("SpeedButton1");
        click("ve");
        area().activeSubWindow()->showMaximized();
        QApplication::processEvents();
    }

    void openPower()
    {
        frame.ClculodePotencia1Click();
        area().activeSubWindow()->showMaximized();
        QApplication::processEvents();
    }

    QString log() { return control<QPlainTextEdit>("log").toPlainText(); }

    void pressF9()
    {
        const QString before = log();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F9);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return log() != before && !control<QAbstractButton>("BtnCalcular").isDown(); }));
    }

private:
    UserLocale m_comma{"es_ES"};
};

} // namespace

TEST_F(Charts, ValuesAreReadInTheStatusLine)
{
    openDistributionOfC();
    const QString lasting = shown();
    EXPECT_TRUE(lasting.startsWith(QStringLiteral("Arrastre")));
    QWidget& upper = control("Graph");
    ASSERT_TRUE(upper.hasFocus());
    QTest::keyClick(&upper, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(shown(), QStringLiteral("x = 0,196296; P(C=c) = 0,0142857"));
    QTest::keyClick(&upper, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(shown(), QStringLiteral("x = 0,194444; P(C=c) = 0,00357143"));
    QTest::keyClick(&upper, Qt::Key_Tab);
    EXPECT_EQ(shown(), lasting);

    QWidget& lower = control("Graph2");
    QTest::mouseMove(&lower, lower.rect().center());
    EXPECT_TRUE(shown().startsWith(QStringLiteral("x = 0,"))) << shown().toStdString();
    EXPECT_TRUE(shown().contains(QStringLiteral("; P(C<=c) = 0,"))) << shown().toStdString();
    QTest::mouseMove(&lower, QPoint(2, 2));
    EXPECT_EQ(shown(), lasting);
}

TEST_F(Charts, BothOfADistributionZoomTogetherAndNoneGoesAway)
{
    openDistributionOfC();
    const auto rangeOf = [this](const char* chart) {
        return description(chart)
            .section(QStringLiteral(". Eje vertical"), 0, 0)
            .section(QStringLiteral("Valor C, "), 1);
    };
    const QString full = rangeOf("Graph");
    QTest::keyClick(&control("Graph"), Qt::Key_Plus);
    EXPECT_NE(rangeOf("Graph"), full);
    EXPECT_EQ(rangeOf("Graph2"), rangeOf("Graph"));
    QTest::keyClick(&control("Graph2"), Qt::Key_Escape);
    EXPECT_EQ(rangeOf("Graph"), full);

    QWidget* handle = control<QSplitter>("Splitter1").handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, {1, 1});
    QTest::mouseMove(handle, QPoint(1, 900));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, {1, 900});
    EXPECT_GE(control("Graph2").height(), 100);
}

TEST_F(Charts, NumberTypedInVainIsSetBackAndToldOf)
{
    openPower();
    auto& trials = control<QLineEdit>("Edit2");
    EXPECT_EQ(trials.text(), QStringLiteral("1.000"));
    trials.setFocus();
    trials.selectAll();
    QTest::keyClicks(&trials, QStringLiteral("700"));
    pressF9();
    EXPECT_EQ(trials.text(), QStringLiteral("1.000"));
    EXPECT_TRUE(log().contains(QStringLiteral("1000 pruebas...")));
    EXPECT_TRUE(shown().startsWith(QStringLiteral("Calculado con tamaño 3 y 1000 ensayos: ")));
    // Enter takes nothing over either.
    trials.selectAll();
    QTest::keyClicks(&trials, QStringLiteral("700"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    pressF9();
    EXPECT_TRUE(shown().startsWith(QStringLiteral("Calculado con tamaño 3 y 1000 ensayos: ")));
    QTest::keyClick(&trials, Qt::Key_Down);
    EXPECT_EQ(trials.text(), QStringLiteral("900"));
    EXPECT_EQ(shown(), QStringLiteral("Listo.")) << "of the study before it no word is left";
    trials.selectAll();
    QTest::keyClicks(&trials, QStringLiteral("2,000"));
    QTest::keyClick(&trials, Qt::Key_Down);
    EXPECT_EQ(trials.text(), QStringLiteral("1900"));
    trials.selectAll();
    QTest::keyClicks(&trials, QStringLiteral("1000"));
    QTest::keyClick(&trials, Qt::Key_Down);
    EXPECT_EQ(trials.text(), QStringLiteral("900"));
    QTest::keyClick(&trials, Qt::Key_Up);
    EXPECT_EQ(trials.text(), QStringLiteral("1000"));
    QAccessible::queryAccessibleInterface(&control("UpDown2"))
        ->valueInterface()
        ->setCurrentValue(600);
    pressF9();
    EXPECT_TRUE(log().contains(QStringLiteral("600 pruebas...")));
    EXPECT_EQ(shown(), QStringLiteral("Listo."));
}

TEST_F(Charts, GraphOfAStudyTellsWhatItIs)
{
    openPower();
    QWidget& graph = control("Graph");
    QTest::mouseDClick(&graph, Qt::LeftButton, {}, graph.rect().center());
    EXPECT_TRUE(description("Graph").contains(QStringLiteral("de 0 a 1. Eje vertical: Potencia, "
                                                             "de 0 a 1.")));
    pressF9();
    EXPECT_TRUE(description("Graph").contains(QStringLiteral(
        "Eje horizontal: Diferencia (tamaño 3, 1000 ensayos, Nivel de Significancia 95%, "
        "Distribución Uniforme). Rojo: C; azul: Bennett; verde: M; negro: Zimmerman, de ")));
    EXPECT_TRUE(description("Graph").contains(QStringLiteral("\nPrueba M:\n0; ")));
    graph.setFocus();
    QTest::keyClick(&graph, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_TRUE(shown().startsWith(QStringLiteral("x = 0; Potencia = 0,")));
    EXPECT_TRUE(shown().endsWith(QStringLiteral(" (Prueba C)"))) << shown().toStdString();
}

TEST_F(Charts, SavedFromADarkDesktopIsOnWhite)
{
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(45, 45, 45)));
    openPower();
    const QString name = folder.filePath(QStringLiteral("p.bmp"));
    dialogs.saveAnswers.push_back(name);
    entry({QStringLiteral("&Potencia"), QStringLiteral("Guardar &Grafica...")})->trigger();
    EXPECT_EQ(QImage(name).pixelColor(0, 0), QColor(Qt::white));
    QApplication::setPalette(light);
}

TEST_F(Charts, PopupsMoveWithTheFrame)
{
    openPower();
    const auto placeFor = [this](const QPoint& corner) {
        frame.move(corner);
        click("BtnSig");
        auto& popup = control<QMenu>("MenuSig");
        const QPoint place = popup.pos();
        popup.close();
        return place;
    };
    frame.resize(700, 500);
    EXPECT_EQ(placeFor({-60, 30}) - placeFor({0, 0}), QPoint(-60, 30));
}
