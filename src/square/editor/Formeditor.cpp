// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/Formeditor.h"

#include "base/SafeFile.h"
#include "controls/UpDown.h"
#include "grid/view/NTabEd.h"
#include "square/editor/GridFile.h"
#include "square/file/LoadedSquare.h"
#include "window/Caption.h"
#include "window/HandOff.h"
#include "window/Picture.h"

#include <QFileInfo>
#include <QPointer>

#include <utility>

namespace square {

namespace {

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

} // namespace

TEditor::TEditor(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent)
    : ChildWindow(QStringLiteral("Editor"), QStringLiteral("Editor"), window::Picture::Editor,
                  dialogs, parent)
    , m_handOff(handOff)
{
    createControls();
    createMenu();
    createShortcuts();
    connectControls();

    const bool openOnCreate = std::exchange(m_handOff.openOnCreate, false);
    FormCreate(openOnCreate);
    m_datos->clearHistory();
    // Without a file the editor goes again, and the keyboard stays where it was.
    if (m_handOff.fileOpened)
        m_datos->setFocus();
}

void TEditor::FormCreate(bool openFile)
{
    if (openFile) {
        m_file.saved = true; // unless a file is loaded there is nothing here to ask about
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
    if (m_file.saved)
        return true;
    emit frontRequested();
    switch (dialogs().askYesNo(this, QStringLiteral("Desea guardar los cambios?"), plainCaption(),
                               window::Answer::Yes)) {
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
    m_handOff.pendingFileName = m_file.name;
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
    if (m_file.rounded ||
        !m_file.notKept.isEmpty()) // the analysis has greeted its user since that was told
        tellFile();
    closeUnasked();
}

void TEditor::DatosChange()
{
    m_file.saved = false;
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
    const QString problem = loaded.value
                                ? showLoaded(std::move(loaded.value->square),
                                             {*fileName, loaded.value->fingerprint, false, true})
                                : loaded.reason;
    if (!problem.isEmpty()) {
        dialogs().showError(dialogParent(), problem, QStringLiteral("Abrir Archivo"));
        return false;
    }
    m_handOff.fileOpened = true;
    return true;
}

/// Another file in the place of this one.
void TEditor::exchangeFile(File& other)
{
    std::swap(m_file, other);
    showFileName();
}

/// What was saved may have been written over since.
void TEditor::compareWithDisk()
{
    m_file.saved = m_file.saved && !m_file.fingerprint.isEmpty() &&
                   base::fingerprint(m_file.name) == m_file.fingerprint;
}

/// Writes the square to its file, or to one that the user is asked for. A file that holds it
/// already is left alone; one that another editor or program has written to since is not replaced
/// without a question.
/// @return whether a file holds the square now
bool TEditor::saveFile()
{
    const QByteArray onDisk = base::fingerprint(m_file.name);
    const bool canCompare = !onDisk.isEmpty() && !m_file.fingerprint.isEmpty();
    if (m_file.saved && canCompare && onDisk == m_file.fingerprint) {
        tellFile();
        return true;
    }
    QString known = m_file.name;
    if (canCompare && onDisk != m_file.fingerprint) {
        const window::Answer answer = dialogs().askYesNo(this, changedElsewhere(m_file.name),
                                                         plainCaption(), window::Answer::No);
        if (answer == window::Answer::None)
            return false;
        if (answer == window::Answer::No)
            known.clear();
    }
    window::FileRequest request = squareFileRequest(QStringLiteral("Guardar Archivo"));
    request.fileName = m_file.name;
    ExportedSquare exported;
    const auto write = [this, &exported](const QString& chosen) {
        using Written = base::Outcome<base::WrittenFile>;
        const base::Outcome<ExportedSquare> outcome = Export(*m_datos, chosen);
        if (!outcome.value)
            return Written::refused(outcome.reason);
        exported = *outcome.value;
        return Written::of({exported.notKept});
    };
    const std::optional<QString> fileName = save(request, write, known);
    if (!fileName)
        return false;
    m_file = {*fileName, exported.fingerprint, exported.rounded, true, exported.notKept};
    showFileName();
    if (exported.rounded)
        tellFile();
    return true;
}

void TEditor::showFileName()
{
    setWindowTitle(m_file.name.isEmpty() ? plainCaption()
                                         : window::fileCaption(plainCaption(), m_file.name));
}

/// Tells the user that the file holds the square.
void TEditor::tellFile()
{
    tellSaved(savedNotice(m_file.rounded), m_file.name, m_file.notKept);
}

/// Another experiment has come into the grid, whose file holds the one before.
QString TEditor::replacementWarning() const
{
    return m_file.name.isEmpty() ? QString()
                                 : QStringLiteral("Al guardar reemplazará «%1».")
                                       .arg(QFileInfo(m_file.name).fileName());
}

/// While the editor is being created its dialogs stand over what will hold it.
QWidget* TEditor::dialogParent()
{
    return isVisible() ? this : parentWidget();
}

} // namespace square
