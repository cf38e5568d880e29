// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Frmanalisis: the form, its components, their names and where they stand.
#include "analysis/Frmanalisis.h"

#include "analysis/Offer.h"
#include "analysis/Tips.h"
#include "controls/LevelBar.h"
#include "controls/Memo.h"
#include "controls/Named.h"
#include "controls/RadioGroup.h"
#include "grid/view/NTabEd.h"
#include "square/extraction/ExtractionAnswer.h"
#include "window/Command.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace analysis {

namespace {

QList<QStringList> testsOfEachApproach()
{
    QList<QStringList> captions;
    for (const stats::Approach approach : stats::approaches())
        captions << captionsOf(stats::testsOf(approach));
    return captions;
}

} // namespace

void TAnalisis::createMenu()
{
    menu()->setTitle(QStringLiteral("Aná&lisis"));
    menu()->setObjectName(QStringLiteral("Anlisis1"));
    window::addEntry(*menu(),
                     {QStringLiteral("Exportar1"), QStringLiteral("&Exportar..."),
                      QStringLiteral("Guarda el reporte como texto"), window::Picture::Export,
                      Qt::CTRL | Qt::Key_E},
                     this, &TAnalisis::Exportar1Click);
}

void TAnalisis::createLayout()
{
    QWidget* toolBar = createToolBar();
    auto* splitter = controls::named(new QSplitter(Qt::Vertical, this), QStringLiteral("Splitter1"),
                                     QStringLiteral("División entre los datos y el reporte"));
    splitter->setHandleWidth(8);
    splitter->setChildrenCollapsible(false);
    QWidget* scrollBox = createScrollBox();
    splitter->addWidget(scrollBox);
    splitter->addWidget(createReport());
    // Higher only where the font makes the options higher.
    splitter->setSizes({std::max(290, scrollBox->sizeHint().height()), 241});
    splitter->setStretchFactor(1, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolBar);
    column->addWidget(splitter, 1);
}

QWidget* TAnalisis::createToolBar()
{
    auto* toolBar =
        controls::named(new QToolBar(QStringLiteral("Análisis"), this), QStringLiteral("ToolBar1"),
                        QStringLiteral("Barra de análisis"));
    toolBar->setMinimumHeight(33);
    toolBar->setIconSize({16, 16});

    QToolButton* run = window::createButton(
        {QStringLiteral("SpeedButton1"), QStringLiteral("Analizar"),
         QStringLiteral("Ejecuta la prueba elegida"), window::Picture::Run, Qt::Key_F9},
        this);
    window::connectCommand(run, &QToolButton::clicked, this, &TAnalisis::SpeedButton1Click);
    m_ve = window::createButton({QStringLiteral("ve"), QStringLiteral("Ver exacta..."),
                                 QStringLiteral("Dibuja la distribución exacta de C o de M, tras "
                                                "una prueba de orden 3"),
                                 window::Picture::Graph},
                                this);
    m_ve->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_ve->setMinimumWidth(96);
    m_ve->setEnabled(false);
    window::connectCommand(m_ve, &QToolButton::clicked, this, &TAnalisis::veClick);
    for (QToolButton* const button : {run, m_ve})
        button->setMinimumHeight(25);

    toolBar->addSeparator();
    toolBar->addWidget(run);
    toolBar->addSeparator();
    toolBar->addWidget(m_ve);
    return toolBar;
}

QWidget* TAnalisis::createScrollBox()
{
    const QString whole = QStringLiteral("Datos y opciones");
    auto* scrollBox = controls::named(new QScrollArea(this), QStringLiteral("ScrollBox1"), whole);
    scrollBox->setWidgetResizable(true);
    scrollBox->setFocusPolicy(Qt::NoFocus); // it follows the focus of what it holds
    auto* content =
        controls::named(new QWidget(scrollBox), QStringLiteral("ScrollBox1Content"), whole);
    const QString title = QStringLiteral("DATOS A ANALIZAR");
    auto* caption = controls::named(new QLabel(title, content), QStringLiteral("Label1"), title);

    m_datos = controls::named(new grid::TNTabEd(dialogs(), content), QStringLiteral("Datos"),
                              QStringLiteral("Datos a analizar"));
    m_datos->setMinimumSize(200, 120);
    m_datos->setExtractor(square::extractionAnswer());
    connect(m_datos, &grid::TNTabEd::Notice, this, &TAnalisis::tellBesideStale);
    connect(m_datos, &grid::TNTabEd::Edited, this, [this] { emit notice({}); });
    connect(m_datos, &grid::TNTabEd::OnChange, this, &TAnalisis::DatosChange);

    auto* layout = new QGridLayout(content);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(caption, 0, 0, 1, 2);
    layout->addWidget(m_datos, 1, 0);
    layout->addWidget(createOptions(content), 1, 1);
    layout->setColumnStretch(0, 1);
    scrollBox->setWidget(content);
    return scrollBox;
}

QWidget* TAnalisis::createOptions(QWidget* parent)
{
    const QString title = QStringLiteral("Opciones");
    auto* options =
        controls::named(new QGroupBox(title, parent), QStringLiteral("GroupBox1"), title);

    m_approaches =
        new controls::RadioGroup(QStringLiteral("RadioGroup1"), QStringLiteral("Enfoque"), options);
    m_tests =
        new controls::RadioGroup(QStringLiteral("RadioGroup2"), QStringLiteral("Prueba"), options);
    connect(m_approaches, &controls::RadioGroup::selected, this, &TAnalisis::RadioGroup1Click);
    connect(m_tests, &controls::RadioGroup::selected, this, &TAnalisis::tellWhetherStale);
    m_tests->reserve(testsOfEachApproach());
    offer(*m_approaches, stats::approaches());
    m_approaches->setItemIndex(0); // which offers its tests

    m_level = new QLabel(options);
    m_level->setObjectName(QStringLiteral("LabelConf"));
    m_levelBar = controls::named(new controls::LevelBar(options), QStringLiteral("ScrollBar1"),
                                 QStringLiteral("Nivel de significancia, en porcentaje"));
    connect(m_levelBar, &QScrollBar::valueChanged, this, &TAnalisis::ScrollBar1Change);
    m_level->setToolTip(tipOfLevel());
    m_levelBar->setToolTip(tipOfLevel());
    m_levelBar->setRange(1, 99);
    m_levelBar->setValue(95); // which labels it

    auto* column = new QVBoxLayout(options);
    column->setContentsMargins(2, 2, 2, 2);
    column->addWidget(m_approaches);
    column->addWidget(m_tests);
    column->addWidget(m_level);
    column->addWidget(m_levelBar);
    column->addStretch();
    // Wider only where the font makes a caption wider.
    options->setFixedWidth(std::max(198, options->sizeHint().width()));
    return options;
}

QWidget* TAnalisis::createReport()
{
    m_report = controls::named(new controls::Memo(QStringLiteral("REPORTE SIN GENERAR")),
                               QStringLiteral("Reporte"), QStringLiteral("Reporte"));
    m_report->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_report->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::Monospace); // the tables need a fixed pitch where there is no Courier
    // Larger only for a user who has chosen larger letters than the usual 13 pixels for everything.
    font.setPixelSize(std::max(12, fontInfo().pixelSize() - 1));
    m_report->setFont(font);
    return m_report;
}

} // namespace analysis
