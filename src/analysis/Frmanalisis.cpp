// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Frmanalisis.h"

#include "analysis/Offer.h"
#include "controls/Memo.h"
#include "controls/RadioGroup.h"
#include "distribution/Frmgraf.h"
#include "grid/model/GridError.h"
#include "grid/view/NTabEd.h"
#include "square/file/LoadedSquare.h"
#include "window/Caption.h"
#include "window/HandOff.h"
#include "window/Picture.h"

#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

#include <exception>
#include <new>
#include <utility>

namespace analysis {

namespace {

QString invitation()
{
    return QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");
}

QString completion()
{
    return QStringLiteral("Análisis completo. Puede realizar otro o guardar los resultados.");
}

QString failureText(const std::exception& failure)
{
    // A matrix tells of its memory in English.
    const QString reason = dynamic_cast<const std::bad_alloc*>(&failure) ||
                                   dynamic_cast<const stats::EMatrixError*>(&failure)
                               ? QStringLiteral("no hay memoria suficiente")
                               : QString::fromUtf8(failure.what());
    return QStringLiteral("No se pudo completar el análisis: %1.").arg(reason);
}

} // namespace

TAnalisis::TAnalisis(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent,
                     RunTest runTest)
    : ChildWindow(QStringLiteral("Analisis"), QStringLiteral("Análisis"), window::Picture::Analysis,
                  dialogs, parent)
    , m_runTest(std::move(runTest))
{
    createMenu();
    createLayout();
    resize(sizeHint());

    if (!handOff.pendingFileName.isEmpty())
        openPendingFile(handOff);
    else
        openChosenFile(handOff);
    if (handOff.fileOpened)
        m_approaches->setFocus();
}

stats::ExactValues TAnalisis::ExactValues() const
{
    stats::ExactValues values{};
    m_exact.handOver(values);
    return values;
}

QSize TAnalisis::sizeHint() const
{
    return {808, 580};
}

void TAnalisis::FormActivate()
{
    const QString shape = square::shapeNotice(m_datos->NrOfColumns(), m_datos->NrOfRows());
    emit statusText(!m_stale.isEmpty() ? m_stale : !shape.isEmpty() ? shape : invitation());
}

void TAnalisis::RadioGroup1Click()
{
    const stats::Approach approach = selectedApproach();
    offer(*m_tests, stats::testsOf(approach));
    m_tests->setTitle(QStringLiteral("Prueba"));
    // Beyond the last item for "Rangos", whose last item is the one wanted.
    m_tests->setItemIndex(approach == stats::Approach::Ranks ? 2 : 0);
    m_tests->setVisible(true);
}

void TAnalisis::ScrollBar1Change()
{
    const int percent = m_levelBar->value();
    // One rounding, so that the report says 0.05 at 95.
    m_alpha = (100 - percent) / 100.0;
    m_level->setText(QStringLiteral("Nivel de Significancia: %1%").arg(percent));
    m_level->setAccessibleName(m_level->text());
    tellWhetherStale();
}

void TAnalisis::DatosChange()
{
    tellWhetherStale();
    if (!std::exchange(m_wasEdited, true))
        tellBesideStale(
            QStringLiteral("Los cambios valen en esta ventana, pero no llegan al archivo."));
}

void TAnalisis::SpeedButton1Click()
{
    if (!m_datos->commitEdit())
        return;
    emit statusText(QStringLiteral("Analizando, Espere..."));
    m_report->clear();
    m_reported.reset();
    m_stale.clear();
    // Until a test has handed over a whole distribution there is none to see.
    m_ve->setEnabled(false);
    try {
        ReportBasis asked = basis();
        const stats::TestKind test = asked.test;
        const stats::TestReport report =
            m_runTest(test, asked.observations, m_datos->NrOfColumns(), asked.alpha);
        if (test == stats::TestKind::C || test == stats::TestKind::M)
            keepExact(report,
                      test == stats::TestKind::C ? QStringLiteral("c") : QStringLiteral("m"));
        const QString text = report.lines.join(QLatin1Char('\n'));
        m_report->setPlainText(text);
        // Short of memory the toolkit may lose the text without a word, here and on the way.
        if (text.isEmpty() || m_report->toPlainText() != text)
            throw std::bad_alloc();
        m_reported = std::move(asked);
    } catch (const std::exception& failure) {
        m_report->clear(); // the toolkit may have taken the text before it ran out of memory
        emit statusText(invitation());
        dialogs().showError(this, failureText(failure), plainCaption());
        return;
    }
    emit statusText(completion());
}

void TAnalisis::veClick()
{
    auto* graph = new distribution::TGrafica(dialogs(), window());
    graph->setDistribution({m_exact.figures(), m_exactTitle, m_exactName});
    graph->ShowDistribution();
    emit graphOpened(graph);
}

void TAnalisis::Exportar1Click()
{
    if (!m_datos->commitEdit())
        return;
    window::FileRequest request{QStringLiteral("Exportar"), QStringLiteral("reporte.txt"),
                                QStringLiteral("txt"),
                                QStringLiteral("Archivo de Texto (*.txt)|*.txt")};
    request.savedNotice = m_stale.isEmpty()
                              ? QStringLiteral("Exportado: %1")
                              : QStringLiteral("Exportado el reporte de antes del cambio: %1");
    // A report that a failed analysis has cleared has no lines.
    saveLines(request, m_report->document()->isEmpty() ? QStringList() : m_report->lines());
}

void TAnalisis::tellWhetherStale()
{
    if (!m_reported)
        return;
    const QString stale = staleNotice(*m_reported, basis());
    if (stale == m_stale)
        return;
    m_stale = stale;
    emit statusText(stale.isEmpty() ? completion() : stale);
}

/// A notice, which must not hide that the report is older than what stands in the window.
void TAnalisis::tellBesideStale(const QString& told)
{
    emit notice(m_stale.isEmpty() ? told : m_stale + QStringLiteral(". ") + told);
}

void TAnalisis::keepExact(const stats::TestReport& report, const QString& statistic)
{
    if (report.exact)
        m_exact = *report.exact;
    m_exactAvailable = report.exact.has_value();
    m_exactTitle = report.exactTitle;
    m_exactName = statistic;
    m_ve->setEnabled(m_exactAvailable);
}

void TAnalisis::openPendingFile(window::HandOff& handOff)
{
    // Cleared before the file is read, so that no failure can leave it to the next window.
    const QString fileName = std::exchange(handOff.pendingFileName, QString());
    handOff.fileOpened = importFile(fileName);
}

void TAnalisis::openChosenFile(window::HandOff& handOff)
{
    const auto fileName =
        dialogs().openFileName(this, {QStringLiteral("Abrir Archivo"), QString(),
                                      QStringLiteral("asc"), QStringLiteral("ASCII|*.asc")});
    handOff.fileOpened = fileName && importFile(*fileName);
    if (handOff.fileOpened)
        setWindowTitle(window::fileCaption(plainCaption(), *fileName));
}

bool TAnalisis::importFile(const QString& fileName)
{
    base::Outcome<square::LoadedSquare> loaded = square::loadSquare(fileName);
    if (!loaded.value) {
        showBadFile(loaded.reason);
        return false;
    }
    try {
        m_datos->setSquare(std::move(loaded.value->square));
    } catch (const grid::GridError& failure) {
        showBadFile(QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}

void TAnalisis::showBadFile(const QString& problem)
{
    dialogs().showError(this, problem, QStringLiteral("Abrir Archivo"));
}

stats::Approach TAnalisis::selectedApproach() const
{
    return stats::approaches().at(static_cast<std::size_t>(m_approaches->itemIndex()));
}

stats::TestKind TAnalisis::selectedTest() const
{
    return stats::testsOf(selectedApproach()).at(static_cast<std::size_t>(m_tests->itemIndex()));
}

ReportBasis TAnalisis::basis() const
{
    return {selectedApproach(), selectedTest(), m_alpha, observations()};
}

stats::TMatrix TAnalisis::observations() const
{
    const int columns = m_datos->NrOfColumns();
    const int rows = m_datos->NrOfRows();
    stats::TMatrix matrix = stats::TMatrix::Create(columns, rows);
    for (int row = 1; row <= rows; ++row)
        for (int column = 1; column <= columns; ++column)
            matrix.Elem(column, row, m_datos->value(column, row));
    return matrix;
}

} // namespace analysis
