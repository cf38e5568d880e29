// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Frmanalisis.h"

#include "analysis/LevelBar.h"
#include "analysis/RadioGroup.h"
#include "base/SafeFile.h"
#include "grid/NTabEd.h"
#include "square/LoadedSquare.h"
#include "square/ShowSquare.h"
#include "window/Dialogs.h"
#include "window/HandOff.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

#include <exception>
#include <new>

namespace analysis {

namespace {

constexpr int decimalsShown = 3;

QString windowCaption()
{
    return QStringLiteral("Análisis");
}

/// Qt reads "[*]" in a caption as the place of a mark; doubled it stands for itself.
QString captionFor(QString fileName)
{
    return windowCaption() + QStringLiteral(" - ") +
           fileName.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString invitation()
{
    return QStringLiteral("Seleccione las opciones deseadas y haga click en 'Analizar'");
}

QString levelText(int percent)
{
    return QStringLiteral("Nivel de Significancia: %1%").arg(percent);
}

QStringList approachCaptions()
{
    QStringList captions;
    for (const stats::Approach approach : stats::approaches())
        captions << stats::caption(approach);
    return captions;
}

QStringList testCaptions(stats::Approach approach)
{
    QStringList captions;
    for (const stats::TestKind kind : stats::testsOf(approach))
        captions << stats::caption(kind);
    return captions;
}

QToolButton* toolButton(const QString& name, const QString& text, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setMinimumHeight(25);
    return button;
}

/// The lines of a text area; none for an empty one.
QStringList linesOf(const QPlainTextEdit& area)
{
    const QString text = area.toPlainText();
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

QString failureText(const std::exception& failure)
{
    const QString reason = dynamic_cast<const std::bad_alloc*>(&failure)
                               ? QStringLiteral("no hay memoria suficiente")
                               : QString::fromUtf8(failure.what());
    return QStringLiteral("No se pudo completar el análisis: %1.").arg(reason);
}

} // namespace

TAnalisis::TAnalisis(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent)
    : ChildWindow(parent)
    , m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("Analisis"));
    setAccessibleName(windowCaption());
    setWindowTitle(windowCaption());
    setAttribute(Qt::WA_DeleteOnClose);
    createMenu();
    createLayout();
    resize(sizeHint());

    if (!handOff.pendingFileName.isEmpty())
        openPendingFile(handOff);
    else
        openChosenFile(handOff);
}

QSize TAnalisis::sizeHint() const
{
    return {808, 580};
}

void TAnalisis::FormActivate()
{
    emit statusText(invitation());
}

void TAnalisis::FormDeactivate()
{
    emit statusText(QStringLiteral("Listo."));
}

void TAnalisis::FormClose()
{
    emit statusText(QStringLiteral("Listo."));
}

void TAnalisis::RadioGroup1Click()
{
    const stats::Approach approach = selectedApproach();
    m_tests->setItems(testCaptions(approach));
    m_tests->setTitle(QStringLiteral("Prueba"));
    // Beyond the last item for "Rangos", whose last item is the one wanted.
    m_tests->setItemIndex(approach == stats::Approach::Ranks ? 2 : 0);
    m_tests->setVisible(true);
}

void TAnalisis::ScrollBar1Change()
{
    const int percent = m_levelBar->value();
    // One rounding, so that the report says 0.05 at 95.
    m_alpha = (100 - percent) / 100.0;
    m_level->setText(levelText(percent));
}

void TAnalisis::SpeedButton1Click()
{
    if (!m_datos->commitEdit())
        return;
    emit statusText(QStringLiteral("Analizando, Espere..."));
    m_report->clear();
    try {
        m_report->setPlainText(runSelectedTest().join(QLatin1Char('\n')));
    } catch (const std::exception& failure) {
        m_ve->setEnabled(false);
        emit statusText(invitation());
        m_dialogs.showError(this, failureText(failure), windowCaption());
        return;
    }
    emit statusText(
        QStringLiteral("Análisis completo. Puede realizar otro o guardar los resultados."));
}

void TAnalisis::Exportar1Click()
{
    if (!m_datos->commitEdit())
        return;
    const auto fileName = m_dialogs.saveFileName(
        this, {QStringLiteral("Exportar"), QStringLiteral("reporte.txt"), QStringLiteral("txt"),
               QStringLiteral("Archivo de Texto (*.txt)|*.txt")});
    if (!fileName)
        return;
    QString text;
    for (const QString& line : linesOf(*m_report))
        text += line + QStringLiteral("\r\n");
    if (const auto reason = base::writeFile(*fileName, text.toUtf8()))
        m_dialogs.showError(
            this, QStringLiteral("No se pudo guardar el archivo %1.\n%2").arg(*fileName, *reason),
            windowCaption());
}

void TAnalisis::closeEvent(QCloseEvent* event)
{
    FormClose();
    event->accept();
}

QStringList TAnalisis::runSelectedTest()
{
    if (selectedTest() != stats::TestKind::F)
        return {};
    m_ve->setEnabled(false);
    return stats::FTest(observations(), m_datos->NrOfColumns(), m_alpha);
}

void TAnalisis::createMenu()
{
    m_menu = new QMenu(QStringLiteral("Aná&lisis"), this);
    m_menu->setObjectName(QStringLiteral("Anlisis1"));
    QAction* exportReport =
        m_menu->addAction(QStringLiteral("&Exportar..."), this, &TAnalisis::Exportar1Click);
    exportReport->setObjectName(QStringLiteral("Exportar1"));
    exportReport->setShortcut(Qt::CTRL | Qt::Key_E);
}

void TAnalisis::createLayout()
{
    QWidget* toolBar = createToolBar();
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setObjectName(QStringLiteral("Splitter1"));
    splitter->setAccessibleName(QStringLiteral("División entre los datos y el reporte"));
    splitter->setHandleWidth(8);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(createScrollBox());
    splitter->addWidget(createReport());
    splitter->setSizes({290, 241});
    splitter->setStretchFactor(1, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(toolBar);
    column->addWidget(splitter, 1);
}

QWidget* TAnalisis::createToolBar()
{
    auto* toolBar = new QToolBar(QStringLiteral("Análisis"), this);
    toolBar->setObjectName(QStringLiteral("ToolBar1"));
    toolBar->setAccessibleName(QStringLiteral("Barra de análisis"));
    toolBar->setMinimumHeight(33);

    QToolButton* run = toolButton(QStringLiteral("SpeedButton1"), QStringLiteral("Analizar"), this);
    run->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    run->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    run->setShortcut(Qt::Key_F9);
    run->setToolTip(QStringLiteral("Ejecuta la prueba elegida (F9)"));
    connect(run, &QToolButton::clicked, this, &TAnalisis::SpeedButton1Click);

    m_ve = toolButton(QStringLiteral("ve"), QStringLiteral("Ver exacta..."), this);
    m_ve->setMinimumWidth(96);
    m_ve->setEnabled(false);

    toolBar->addSeparator();
    toolBar->addWidget(run);
    toolBar->addSeparator();
    toolBar->addWidget(m_ve);
    return toolBar;
}

QWidget* TAnalisis::createScrollBox()
{
    auto* scrollBox = new QScrollArea(this);
    scrollBox->setObjectName(QStringLiteral("ScrollBox1"));
    scrollBox->setAccessibleName(QStringLiteral("Datos y opciones"));
    scrollBox->setWidgetResizable(true);
    auto* content = new QWidget(scrollBox);
    content->setObjectName(QStringLiteral("ScrollBox1Content"));
    content->setAccessibleName(QStringLiteral("Datos y opciones"));

    auto* caption = new QLabel(QStringLiteral("DATOS A ANALIZAR"), content);
    caption->setObjectName(QStringLiteral("Label1"));
    caption->setAccessibleName(caption->text());

    m_datos = new grid::TNTabEd(m_dialogs, content);
    m_datos->setObjectName(QStringLiteral("Datos"));
    m_datos->setAccessibleName(QStringLiteral("Datos a analizar"));
    m_datos->setDefaultColWidth(64);
    m_datos->setHeaderColumnWidth(80);
    m_datos->setAutoAdvance(true);
    m_datos->setMinimumSize(200, 120);
    connect(m_datos, &grid::TNTabEd::Notice, this, &TAnalisis::statusText);

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
    auto* options = new QGroupBox(QStringLiteral("Opciones"), parent);
    options->setObjectName(QStringLiteral("GroupBox1"));
    options->setAccessibleName(options->title());
    options->setFixedWidth(198);

    m_approaches =
        new RadioGroup(QStringLiteral("RadioGroup1"), QStringLiteral("Enfoque"), options);
    m_approaches->setItems(approachCaptions());
    m_approaches->setItemIndex(0);
    m_tests = new RadioGroup(QStringLiteral("RadioGroup2"), QStringLiteral("Prueba"), options);
    m_tests->setItems(testCaptions(selectedApproach()));
    m_tests->setItemIndex(0);
    connect(m_approaches, &RadioGroup::selected, this, &TAnalisis::RadioGroup1Click);

    m_levelBar = new LevelBar(options);
    m_levelBar->setObjectName(QStringLiteral("ScrollBar1"));
    m_levelBar->setAccessibleName(QStringLiteral("Nivel de significancia, en porcentaje"));
    m_levelBar->setRange(1, 99);
    m_levelBar->setValue(95);
    connect(m_levelBar, &QScrollBar::valueChanged, this, &TAnalisis::ScrollBar1Change);
    m_level = new QLabel(levelText(m_levelBar->value()), options);
    m_level->setObjectName(QStringLiteral("LabelConf"));
    m_level->setAccessibleName(m_level->text());
    m_level->setBuddy(m_levelBar);

    auto* column = new QVBoxLayout(options);
    column->setContentsMargins(6, 4, 6, 6);
    column->addWidget(m_approaches);
    column->addWidget(m_tests);
    column->addWidget(m_level);
    column->addWidget(m_levelBar);
    column->addStretch();
    return options;
}

QWidget* TAnalisis::createReport()
{
    m_report = new QPlainTextEdit(QStringLiteral("REPORTE SIN GENERAR"), this);
    m_report->setObjectName(QStringLiteral("Reporte"));
    m_report->setAccessibleName(QStringLiteral("Reporte"));
    // A report that a stray key could change would be no evidence.
    m_report->setReadOnly(true);
    m_report->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_report->setUndoRedoEnabled(false);
    m_report->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_report->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_report->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::Monospace); // the tables need a fixed pitch where there is no Courier
    font.setPixelSize(12);
    m_report->setFont(font);
    return m_report;
}

void TAnalisis::openPendingFile(window::HandOff& handOff)
{
    handOff.fileOpened = true;
    const QString fileName = std::exchange(handOff.pendingFileName, QString());
    handOff.fileOpened = importFile(fileName);
}

void TAnalisis::openChosenFile(window::HandOff& handOff)
{
    const auto fileName =
        m_dialogs.openFileName(this, {QStringLiteral("Abrir Archivo"), QString(),
                                      QStringLiteral("asc"), QStringLiteral("ASCII|*.asc")});
    handOff.fileOpened = fileName && importFile(*fileName);
    if (!handOff.fileOpened)
        return;
    setWindowTitle(captionFor(*fileName));
    for (int column = 1; column <= m_datos->NrOfColumns(); ++column)
        m_datos->setPrecision(column, decimalsShown);
}

bool TAnalisis::importFile(const QString& fileName)
{
    const square::LoadedSquare loaded = square::loadSquare(fileName);
    if (!loaded.data) {
        showBadFile(loaded.problem);
        return false;
    }
    try {
        square::showSquare(*loaded.data, *m_datos);
    } catch (const grid::GridError& failure) {
        showBadFile(QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}

void TAnalisis::showBadFile(const QString& problem)
{
    m_dialogs.showError(this, problem, QStringLiteral("Abrir Archivo"));
}

stats::Approach TAnalisis::selectedApproach() const
{
    return stats::approaches().at(static_cast<std::size_t>(m_approaches->itemIndex()));
}

stats::TestKind TAnalisis::selectedTest() const
{
    return stats::testsOf(selectedApproach()).at(static_cast<std::size_t>(m_tests->itemIndex()));
}

stats::TMatrix TAnalisis::observations() const
{
    const int columns = m_datos->NrOfColumns();
    const int rows = m_datos->NrOfRows();
    stats::TMatrix square = stats::TMatrix::Create(columns, rows);
    for (int row = 1; row <= rows; ++row)
        for (int column = 1; column <= columns; ++column)
            square.Elem(column, row, m_datos->value(column, row));
    return square;
}

} // namespace analysis
