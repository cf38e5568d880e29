// SPDX-License-Identifier: GPL-3.0-or-later
// The second file of Formeditor: its look, controls and menu, and what they call.
#include "square/editor/Formeditor.h"

#include "controls/Named.h"
#include "controls/UpDown.h"
#include "grid/view/NTabEd.h"
#include "record/SquareData.h"
#include "square/editor/PrefixValidator.h"
#include "square/editor/TablePanes.h"
#include "square/extraction/ExtractionAnswer.h"
#include "square/extraction/TreatmentKey.h"
#include "window/Command.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace square {

namespace {

constexpr int lowestOrder = 3;
constexpr int highestOrder = 6;

/// A prefix leaves room for a blank and a number of three digits in the name made of it.
constexpr int longestPrefix = record::longestName - 4;

constexpr int treatmentWidth = 32; // pixels

/// An edit whose changes are undone and redone with all others of the editor.
class PrefixEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return QLineEdit::event(event);
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isEditors = key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
        event->setAccepted(false);
        return isEditors || QLineEdit::event(event);
    }
};

QLineEdit* prefixEdit(const QString& name, const QString& text, const QString& accessibleName)
{
    auto* edit = controls::named(new PrefixEdit(text), name, accessibleName);
    edit->setMaxLength(longestPrefix);
    edit->setValidator(new PrefixValidator(edit));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 10);
    edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * 30);
    return edit;
}

/// How to come by a table of this size, where the orders reach as far.
QString orderAdvice(int columns, int rows)
{
    const int order = std::max(columns, rows);
    return order <= highestOrder ? QStringLiteral("suba «Num. Tratamientos» a %1").arg(order)
                                 : QString();
}

} // namespace

/// Both tables whole, as far as the screen has room for them.
QSize TEditor::sizeHint() const
{
    constexpr QSize least(640, 400);
    const QSize most = screen()->availableSize() * 0.9;
    constexpr int optionsHeight = 110;
    constexpr int around = 60; // pixels for margins, the divider and a scroll bar
    const QSize wanted = m_panes->wholeSize() + QSize(around, optionsHeight + around);
    return wanted.boundedTo(most).expandedTo(least);
}

void TEditor::createControls()
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createOptions());
    layout->addWidget(createPanes(), 1);
    setTabOrder(m_numTratamientos, m_nFilas);
    setTabOrder(m_nFilas, m_nColumnas);
    setTabOrder(m_nColumnas, m_datos);
    setTabOrder(m_datos, m_refTratamientos);
}

QWidget* TEditor::createOptions()
{
    const QString order = QStringLiteral("Número de tratamientos");
    m_numTratamientos = controls::named(
        new controls::UpDown(lowestOrder, highestOrder, 1, controls::UpDown::Typing::Nothing),
        QStringLiteral("NumTratamientos"), order);
    controls::named(m_numTratamientos->edit(), QStringLiteral("Edit1"), order);
    m_rowPrefix = QStringLiteral("Fila");
    m_columnPrefix = QStringLiteral("Col");
    m_nFilas = prefixEdit(QStringLiteral("NFilas"), m_rowPrefix, QStringLiteral("Nombre de filas"));
    m_nColumnas = prefixEdit(QStringLiteral("NColumnas"), m_columnPrefix,
                             QStringLiteral("Nombre de columnas"));

    const QString title = QStringLiteral("Opciones de Datos");
    auto* group = controls::named(new QGroupBox(title), QStringLiteral("OpcionesDeDatos"), title);
    auto* layout = new QHBoxLayout(group);
    layout->addWidget(controls::labelOf(m_numTratamientos, QStringLiteral("Num. Tratamientos")));
    layout->addWidget(m_numTratamientos);
    layout->addSpacing(12);
    layout->addWidget(controls::labelOf(m_nFilas, QStringLiteral("Nombre Filas")));
    layout->addWidget(m_nFilas, 1);
    layout->addSpacing(12);
    layout->addWidget(controls::labelOf(m_nColumnas, QStringLiteral("Nombre Columnas")));
    layout->addWidget(m_nColumnas, 1);
    layout->addStretch();
    return group;
}

QWidget* TEditor::createPanes()
{
    m_datos = controls::named(new grid::TNTabEd(dialogs()), QStringLiteral("Datos"),
                              QStringLiteral("Datos"));
    m_datos->setExtractor(extractionAnswer([this] { return replacementWarning(); }));
    m_datos->setSizeAdvice(orderAdvice);
    m_refTratamientos =
        controls::named(new grid::TNTabEd(dialogs()), QStringLiteral("RefTratamientos"),
                        QStringLiteral("Referencia: tratamientos"));
    m_refTratamientos->setDefaultColWidth(treatmentWidth);
    m_refTratamientos->setAutoAdvance(false);
    m_refTratamientos->setReadOnly(true);
    m_refTratamientos->setCellTip(
        [this](int column, int row) { return treatmentTip(column, row); });

    m_panes = controls::named(new TablePanes(*m_datos, QStringLiteral("DATOS"), *m_refTratamientos,
                                             QStringLiteral("REFERENCIA: TRATAMIENTOS")),
                              QStringLiteral("Splitter1"), QStringLiteral("Datos y tratamientos"));
    return m_panes;
}

/// "1 = A" for a cell of the reference, where the treatments have names.
QString TEditor::treatmentTip(int column, int row) const
{
    // A key in the identifier may have been corrected since.
    const QStringList inIdentifier = treatmentsIn(m_datos->Identifier());
    const QStringList names = inIdentifier.isEmpty() ? m_datos->treatments() : inIdentifier;
    if (names.size() != m_refTratamientos->NrOfColumns())
        return {};
    const int treatment = static_cast<int>(m_refTratamientos->value(column, row));
    return QStringLiteral("%1 = %2").arg(QString::number(treatment), names.value(treatment - 1));
}

void TEditor::createMenu()
{
    using window::addEntry;
    using window::Picture;
    menu()->setTitle(QStringLiteral("E&ditor"));
    menu()->setObjectName(QStringLiteral("Editor1"));
    addEntry(*menu(),
             {QStringLiteral("Cargar1"), QStringLiteral("&Cargar..."),
              QStringLiteral("Trae a este editor un cuadrado guardado"), Picture::Open, Qt::Key_F3},
             this, &TEditor::Cargar1Click);
    addEntry(*menu(),
             {QStringLiteral("Guardar1"), QStringLiteral("&Guardar..."),
              QStringLiteral("Guarda el cuadrado en su archivo"), Picture::Save, Qt::Key_F2},
             this, &TEditor::Guardar1Click);
    addEntry(*menu(),
             {QStringLiteral("GuardaryAnalizar1"), QStringLiteral("Guardar y &Analizar..."),
              QStringLiteral("Guarda el cuadrado y abre su análisis en lugar del editor"),
              Picture::SaveAndAnalyse},
             this, &TEditor::GuardaryAnalizar1Click);
}

/// Undoing and redoing wherever in the editor the keyboard is; the table has the same keys itself.
void TEditor::createShortcuts()
{
    const auto add = [this](const QList<QKeySequence>& keys, void (grid::TNTabEd::*step)()) {
        auto* shortcut = new QShortcut(this);
        shortcut->setKeys(keys);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, m_datos, step);
    };
    add(QKeySequence::keyBindings(QKeySequence::Undo), &grid::TNTabEd::undo);
    QList<QKeySequence> redo = QKeySequence::keyBindings(QKeySequence::Redo);
    if (const QKeySequence second(Qt::CTRL | Qt::Key_Y); !redo.contains(second))
        redo << second;
    add(redo, &grid::TNTabEd::redo);
}

void TEditor::connectControls()
{
    connect(m_numTratamientos, &controls::UpDown::Click, this, &TEditor::NumTratamientosClick);
    connect(m_nFilas, &QLineEdit::textChanged, this, &TEditor::NFilasChange);
    connect(m_nColumnas, &QLineEdit::textChanged, this, &TEditor::NColumnasChange);
    connect(m_datos, &grid::TNTabEd::OnChange, this, &TEditor::DatosChange);
    connect(m_datos, &grid::TNTabEd::TableResized, this, &TEditor::DatosResized);
    connect(m_datos, &grid::TNTabEd::Edited, this, [this] { emit notice({}); });
    connect(m_datos, &grid::TNTabEd::Notice, this, &TEditor::notice);
    connect(m_refTratamientos, &grid::TNTabEd::Notice, this, &TEditor::notice);
    const auto pointAtTreatment = [this](const QModelIndex& cursor) {
        m_refTratamientos->pointAt(cursor.column() + 1, cursor.row() + 1);
    };
    connect(m_datos->selectionModel(), &QItemSelectionModel::currentChanged, this,
            pointAtTreatment);
    pointAtTreatment(m_datos->currentIndex());
}

} // namespace square
