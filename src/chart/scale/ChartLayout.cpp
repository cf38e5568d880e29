// SPDX-License-Identifier: GPL-3.0-or-later
#include "chart/scale/ChartLayout.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr int margin = 8; // between the edge of the control and what stands next to it
constexpr int gap = 6;    // between two things that stand side by side

/// The plot's fair share of a small control.
constexpr int leastPlot = 40;
constexpr double leastShare = 0.35;

int widestOf(const std::vector<QString>& labels, const TextSizes& text)
{
    int widest = 0;
    for (const QString& label : labels) {
        if (!label.isEmpty())
            widest = std::max(widest, text.width(label));
    }
    return widest;
}

bool hasText(const std::vector<QString>& labels)
{
    return std::any_of(labels.begin(), labels.end(),
                       [](const QString& label) { return !label.isEmpty(); });
}

/// Words in lines of a width, as many to a line as go into it.
QStringList wrapped(const QString& words, int width, const TextSizes& text)
{
    QStringList lines;
    for (const QString& word : words.simplified().split(QLatin1Char(' '))) {
        const QString longer = lines.isEmpty() ? word : lines.last() + QLatin1Char(' ') + word;
        if (lines.isEmpty() || (text.width(longer) > width && lines.size() < mostAbscissaLines))
            lines += word;
        else
            lines.last() = longer;
    }
    return lines;
}

/// What stands beside the plot in one direction, and whether it found room.
struct Beside {
    bool caption = false;
    bool axisCaption = false;
    bool labels = false;
    int axisCaptionLines = 1;
};

int leftRim(const LayoutRequest& request, const Beside& beside)
{
    int rim = margin;
    if (beside.axisCaption)
        rim += request.text.lineHeight + gap;
    if (beside.labels)
        rim += widestOf(request.yLabels, request.text) + yLabelDistance;
    return std::max(rim, mainTickLengthY + 2);
}

int topRim(const LayoutRequest& request, const Beside& beside)
{
    // Half a line of the uppermost y label stands above the plot.
    const int label = request.text.lineHeight / 2;
    return beside.caption ? margin + request.captionText.lineHeight + std::max(label, gap)
                          : std::max(label + 2, margin);
}

int bottomRim(const LayoutRequest& request, const Beside& down)
{
    int below = mainTickLengthX + 2;
    if (down.labels)
        below = xLabelDistance + request.text.lineHeight + gap / 2;
    if (down.axisCaption)
        below += down.axisCaptionLines * request.text.lineHeight + gap;
    return std::max(below - request.shadowWidth, 0);
}

int rightRim(const LayoutRequest&)
{
    return 2 * margin;
}

bool isFair(int plot, int whole)
{
    return plot >= std::max<int>(leastPlot, static_cast<int>(leastShare * whole));
}

/// What finds room on the plot's left, within a rim of so many pixels where it is fixed.
Beside onTheLeft(const LayoutRequest& request, std::optional<int> fixedRim)
{
    Beside across{false, !request.idOrdinate.isEmpty(), hasText(request.yLabels)};
    const int whole = request.size.width();
    const int right = whole - request.fixed.right.value_or(rightRim(request)) - request.shadowWidth;
    for (bool* optional : {&across.axisCaption, &across.labels}) {
        if (isFair(right - fixedRim.value_or(leftRim(request, across)) + 1, whole))
            break;
        *optional = false;
    }
    return across;
}

Rims rimsFor(const LayoutRequest& request, const Beside& across, const Beside& down)
{
    return {request.fixed.left.value_or(leftRim(request, across)),
            request.fixed.right.value_or(rightRim(request)),
            request.fixed.top.value_or(topRim(request, down)),
            request.fixed.bottom.value_or(bottomRim(request, down))};
}

bool touch(const PlacedLabel& one, const PlacedLabel& next)
{
    return one.place.adjusted(-gap, 0, gap, 0).intersects(next.place);
}

bool overlap(const std::vector<PlacedLabel>& labels)
{
    return std::adjacent_find(labels.begin(), labels.end(), touch) != labels.end();
}

bool isMultiple(long double index, int stride)
{
    return std::remainder(std::round(index), static_cast<long double>(stride)) == 0;
}

/// Every stride-th label by `place`, with the smallest stride at which none touches the next.
template <typename Place>
std::vector<PlacedLabel> thinnedOut(const LabelledTicks& ticks, Place place)
{
    std::vector<PlacedLabel> labels;
    for (const int stride : {1, 2, 5, 10, 20, 50}) {
        labels.clear();
        for (std::size_t i = 0; i < ticks.pixels.size(); ++i) {
            if (!ticks.texts[i].isEmpty() && isMultiple(ticks.indices[i], stride))
                labels.push_back({i, place(ticks.pixels[i], ticks.texts[i])});
        }
        // The last one is pushed back from the rim and may touch the one before.
        if (labels.size() > 2 && touch(labels[labels.size() - 2], labels.back()))
            labels.pop_back();
        if (!overlap(labels))
            return labels;
    }
    labels.resize(1);
    return labels;
}

/// Rims that the program fixed may leave a caption without room; it is then left out too.
void placeCaptions(ChartLayout& layout, const LayoutRequest& request, const Beside& across,
                   const Beside& down)
{
    const QRect& plot = layout.plot;
    const QSize& size = request.size;
    const int line = request.text.lineHeight;
    if (down.caption) {
        // Over the plot where it fits there, otherwise over everything.
        const bool fits = request.captionText.width(request.caption) <= plot.width();
        const int height = request.captionText.lineHeight;
        const QRect place = fits ? QRect(plot.left(), margin, plot.width(), height)
                                 : QRect(margin, margin, size.width() - 2 * margin, height);
        if (place.bottom() < plot.top() - line / 2)
            layout.caption = place;
    }
    if (down.axisCaption) {
        const int height = down.axisCaptionLines * line;
        const QRect place(plot.left(), size.height() - height - gap / 2, plot.width(), height);
        const int labelBottom = plot.bottom() + (down.labels ? xLabelDistance + line : 0);
        if (place.top() >= labelBottom)
            layout.abscissa = place;
    }
    if (across.axisCaption) {
        const QRect place(gap / 2, plot.top(), line, plot.height());
        const int labelLeft =
            plot.left() -
            (across.labels ? yLabelDistance + widestOf(request.yLabels, request.text) : 0);
        if (place.right() < labelLeft)
            layout.ordinate = place;
    }
}

} // namespace

ChartLayout layOut(const LayoutRequest& request)
{
    const Beside own = onTheLeft(request, std::nullopt);
    const Beside across = request.fixed.left ? onTheLeft(request, request.fixed.left) : own;
    Beside down{!request.caption.isEmpty(), !request.idAbscissa.isEmpty(),
                hasText(request.xLabels)};
    ChartLayout layout;
    layout.ownLeftRim = leftRim(request, own);
    const auto measure = [&] {
        layout.rims = rimsFor(request, across, down);
        const int right = request.size.width() - layout.rims.right - request.shadowWidth;
        const int bottom = request.size.height() - layout.rims.bottom - request.shadowWidth;
        layout.plot = QRect(QPoint(layout.rims.left, layout.rims.top), QPoint(right, bottom));
    };
    measure();
    layout.abscissaLines = wrapped(request.idAbscissa, layout.plot.width(), request.text);
    down.axisCaptionLines = static_cast<int>(layout.abscissaLines.size());
    measure();
    for (bool* optional : {&down.axisCaption, &down.caption, &down.labels}) {
        if (isFair(layout.plot.height(), request.size.height()))
            break;
        *optional = false;
        measure();
    }

    layout.xLabels = down.labels;
    layout.yLabels = across.labels;
    placeCaptions(layout, request, across, down);
    return layout;
}

std::vector<PlacedLabel> placeXLabels(const LabelledTicks& ticks, int axisRow, int rightEdge,
                                      const TextSizes& text)
{
    return thinnedOut(ticks, [&](int pixel, const QString& label) {
        const int width = text.width(label);
        const bool reachesEdge = pixel + width / 2.0 >= rightEdge;
        const int left = reachesEdge ? rightEdge - width : pixel - width / 2;
        return QRect(std::max(left, 0), axisRow + xLabelDistance, width, text.lineHeight);
    });
}

std::vector<PlacedLabel> placeYLabels(const LabelledTicks& ticks, int axisColumn, int axisRow,
                                      const TextSizes& text)
{
    return thinnedOut(ticks, [&](int pixel, const QString& label) {
        const int width = text.width(label);
        const int lowestTop = axisRow + xLabelDistance - text.lineHeight;
        return QRect(axisColumn - yLabelDistance - width,
                     std::min(pixel - text.lineHeight / 2, lowestTop), width, text.lineHeight);
    });
}

} // namespace chart
