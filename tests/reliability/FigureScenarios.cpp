// SPDX-License-Identifier: GPL-3.0-or-later
#include "reliability/FigureScenarios.h"

#include "chart/control/RChart.h"
#include "power/study/PowerStudy.h"

#include <QImage>

namespace {

class Drawing : public Scenario {
    /// So small that the toolkit paints it without its threads, which a forked process has not.
    static constexpr QSize size{200, 120};

public:
    Drawing()
    {
        m_chart.setIdAbscissa(QStringLiteral("Valores de C"));
        m_chart.setIdOrdinate(QStringLiteral("Probabilidad"));
        for (int x = 0; x < 40; ++x) {
            m_chart.LineToXY(x, (x * 7) % 13);
            m_chart.MarkAtXY(x, (x * 7) % 13, 1);
        }
        m_chart.FitRangeToData(5.0);
        m_chart.resize(size);
        run();
        m_expected = picture();
        m_chart.resize(size * 2); // to be laid out again
    }
    void run() override
    {
        m_chart.resize(size);
        m_painted = picture();
    }
    Outcome judge(bool thrown, std::string& damage) override
    {
        damage = "the chart is not what it was";
        m_chart.resize(size);
        if (picture() != m_expected)
            return Outcome::Damaged;
        return thrown                    ? Outcome::Thrown
               : m_painted == m_expected ? Outcome::Unaffected
                                         : Outcome::Repainted;
    }

private:
    QImage picture()
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        m_chart.render(&image);
        return image;
    }

    chart::TRChart m_chart;
    QImage m_expected;
    QImage m_painted;
};

class Studying : public Scenario {
public:
    Studying() { m_expected = figures(); }
    void run() override { m_figures = figures(); }
    Outcome judge(bool thrown, std::string& damage) override
    {
        damage = "another power";
        if (figures() != m_expected)
            return Outcome::Damaged;
        if (thrown)
            return Outcome::Thrown;
        return m_figures == m_expected ? Outcome::Unaffected : Outcome::Damaged;
    }

private:
    static std::vector<double> figures()
    {
        power::Aleatorio generator;
        stats::RandomIntegers integers;
        power::StudySettings settings;
        settings.order = 4;
        settings.trials = 20;
        std::vector<double> all;
        for (const power::PowerPoint& point :
             power::runPowerStudy(settings, generator, integers, [](const auto&) {}))
            all.insert(all.end(), {point.difference, point.powers.c, point.powers.m, point.powers.b,
                                   point.powers.z});
        return all;
    }

    std::vector<double> m_expected;
    std::vector<double> m_figures;
};

} // namespace

std::unique_ptr<Scenario> drawing()
{
    return std::make_unique<Drawing>();
}

std::unique_ptr<Scenario> studying()
{
    return std::make_unique<Studying>();
}
