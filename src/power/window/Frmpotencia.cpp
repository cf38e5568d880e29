// SPDX-License-Identifier: GPL-3.0-or-later
#include "power/window/Frmpotencia.h"

#include "chart/control/RChart.h"
#include "controls/Memo.h"
#include "controls/UpDown.h"
#include "power/study/StudyLog.h"
#include "power/window/PendingInput.h"
#include "stats/numbers/SimulatedSquares.h"
#include "window/Picture.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextCursor>

#include <algorithm>
#include <cstdlib>

namespace power {

namespace {

constexpr double fitMargin = 2.0; // percent
constexpr std::uint8_t curveMark = 2;

QString typedInVain(const StudySettings& settings)
{
    return QStringLiteral("Calculado con tamaño %1 y %2 ensayos: un número escrito solo cuenta "
                          "cuando después se pulsa una flecha.")
        .arg(QString::number(settings.order), QString::number(settings.trials));
}

/// The busy cursor, wherever the mouse is, for as long as it exists.
class BusyCursor {
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

} // namespace

TPotencia::TPotencia(window::Dialogs& dialogs, QWidget* parent, const StudySettings& settings)
    : ChildWindow(QStringLiteral("Potencia"), QStringLiteral("Potencia"), window::Picture::Power,
                  dialogs, parent)
    , m_settings(settings)
{
    createMenu();
    createPopups();
    createLayout();
    resize(sizeHint());
}

QSize TPotencia::sizeHint() const
{
    return {880, 560};
}

void TPotencia::BtnCalcularClick()
{
    const bool orderWasTyped = m_order->discardTyped();
    const bool trialsWereTyped = m_trials->discardTyped();
    try {
        const BusyCursor busy;
        m_graph->ClearItems();
        m_graph->setIdAbscissa(abscissaText());
        log(startLines(m_settings));
        runPowerStudy(m_settings, programAleatorio(), stats::programIntegers(),
                      [this](const std::vector<PowerPoint>& points) { showLastPoint(points); });
        emit statusText(orderWasTyped || trialsWereTyped ? typedInVain(m_settings)
                                                         : window::restingText());
        paintNow();
    } catch (const ImpossibleSetting& failure) {
        dialogs().showError(this, QString::fromUtf8(failure.what()),
                            QGuiApplication::applicationDisplayName());
        std::_Exit(EXIT_FAILURE); // a broken program: nothing of it can be trusted to be put away
    }
    discardPendingInput();
}

void TPotencia::BtnSigClick()
{
    popUpBelow(*m_menuSig, *m_btnSig);
}

void TPotencia::N901Click()
{
    setLevel(90);
}

void TPotencia::N951Click()
{
    setLevel(95);
}

void TPotencia::N981Click()
{
    setLevel(98);
}

void TPotencia::N991Click()
{
    setLevel(99);
}

void TPotencia::BtnDistClick()
{
    popUpBelow(*m_menuDist, *m_btnDist);
}

void TPotencia::Uniforme1Click()
{
    setErrorKind(ErrorKind::Uniform);
}

void TPotencia::Exponencial1Click()
{
    setErrorKind(ErrorKind::Exponential);
}

void TPotencia::Triangular1Click()
{
    setErrorKind(ErrorKind::Triangular);
}

void TPotencia::UpDown1Click()
{
    m_settings.order = m_order->Position();
    emit statusText(window::restingText());
}

void TPotencia::UpDown2Click()
{
    m_settings.trials = m_trials->Position();
    emit statusText(window::restingText());
}

void TPotencia::GuardarGrafica1Click()
{
    window::FileRequest request{QStringLiteral("Guardar Gráfica de Potencia"),
                                QStringLiteral("grafica potencia.bmp"), QStringLiteral("bmp"),
                                QStringLiteral("Mapa de bits (BMP)|*.bmp")};
    request.writtenName = chart::TRChart::bitmapFileName;
    save(request, [this](const QString& chosen) { return m_graph->SaveAsBitmap(chosen, true); });
}

void TPotencia::GuardarReporte1Click()
{
    saveLines({QStringLiteral("Guardar Reporte"), QStringLiteral("reporte.txt"),
               QStringLiteral("txt"), QStringLiteral("Texto|*.txt")},
              m_log->lines());
}

void TPotencia::log(const QStringList& lines)
{
    QTextCursor end(m_log->document());
    end.movePosition(QTextCursor::End);
    for (const QString& line : lines) {
        end.insertBlock();
        end.insertText(line);
    }
}

/// Draws the four curves on from the point before, paints them, and logs the point.
void TPotencia::showLastPoint(const std::vector<PowerPoint>& points)
{
    const PowerPoint& point = points.back();
    const PowerPoint& from = points.size() > 1 ? points[points.size() - 2] : point;
    const auto draw = [&](const QColor& color, double Powers::*power) {
        m_graph->setDataColor(color);
        m_graph->MoveToXY(from.difference, from.powers.*power);
        m_graph->LineToXY(point.difference, point.powers.*power);
        m_graph->MarkAtXY(point.difference, point.powers.*power, curveMark);
    };
    draw(colorOfC, &Powers::c);
    draw(colorOfBennett, &Powers::b);
    draw(colorOfM, &Powers::m);
    draw(colorOfZimmerman, &Powers::z);
    m_graph->FitRangeToData(fitMargin);
    emit statusText(QStringLiteral("Calculando potencias: %1 de %2")
                        .arg(points.size())
                        .arg(studyDifferences().size()));
    paintNow();
    log(pointLines(point));
}

/// Paints what has changed in the frame, the status line included, and handles no other event: the
/// study must not meet a click or a close half-way.
void TPotencia::paintNow()
{
    m_log->verticalScrollBar()->setValue(m_log->verticalScrollBar()->maximum());
    QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
}

void TPotencia::setLevel(int percent)
{
    m_settings.level = percent / 100.0;
    m_btnSig->setText(levelText());
    m_btnSig->setAccessibleName(m_btnSig->text());
    emit statusText(window::restingText());
}

QString TPotencia::levelText() const
{
    return QStringLiteral("Nivel de Significancia %1%").arg(qRound(100 * m_settings.level));
}

/// What the curves of a study are, so that its picture can be read alone.
QString TPotencia::abscissaText() const
{
    return QStringLiteral("Diferencia (tamaño %1, %2 ensayos, %3, %4). Rojo: C; azul: Bennett; "
                          "verde: M; negro: Zimmerman")
        .arg(QString::number(m_settings.order), QString::number(m_settings.trials), levelText(),
             caption(m_settings.errorKind));
}

void TPotencia::setErrorKind(ErrorKind kind)
{
    m_settings.errorKind = kind;
    m_btnDist->setText(caption(kind));
    m_btnDist->setAccessibleName(m_btnDist->text());
    emit statusText(window::restingText());
}

/// At the place that the form's and the button's positions add up to, counted from the corner of
/// the frame around them, moved only as far as the screen's edges ask for.
void TPotencia::popUpBelow(QMenu& popup, const QPushButton& button) const
{
    constexpr int fromLeft = 10;
    constexpr int fromBottom = 90;
    const auto* frame = qobject_cast<const QMdiSubWindow*>(parentWidget());
    const QPoint form = frame ? window()->pos() + frame->pos() : pos();
    const QPoint wanted(form.x() + button.x() + fromLeft,
                        form.y() + button.y() + button.height() + fromBottom);
    const QRect area = screen()->availableGeometry();
    const QSize size = popup.sizeHint();
    popup.popup({std::clamp(wanted.x(), area.left(),
                            std::max(area.left(), area.right() + 1 - size.width())),
                 std::clamp(wanted.y(), area.top(),
                            std::max(area.top(), area.bottom() + 1 - size.height()))});
}

} // namespace power
