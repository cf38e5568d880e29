// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Frmpotencia: the form, its components, their names and where they stand.
#include "power/window/Frmpotencia.h"

#include "chart/control/RChart.h"
#include "controls/FoldingRow.h"
#include "controls/Memo.h"
#include "controls/Named.h"
#include "controls/UpDown.h"
#include "power/study/StudyLog.h"
#include "window/Command.h"
#include "window/Icons.h"
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

using controls::named;

namespace {

QLabel* labelOf(const QString& name, const QString& text, QWidget* buddy = nullptr)
{
    return named(controls::labelOf(buddy, text), name, text);
}

QPushButton* buttonOf(const QString& name, const QString& text)
{
    auto* button = named(new QPushButton(text), name, text);
    button->setAutoDefault(false);
    return button;
}

controls::UpDown* upDownOf(int number, const QString& accessibleName, int low, int high,
                           int increment, int position)
{
    auto* upDown =
        named(new controls::UpDown(low, high, increment, controls::UpDown::Typing::StartOfStep),
              QStringLiteral("UpDown%1").arg(number), accessibleName);
    upDown->setPosition(position);
    named(upDown->edit(), QStringLiteral("Edit%1").arg(number), accessibleName);
    return upDown;
}

/// A square of a curve's colour and the name of its test.
QWidget* legendEntry(int number, const chart::Series& series)
{
    const QString& text = series.name;
    constexpr int side = 13; // pixels
    auto* square = named(new QFrame, QStringLiteral("Shape%1").arg(number),
                         QStringLiteral("Color de la ") + text);
    square->setFixedSize(side, side);
    square->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgba(series.color));
    square->setPalette(palette);
    square->setAutoFillBackground(true);

    auto* entry = named(new QWidget, QStringLiteral("Leyenda%1").arg(number), text);
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
        QAction* action = popup->addAction(text);
        window::connectCommand(action, &QAction::triggered, this, handler);
        action->setObjectName(QString::fromLatin1(name));
        action->setStatusTip(QStringLiteral("%1: %2").arg(popup->accessibleName(), text));
    };
    m_menuSig =
        named(new QMenu(this), QStringLiteral("MenuSig"), QStringLiteral("Nivel de significancia"));
    entry(m_menuSig, "N901", QStringLiteral("90%"), &TPotencia::N901Click);
    entry(m_menuSig, "N951", QStringLiteral("95%"), &TPotencia::N951Click);
    entry(m_menuSig, "N981", QStringLiteral("98%"), &TPotencia::N981Click);
    entry(m_menuSig, "N991", QStringLiteral("99%"), &TPotencia::N991Click);

    m_menuDist = named(new QMenu(this), QStringLiteral("MenuDist"),
                       QStringLiteral("Distribución de los errores"));
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

    auto* splitter = named(new QSplitter(Qt::Vertical), QStringLiteral("Splitter1"),
                           QStringLiteral("División entre la gráfica y el reporte"));
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
    auto* panel = named(new controls::FoldingRow, QStringLiteral("Panel1"),
                        QStringLiteral("Opciones del cálculo"));

    m_btnCalcular = buttonOf(QStringLiteral("BtnCalcular"), QStringLiteral("Calcular"));
    m_btnCalcular->setShortcut(Qt::Key_F9);
    m_btnCalcular->setIcon(window::icon(window::Picture::Run));
    m_btnCalcular->setToolTip(QStringLiteral("Calcula las potencias con estas opciones (F9)"));
    window::connectCommand(m_btnCalcular, &QPushButton::clicked, this,
                           &TPotencia::BtnCalcularClick);
    m_order = upDownOf(1, QStringLiteral("Tamaño del cuadrado"), 3, 6, 1, m_settings.order);
    connect(m_order, &controls::UpDown::Click, this, &TPotencia::UpDown1Click);
    m_trials = upDownOf(2, QStringLiteral("Número de pruebas"), 500, 5000, 100, m_settings.trials);
    connect(m_trials, &controls::UpDown::Click, this, &TPotencia::UpDown2Click);
    m_trials->setFirstText(QStringLiteral("1.000"));
    m_btnSig = buttonOf(QStringLiteral("BtnSig"), levelText());
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
    m_graph =
        chart::createChart({QStringLiteral("Graph"), QStringLiteral("Potencias"),
                            QStringLiteral("Diferencia"), QStringLiteral("Potencia"), 2, 2, 1.0L});
    return m_graph;
}

QWidget* TPotencia::createLegend()
{
    auto* panel = named(new QWidget, QStringLiteral("Panel2"), QStringLiteral("Leyenda"));
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(18);
    row->addStretch();
    const std::vector<chart::Series> tests{
        {colorOfZimmerman.rgba(), QStringLiteral("Prueba de Zimmerman")},
        {colorOfBennett.rgba(), QStringLiteral("Prueba de Bennett")},
        {colorOfC.rgba(), QStringLiteral("Prueba C")},
        {colorOfM.rgba(), QStringLiteral("Prueba M")},
    };
    m_graph->setSeries(tests);
    int number = 0;
    for (const chart::Series& test : tests)
        row->addWidget(legendEntry(++number, test));
    row->addStretch();
    return panel;
}

QWidget* TPotencia::createLog()
{
    m_log =
        named(new controls::Memo, QStringLiteral("log"), QStringLiteral("Reporte de los cálculos"));
    return m_log;
}

} // namespace power
