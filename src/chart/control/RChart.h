// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"
#include "chart/control/ChartNavigation.h"
#include "chart/control/PointReader.h"
#include "chart/drawing/ChartContents.h"
#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ChartView.h"
#include "chart/scale/DateTimeScale.h"
#include "chart/scale/ItemList.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace chart {

/// The chart control: a list of items in data coordinates, drawn in a framed plot with scales.
///
/// All coordinates of items and ranges are data coordinates, all sizes logical pixels. Adding items
/// does not redraw; a range or an attribute that changes the picture does while AutoRedraw is on.
/// What the user can do to the view says ChartNavigation.h, how values are read PointReader.h.
///
/// The windows of this program call a part of it: createChart(), items and their colour, the names
/// of curves, captions, fitting, followX(), ticks and rims, and what makes a picture. The rest,
/// such as shared data, logarithmic and dated axes or cross-hairs, is published for the outside,
/// and here only tests call it.
class TRChart : public QWidget {
    Q_OBJECT

public:
    /// How a chart is laid out; measure() but for a test that counts.
    using Measure =
        std::function<ChartGeometry(const ChartContents&, const View&, QSize, const QFont&)>;

    explicit TRChart(QWidget* parent = nullptr, Measure measure = chart::measure);
    ~TRChart() override;

    QSize sizeHint() const override { return {400, 250}; }
    QSize minimumSizeHint() const override { return {160, 100}; }

    // Items.
    const ItemList& items() const { return m_source != nullptr ? m_source->m_items : m_items; }
    /// Removes all items and clears the picture; ranges, captions and attributes stay.
    void ClearItems();
    void MoveToXY(double x, double y) { addItem({.kind = ItemKind::Move, .x = x, .y = y}); }
    void LineToXY(double x, double y) { addItem({.kind = ItemKind::Line, .x = x, .y = y}); }
    /// The mark kinds are those of drawMark().
    void MarkAtXY(double x, double y, std::uint8_t markKind);
    /// A figure of two points, or for ItemKind::ErrorBars of a centre and half its width and
    /// height. Other kinds are ignored.
    void FigureXY(ItemKind kind, double x, double y, double x2, double y2);
    /// Shows all items with a margin of so many percent on every side. This becomes the full view.
    /// @throws ChartError when an axis of dates cannot show them
    void FitRangeToData(double margin);

    /// The chart whose items this one draws instead of its own, null for its own. What is added to
    /// either is seen in both; its own items come back with null, or when the other chart goes.
    TRChart* UseDataOf() const { return m_source; }
    /// @throws ChartError "RChart: Cannot share data with myself"; "RChart: Cannot use foreign
    /// data.
    ///         Other RCharts are using my own data."; "RChart: Max. number of data shares exceeded"
    void setUseDataOf(TRChart* other);
    /// How many charts may use the items of one.
    static constexpr std::size_t mostDataShares = 16;

    // Ranges, by the rules of AxisRange.h. On an axis of dates a range without dates is refused:
    // @throws ChartError as requireDateTimeRange()
    long double RangeLoX() const { return ranges().x.low(); }
    long double RangeHiX() const { return ranges().x.high(); }
    long double RangeLoY() const { return ranges().y.low(); }
    long double RangeHiY() const { return ranges().y.high(); }
    void setRangeLoX(long double value) { setRange(Axis::X, &AxisRange::setLow, value); }
    void setRangeHiX(long double value) { setRange(Axis::X, &AxisRange::setHigh, value); }
    void setRangeLoY(long double value) { setRange(Axis::Y, &AxisRange::setLow, value); }
    void setRangeHiY(long double value) { setRange(Axis::Y, &AxisRange::setHigh, value); }
    double MinRangeX() const { return ranges().x.minRange(); }
    double MinRangeY() const { return ranges().y.minRange(); }
    void setMinRangeX(double width) { setRange(Axis::X, &AxisRange::setMinRange, width); }
    void setMinRangeY(double width) { setRange(Axis::Y, &AxisRange::setMinRange, width); }
    bool LogScaleX() const { return ranges().x.isLogarithmic(); }
    bool LogScaleY() const { return ranges().y.isLogarithmic(); }
    void setLogScaleX(bool on) { setRange(Axis::X, &AxisRange::setLogarithmic, on); }
    void setLogScaleY(bool on) { setRange(Axis::Y, &AxisRange::setLogarithmic, on); }
    /// One unit as long on both linear axes. A change of one axis moves the high bound of the
    /// other.
    bool Isometric() const { return m_view.isIsometric(); }
    void setIsometric(bool on);
    /// What was shown; the newest view is the present one.
    const ZoomHistory& zoomHistory() const { return m_view.history(); }
    /// One step back in the history, and back to the full view.
    void zoomBack();
    void zoomToFullView();
    /// Makes what is shown the full view, as fitting does.
    void makeFullView() { m_view.makeFull(); }

    // Axes.
    QString IdAbscissa() const { return m_contents.x.id; }
    QString IdOrdinate() const { return m_contents.y.id; }
    void setIdAbscissa(const QString& caption) { assign(m_contents.x.id, caption); }
    void setIdOrdinate(const QString& caption) { assign(m_contents.y.id, caption); }
    /// Decimals of the tick labels, kept within -3..12; labels that would read alike get more.
    int DecPlaceX() const { return m_contents.x.labels.decimals; }
    int DecPlaceY() const { return m_contents.y.labels.decimals; }
    void setDecPlaceX(int decimals) { setDecPlace(m_contents.x, decimals); }
    void setDecPlaceY(int decimals) { setDecPlace(m_contents.y, decimals); }
    /// The least number of tick intervals, kept within 1..mostMinimumTicks.
    int MinTickX() const { return m_contents.x.minTick; }
    int MinTickY() const { return m_contents.y.minTick; }
    void setMinTickX(int count) { setMinTick(m_contents.x, count); }
    void setMinTickY(int count) { setMinTick(m_contents.y, count); }
    bool ShortTicksX() const { return m_contents.x.shortTicks; }
    bool ShortTicksY() const { return m_contents.y.shortTicks; }
    void setShortTicksX(bool on) { assign(m_contents.x.shortTicks, on); }
    void setShortTicksY(bool on) { assign(m_contents.y.shortTicks, on); }
    LabelType XLabelType() const { return m_contents.x.labels.type; }
    LabelType YLabelType() const { return m_contents.y.labels.type; }
    /// @throws ChartError as requireDateTimeRange() for LabelType::ftDateTime
    void setXLabelType(LabelType type) { setLabelType(Axis::X, m_contents.x, type); }
    void setYLabelType(LabelType type) { setLabelType(Axis::Y, m_contents.y, type); }
    /// Formats of date-time labels in Qt's letters.
    QString DTXFormat() const { return m_contents.x.labels.dateTimeFormat; }
    QString DTYFormat() const { return m_contents.y.labels.dateTimeFormat; }
    void setDTXFormat(const QString& text) { assign(m_contents.x.labels.dateTimeFormat, text); }
    void setDTYFormat(const QString& text) { assign(m_contents.y.labels.dateTimeFormat, text); }
    /// The texts of LabelType::ftUserText, the first one for the first tick.
    QStringList UserTickTextX() const { return m_contents.x.labels.userTexts; }
    QStringList UserTickTextY() const { return m_contents.y.labels.userTexts; }
    void setUserTickTextX(const QStringList& texts)
    {
        assign(m_contents.x.labels.userTexts, texts);
    }
    void setUserTickTextY(const QStringList& texts)
    {
        assign(m_contents.y.labels.userTexts, texts);
    }

    // Attributes of the items added from now on.
    QColor DataColor() const { return QColor::fromRgba(m_attributes.color); }
    Qt::PenStyle PenStyle() const { return m_attributes.penStyle; }
    int LineWidth() const { return m_attributes.lineWidth; }
    int ClassDefault() const { return m_attributes.classNumber; }
    void setDataColor(const QColor& color) { m_attributes.color = color.rgba(); }
    void setPenStyle(Qt::PenStyle style) { m_attributes.penStyle = style; }
    void setLineWidth(int width); ///< Kept within 1..64.
    void setClassDefault(int classNumber) { m_attributes.classNumber = classNumber; }

    /// The curves by name, for who cannot tell them by their colours.
    void setSeries(const std::vector<Series>& series) { m_contents.series = series; }

    // Colours and styles. An invalid window or shadow colour asks for the palette's.
    QString Caption() const { return m_contents.caption; }
    QColor ScaleColor() const { return m_contents.style.scaleColor; }
    QColor GridColor() const { return m_contents.style.gridColor; }
    QColor FillColor() const { return m_contents.style.fillColor; }
    QColor ChartColor() const { return m_contents.style.chartColor; }
    QColor WindColor() const;
    QColor ShadowColor() const;
    QColor ShadowBakColor() const;
    QColor TextBkColor() const { return m_contents.style.textBkColor; }
    chart::GridStyle GridStyle() const { return m_contents.style.gridStyle; }
    chart::ShadowStyle ShadowStyle() const { return m_contents.style.shadowStyle; }
    int ShadowWidth() const { return m_contents.style.shadowWidth; }
    TextFontStyles TextFontStyle() const { return m_contents.style.textFontStyle; }
    chart::TextBkStyle TextBkStyle() const { return m_contents.style.textBkStyle; }
    chart::TextAlignment TextAlignment() const { return m_contents.style.textAlignment; }
    QImage BackGroundImg() const { return m_contents.style.backGroundImg; }
    BackgroundFill BackGroundFill() const { return m_contents.style.backGroundFill; }
    void setCaption(const QString& caption) { assign(m_contents.caption, caption); }
    void setScaleColor(const QColor& color) { assign(m_contents.style.scaleColor, color); }
    void setGridColor(const QColor& color) { assign(m_contents.style.gridColor, color); }
    void setFillColor(const QColor& color) { assign(m_contents.style.fillColor, color); }
    void setChartColor(const QColor& color) { assign(m_contents.style.chartColor, color); }
    void setWindColor(const QColor& color) { assign(m_contents.style.windColor, color); }
    void setShadowColor(const QColor& color) { assign(m_contents.style.shadowColor, color); }
    void setShadowBakColor(const QColor& color) { assign(m_contents.style.shadowBakColor, color); }
    void setTextBkColor(const QColor& color) { assign(m_contents.style.textBkColor, color); }
    void setGridStyle(chart::GridStyle style) { assign(m_contents.style.gridStyle, style); }
    void setShadowStyle(chart::ShadowStyle style) { assign(m_contents.style.shadowStyle, style); }
    void setShadowWidth(int width); ///< Kept within 0..64.
    void setTextFontStyle(TextFontStyles style) { assign(m_contents.style.textFontStyle, style); }
    void setTextBkStyle(chart::TextBkStyle style) { assign(m_contents.style.textBkStyle, style); }
    void setTextAlignment(chart::TextAlignment side)
    {
        assign(m_contents.style.textAlignment, side);
    }
    void setBackGroundImg(const QImage& image) { assign(m_contents.style.backGroundImg, image); }
    void setBackGroundFill(BackgroundFill fill) { assign(m_contents.style.backGroundFill, fill); }

    /// The rims in force: those that were set, and for the others what captions and labels need.
    int LRim() const { return geometry().layout.rims.left; }
    int RRim() const { return geometry().layout.rims.right; }
    int TRim() const { return geometry().layout.rims.top; }
    int BRim() const { return geometry().layout.rims.bottom; }
    /// The left rim that the layout chooses, also while the program has chosen another.
    int ownLRim() const { return geometry().layout.ownLeftRim; }
    /// A rim that the program chooses, at most 65535; a negative width gives the choice back.
    void setLRim(int width) { setRim(m_contents.rims.left, width); }
    void setRRim(int width) { setRim(m_contents.rims.right, width); }
    void setTRim(int width) { setRim(m_contents.rims.top, width); }
    void setBRim(int width) { setRim(m_contents.rims.bottom, width); }

    CrossHair CrossHair1() const { return m_contents.crossHairs[0]; }
    CrossHair CrossHair2() const { return m_contents.crossHairs[1]; }
    CrossHair CrossHair3() const { return m_contents.crossHairs[2]; }
    CrossHair CrossHair4() const { return m_contents.crossHairs[3]; }
    void setCrossHair1(const CrossHair& crossHair) { assign(m_contents.crossHairs[0], crossHair); }
    void setCrossHair2(const CrossHair& crossHair) { assign(m_contents.crossHairs[1], crossHair); }
    void setCrossHair3(const CrossHair& crossHair) { assign(m_contents.crossHairs[2], crossHair); }
    void setCrossHair4(const CrossHair& crossHair) { assign(m_contents.crossHairs[3], crossHair); }

    bool AutoRedraw() const { return m_autoRedraw; }
    void setAutoRedraw(bool on);
    chart::MouseAction MouseAction() const { return m_navigation.action(); }
    void setMouseAction(chart::MouseAction action) { m_navigation.setAction(action); }

    /// Where everything stands at the present size. The reference holds until the chart changes.
    const ChartGeometry& geometry() const;

    /// The chart as an opaque picture of the control's size in logical pixels, whatever the
    /// screen's scale; null for a chart of no size. With a white background the chart's and the
    /// window's colour are white in it.
    QImage picture(bool whiteBackground) const;
    /// Puts the picture on the clipboard. @return why it could not, a whole sentence in Spanish
    std::optional<QString> CopyToClipboardBitmap(bool whiteBackground) const;
    /// Writes the picture in the Windows BMP format under bitmapFileName().
    [[nodiscard]] base::Outcome<base::WrittenFile> SaveAsBitmap(const QString& fileName,
                                                                bool whiteBackground) const;
    /// The name that a chosen one is saved under: its directory, its file name cut before the first
    /// ".", and ".bmp".
    static QString bitmapFileName(const QString& chosen);

    /// What the chart shows, in words and numbers, for those who cannot see it.
    QString description() const;

public slots:
    /// Shows the x range of another chart after its viewChanged().
    void followX(const TRChart& other);

signals:
    /// The user has changed what is shown, by a step or on the way to one.
    void viewChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Once per process; calling it again does nothing.
    static void installAccessibility();

    const View& ranges() const { return m_view.shown(); }
    void addItem(ChartItem item);
    void detachFromSource();
    TRChart& owner() { return m_source != nullptr ? *m_source : *this; }

    template <typename Value>
    void setRange(Axis axis, void (AxisRange::*set)(Value), Value value);
    template <typename Value>
    void assign(Value& property, const Value& value);
    void setDecPlace(AxisContents& axis, int decimals);
    void setMinTick(AxisContents& axis, int count);
    void setLabelType(Axis axis, AxisContents& contents, LabelType type);
    void setRim(std::optional<int>& rim, int width);

    const ChartGeometry& geometryOf(const View& view) const;
    std::optional<long double> unitRatio(const View& view) const;
    void contentsChanged();
    void redraw();
    template <typename Call>
    void letUserChangeView(Call call);

    Measure m_measure;
    ChartContents m_contents;
    ItemList m_items;
    ItemAttributes m_attributes;
    ChartView m_view;
    ChartNavigation m_navigation;
    PointReader m_reader;
    bool m_autoRedraw = true;

    TRChart* m_source = nullptr;   ///< The chart whose items are drawn.
    std::vector<TRChart*> m_users; ///< Those who draw the items of this one.

    mutable std::optional<ChartGeometry> m_geometry; ///< The latest, of these contents.
};

template <typename Value>
void TRChart::setRange(Axis axis, void (AxisRange::*set)(Value), Value value)
{
    AxisRange range = ranges().along(axis);
    (range.*set)(value);
    m_view.setRange(axis, range);
    redraw();
}

template <typename Value>
void TRChart::assign(Value& property, const Value& value)
{
    if (property == value)
        return;
    property = value;
    contentsChanged();
    redraw();
}

/// What a window's form says of a chart.
struct ChartForm {
    QString name;    ///< Of the object.
    QString caption; ///< Also the name for assistive technology.
    QString idAbscissa;
    QString idOrdinate;
    int decPlaceX;
    int decPlaceY;
    long double rangeHi = 10.0L; ///< Of both axes while nothing is drawn; they begin at 0.
};

/// A chart as the windows of the program have theirs: by the form, with dotted horizontal lines in
/// its grid and lines of two pixels on it, zoomed by dragging, the rest as a chart begins.
TRChart* createChart(const ChartForm& form);

} // namespace chart
