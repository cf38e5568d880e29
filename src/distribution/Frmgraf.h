// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "distribution/DistributionTable.h"
#include "window/ChildWindow.h"

namespace chart {
class TRChart;
}

namespace distribution {

/// The window that shows an exact distribution: the point probabilities above, the cumulative ones
/// below. It keeps its own copy, so it outlives the window that it came from.
class TGrafica : public window::ChildWindow {
    Q_OBJECT

public:
    /// The reference must outlive the window.
    explicit TGrafica(window::Dialogs& dialogs, QWidget* parent = nullptr);

    QString manualChapter() const override { return QStringLiteral("distribucion"); }
    QSize sizeHint() const override;

    /// Takes a distribution over, to be shown by ShowDistribution().
    void setDistribution(ShownDistribution distribution);
    const ShownDistribution& distribution() const { return m_distribution; }

    /// Draws the distribution on both charts.
    void ShowDistribution();

public slots:
    void FormActivate() override;
    void GuardarGrfica1Click();
    void GuardaGrficaAcumulada1Click();
    void GuardarDatos1Click();
    void CopiarGrfica1Click();
    void Copiar1Click();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createMenu();
    void createCharts();
    int lowerChartHeight() const;
    void alignCharts();
    void saveBitmap(const chart::TRChart& chart, const QString& title);
    void copyBitmap(const chart::TRChart& chart);

    chart::TRChart* m_graph = nullptr;
    chart::TRChart* m_graph2 = nullptr;
    ShownDistribution m_distribution;
};

} // namespace distribution
