// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chart/control/ChartCursors.h"
#include "chart/drawing/ChartContents.h"
#include "chart/drawing/ChartGeometry.h"
#include "chart/scale/ChartError.h"
#include "chart/scale/ItemList.h"
#include "chart/scale/ZoomHistory.h"

#include <QImage>
#include <QWidget>

#include <optional>
#include <vector>

namespace chart {

/// The chart control: a list of items in data coordinates, drawn in a framed plot with scales.
///
/// All coordinates of items and ranges are data coordinates, all sizes logical pixels. Adding items
/// does not redraw; a range or an attribute that changes the picture does while AutoRedraw is on.
///
/// With MouseAction maZoomDrag, dragging over the plot zooms to the rectangle, Escape goes back one
/// step and a double click to the full view (what FitRangeToData() showed last); dragging with
/// Shift, or with the middle button, moves the view. By keys: plus and minus zoom about the middle,
/// the arrows move by a tenth, Home shows the full view.
class TRChart : public QWidget {
    Q_OBJECT

public:
    explicit TRChart(QWidget* parent = nullptr);
    ~TRChart() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Items.
    const ItemList& items() const;
    /// Removes all items and clears the picture; ranges, captions and attributes stay.
    void ClearItems();
    void MoveToXY(double x, double y);
    void LineToXY(double x, double y);
    /// The mark kinds are those of MarkShapes.h.
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
    long double RangeLoX() const { return m_contents.x.range.low(); }
    long double RangeHiX() const { return m_contents.x.range.high(); }
    long double RangeLoY() const { return m_contents.y.range.low(); }
    long double RangeHiY() const { return m_contents.y.range.high(); }
    void setRangeLoX(long double value);
    void setRangeHiX(long double value);
    void setRangeLoY(long double value);
    void setRangeHiY(long double value);
    double MinRangeX() const { return m_contents.x.range.minRange(); }
    double MinRangeY() const { return m_contents.y.range.minRange(); }
    void setMinRangeX(double width);
    void setMinRangeY(double width);
    bool LogScaleX() const { return m_contents.x.range.isLogarithmic(); }
    bool LogScaleY() const { return m_contents.y.range.isLogarithmic(); }
    void setLogScaleX(bool on);
    void setLogScaleY(bool on);
    /// One unit as long on both linear axes. A change of one axis moves the high bound of the
    /// other.
    bool Isometric() const { return m_isometric; }
    void setIsometric(bool on);
    /// What was shown; the newest view is the present one.
    const ZoomHistory& zoomHistory() const { return m_history; }
    /// One step back in the history, and back to the full view.
    void zoomBack();
    void zoomToFullView();

    // Axes.
    QString IdAbscissa() const { return m_contents.x.id; }
    QString IdOrdinate() const { return m_contents.y.id; }
    void setIdAbscissa(const QString& caption);
    void setIdOrdinate(const QString& caption);
    /// Decimals of the tick labels, kept within -3..12.
    int DecPlaceX() const { return m_contents.x.labels.decimals; }
    int DecPlaceY() const { return m_contents.y.labels.decimals; }
    void setDecPlaceX(int decimals);
    void setDecPlaceY(int decimals);
    /// The least number of tick intervals, kept within 1..mostMinimumTicks.
    int MinTickX() const { return m_contents.x.minTick; }
    int MinTickY() const { return m_contents.y.minTick; }
    void setMinTickX(int count);
    void setMinTickY(int count);
    bool ShortTicksX() const { return m_contents.x.shortTicks; }
    bool ShortTicksY() const { return m_contents.y.shortTicks; }
    void setShortTicksX(bool on);
    void setShortTicksY(bool on);
    LabelType XLabelType() const { return m_contents.x.labels.type; }
    LabelType YLabelType() const { return m_contents.y.labels.type; }
    /// @throws ChartError as requireDateTimeRange() for LabelType::ftDateTime
    void setXLabelType(LabelType type);
    void setYLabelType(LabelType type);
    /// Formats of date-time labels in Qt's letters.
    QString DTXFormat() const { return m_contents.x.labels.dateTimeFormat; }
    QString DTYFormat() const { return m_contents.y.labels.dateTimeFormat; }
    void setDTXFormat(const QString& format);
    void setDTYFormat(const QString& format);
    /// The texts of LabelType::ftUserText, the first one for the first tick.
    QStringList UserTickTextX() const { return m_contents.x.labels.userTexts; }
    QStringList UserTickTextY() const { return m_contents.y.labels.userTexts; }
    void setUserTickTextX(const QStringList& texts);
    void setUserTickTextY(const QStringList& texts);

    // Attributes of the items added from now on.
    QColor DataColor() const { return QColor::fromRgba(m_attributes.color); }
    Qt::PenStyle PenStyle() const { return m_attributes.penStyle; }
    int LineWidth() const { return m_attributes.lineWidth; }
    int ClassDefault() const { return m_attributes.classNumber; }
    void setDataColor(const QColor& color);
    void setPenStyle(Qt::PenStyle style);
    void setLineWidth(int width); ///< Kept within 1..64.
    void setClassDefault(int classNumber);

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
    void setCaption(const QString& caption);
    void setScaleColor(const QColor& color);
    void setGridColor(const QColor& color);
    void setFillColor(const QColor& color);
    void setChartColor(const QColor& color);
    void setWindColor(const QColor& color);
    void setShadowColor(const QColor& color);
    void setShadowBakColor(const QColor& color);
    void setTextBkColor(const QColor& color);
    void setGridStyle(chart::GridStyle style);
    void setShadowStyle(chart::ShadowStyle style);
    void setShadowWidth(int width); ///< Kept within 0..64.
    void setTextFontStyle(TextFontStyles style);
    void setTextBkStyle(chart::TextBkStyle style);
    void setTextAlignment(chart::TextAlignment alignment);
    void setBackGroundImg(const QImage& image);
    void setBackGroundFill(chart::BackgroundFill fill);

    /// The rims in force: those that were set, and for the others what captions and labels need.
    int LRim() const { return geometry().layout.rims.left; }
    int RRim() const { return geometry().layout.rims.right; }
    int TRim() const { return geometry().layout.rims.top; }
    int BRim() const { return geometry().layout.rims.bottom; }
    /// A rim of the program's own, at most 65535; a negative width gives the choice back.
    void setLRim(int width);
    void setRRim(int width);
    void setTRim(int width);
    void setBRim(int width);

    CrossHair CrossHair1() const { return m_contents.crossHairs[0]; }
    CrossHair CrossHair2() const { return m_contents.crossHairs[1]; }
    CrossHair CrossHair3() const { return m_contents.crossHairs[2]; }
    CrossHair CrossHair4() const { return m_contents.crossHairs[3]; }
    void setCrossHair1(const CrossHair& crossHair) { setCrossHair(0, crossHair); }
    void setCrossHair2(const CrossHair& crossHair) { setCrossHair(1, crossHair); }
    void setCrossHair3(const CrossHair& crossHair) { setCrossHair(2, crossHair); }
    void setCrossHair4(const CrossHair& crossHair) { setCrossHair(3, crossHair); }

    bool AutoRedraw() const { return m_autoRedraw; }
    void setAutoRedraw(bool on);
    chart::MouseAction MouseAction() const { return m_mouseAction; }
    void setMouseAction(chart::MouseAction action);

    /// Where everything stands at the present size.
    ChartGeometry geometry() const;

    /// The chart as an opaque picture of the control's size in logical pixels, whatever the
    /// screen's scale; null for a chart of no size. With a white background the chart's and the
    /// window's colour are white in it.
    QImage picture(bool whiteBackground) const;
    /// Puts the picture on the clipboard. @return why it could not, a whole sentence in Spanish
    std::optional<QString> CopyToClipboardBitmap(bool whiteBackground) const;
    /// Writes the picture in the Windows BMP format under bitmapFileName(). @return as above
    [[nodiscard]] std::optional<QString> SaveAsBitmap(const QString& fileName,
                                                      bool whiteBackground) const;
    /// The name that a chosen one is saved under: its directory, its file name cut before the first
    /// ".", and ".bmp".
    static QString bitmapFileName(const QString& chosen);

    /// What the chart shows, in words and numbers, for those who cannot see it.
    QString description() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Axis { X, Y };
    enum class Gesture { None, Zoom, Pan };

    /// Once per process; calling it again does nothing.
    static void installAccessibility();

    ItemList& sharedItems();
    void addItem(ChartItem item);
    void redraw();
    template <typename Value>
    void assign(Value& property, const Value& value);
    void setCrossHair(std::size_t index, const CrossHair& crossHair);

    AxisContents& contentsOf(Axis axis);
    /// Takes a range over, moves the other axis of an isometric chart, records and redraws.
    void changeRange(Axis axis, const AxisRange& range);
    void changeView(const View& view);
    void setLabelType(Axis axis, LabelType type);
    View isometricView(View view, Axis changed) const;
    View view() const { return {m_contents.x.range, m_contents.y.range}; }
    void showView(const View& view);
    void restore(const View& earlier);
    void requireDates(const View& view) const;
    void keepIsometric();

    void detachFromSource();

    QRect zoomRectangle() const;
    void drawZoomRectangle(QPainter& painter) const;
    void finishZoom();
    bool changeViewByKey(int key);
    void showRectangle(const QRectF& rectangle);
    void pan(const QPoint& to);
    void zoomTo(const View& view);
    void endGesture();
    void updateCursor(const QPoint& position);
    std::optional<ChartCursor> cursorAt(const QPoint& position) const;

    ChartContents m_contents;
    ItemList m_items;
    ItemAttributes m_attributes;
    ZoomHistory m_history;
    bool m_autoRedraw = true;
    bool m_isometric = false;
    chart::MouseAction m_mouseAction = chart::MouseAction::maNone;

    TRChart* m_source = nullptr;   ///< The chart whose items are drawn.
    std::vector<TRChart*> m_users; ///< Those who draw the items of this one.

    Gesture m_gesture = Gesture::None;
    QPoint m_gestureStart;
    QPoint m_gestureEnd;
    View m_viewAtStart;
    std::optional<ChartCursor> m_cursor; ///< The one that is set; nothing for the window's own.
};

template <typename Value>
void TRChart::assign(Value& property, const Value& value)
{
    if (property == value)
        return;
    property = value;
    keepIsometric(); // captions and labels move the rims
    redraw();
}

} // namespace chart
