// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/AnalysisFixture.h"
#include "distribution/Frmgraf.h"

#include <algorithm>
#include <numeric>

namespace {

class AnalysisGraph : public AnalysisFixture {
protected:
    AnalysisGraph()
    {
        openSquare(orderThree);
        QObject::connect(window, &analysis::TAnalisis::graphOpened, window,
                         [this](window::ChildWindow* graph) {
                             graphs.push_back(qobject_cast<distribution::TGrafica*>(graph));
                         });
        show();
    }

    std::vector<QPointer<distribution::TGrafica>> graphs;
};

} // namespace

TEST_F(AnalysisGraph, EveryClickOpensOneMoreGraphOfTheLastDistribution)
{
    run(sequences, 0);
    click(&ve());
    run(sequences, 1);
    click(&ve());
    click(&ve());
    ASSERT_EQ(graphs.size(), 3U);

    const distribution::ShownDistribution& c = graphs[0]->distribution();
    EXPECT_EQ(c.Count(), 86);
    EXPECT_EQ(c.StatName, QStringLiteral("c"));
    EXPECT_EQ(c.Title, QStringLiteral("Distribución exacta de C para cuadrados de 3x3"));
    EXPECT_EQ(graphs[0]->windowTitle(), c.Title);

    const distribution::ShownDistribution& m = graphs[2]->distribution();
    EXPECT_EQ(m.Count(), 112);
    EXPECT_EQ(m.StatName, QStringLiteral("m"));
    EXPECT_EQ(m.Title, QStringLiteral("Distribución exacta de M para cuadrados de 3x3"));
    const std::vector<double> values = m.Values();
    ASSERT_EQ(values.size(), 224U);
    EXPECT_DOUBLE_EQ(values[0], 0.0);
    EXPECT_DOUBLE_EQ(values[111], 1.5); // n / (n - 1)
    EXPECT_NEAR(std::accumulate(values.begin() + 112, values.end(), 0.0), 1.0, 1e-12);
    // 13/14 of the 1680 arrangements: one division, not a sum of rounded probabilities.
    EXPECT_EQ(std::ranges::count(m.figures, 1560.0 / 1680, &stats::ExactFigures::cumulative), 1);
}

TEST_F(AnalysisGraph, GraphIsOwnedByWhatHoldsTheAnalysisAndKeepsItsOwnCopy)
{
    QWidget frame;
    window->setParent(&frame);
    frame.show();
    run(sequences, 0);
    click(&ve());
    run(classical, 0);
    delete window;
    ASSERT_EQ(graphs.size(), 1U);
    ASSERT_NE(graphs.front(), nullptr);
    EXPECT_EQ(graphs.front()->distribution().Count(), 86);
}
