// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "power/study/PowerStudy.h"
#include "window/ChildWindow.h"

#include <QColor>
#include <QPointF>

#include <vector>

class QPushButton;

namespace chart {
class TRChart;
}
namespace controls {
class Memo;
}

namespace power {

class UpDown;

/// The window of the power study: its settings, the four curves, which grow while it runs, and the
/// log of all studies made in it.
class TPotencia : public window::ChildWindow, private StudyObserver {
    Q_OBJECT

public:
    /// The reference must outlive the window.
    explicit TPotencia(window::Dialogs& dialogs, QWidget* parent = nullptr);

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

protected:
    /// What the next study is asked for.
    virtual StudySettings settings() const { return m_settings; }

private:
    /// A curve, and where it has got to.
    struct Curve {
        QColor color;
        double Powers::*power;
        QPointF end;
    };

    void createMenu();
    void createPopups();
    void createLayout();
    QWidget* createSettings();
    QWidget* createChart();
    QWidget* createLegend();
    QWidget* createLog();

    void logLine(const QString& line) override;
    void pointDone(const PowerPoint& point) override;
    void paintNow();

    void setLevel(int percent);
    void setErrorKind(ErrorKind kind);
    void popUpBelow(QMenu& popup, const QPushButton& button) const;

    StudySettings m_settings;
    std::vector<Curve> m_curves;

    QMenu* m_menuSig = nullptr;
    QMenu* m_menuDist = nullptr;
    QPushButton* m_btnCalcular = nullptr;
    QPushButton* m_btnSig = nullptr;
    QPushButton* m_btnDist = nullptr;
    UpDown* m_order = nullptr;
    UpDown* m_trials = nullptr;
    chart::TRChart* m_graph = nullptr;
    controls::Memo* m_log = nullptr;
};

} // namespace power
