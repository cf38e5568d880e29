// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/Formeditor.h"

#include "base/SafeFile.h"
#include "controls/UpDown.h"
#include "grid/view/NTabEd.h"
#include "square/editor/GridFile.h"
#include "square/file/LoadedSquare.h"
#include "window/Caption.h"
#include "window/HandOff.h"
#include "window/OpenQuestion.h"
#include "window/Picture.h"

#include <QLineEdit>
#include <QPointer>

#include <utility>

namespace square {

namespace {

constexpr int observationDecimals = 3;
constexpr int treatmentDecimals = 0;

QString invitation()
{
    return QStringLiteral("Puede manejar archivos de datos para el análisis aquí. Para analizar "
                          "los datos actuales use la opción 'Guardar y Analizar'");
}

QString savedNotice(bool rounded)
{
    static_assert(fileDigits == 8);
    return rounded ? QStringLiteral("Guardado con 8 cifras significativas de cada dato: %1")
                   : window::FileRequest().savedNotice;
}

QString changedElsewhere(const QString& fileName)
{
    return QStringLiteral("El archivo «%1» cambió desde que este editor lo cargó o lo guardó.\n"
                          "¿Desea reemplazarlo?")
        .arg(fileName);
}

window::FileRequest squareFileRequest(const QString& title)
{
    window::FileRequest request;
    request.title = title;
    request.suffix = QStringLiteral("asc");
    request.filter = QStringLiteral("ASCII|*.asc");
    return request;
}

QString numbered(const QString& prefix, int number)
{
    return QStringLiteral("%1 %2").arg(prefix, QString::number(number));
}

} // namespace

TEditor::TEditor(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent)
    : ChildWindow(QStringLiteral("Editor"), QStringLiteral("Editor"), window::Picture::Editor,
                  dialogs, parent)
    , m_handOff(handOff)
{
    createControls();
    createMenu();
    connectControls();

    const bool openOnCreate = std::exchange(m_handOff.openOnCreate, false);
    FormCreate(openOnCreate);
    // Without a file the editor goes again, and the keyboard stays where it was.
    if (m_handOff.fileOpened)
        m_datos->setFocus();
}

void TEditor::FormCreate(bool openFile)
{
    if (openFile) {
        m_saved = true; // unless a file is loaded there is nothing here to ask about
        loadFile();
        return;
    }
    m_handOff.fileOpened = true;
    setOrder(m_numTratamientos->Position());
}

void TEditor::FormActivate()
{
    const QString notice = shapeNotice(m_datos->NrOfColumns(), m_datos->NrOfRows());
    emit statusText(notice.isEmpty() ? invitation() : notice);
}

void TEditor::FormClose()
{
    if (!m_handedOver) // the analysis window has the status line now
        emit statusText(QStringLiteral("Listo"));
}

bool TEditor::mayClose()
{
    if (!m_datos->commitEdit())
        return false;
    if (m_saved)
        return true;
    emit frontRequested();
    switch (
        dialogs().askYesNo(this, QStringLiteral("Desea guardar los cambios?"), plainCaption())) {
    case window::Answer::Yes:
        return saveFile();
    case window::Answer::No:
        return true;
    default:
        return false;
    }
}

void TEditor::Cargar1Click()
{
    if (m_datos->commitEdit())
        loadFile();
}

void TEditor::Guardar1Click()
{
    if (m_datos->commitEdit())
        saveFile();
}

void TEditor::GuardaryAnalizar1Click()
{
    if (!m_datos->commitEdit() || !saveFile())
        return;
    m_handOff.pendingFileName = m_fileName;
    m_handOff.fileOpened = false;
    const QPointer<TEditor> stillThere(this); // whoever answers may delete the editor
    emit analysisRequested();
    if (!stillThere)
        return;
    m_handOff.pendingFileName.clear();
    // The file may have been written and yet not be readable: then the square is only here.
    if (!m_handOff.fileOpened)
        return;
    m_handedOver = true;
    if (m_fileIsRounded) // the analysis has greeted its user since that was told
        tellFile();
    closeUnasked();
}

void TEditor::NumTratamientosClick()
{
    const QPointer<TEditor> stillThere(this);
    if (!window::isAsking() && m_datos->commitEdit())
        setOrder(m_numTratamientos->Position());
    else if (stillThere)
        m_numTratamientos->setPosition(m_refTratamientos->NrOfColumns());
}

void TEditor::NFilasChange()
{
    if (!takePrefix(*m_nFilas, m_rowPrefix))
        return;
    nameRows(*m_refTratamientos);
    nameRows(*m_datos);
}

void TEditor::NColumnasChange()
{
    if (!takePrefix(*m_nColumnas, m_columnPrefix))
        return;
    nameColumns(*m_refTratamientos);
    nameColumns(*m_datos);
}

void TEditor::DatosChange()
{
    m_saved = false;
}

void TEditor::aleatorizar()
{
    const grid::Freeze freeze(*m_refTratamientos);
    const int n = m_refTratamientos->NrOfColumns();
    for (int row = 1; row <= n; ++row) {
        int treatment = row;
        for (int column = 1; column <= n; ++column) {
            m_refTratamientos->setValue(column, row, treatment);
            treatment = treatment < n ? treatment + 1 : 1;
        }
    }
}

/// Asks for a file and shows it. @return whether it is there; otherwise nothing has changed
bool TEditor::loadFile()
{
    m_handOff.fileOpened = false;
    const std::optional<QString> fileName =
        dialogs().openFileName(dialogParent(), squareFileRequest(QStringLiteral("Abrir Archivo")));
    if (!fileName)
        return false;
    base::Outcome<LoadedSquare> loaded = loadSquare(*fileName);
    const QString problem =
        loaded.value ? showLoaded(std::move(loaded.value->square)) : loaded.reason;
    if (!problem.isEmpty()) {
        dialogs().showError(dialogParent(), problem, QStringLiteral("Abrir Archivo"));
        return false;
    }
    m_handOff.fileOpened = true;
    rememberFile(*fileName, loaded.value->fingerprint, false);
    FormActivate(); // the status line speaks of the new square
    return true;
}

/// Shows a square that was read, with its treatments beside it, all or nothing.
/// @return what stood in the way
QString TEditor::showLoaded(record::SquareData square)
{
    const int order = square.NrOfColumns();
    const int previousOrder = m_refTratamientos->NrOfColumns();
    try {
        m_refTratamientos->resizeTable(order, order);
        m_datos->setSquare(std::move(square));
    } catch (const grid::GridError& error) {
        m_refTratamientos->resizeTable(previousOrder, previousOrder);
        return QString::fromUtf8(error.what());
    }
    m_numTratamientos->setPosition(order);
    setPrecisions();
    aleatorizar();
    return {};
}

/// Writes the square to its file, or to one that the user is asked for. A file that holds it
/// already is left alone; one that another editor or program has written to since is not replaced
/// without a question.
/// @return whether a file holds the square now
bool TEditor::saveFile()
{
    const QByteArray onDisk = base::fingerprint(m_fileName);
    const bool canCompare = !onDisk.isEmpty() && !m_fileFingerprint.isEmpty();
    if (m_saved && canCompare && onDisk == m_fileFingerprint) {
        tellFile();
        return true;
    }
    QString known = m_fileName;
    if (canCompare && onDisk != m_fileFingerprint) {
        const window::Answer answer =
            dialogs().askYesNo(this, changedElsewhere(m_fileName), plainCaption());
        if (answer == window::Answer::None)
            return false;
        if (answer == window::Answer::No)
            known.clear();
    }
    window::FileRequest request = squareFileRequest(QStringLiteral("Guardar Archivo"));
    request.fileName = m_fileName;
    bool rounded = false;
    const auto write = [this, &rounded](const QString& chosen) {
        const base::Outcome<bool> written = Export(*m_datos, chosen);
        rounded = written.value.value_or(false);
        return written.problem();
    };
    const std::optional<QString> fileName = save(request, write, known);
    if (!fileName)
        return false;
    rememberFile(*fileName, base::fingerprint(*fileName), rounded);
    if (rounded)
        tellFile();
    return true;
}

void TEditor::rememberFile(const QString& fileName, const QByteArray& fingerprint, bool rounded)
{
    m_fileName = fileName;
    m_fileFingerprint = fingerprint;
    m_fileIsRounded = rounded;
    setWindowTitle(window::fileCaption(plainCaption(), fileName));
    m_saved = true;
}

/// Tells the user that the file holds the square.
void TEditor::tellFile()
{
    tellSaved(savedNotice(m_fileIsRounded), m_fileName);
}

/// A new order for both grids, with the headers named after the prefixes.
void TEditor::setOrder(int order)
{
    m_refTratamientos->resizeTable(order, order);
    m_datos->resizeTable(order, order);
    m_saved = false;
    setPrecisions();
    for (grid::TNTabEd* const table : {m_refTratamientos, m_datos}) {
        nameColumns(*table);
        nameRows(*table);
    }
    aleatorizar();
}

/// The user brought a whole experiment into the grid: everything around it follows.
void TEditor::DatosResized(int columns)
{
    m_refTratamientos->resizeTable(columns, columns);
    m_numTratamientos->setPosition(columns);
    setPrecisions();
    nameColumns(*m_refTratamientos);
    nameRows(*m_refTratamientos);
    aleatorizar();
}

void TEditor::setPrecisions()
{
    for (int column = 1; column <= m_refTratamientos->NrOfColumns(); ++column) {
        m_refTratamientos->setPrecision(column, treatmentDecimals);
        m_datos->setPrecision(column, observationDecimals);
    }
}

/// @return whether the user has changed the prefix
bool TEditor::takePrefix(QLineEdit& edit, QString& prefix)
{
    // A character that the edit refuses comes here too, without a change.
    if (edit.text() == prefix)
        return false;
    if (window::isAsking()) {
        edit.setText(prefix);
        return false;
    }
    prefix = edit.text();
    m_saved = false;
    emit notice({});
    return true;
}

void TEditor::nameColumns(grid::TNTabEd& table) const
{
    const grid::Freeze freeze(table);
    for (int column = 1; column <= table.NrOfColumns(); ++column)
        table.setColumnName(column, numbered(m_columnPrefix, column));
}

void TEditor::nameRows(grid::TNTabEd& table) const
{
    const grid::Freeze freeze(table);
    for (int row = 1; row <= table.NrOfRows(); ++row)
        table.setRowName(row, numbered(m_rowPrefix, row));
}

/// While the editor is being created its dialogs stand over what will hold it.
QWidget* TEditor::dialogParent()
{
    return isVisible() ? this : parentWidget();
}

} // namespace square
