// SPDX-License-Identifier: GPL-3.0-or-later
// Any calls, keys and movements of the mouse, with any numbers, leave two charts with ranges, ticks
// and labels that can be drawn, and each view is laid out once.
#include "chart/control/RChart.h"
#include "fuzz/Fuzzing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include <functional>

using chart::TRChart;
using fuzzing::anyDouble;
using fuzzing::require;

namespace {

constexpr int longestWalk = 120; // calls
constexpr int mostWidth = 240;
constexpr int mostHeight = 160;

/// Two charts, the second perhaps with the first one's items, as the windows have them.
class Walk {
public:
    Walk(const std::uint8_t* bytes, std::size_t size)
        : m_data(bytes, size)
        , m_charts{counting(), counting()}
    {
        for (TRChart* chart : charts()) {
            chart->resize(mostWidth, mostHeight);
            chart->setMouseAction(chart::MouseAction::maZoomDrag);
        }
    }

    void run()
    {
        for (int i = 0; i < longestWalk && m_data.remaining_bytes() > 0; ++i) {
            TRChart& chart = m_charts.at(m_data.ConsumeBool() ? 1 : 0);
            const chart::View before = viewOf(chart);
            try {
                step(chart);
            } catch (const chart::ChartError&) {
                require(viewOf(chart) == before, "what is refused changes nothing");
            }
            checkRange(viewOf(chart).x);
            checkRange(viewOf(chart).y);
        }
        for (TRChart* chart : charts())
            checkPicture(*chart);
    }

private:
    using Charts = std::array<TRChart, 2>;

    TRChart counting()
    {
        return TRChart(nullptr, [this](const chart::ChartContents& contents,
                                       const chart::View& view, QSize size, const QFont& font) {
            ++m_layouts;
            return chart::measure(contents, view, size, font);
        });
    }
    std::array<TRChart*, 2> charts() { return {&m_charts[0], &m_charts[1]}; }

    static chart::View viewOf(const TRChart& chart) { return chart.geometry().view; }

    static void checkRange(const chart::AxisRange& range)
    {
        require(std::abs(range.low()) <= chart::largestBound &&
                    std::abs(range.high()) <= chart::largestBound,
                "bounds are doubles");
        require(range.low() != range.high(), "a range is wide");
        require(!range.isLogarithmic() ||
                    (chart::hasLogarithm(range.low()) && chart::hasLogarithm(range.high())),
                "the bounds of a logarithmic axis have a logarithm");
    }

    static void checkTicks(const chart::AxisTicks& ticks, const chart::AxisRange& range,
                           const std::vector<QString>& texts)
    {
        constexpr long double slack = 1e-8L;
        require(!ticks.main.empty() && ticks.main.size() <= chart::mostTicks &&
                    ticks.grid.size() <= chart::mostTicks && ticks.minor.size() <= 1000,
                "ticks are few");
        require(texts.size() == ticks.main.size(), "each tick has its text");
        const long double least = std::min(range.low(), range.high());
        const long double greatest = std::max(range.low(), range.high());
        const long double beyond =
            0.0011L * ticks.step + slack * std::max(std::abs(least), std::abs(greatest)) *
                                       (range.isLogarithmic() ? 1.0L : 1e-9L);
        for (const auto* positions : {&ticks.main, &ticks.minor, &ticks.grid}) {
            for (std::size_t i = 0; i < positions->size(); ++i) {
                const long double position = (*positions)[i];
                require(position >= least - beyond && position <= greatest + beyond,
                        "ticks are within the range");
                require(i == 0 ||
                            (position != (*positions)[i - 1] &&
                             (position > (*positions)[i - 1]) == (range.high() > range.low())),
                        "ticks go from the low bound to the high one");
            }
        }
    }

    static void checkLabels(const std::vector<chart::PlacedLabel>& labels,
                            const std::vector<QString>& texts)
    {
        for (std::size_t i = 0; i < labels.size(); ++i) {
            require(labels[i].tick < texts.size(), "a label has a tick");
            for (std::size_t j = 0; j < i; ++j)
                require(!labels[i].place.intersects(labels[j].place), "labels do not touch");
        }
    }

    void checkPicture(TRChart& chart)
    {
        QImage screen(mostWidth, mostHeight, QImage::Format_RGB32);
        chart.render(&screen); // tells the chart of its new size, as showing it does
        const chart::ChartGeometry& geometry = chart.geometry();
        checkTicks(geometry.xTicks, geometry.view.x, geometry.xTexts);
        checkTicks(geometry.yTicks, geometry.view.y, geometry.yTexts);
        checkLabels(geometry.xLabels, geometry.xTexts);
        checkLabels(geometry.yLabels, geometry.yTexts);
        require(geometry.layout.plot.isEmpty() || m_hasRims ||
                    chart.rect().contains(geometry.layout.plot),
                "the plot is inside the chart");
        const int layouts = m_layouts;
        const QImage picture = chart.picture(true);
        require(chart.size().isEmpty() ? picture.isNull() : picture.size() == chart.size(),
                "a picture has the size of its chart");
        chart.render(&screen);
        static_cast<void>(chart.description());
        require(m_layouts == layouts, "a view is laid out once");
    }

    /// One step by a key, and the way back where it was a step.
    void checkWayBack(TRChart& chart, int key)
    {
        const chart::View before = viewOf(chart);
        const std::size_t steps = chart.zoomHistory().size();
        const bool wasStep = chart.zoomHistory().newest() == before;
        press(chart, key);
        if (chart.zoomHistory().size() != steps + 1 || !wasStep)
            return;
        press(chart, Qt::Key_Escape);
        require(viewOf(chart) == before && chart.zoomHistory().size() == steps,
                "a step can be taken back");
        press(chart, key);
    }

    static void press(TRChart& chart, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&chart, &event);
    }

    void mouse(TRChart& chart)
    {
        static constexpr std::array types{QEvent::MouseButtonPress, QEvent::MouseMove,
                                          QEvent::MouseMove, QEvent::MouseButtonRelease,
                                          QEvent::MouseButtonDblClick};
        const QEvent::Type type = oneOf(types);
        const QPointF point(m_data.ConsumeIntegralInRange(-20, mostWidth + 20),
                            m_data.ConsumeIntegralInRange(-20, mostHeight + 20));
        const Qt::MouseButton button = m_data.ConsumeBool() ? Qt::LeftButton : Qt::MiddleButton;
        const bool held = type != QEvent::MouseButtonRelease && m_data.ConsumeBool();
        QMouseEvent event(type, point, point, button,
                          held ? Qt::MouseButtons(button) : Qt::MouseButtons(),
                          m_data.ConsumeBool() ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(&chart, &event);
    }

    template <typename T, std::size_t count>
    const T& oneOf(const std::array<T, count>& values)
    {
        return values.at(m_data.ConsumeIntegralInRange<std::size_t>(0, count - 1));
    }

    /// A bound: any double, or one that only the wider numbers of the ranges can tell from it.
    long double anyBound()
    {
        const long double value = anyDouble(m_data);
        switch (m_data.ConsumeIntegralInRange(0, 7)) {
        case 0:
            return std::nextafter(value, 1e4000L);
        case 1:
            return value * 1e300L;
        default:
            return value;
        }
    }

    QString anyText()
    {
        const std::string bytes = m_data.ConsumeRandomLengthString(30);
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }

    void add(TRChart& chart)
    {
        const double x = anyDouble(m_data);
        const double y = anyDouble(m_data);
        switch (m_data.ConsumeIntegralInRange(0, 3)) {
        case 0:
            chart.MoveToXY(x, y);
            break;
        case 1:
            chart.LineToXY(x, y);
            break;
        case 2:
            chart.MarkAtXY(x, y, m_data.ConsumeIntegral<std::uint8_t>());
            break;
        default:
            chart.FigureXY(static_cast<chart::ItemKind>(m_data.ConsumeIntegralInRange(0, 11)), x, y,
                           anyDouble(m_data), anyDouble(m_data));
        }
    }

    void setPen(TRChart& chart)
    {
        chart.setPenStyle(static_cast<Qt::PenStyle>(m_data.ConsumeIntegralInRange(0, 5)));
        chart.setLineWidth(m_data.ConsumeIntegral<std::int8_t>());
        chart.setDataColor(QColor::fromRgba(m_data.ConsumeIntegral<QRgb>()));
    }

    void setBound(TRChart& chart)
    {
        const long double bound = anyBound();
        switch (m_data.ConsumeIntegralInRange(0, 3)) {
        case 0:
            chart.setRangeLoX(bound);
            break;
        case 1:
            chart.setRangeHiX(bound);
            break;
        case 2:
            chart.setRangeLoY(bound);
            break;
        default:
            chart.setRangeHiY(bound);
        }
    }

    void setAxis(TRChart& chart)
    {
        const bool alongX = m_data.ConsumeBool();
        const int count = m_data.ConsumeIntegral<std::int8_t>();
        switch (m_data.ConsumeIntegralInRange(0, 6)) {
        case 0:
            alongX ? chart.setLogScaleX(count > 0) : chart.setLogScaleY(count > 0);
            break;
        case 1:
            alongX ? chart.setMinRangeX(anyDouble(m_data)) : chart.setMinRangeY(anyDouble(m_data));
            break;
        case 2:
            alongX ? chart.setDecPlaceX(count) : chart.setDecPlaceY(count);
            break;
        case 3:
            alongX ? chart.setMinTickX(count) : chart.setMinTickY(count);
            break;
        case 4:
            alongX ? chart.setShortTicksX(count > 0) : chart.setShortTicksY(count > 0);
            break;
        case 5:
            alongX ? chart.setIdAbscissa(anyText()) : chart.setIdOrdinate(anyText());
            break;
        default: {
            const auto type = static_cast<chart::LabelType>(m_data.ConsumeIntegralInRange(0, 3));
            alongX ? chart.setXLabelType(type) : chart.setYLabelType(type);
        }
        }
    }

    void setLooks(TRChart& chart)
    {
        const int count = m_data.ConsumeIntegralInRange(-2, 80);
        switch (m_data.ConsumeIntegralInRange(0, 6)) {
        case 0:
            chart.setCaption(anyText());
            break;
        case 1:
            chart.setGridStyle(static_cast<chart::GridStyle>(m_data.ConsumeIntegralInRange(0, 6)));
            break;
        case 2:
            chart.setShadowWidth(count);
            break;
        case 3:
            m_hasRims = true;
            m_data.ConsumeBool() ? chart.setLRim(count) : chart.setBRim(count);
            break;
        case 4:
            chart.setCrossHair1(
                {chart::CrossHairMode::chBoth, anyDouble(m_data), anyDouble(m_data)});
            break;
        case 5:
            chart.setUserTickTextX({anyText(), anyText()});
            chart.setDTXFormat(anyText());
            break;
        default:
            chart.resize(m_data.ConsumeIntegralInRange(0, mostWidth),
                         m_data.ConsumeIntegralInRange(0, mostHeight));
        }
    }

    void step(TRChart& chart)
    {
        static constexpr std::array keys{Qt::Key_Plus,  Qt::Key_Minus, Qt::Key_Left,
                                         Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down};
        static constexpr std::array arrows{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
        switch (m_data.ConsumeIntegralInRange(0, 15)) {
        case 0:
        case 1:
        case 2:
            add(chart);
            break;
        case 3:
            setPen(chart);
            break;
        case 4:
        case 5:
            setBound(chart);
            break;
        case 6:
            setAxis(chart);
            break;
        case 7:
            setLooks(chart);
            break;
        case 8:
            chart.FitRangeToData(anyDouble(m_data));
            break;
        case 9:
            chart.setIsometric(m_data.ConsumeBool());
            break;
        case 10:
            checkWayBack(chart, oneOf(keys));
            break;
        case 11:
            press(chart, m_data.ConsumeBool() ? Qt::Key_Escape : Qt::Key_Home);
            break;
        case 12:
            press(chart, oneOf(arrows), Qt::ControlModifier);
            break;
        case 13:
            mouse(chart);
            break;
        case 14:
            m_charts[1].followX(m_charts[0]);
            break;
        default:
            m_charts[1].setUseDataOf(m_data.ConsumeBool() ? &m_charts[0] : nullptr);
        }
    }

    FuzzedDataProvider m_data;
    int m_layouts = 0;
    bool m_hasRims = false;
    Charts m_charts;
};

} // namespace

/// Fontconfig keeps a pattern of each font that it was asked for, on purpose.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: libFuzzer leaves by exit(), when parts of Qt are gone.
    [[maybe_unused]] static const auto* const application = new QApplication(*argc, *argv);
    QLocale::setDefault(QLocale(QStringLiteral("es_ES")));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const fuzzing::Stopwatch stopwatch;
    Walk(bytes, size).run();
    return 0;
}
