// SPDX-License-Identifier: GPL-3.0-or-later
// How long it takes to draw charts of 100 lines, as the windows have them, of 300 and of 100,000
// into a picture of 1920 x 1080, with lines of one pixel and of two, as the windows have them.
#include "chart/control/RChart.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

#include <cmath>
#include <random>

namespace {

/// A curve with noise, as of measurements in the order of their times.
void addCurve(chart::TRChart& chart, int lines)
{
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, 0.1);
    chart.MoveToXY(0.0, 0.0);
    for (int i = 1; i <= lines; ++i) {
        const double x = 20.0 * i / lines;
        chart.LineToXY(x, std::sin(x) + noise(random));
    }
}

/// Lines from anywhere to anywhere: the worst that a list of lines can be.
void addScribble(chart::TRChart& chart, int lines)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> anywhere(0.0, 1.0);
    for (int i = 0; i <= lines; ++i) {
        const double x = anywhere(random);
        chart.LineToXY(x, anywhere(random));
    }
}

/// A walk in small steps, most of them shorter than a few pixels.
void addRandomWalk(chart::TRChart& chart, int lines)
{
    std::mt19937 random(1);
    std::normal_distribution<double> step(0.0, 1.0);
    double x = 0.0;
    double y = 0.0;
    for (int i = 0; i <= lines; ++i) {
        x += step(random);
        y += step(random);
        chart.LineToXY(x, y);
    }
}

void draw(benchmark::State& state, void (*add)(chart::TRChart&, int))
{
    chart::TRChart chart;
    chart.resize(1920, 1080);
    chart.setGridStyle(chart::GridStyle::gsHorizDotLines);
    chart.setLineWidth(static_cast<int>(state.range(1)));
    add(chart, static_cast<int>(state.range(0)));
    chart.FitRangeToData(2.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(chart.picture(false));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void drawCurve(benchmark::State& state)
{
    draw(state, addCurve);
}

void drawRandomWalk(benchmark::State& state)
{
    draw(state, addRandomWalk);
}

void drawScribble(benchmark::State& state)
{
    draw(state, addScribble);
}

} // namespace

BENCHMARK(drawCurve)->ArgsProduct({{100, 300, 100000}, {1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(drawRandomWalk)->ArgsProduct({{100, 300, 100000}, {1, 2}})->Unit(benchmark::kMillisecond);
BENCHMARK(drawScribble)->ArgsProduct({{100, 300, 100000}, {1, 2}})->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
