// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the power window: its components, their names and where they stand.
#include "power/window/Frmpotencia.h"

#include "chart/control/RChart.h"
#include "controls/FoldingRow.h"
#include "controls/Memo.h"
#include "controls/Named.h"
#include "power/window/CurveColors.h"
#include "power/window/UpDown.h"
#include "window/Command.h"
#include "window/StatusTips.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace power {

namespace {

QLabel* labelOf(const QString& name, const QString& text, QWidget* buddy = nullptr)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setAccessibleName(text);
    label->setBuddy(buddy);
    return label;
}

QPushButton* buttonOf(const QString& name, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

UpDown* upDownOf(int number, const QString& accessibleName, int low, int high, int increment,
                 int position)
{
    auto* upDown = new UpDown(low, high, increment, position);
    upDown->setObjectName(QStringLiteral("UpDown%1").arg(number));
    upDown->setAccessibleName(accessibleName);
    upDown->edit()->setObjectName(QStringLiteral("Edit%1").arg(number));
    upDown->edit()->setAccessibleName(accessibleName);
    return upDown;
}

/// A square of a curve's colour and the name of its test.
QWidget* legendEntry(int number, const QColor& color, const QString& text)
{
    constexpr int side = 13; // pixels
    auto* square = new QFrame;
    square->setObjectName(QStringLiteral("Shape%1").arg(number));
    square->setAccessibleName(QStringLiteral("Color de la ") + text);
    square->setFixedSize(side, side);
    square->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    square->setPalette(palette);
    square->setAutoFillBackground(true);

    auto* entry = new QWidget;
    entry->setObjectName(QStringLiteral("Leyenda%1").arg(number));
    entry->setAccessibleName(text);
    auto* row = new QHBoxLayout(entry);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(square);
    row->addWidget(labelOf(QStringLiteral("LabelLeyenda%1").arg(number), text));
    return entry;
}

} // namespace

void TPotencia::createMenu()
{
    menu()->setTitle(QStringLiteral("&Potencia"));
    menu()->setObjectName(QStringLiteral("Potencia1"));
    window::addEntry(*menu(),
                     {QStringLiteral("GuardarGrafica1"), QStringLiteral("Guardar &Grafica..."),
                      QStringLiteral("Guarda la gráfica como mapa de bits"), window::Picture::Save},
                     this, &TPotencia::GuardarGrafica1Click);
    window::addEntry(*menu(),
                     {QStringLiteral("GuardarReporte1"), QStringLiteral("Guardar &Reporte..."),
                      QStringLiteral("Guarda como texto el reporte de los cálculos"),
                      window::Picture::Export},
                     this, &TPotencia::GuardarReporte1Click);
}

void TPotencia::createPopups()
{
    const auto entry = [this](QMenu* popup, const char* name, const QString& text,
                              void (TPotencia::*handler)()) {
        QAction* action = popup->addAction(text, this, handler);
        action->setObjectName(QString::fromLatin1(name));
        action->setStatusTip(QStringLiteral("%1: %2").arg(popup->accessibleName(), text));
    };
    m_menuSig = new QMenu(this);
    m_menuSig->setObjectName(QStringLiteral("MenuSig"));
    m_menuSig->setAccessibleName(QStringLiteral("Nivel de significancia"));
    entry(m_menuSig, "N901", QStringLiteral("90%"), &TPotencia::N901Click);
    entry(m_menuSig, "N951", QStringLiteral("95%"), &TPotencia::N951Click);
    entry(m_menuSig, "N981", QStringLiteral("98%"), &TPotencia::N981Click);
    entry(m_menuSig, "N991", QStringLiteral("99%"), &TPotencia::N991Click);

    m_menuDist = new QMenu(this);
    m_menuDist->setObjectName(QStringLiteral("MenuDist"));
    m_menuDist->setAccessibleName(QStringLiteral("Distribución de los errores"));
    entry(m_menuDist, "Uniforme1", QStringLiteral("Uniforme"), &TPotencia::Uniforme1Click);
    entry(m_menuDist, "Exponencial1", QStringLiteral("Exponencial"), &TPotencia::Exponencial1Click);
    entry(m_menuDist, "Triangular1", QStringLiteral("Triangular"), &TPotencia::Triangular1Click);
    for (QMenu* const popup : {m_menuSig, m_menuDist})
        window::tellStatusTips(*popup, *this);
}

void TPotencia::createLayout()
{
    auto* upper = new QWidget;
    auto* chartAndLegend = new QVBoxLayout(upper);
    chartAndLegend->setContentsMargins(0, 0, 0, 0);
    chartAndLegend->setSpacing(0);
    chartAndLegend->addWidget(createChart(), 1);
    chartAndLegend->addWidget(createLegend());

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("Splitter1"));
    splitter->setAccessibleName(QStringLiteral("División entre la gráfica y el reporte"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(upper);
    splitter->addWidget(createLog());
    splitter->setSizes({380, 120});
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(createSettings());
    column->addWidget(splitter, 1);
    m_btnCalcular->setFocus();
}

QWidget* TPotencia::createSettings()
{
    auto* panel = new controls::FoldingRow;
    panel->setObjectName(QStringLiteral("Panel1"));
    panel->setAccessibleName(QStringLiteral("Opciones del cálculo"));

    m_btnCalcular = buttonOf(QStringLiteral("BtnCalcular"), QStringLiteral("Calcular"));
    m_btnCalcular->setShortcut(Qt::Key_F9);
    m_btnCalcular->setIcon(window::icon(window::Picture::Run));
    m_btnCalcular->setToolTip(QStringLiteral("Calcula las potencias con estas opciones (F9)"));
    window::connectCommand(m_btnCalcular, &QPushButton::clicked, this,
                           &TPotencia::BtnCalcularClick);
    m_order = upDownOf(1, QStringLiteral("Tamaño del cuadrado"), 3, 6, 1, m_settings.order);
    connect(m_order, &UpDown::Click, this, &TPotencia::UpDown1Click);
    m_trials = upDownOf(2, QStringLiteral("Número de pruebas"), 500, 5000, 100, m_settings.trials);
    connect(m_trials, &UpDown::Click, this, &TPotencia::UpDown2Click);
    m_btnSig = buttonOf(QStringLiteral("BtnSig"), QStringLiteral("Nivel de Significancia 95%"));
    window::connectCommand(m_btnSig, &QPushButton::clicked, this, &TPotencia::BtnSigClick);
    m_btnDist = buttonOf(QStringLiteral("BtnDist"), caption(m_settings.errorKind));
    window::connectCommand(m_btnDist, &QPushButton::clicked, this, &TPotencia::BtnDistClick);

    QBoxLayout& counts = panel->first();
    counts.addWidget(m_btnCalcular);
    counts.addSpacing(8);
    counts.addWidget(
        labelOf(QStringLiteral("Label1"), QStringLiteral("Tamaño del cuadrado:"), m_order));
    counts.addWidget(m_order);
    counts.addSpacing(8);
    counts.addWidget(
        labelOf(QStringLiteral("Label2"), QStringLiteral("Número de Pruebas"), m_trials));
    counts.addWidget(m_trials);
    panel->second().addWidget(m_btnSig);
    panel->second().addWidget(m_btnDist);
    return panel;
}

QWidget* TPotencia::createChart()
{
    const QString chartCaption = QStringLiteral("Potencias");
    m_graph = new chart::TRChart;
    m_graph->setObjectName(QStringLiteral("Graph"));
    m_graph->setAccessibleName(chartCaption);
    m_graph->setCaption(chartCaption);
    m_graph->setIdAbscissa(QStringLiteral("Diferencia"));
    m_graph->setIdOrdinate(QStringLiteral("Potencia"));
    m_graph->setDecPlaceX(2);
    m_graph->setDecPlaceY(2);
    m_graph->setRangeHiX(1.0);
    m_graph->setRangeHiY(1.0);
    m_graph->setGridStyle(chart::GridStyle::gsHorizDotLines);
    m_graph->setShadowStyle(chart::ShadowStyle::ssFlying);
    m_graph->setMouseAction(chart::MouseAction::maZoomDrag);
    m_graph->setShortTicksX(true);
    m_graph->setShortTicksY(true);
    return m_graph;
}

QWidget* TPotencia::createLegend()
{
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("Panel2"));
    panel->setAccessibleName(QStringLiteral("Leyenda"));
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(18);
    row->addStretch();
    row->addWidget(legendEntry(1, colorOfZimmerman, QStringLiteral("Prueba de Zimmerman")));
    row->addWidget(legendEntry(2, colorOfBennett, QStringLiteral("Prueba de Bennett")));
    row->addWidget(legendEntry(3, colorOfC, QStringLiteral("Prueba C")));
    row->addWidget(legendEntry(4, colorOfM, QStringLiteral("Prueba M")));
    row->addStretch();
    return panel;
}

QWidget* TPotencia::createLog()
{
    m_log = controls::named(new controls::Memo, QStringLiteral("log"),
                            QStringLiteral("Reporte de los cálculos"));
    return m_log;
}

} // namespace power
