// SPDX-License-Identifier: GPL-3.0-or-later
// Random calls of every property and operation of the chart, with values at the ends of what can be
// asked for: nothing may crash or hang, and what must always hold is checked on the way.
#include "chart/control/RChart.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

using chart::ChartError;
using chart::TRChart;

namespace {

constexpr int calls = 120000;
constexpr int callsPerPaint = 300;
constexpr std::size_t mostItems = 400;

class RandomCalls {
public:
    explicit RandomCalls(unsigned seed)
        : m_random(seed)
        , m_charts(3)
    {
        for (TRChart& chart : m_charts)
            chart.resize(160, 100);
        m_operations = operations();
    }

    void step()
    {
        TRChart& chart = m_charts[below(m_charts.size())];
        try {
            m_operations[below(m_operations.size())](chart);
        } catch (const ChartError&) { // the refusals of dates and of sharing
            ++m_refusals;
        }
        if (chart.items().size() > mostItems)
            chart.ClearItems();
        expectSane(chart);
    }

    void paint()
    {
        for (const TRChart& chart : m_charts)
            static_cast<void>(chart.picture(false));
    }

    int refusals() const { return m_refusals; }

private:
    using Operation = std::function<void(TRChart&)>;

    static void expectSane(const TRChart& chart)
    {
        ASSERT_TRUE(std::isfinite(chart.RangeLoX()) && std::isfinite(chart.RangeHiX()));
        ASSERT_TRUE(std::isfinite(chart.RangeLoY()) && std::isfinite(chart.RangeHiY()));
        ASSERT_NE(chart.RangeLoX(), chart.RangeHiX());
        ASSERT_NE(chart.RangeLoY(), chart.RangeHiY());
        ASSERT_TRUE(!chart.LogScaleX() || (chart.RangeLoX() > 1e-100 && chart.RangeHiX() > 1e-100));
        ASSERT_TRUE(!chart.LogScaleY() || (chart.RangeLoY() > 1e-100 && chart.RangeHiY() > 1e-100));
    }

    std::size_t below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    bool flag() { return below(2) == 0; }

    double number()
    {
        constexpr double largest = std::numeric_limits<double>::max();
        static constexpr std::array special{0.0,
                                            -0.0,
                                            1.0,
                                            -1.0,
                                            10.0,
                                            1e-10,
                                            1e-100,
                                            1.1e-100,
                                            -1e-100,
                                            1e-300,
                                            5e-324,
                                            1e6,
                                            1e15,
                                            -1e20,
                                            1.7e308,
                                            -1.7e308,
                                            largest,
                                            -largest,
                                            45000.0,
                                            45001.0,
                                            2e6,
                                            1e-5,
                                            0.3,
                                            100.0,
                                            std::numeric_limits<double>::infinity(),
                                            -std::numeric_limits<double>::infinity(),
                                            std::numeric_limits<double>::quiet_NaN()};
        switch (below(4)) {
        case 0:
            return special[below(special.size())];
        case 1:
            return std::uniform_real_distribution<double>(-10.0, 10.0)(m_random);
        case 2: {
            const double exponent = std::uniform_real_distribution<double>(-120.0, 308.0)(m_random);
            return (flag() ? 1 : -1) * std::pow(10.0, exponent);
        }
        default:
            return 45000.0 + std::uniform_real_distribution<double>(-1.0, 1.0)(m_random);
        }
    }

    int integer()
    {
        static constexpr std::array special{0,
                                            1,
                                            -1,
                                            2,
                                            3,
                                            12,
                                            13,
                                            20,
                                            50,
                                            4096,
                                            -100,
                                            std::numeric_limits<int>::max(),
                                            std::numeric_limits<int>::min()};
        return special[below(special.size())];
    }

    QColor color() { return QColor::fromRgba(static_cast<QRgb>(m_random())); }

    QString text()
    {
        static const QStringList texts{QString(), QStringLiteral("Valor"), QString(200, u'W'),
                                       QStringLiteral("dos\nlíneas\t%1 %99"),
                                       QStringLiteral("yyyy")};
        return texts[static_cast<qsizetype>(below(static_cast<std::size_t>(texts.size())))];
    }

    template <typename Enumeration>
    Enumeration oneOf(int count)
    {
        return static_cast<Enumeration>(below(static_cast<std::size_t>(count)));
    }

    void sendMouse(TRChart& chart, QEvent::Type type)
    {
        const QPointF point(static_cast<double>(below(180)) - 10.0,
                            static_cast<double>(below(120)) - 10.0);
        const Qt::MouseButton button = flag() ? Qt::LeftButton : Qt::MiddleButton;
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::MouseButtons() : Qt::MouseButtons(button);
        QMouseEvent event(type, point, chart.mapToGlobal(point), button, held,
                          flag() ? Qt::NoModifier : Qt::ShiftModifier);
        QApplication::sendEvent(&chart, &event);
    }

    std::vector<Operation> operations();

    std::mt19937 m_random;
    std::vector<TRChart> m_charts;
    std::vector<Operation> m_operations;
    int m_refusals = 0;
};

std::vector<RandomCalls::Operation> RandomCalls::operations()
{
    using namespace chart;
    std::vector<Operation> all{
        [this](TRChart& c) { c.MoveToXY(number(), number()); },
        [this](TRChart& c) { c.LineToXY(number(), number()); },
        [this](TRChart& c) {
            c.MarkAtXY(number(), number(), static_cast<std::uint8_t>(below(256)));
        },
        [this](TRChart& c) {
            c.FigureXY(oneOf<ItemKind>(10), number(), number(), number(), number());
        },
        [this](TRChart& c) { c.FitRangeToData(number()); },
        [](TRChart& c) { c.FitRangeToData(2.0); },
        [](TRChart& c) { c.ClearItems(); },
        [this](TRChart& c) {
            c.setUseDataOf(flag() ? nullptr : &m_charts[below(m_charts.size())]);
        },
        [this](TRChart& c) { c.setRangeLoX(number()); },
        [this](TRChart& c) { c.setRangeHiX(number()); },
        [this](TRChart& c) { c.setRangeLoY(number()); },
        [this](TRChart& c) { c.setRangeHiY(number()); },
        [this](TRChart& c) { c.setMinRangeX(number()); },
        [this](TRChart& c) { c.setMinRangeY(number()); },
        [](TRChart& c) { c.setMinRangeX(1e-10); },
        [](TRChart& c) { c.setMinRangeY(1e-10); },
        [this](TRChart& c) { c.setLogScaleX(flag()); },
        [this](TRChart& c) { c.setLogScaleY(flag()); },
        [this](TRChart& c) { c.setIsometric(below(8) == 0); },
        [](TRChart& c) { c.zoomBack(); },
        [](TRChart& c) { c.zoomToFullView(); },
        [this](TRChart& c) { c.setIdAbscissa(text()); },
        [this](TRChart& c) { c.setIdOrdinate(text()); },
        [this](TRChart& c) { c.setCaption(text()); },
        [this](TRChart& c) { c.setDecPlaceX(integer()); },
        [this](TRChart& c) { c.setDecPlaceY(integer()); },
        [this](TRChart& c) { c.setMinTickX(integer()); },
        [this](TRChart& c) { c.setMinTickY(integer()); },
        [this](TRChart& c) { c.setShortTicksX(flag()); },
        [this](TRChart& c) { c.setShortTicksY(flag()); },
        [this](TRChart& c) { c.setXLabelType(oneOf<LabelType>(4)); },
        [this](TRChart& c) { c.setYLabelType(oneOf<LabelType>(4)); },
        [this](TRChart& c) { c.setDTXFormat(text()); },
        [this](TRChart& c) { c.setDTYFormat(text()); },
        [this](TRChart& c) {
            c.setUserTickTextX({text(), text()});
        },
        [this](TRChart& c) {
            c.setUserTickTextY({text(), text(), text()});
        },
        [this](TRChart& c) { c.setDataColor(color()); },
        [this](TRChart& c) { c.setPenStyle(oneOf<Qt::PenStyle>(6)); },
        [this](TRChart& c) { c.setLineWidth(integer()); },
        [this](TRChart& c) { c.setClassDefault(integer()); },
        [this](TRChart& c) { c.setScaleColor(color()); },
        [this](TRChart& c) { c.setGridColor(color()); },
        [this](TRChart& c) { c.setFillColor(color()); },
        [this](TRChart& c) { c.setChartColor(color()); },
        [this](TRChart& c) { c.setWindColor(flag() ? color() : QColor()); },
        [this](TRChart& c) { c.setShadowColor(flag() ? color() : QColor()); },
        [this](TRChart& c) { c.setShadowBakColor(color()); },
        [this](TRChart& c) { c.setTextBkColor(color()); },
        [this](TRChart& c) { c.setGridStyle(oneOf<GridStyle>(7)); },
        [this](TRChart& c) { c.setShadowStyle(oneOf<ShadowStyle>(3)); },
        [this](TRChart& c) { c.setShadowWidth(integer()); },
        [this](TRChart& c) { c.setTextFontStyle(TextFontStyles(int(below(8)))); },
        [this](TRChart& c) { c.setTextBkStyle(oneOf<TextBkStyle>(2)); },
        [this](TRChart& c) { c.setTextAlignment(oneOf<TextAlignment>(3)); },
        [this](TRChart& c) {
            QImage image(int(below(5)), 3, QImage::Format_RGB32);
            image.fill(color());
            c.setBackGroundImg(image);
        },
        [this](TRChart& c) { c.setBackGroundFill(oneOf<BackgroundFill>(3)); },
        [this](TRChart& c) { c.setLRim(integer()); },
        [this](TRChart& c) { c.setRRim(integer()); },
        [this](TRChart& c) { c.setTRim(integer()); },
        [this](TRChart& c) { c.setBRim(integer()); },
        [](TRChart& c) {
            c.setLRim(-1);
            c.setRRim(-1);
            c.setTRim(-1);
            c.setBRim(-1);
        },
        [this](TRChart& c) {
            c.setCrossHair1({oneOf<CrossHairMode>(4), number(), number(), color()});
        },
        [this](TRChart& c) {
            c.setCrossHair4({oneOf<CrossHairMode>(4), number(), number(), color()});
        },
        [this](TRChart& c) { c.setAutoRedraw(flag()); },
        [this](TRChart& c) { c.setMouseAction(oneOf<MouseAction>(2)); },
        [this](TRChart& c) { c.resize(int(below(200)), int(below(150))); },
        [](TRChart& c) { c.resize(160, 100); },
        [this](TRChart& c) { sendMouse(c, QEvent::MouseButtonPress); },
        [this](TRChart& c) { sendMouse(c, QEvent::MouseMove); },
        [this](TRChart& c) { sendMouse(c, QEvent::MouseButtonRelease); },
        [this](TRChart& c) { sendMouse(c, QEvent::MouseButtonDblClick); },
        [](TRChart& c) {
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(&c, &escape);
        },
        [](TRChart& c) { static_cast<void>(c.description()); },
    };
    return all;
}

} // namespace

TEST(RandomCalls, NeitherCrashNorHangNorBreakTheRanges)
{
    RandomCalls walk(20240607);
    for (int i = 0; i < calls; ++i) {
        ASSERT_NO_FATAL_FAILURE(walk.step()) << "call " << i;
        if (i % callsPerPaint == 0)
            walk.paint();
    }
    EXPECT_GT(walk.refusals(), 100); // the refusals were reached too
}
