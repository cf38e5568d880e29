// SPDX-License-Identifier: GPL-3.0-or-later
#include "distribution/Frmgraf.h"

#include "base/SafeFile.h"
#include "chart/control/RChart.h"
#include "window/Command.h"

#include <QMenu>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace distribution {

namespace {

constexpr double fitMargin = 2.0; // percent
constexpr int splitterHeight = 3;
constexpr int usualLowerHeight = 160;

/// A line through one of the figures of every value.
void drawCurve(chart::TRChart& chart, const std::vector<stats::ExactFigures>& figures,
               double stats::ExactFigures::*height)
{
    chart.ClearItems();
    for (std::size_t i = 0; i < figures.size(); ++i) {
        if (i == 0)
            chart.MoveToXY(figures[i].value, figures[i].*height);
        else
            chart.LineToXY(figures[i].value, figures[i].*height);
    }
    chart.FitRangeToData(fitMargin);
}

} // namespace

TGrafica::TGrafica(window::Dialogs& dialogs, QWidget* parent)
    : ChildWindow(QStringLiteral("Grafica"), QStringLiteral("Gráfica"), window::Picture::Graph,
                  dialogs, parent)
{
    createMenu();
    createCharts();
    m_graph->setFocus();
    resize(sizeHint());
}

QSize TGrafica::sizeHint() const
{
    return {544, 375 - usualLowerHeight + lowerChartHeight()};
}

void TGrafica::setDistribution(ShownDistribution distribution)
{
    m_distribution = std::move(distribution);
}

void TGrafica::ShowDistribution()
{
    const ShownDistribution& shown = m_distribution;
    const QString upper = shown.StatName.toUpper();
    const QString lower = shown.StatName.toLower();
    setWindowTitle(shown.Title);
    m_graph->setCaption(shown.Title);
    m_graph->setIdAbscissa(QStringLiteral("Valor ") + upper);
    m_graph->setIdOrdinate(QStringLiteral("P(%1=%2)").arg(upper, lower));
    m_graph2->setIdAbscissa(QStringLiteral("Valor ") + upper);
    m_graph2->setIdOrdinate(QStringLiteral("P(%1<=%2)").arg(upper, lower));

    drawCurve(*m_graph, shown.figures, &stats::ExactFigures::probability);
    m_graph2->setDataColor(QColor(0, 0, 255));
    drawCurve(*m_graph2, shown.figures, &stats::ExactFigures::cumulative);
    alignCharts();
}

void TGrafica::FormActivate()
{
    emit statusText(QStringLiteral("Arrastre sobre una gráfica para ampliarla; Esc regresa un paso "
                                   "y doble clic muestra todo."));
}

void TGrafica::GuardarGrfica1Click()
{
    saveBitmap(*m_graph, QStringLiteral("Guardar Gráfica"));
}

void TGrafica::GuardaGrficaAcumulada1Click()
{
    saveBitmap(*m_graph2, QStringLiteral("Guardar Gráfica Acumulada"));
}

void TGrafica::GuardarDatos1Click()
{
    window::FileRequest request{QStringLiteral("Guardar Datos"), QStringLiteral("datos.txt"),
                                QStringLiteral("txt"),
                                QStringLiteral("Archivos de texto (TXT)|*.txt")};
    request.confirmOverwrite = false;
    save(request, [this](const QString& chosen) {
        return base::replaceFile(chosen, distributionTable(m_distribution));
    });
}

void TGrafica::CopiarGrfica1Click()
{
    copyBitmap(*m_graph);
}

void TGrafica::Copiar1Click()
{
    copyBitmap(*m_graph2);
}

void TGrafica::resizeEvent(QResizeEvent* event)
{
    ChildWindow::resizeEvent(event);
    alignCharts();
}

void TGrafica::createMenu()
{
    using window::Picture;
    menu()->setTitle(QStringLiteral("&Gráfica"));
    menu()->setObjectName(QStringLiteral("Grfica1"));
    const auto add = [this](const window::Command& command, void (TGrafica::*handler)()) {
        window::addEntry(*menu(), command, this, handler);
    };
    add({QStringLiteral("GuardarGrfica1"), QStringLiteral("&Guardar Gráfica..."),
         QStringLiteral("Guarda la gráfica de arriba como mapa de bits"), Picture::Save},
        &TGrafica::GuardarGrfica1Click);
    add({QStringLiteral("GuardaGrficaAcumulada1"), QStringLiteral("Guarda Gráfica &Acumulada..."),
         QStringLiteral("Guarda la gráfica de abajo, la acumulada, como mapa de bits"),
         Picture::Save},
        &TGrafica::GuardaGrficaAcumulada1Click);
    add({QStringLiteral("GuardarDatos1"), QStringLiteral("Guardar &Datos..."),
         QStringLiteral("Guarda como texto la tabla de la distribución"), Picture::Export,
         Qt::Key_F2},
        &TGrafica::GuardarDatos1Click);
    add({QStringLiteral("CopiarGrfica1"), QStringLiteral("&Copiar Gráfica"),
         QStringLiteral("Copia la gráfica de arriba al portapapeles"), Picture::Copy},
        &TGrafica::CopiarGrfica1Click);
    add({QStringLiteral("Copiar1"), QStringLiteral("Copiar Acumu&lada"),
         QStringLiteral("Copia la gráfica de abajo, la acumulada, al portapapeles"), Picture::Copy},
        &TGrafica::Copiar1Click);
}

void TGrafica::createCharts()
{
    m_graph = chart::createChart({QStringLiteral("Graph"), plainCaption(), QStringLiteral("Valor"),
                                  QStringLiteral("P(X=k)"), 3, 4});
    m_graph2 = chart::createChart({QStringLiteral("Graph2"), QStringLiteral("Distrib. Acumulada"),
                                   QStringLiteral("Valor"), QStringLiteral("P(X<=k)"), 2, 3});
    for (const auto& [chart, other] : {std::pair(m_graph, m_graph2), {m_graph2, m_graph}}) {
        chart->setMinTickX(8);
        connect(chart, &chart::TRChart::viewChanged, this, [this, chart = chart, other = other] {
            other->followX(*chart);
            alignCharts();
        });
    }

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("Splitter1"));
    splitter->setAccessibleName(QStringLiteral("Divisor de las dos gráficas"));
    splitter->addWidget(m_graph);
    splitter->addWidget(m_graph2);
    splitter->setHandleWidth(splitterHeight);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    const int lower = lowerChartHeight();
    splitter->setSizes({sizeHint().height() - splitterHeight - lower, lower});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
}

/// Ten lines: more than the usual height only for letters larger than usual.
int TGrafica::lowerChartHeight() const
{
    return std::max(usualLowerHeight, 10 * fontMetrics().height());
}

/// Gives both plots one left edge, so that equal values stand below each other; in a narrow window
/// each chart keeps the room that it needs.
void TGrafica::alignCharts()
{
    constexpr int leastWidth = 300;
    const int rim = width() < leastWidth ? -1 : std::max(m_graph->ownLRim(), m_graph2->ownLRim());
    for (chart::TRChart* chart : {m_graph, m_graph2})
        chart->setLRim(rim);
}

void TGrafica::saveBitmap(const chart::TRChart& chart, const QString& title)
{
    window::FileRequest request{title, QStringLiteral("grafica.bmp"), QStringLiteral("bmp"),
                                QStringLiteral("Mapa de Bits (BMP)|*.bmp")};
    request.writtenName = chart::TRChart::bitmapFileName;
    save(request, [&chart](const QString& chosen) { return chart.SaveAsBitmap(chosen, true); });
}

void TGrafica::copyBitmap(const chart::TRChart& chart)
{
    if (const auto reason = chart.CopyToClipboardBitmap(false))
        dialogs().showError(this, *reason, plainCaption());
}

} // namespace distribution
