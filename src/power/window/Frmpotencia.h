// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/PowerStudy.h"
#include "window/ChildWindow.h"

#include <QColor>
#include <QStringList>

#include <vector>

class QPushButton;

namespace chart {
class TRChart;
}
namespace controls {
class Memo;
class UpDown;
} // namespace controls

namespace power {

/// The colours of the curves, in the chart and in its legend.
constexpr QColor colorOfC(255, 0, 0);
constexpr QColor colorOfBennett(0, 0, 255);
constexpr QColor colorOfM(0, 128, 0);
constexpr QColor colorOfZimmerman(0, 0, 0);

/// The window of the power study: its settings, the four curves, which grow while it runs, and the
/// log of all studies made in it.
class TPotencia : public window::ChildWindow {
    Q_OBJECT

public:
    /// The reference must outlive the window.
    explicit TPotencia(window::Dialogs& dialogs, QWidget* parent = nullptr,
                       const StudySettings& settings = {});

    QString manualChapter() const override { return QStringLiteral("potencia"); }
    QSize sizeHint() const override;

public slots:
    void BtnCalcularClick();
    void BtnSigClick();
    void N901Click();
    void N951Click();
    void N981Click();
    void N991Click();
    void BtnDistClick();
    void Uniforme1Click();
    void Exponencial1Click();
    void Triangular1Click();
    void UpDown1Click();
    void UpDown2Click();
    void GuardarGrafica1Click();
    void GuardarReporte1Click();

private:
    void createMenu();
    void createPopups();
    void createLayout();
    QWidget* createSettings();
    QWidget* createChart();
    QWidget* createLegend();
    QWidget* createLog();

    void log(const QStringList& lines);
    void showLastPoint(const std::vector<PowerPoint>& points);
    void paintNow();

    void setLevel(int percent);
    QString levelText() const;
    QString abscissaText() const;
    void setErrorKind(ErrorKind kind);
    void popUpBelow(QMenu& popup, const QPushButton& button) const;

    StudySettings m_settings; ///< Of the next study.

    QMenu* m_menuSig = nullptr;
    QMenu* m_menuDist = nullptr;
    QPushButton* m_btnCalcular = nullptr;
    QPushButton* m_btnSig = nullptr;
    QPushButton* m_btnDist = nullptr;
    controls::UpDown* m_order = nullptr;
    controls::UpDown* m_trials = nullptr;
    chart::TRChart* m_graph = nullptr;
    controls::Memo* m_log = nullptr;
};

} // namespace power
