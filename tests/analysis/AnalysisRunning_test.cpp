// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/AnalysisFixture.h"

#include "base/NumberText.h"

#include <QApplication>
#include <QDir>

#include <algorithm>
#include <new>
#include <numeric>

namespace {

const QString analysing = QStringLiteral("Analizando, Espere...");
const QString completeRun =
    QStringLiteral("Análisis completo. Puede realizar otro o guardar los resultados.");

class AnalysisRunning : public AnalysisFixture {
protected:
    /// A statistic of the report against its published text, to the last digit.
    void expectNumber(const QString& label, const char* text) const
    {
        EXPECT_EQ(afterLabel(label), QString::fromUtf8(text));
    }

    /// Each test ends with a report and without a box.
    void expectEveryTestAnswers()
    {
        for (const auto& [approach, test] :
             {std::pair{classical, 0}, {ranks, 0}, {ranks, 1}, {sequences, 0}, {sequences, 1}}) {
            choose(approaches(), approach);
            choose(tests(), test);
            statusTexts.clear();
            run();
            EXPECT_EQ(statusTexts, QStringList({analysing, completeRun}));
            EXPECT_GE(reportLines().size(), 3);
            EXPECT_TRUE(dialogs.errors.empty());
        }
    }

    /// `count` ascending values from 0 to `largest`, then as many probabilities that add up to 1.
    void expectExactDistribution(int count, double largest) const
    {
        constexpr double roundingOfTheSum = 1e-14;
        ASSERT_EQ(window->ExactCount(), count);
        const stats::ExactValues handedOver = window->ExactValues();
        const auto values = handedOver.begin();
        const auto probabilities = values + count;
        EXPECT_EQ(values[0], 0.0);
        EXPECT_EQ(values[count - 1], largest);
        EXPECT_TRUE(std::is_sorted(values, probabilities));
        EXPECT_NEAR(std::accumulate(probabilities, probabilities + count, 0.0), 1.0,
                    roundingOfTheSum);
    }
};

/// A window whose tests fail on the way.
template <typename Failure>
analysis::TAnalisis::RunTest failingWith(const Failure& failure)
{
    return [failure](auto&&...) -> stats::TestReport { throw failure; };
}

} // namespace

TEST_F(AnalysisRunning, EachApproachOffersItsTests)
{
    openSquare(orderThree);
    choose(approaches(), ranks);
    EXPECT_EQ(tests().title(), QStringLiteral("Prueba"));
    EXPECT_EQ(tests().items(),
              QStringList({QStringLiteral("Zimmerman (F)"), QStringLiteral("Bennett (Chi-2)")}));
    EXPECT_EQ(tests().itemIndex(), 1) << "Bennett is preselected";
    choose(approaches(), sequences);
    EXPECT_EQ(tests().items(), QStringList({QStringLiteral("Prueba C (Exacta -> Normal)"),
                                            QStringLiteral("Prueba M (Exacta -> F)")}));
    EXPECT_EQ(tests().itemIndex(), 0);
    choose(approaches(), classical);
    EXPECT_EQ(tests().items(), QStringList(QStringLiteral("Prueba F")));
    EXPECT_EQ(tests().itemIndex(), 0);
    EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
    EXPECT_TRUE(statusTexts.isEmpty());
}

TEST_F(AnalysisRunning, WhatCanBeChosenSaysWhatItAsksAndAssumes)
{
    openSquare(orderThree);
    const auto expectTip = [](const QWidget& control) {
        const QStringList lines = control.toolTip().split(QLatin1Char('\n'));
        EXPECT_TRUE(lines.size() == 2 || lines.size() == 3) << control.toolTip().toStdString();
        for (const QString& line : lines)
            EXPECT_LE(line.size(), 100) << line.toStdString();
    };
    QStringList tips;
    for (const int approach : {classical, ranks, sequences}) {
        choose(approaches(), approach);
        for (const auto* group : {&approaches(), &tests()}) {
            for (const auto* button : group->findChildren<QRadioButton*>()) {
                expectTip(*button);
                tips << button->toolTip();
            }
        }
    }
    tips.removeDuplicates();
    EXPECT_EQ(tips.size(), 3 + 5);
    expectTip(level());
    EXPECT_EQ(find<QLabel>("LabelConf")->toolTip(), level().toolTip());
    EXPECT_TRUE(level().toolTip().startsWith(QStringLiteral("Alfa es")));
}

TEST_F(AnalysisRunning, TestsOfRanksAndRunsSayThatTheyAssumeEqualErrorsAndBlocks)
{
    openSquare(orderThree);
    for (const int approach : {ranks, sequences}) {
        choose(approaches(), approach);
        const auto offered = tests().findChildren<QRadioButton*>();
        EXPECT_EQ(offered.size(), 2);
        for (const auto* button : offered) {
            const QString tip = button->toolTip();
            EXPECT_TRUE(tip.contains(QStringLiteral("independientes, de igual dispersión y forma")))
                << tip.toStdString();
            EXPECT_TRUE(tip.contains(QStringLiteral("que filas y columnas no difieran")))
                << tip.toStdString();
        }
        const QString tip = approaches().findChildren<QRadioButton*>().at(approach)->toolTip();
        EXPECT_TRUE(tip.contains(QStringLiteral("errores de igual dispersión y forma")))
            << tip.toStdString();
        EXPECT_TRUE(tip.contains(QStringLiteral("o quita filas ni columnas"))) << tip.toStdString();
    }
}

TEST_F(AnalysisRunning, TheLevelWarnsOfLowOnes)
{
    openSquare(orderThree);
    EXPECT_TRUE(level().toolTip().contains(
        QStringLiteral("o use niveles menores de 50 % con F, Zimmerman ni M")));
}

TEST_F(AnalysisRunning, BennettWarnsOfTiesBeforeItIsRun)
{
    openSquare(orderThree);
    choose(approaches(), ranks);
    const auto* bennett = find<QRadioButton>("RadioGroup2Item1");
    EXPECT_TRUE(bennett->toolTip().contains(QStringLiteral("empates")));
    run();
    EXPECT_FALSE(report().toPlainText().contains(QStringLiteral("empate")));
}

TEST_F(AnalysisRunning, TheOffersOfAllApproachesFitTheirBox)
{
    openSquare(orderThree);
    show();
    for (const int approach : {classical, ranks, sequences}) {
        choose(approaches(), approach);
        EXPECT_TRUE(tests().isVisible());
        for (const auto* button : tests().findChildren<QRadioButton*>())
            EXPECT_TRUE(QTest::qWaitFor([&] {
                return button->width() >= button->sizeHint().width() &&
                       tests().rect().contains(button->geometry());
            })) << button->text().toStdString();
    }
}

TEST_F(AnalysisRunning, AnApproachChosenTwiceKeepsTheTest)
{
    openSquare(orderThree);
    choose(approaches(), ranks);
    choose(tests(), 0);
    choose(approaches(), ranks);
    EXPECT_EQ(tests().itemIndex(), 0);
}

TEST_F(AnalysisRunning, TheBarSetsTheLevelExactly)
{
    openSquare(orderThree);
    const auto* label = find<QLabel>("LabelConf");
    for (int percent = 99; percent >= 1; --percent) {
        level().setValue(percent);
        EXPECT_EQ(window->Alpha(), (100 - percent) / 100.0);
        EXPECT_EQ(label->text(), QStringLiteral("Nivel de Significancia: %1%").arg(percent));
        EXPECT_EQ(label->accessibleName(), label->text());
    }
    EXPECT_EQ(window->Alpha(), 0.99);
    EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
}

TEST_F(AnalysisRunning, TheReportNamesTheLevelAlikeBeforeAndAfterTheBarMoved)
{
    openSquare(propellantRows);
    run();
    const QString before = report().toPlainText();
    EXPECT_TRUE(before.contains(QStringLiteral("F(0.05)")));
    level().setValue(1);
    run();
    EXPECT_TRUE(report().toPlainText().contains(QStringLiteral("F(0.99)")));
    level().setValue(95);
    run();
    EXPECT_EQ(report().toPlainText(), before);
}

TEST_F(AnalysisRunning, ReplacesTheReportByTheLinesOfTheTest)
{
    openSquare(propellantRows);
    run();
    EXPECT_EQ(statusTexts, QStringList({analysing, completeRun}));
    const QStringList lines = reportLines();
    ASSERT_EQ(lines.size(), 13);
    EXPECT_EQ(lines[0], QStringLiteral("                 Análisis de Covarianza (Enfoque Clásico)"
                                       "                 "));
    EXPECT_EQ(lines[1], QStringLiteral(" "));
    EXPECT_EQ(lines[11], QString());
    EXPECT_FALSE(report().toPlainText().contains(QStringLiteral("REPORTE SIN GENERAR")));
    // Published sums of squares.
    const auto sumOfSquares = [this](const char* label) {
        return afterLabel(QString::fromLatin1(label)).simplified().section(QLatin1Char(' '), 1, 1);
    };
    EXPECT_EQ(sumOfSquares("Filas "), QStringLiteral("68"));
    EXPECT_EQ(sumOfSquares("Columnas "), QStringLiteral("150"));
    EXPECT_EQ(sumOfSquares("Tratamientos "), QStringLiteral("330"));
    EXPECT_EQ(sumOfSquares("Error "), QStringLiteral("128"));
    EXPECT_EQ(sumOfSquares(" TOTAL "), QStringLiteral("676"));

    run();
    EXPECT_EQ(reportLines(), lines) << "a second run replaces the first";
}

TEST_F(AnalysisRunning, TheReportStartsAtItsFirstLine)
{
    openSquare(propellantRows);
    show();
    run();
    EXPECT_EQ(report().verticalScrollBar()->value(), 0);
    EXPECT_EQ(report().horizontalScrollBar()->value(), 0);
}

TEST_F(AnalysisRunning, TheReportHasTheDecimalSignOfTheLocale)
{
    const struct {
        QLocale locale;
        char sign;
    } cases[] = {
        {QLocale::c(), '.'},
        {QLocale(QLocale::Spanish, QLocale::Spain), ','},
        {QLocale(QLocale::Spanish, QLocale::Mexico), '.'},
        {QLocale(QLocale::German, QLocale::Germany), ','},
    };
    for (const auto& [locale, sign] : cases) {
        QLocale::setDefault(locale);
        openSquare(propellantRows);
        EXPECT_EQ(datos().value(2, 1), 20.0);
        run();
        const auto written = [point = sign](const char* number) {
            return QString::fromLatin1(number).replace(QLatin1Char('.'), QLatin1Char(point));
        };
        EXPECT_TRUE(reportLines()[3].endsWith(written("F(0.05)")))
            << reportLines()[3].toStdString();
        EXPECT_TRUE(afterLabel(QStringLiteral("Tratamientos ")).contains(written("7.73")));
    }
}

TEST_F(AnalysisRunning, ACellBeingEditedCounts)
{
    openSquare(propellantRows);
    show();
    run();
    const QString before = report().toPlainText();
    typeIntoCell(3, 2, QStringLiteral("99"));
    run();
    EXPECT_EQ(datos().value(3, 2), 99.0);
    const QString after = report().toPlainText();
    EXPECT_NE(after, before);
    Rows changed = propellantRows;
    changed[1][2] = 99;
    openSquare(changed);
    run();
    EXPECT_EQ(report().toPlainText(), after);
}

TEST_F(AnalysisRunning, ARefusedCellStopsTheRun)
{
    openSquare(propellantRows);
    show();
    typeIntoCell(1, 1, QStringLiteral("1.234,5"));
    run();
    EXPECT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(report().toPlainText(), QStringLiteral("REPORTE SIN GENERAR"));
    EXPECT_FALSE(statusTexts.contains(analysing));
    EXPECT_EQ(datos().value(1, 1), 24.0);
}

TEST_F(AnalysisRunning, AnswersForEveryShapeThatAFileBrings)
{
    for (const auto& [columns, rows] : {std::pair{1, 1},
                                        {2, 2},
                                        {7, 7},
                                        {8, 8},
                                        {20, 20},
                                        {4, 3},
                                        {3, 4},
                                        {1, 5},
                                        {5, 1},
                                        {20, 2}}) {
        Rows square(static_cast<std::size_t>(rows),
                    std::vector<double>(static_cast<std::size_t>(columns)));
        double value = 0.5;
        for (auto& row : square)
            for (double& cell : row)
                cell = value = 1000 - value * 1.37;
        openSquare(square);
        SCOPED_TRACE(::testing::Message() << columns << " x " << rows);
        expectEveryTestAnswers();
    }
}

TEST_F(AnalysisRunning, AnswersForEverySample)
{
    const QDir samples(QStringLiteral(CL_SOURCE_DIR "/ejemplos"));
    const QStringList names = samples.entryList({QStringLiteral("*.asc")});
    EXPECT_GE(names.size(), 4);
    for (const QString& name : names) {
        openFile(samples.filePath(name));
        ASSERT_TRUE(handOff.fileOpened);
        SCOPED_TRACE(name.toStdString());
        expectEveryTestAnswers();
        EXPECT_EQ(ve().isEnabled(), datos().NrOfColumns() == 3) << "after test M";
    }
}

TEST_F(AnalysisRunning, AFailingTestIsReportedAndLeavesNoWaitingText)
{
    writeBytes(QStringLiteral("datos.asc"), squareFile(orderThree));
    dialogs.openAnswers.emplace_back(path(QStringLiteral("datos.asc")));
    take(new analysis::TAnalisis(
        handOff, dialogs, nullptr,
        failingWith(std::runtime_error("array dimensions zero or negative"))));
    ve().setEnabled(true);
    run();
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_TRUE(
        dialogs.errors[0].text.contains(QStringLiteral("array dimensions zero or negative")));
    EXPECT_EQ(dialogs.errors[0].caption, QStringLiteral("Análisis"));
    ASSERT_EQ(statusTexts.size(), 2);
    EXPECT_EQ(statusTexts[0], analysing);
    EXPECT_EQ(statusTexts[1],
              QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'"));
    EXPECT_EQ(report().toPlainText(), QString());
    EXPECT_FALSE(ve().isEnabled());
}

TEST_F(AnalysisRunning, RunningOutOfMemoryIsSaidInSpanish)
{
    writeBytes(QStringLiteral("datos.asc"), squareFile(orderThree));
    dialogs.openAnswers.emplace_back(path(QStringLiteral("datos.asc")));
    take(new analysis::TAnalisis(handOff, dialogs, nullptr, failingWith(std::bad_alloc())));
    run();
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_TRUE(dialogs.errors[0].text.contains(QStringLiteral("no hay memoria suficiente")));
}

TEST_F(AnalysisRunning, AMatrixOutOfMemoryIsSaidInSpanish)
{
    writeBytes(QStringLiteral("datos.asc"), squareFile(orderThree));
    dialogs.openAnswers.emplace_back(path(QStringLiteral("datos.asc")));
    take(new analysis::TAnalisis(handOff, dialogs, nullptr,
                                 failingWith(stats::EMatrixError("not enough memory on heap"))));
    run();
    ASSERT_EQ(dialogs.errors.size(), 1U);
    EXPECT_EQ(dialogs.errors[0].text,
              QStringLiteral("No se pudo completar el análisis: no hay memoria suficiente."));
}

TEST_F(AnalysisRunning, TheKeyboardReachesEverything)
{
    openSquare(propellantRows);
    show();
    auto* analyse = find<QToolButton>("SpeedButton1");
    analyse->setFocus();
    QTest::keyClick(analyse, Qt::Key_Space);
    EXPECT_EQ(reportLines().size(), 13);

    QWidgetList reached;
    // Tab visits every cell of the grid before it goes on.
    for (int i = 0; i < 50 && QApplication::focusWidget(); ++i) {
        reached << QApplication::focusWidget();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_TRUE(reached.contains(&datos()));
    EXPECT_TRUE(reached.contains(&level()));
    EXPECT_TRUE(reached.contains(find<QRadioButton>("RadioGroup1Item0")));
    EXPECT_TRUE(reached.contains(find<QRadioButton>("RadioGroup2Item0")));
    EXPECT_TRUE(reached.contains(&report()));

    level().setFocus();
    QTest::keyClick(&level(), Qt::Key_Right);
    EXPECT_EQ(level().value(), 96);
    EXPECT_EQ(window->Alpha(), 0.04);
    QTest::keyClick(&level(), Qt::Key_Left);
    QTest::keyClick(&level(), Qt::Key_Left);
    EXPECT_EQ(level().value(), 94);
    QTest::keyClick(&level(), Qt::Key_Home);
    EXPECT_EQ(window->Alpha(), 0.99);
    QTest::keyClick(&level(), Qt::Key_End);
    EXPECT_EQ(window->Alpha(), 0.01);

    QTest::keyClick(&level(), Qt::Key_F9);
    EXPECT_TRUE(report().toPlainText().contains(QStringLiteral("F(0.01)")));
}

TEST_F(AnalysisRunning, WhatIsTypedRightAfterItsKeyStaysWhole)
{
    openSquare(orderThree);
    show();
    datos().setFocus();
    datos().setCurrentIndex(datos().model()->index(0, 0));
    QTest::keyClick(&datos(), Qt::Key_F9);
    typeIntoCurrentCell(datos(), QStringLiteral("12"));
    constexpr int longerThanAButtonIsDown = 150; // milliseconds
    QTest::qWait(longerThanAButtonIsDown);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("34"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(datos().value(1, 1), 1234);
}

TEST_F(AnalysisRunning, ThePropellantSquareByEveryTest)
{
    openSquare(propellantRows);
    run(ranks, 1);
    expectNumber(QStringLiteral("Estadística de prueba B= "), "21.1495384615385");
    expectNumber(QStringLiteral("Según el valor de B, se "), "rechaza H0");
    run(ranks, 0);
    expectNumber(QStringLiteral("Estadística Z = "), "0.613322502030869");
    expectNumber(QStringLiteral("Según el valor de Z, se "), "acepta H0");
    run(sequences, 0);
    expectNumber(QStringLiteral("C = "), "0.242786561264822");
    EXPECT_TRUE(report().toPlainText().contains(QStringLiteral("5000 cuadrados latinos")));
    EXPECT_FALSE(ve().isEnabled()) << "no exact distribution beyond order 3";
    run(sequences, 1);
    expectNumber(QStringLiteral("M = "), "0.601234142418722");
    const auto critical =
        base::readTypedNumber(afterLabel(QStringLiteral("El valor crítico es = ")));
    ASSERT_TRUE(critical.value.has_value());
    // The 0.95 point of F(4, 20) as the quantile search leaves it, which stops at 1e-8.
    EXPECT_NEAR(*critical.value, 2.86608148776, 1e-10);
    expectNumber(QStringLiteral("Para alpha = 0.05 se "), "acepta la hipótesis.");
    EXPECT_FALSE(ve().isEnabled());
    EXPECT_EQ(window->ExactName(), QStringLiteral("m"));
    EXPECT_EQ(window->ExactTitle(),
              QStringLiteral("Distribución exacta de M para cuadrados de 5x5"));
    EXPECT_EQ(window->ExactCount(), 0);
}

TEST_F(AnalysisRunning, ASquareOfOrderThreeBringsItsExactDistributions)
{
    openSquare(orderThree);
    EXPECT_EQ(window->ExactName(), QString());
    run(sequences, 0);
    expectNumber(QStringLiteral("C = "), "0.151851851851852");
    expectNumber(QStringLiteral("El valor de la distribución acumulada para C es "),
                 "0.942857142857143");
    expectNumber(QStringLiteral("Para alpha = 0.05 se "), "acepta la hipótesis.");
    EXPECT_TRUE(window->ExactAvailable());
    EXPECT_EQ(window->ExactName(), QStringLiteral("c"));
    EXPECT_EQ(window->ExactTitle(),
              QStringLiteral("Distribución exacta de C para cuadrados de 3x3"));
    expectExactDistribution(86, 53.0 / 270);

    run(sequences, 1);
    expectNumber(QStringLiteral("M = "), "0.919354838709677");
    expectNumber(QStringLiteral("El valor de la distribución acumulada para M es "),
                 "0.964285714285714");
    expectNumber(QStringLiteral("Para alpha = 0.05 se "), "rechaza la hipótesis.");
    EXPECT_EQ(window->ExactName(), QStringLiteral("m"));
    EXPECT_EQ(window->ExactTitle(),
              QStringLiteral("Distribución exacta de M para cuadrados de 3x3"));
    expectExactDistribution(112, 1.5);
}

TEST_F(AnalysisRunning, OnlyARunChangesWhetherAnExactDistributionCanBeSeen)
{
    openSquare(orderThree);
    const std::vector<std::pair<int, int>> withoutOne{{classical, 0}, {ranks, 0}, {ranks, 1}};
    for (const auto& [approach, test] : withoutOne) {
        for (const int sequenceTest : {0, 1}) {
            run(sequences, sequenceTest);
            EXPECT_TRUE(ve().isEnabled());
            choose(approaches(), approach);
            choose(tests(), test);
            level().setValue(50);
            EXPECT_TRUE(ve().isEnabled()) << "choosing leaves it";
            run();
            EXPECT_FALSE(ve().isEnabled()) << approach << ' ' << test;
        }
    }
}

TEST_F(AnalysisRunning, TheGridIsTakenColumnByRow)
{
    // Only the transposed square has its rows' sums in its columns.
    Rows transposed(propellantRows.size(), std::vector<double>(propellantRows.size()));
    for (std::size_t row = 0; row < propellantRows.size(); ++row)
        for (std::size_t column = 0; column < propellantRows.size(); ++column)
            transposed[column][row] = propellantRows[row][column];
    openSquare(transposed);
    run();
    EXPECT_TRUE(afterLabel(QStringLiteral("Filas ")).contains(QStringLiteral(" 150 ")));
    EXPECT_TRUE(afterLabel(QStringLiteral("Columnas ")).contains(QStringLiteral(" 68 ")));
}
