// SPDX-License-Identifier: GPL-3.0-or-later
#include "distribution/Frmgraf.h"

#include "base/SafeFile.h"
#include "chart/control/RChart.h"
#include "window/Command.h"

#include <QMenu>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace distribution {

namespace {

constexpr double fitMargin = 2.0; // percent
constexpr int splitterHeight = 3;
constexpr int usualLowerHeight = 160;

/// The settings that both charts share.
void setUp(chart::TRChart& chart, const QString& name, const QString& caption,
           const QString& ordinate)
{
    chart.setObjectName(name);
    chart.setAccessibleName(caption);
    chart.setCaption(caption);
    chart.setIdAbscissa(QStringLiteral("Valor"));
    chart.setIdOrdinate(ordinate);
    chart.setGridStyle(chart::GridStyle::gsHorizDotLines);
    chart.setRangeHiX(10.0);
    chart.setRangeHiY(10.0);
    chart.setMinTickX(8);
    chart.setMinRangeX(1e-10);
    chart.setMinRangeY(1e-10);
    chart.setMouseAction(chart::MouseAction::maZoomDrag);
    chart.setShadowStyle(chart::ShadowStyle::ssFlying);
    chart.setShortTicksX(true);
    chart.setShortTicksY(true);
    chart.setTextBkStyle(chart::TextBkStyle::tbClear);
    chart.setTextAlignment(chart::TextAlignment::taCenter);
    chart.setAutoRedraw(true);
}

void drawCurve(chart::TRChart& chart, std::span<const double> x, std::span<const double> y)
{
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (i == 0)
            chart.MoveToXY(x[i], y[i]);
        else
            chart.LineToXY(x[i], y[i]);
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

void TGrafica::setDistribution(std::span<const double> values, int count, const QString& title,
                               const QString& statName)
{
    const int held =
        static_cast<int>(std::min<std::size_t>(values.size() / 2, ExactDistribution::mostValues));
    m_distribution.Count = std::clamp(count, 0, held);
    std::copy_n(values.begin(), 2 * m_distribution.Count, m_distribution.Values.begin());
    m_distribution.Title = title;
    m_distribution.StatName = statName;
}

void TGrafica::ShowDistribution()
{
    const ExactDistribution& shown = m_distribution;
    const QString upper = shown.StatName.toUpper();
    const QString lower = shown.StatName.toLower();
    setWindowTitle(shown.Title);
    m_graph->setCaption(shown.Title);
    m_graph->setIdAbscissa(QStringLiteral("Valor ") + upper);
    m_graph->setIdOrdinate(QStringLiteral("P(%1=%2)").arg(upper, lower));
    m_graph2->setIdAbscissa(QStringLiteral("Valor ") + upper);
    m_graph2->setIdOrdinate(QStringLiteral("P(%1<=%2)").arg(upper, lower));

    m_graph->ClearItems();
    drawCurve(*m_graph, shown.values(), shown.probabilities());
    m_graph2->ClearItems();
    m_graph2->setDataColor(QColor(0, 0, 255));
    drawCurve(*m_graph2, shown.values(), shown.cumulative());
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
        return base::writeFile(chosen, distributionTable(m_distribution));
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
    m_graph = new chart::TRChart;
    setUp(*m_graph, QStringLiteral("Graph"), plainCaption(), QStringLiteral("P(X=k)"));
    m_graph->setDecPlaceX(3);
    m_graph->setDecPlaceY(4);
    m_graph2 = new chart::TRChart;
    setUp(*m_graph2, QStringLiteral("Graph2"), QStringLiteral("Distrib. Acumulada"),
          QStringLiteral("P(X<=k)"));
    m_graph2->setDecPlaceX(2);
    m_graph2->setDecPlaceY(3);

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("Splitter1"));
    splitter->setAccessibleName(QStringLiteral("Divisor de las dos gráficas"));
    splitter->addWidget(m_graph);
    splitter->addWidget(m_graph2);
    splitter->setHandleWidth(splitterHeight);
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
    for (chart::TRChart* chart : {m_graph, m_graph2})
        chart->setLRim(-1);
    if (width() < leastWidth)
        return;
    const int rim = std::max(m_graph->LRim(), m_graph2->LRim());
    for (chart::TRChart* chart : {m_graph, m_graph2})
        chart->setLRim(rim);
}

void TGrafica::saveBitmap(const chart::TRChart& chart, const QString& title)
{
    window::FileRequest request{title, QStringLiteral("grafica.bmp"), QStringLiteral("bmp"),
                                QStringLiteral("Mapa de Bits (BMP)|*.bmp")};
    request.writtenName = chart::TRChart::bitmapFileName;
    save(request, [&chart](const QString& chosen) { return chart.SaveAsBitmap(chosen, false); });
}

void TGrafica::copyBitmap(const chart::TRChart& chart)
{
    if (const auto reason = chart.CopyToClipboardBitmap(false))
        dialogs().showError(this, *reason, plainCaption());
}

} // namespace distribution
