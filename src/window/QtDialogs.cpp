// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QtDialogs.h"

#include "window/FileDialog.h"

#include <QDir>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>

#include <utility>

namespace window {

namespace {

/// "ASCII|*.asc" as Qt writes it: "ASCII (*.asc)". A text that names its pattern already keeps it.
QString nameFilter(const QString& filter)
{
    const QString text = filter.section(QLatin1Char('|'), 0, 0);
    const QString pattern = filter.section(QLatin1Char('|'), 1, 1);
    return text.contains(QLatin1Char('(')) ? text : QStringLiteral("%1 (%2)").arg(text, pattern);
}

/// Names the kinds of files in plain Spanish: Qt's catalogue leaves "Folder" in English, and the
/// desktop's list of types takes a square for an encrypted letter.
class FileKinds : public QFileIconProvider {
public:
    QString type(const QFileInfo& file) const override
    {
        if (file.isDir())
            return QStringLiteral("Carpeta");
        const QString suffix = file.suffix();
        return suffix.isEmpty() ? QStringLiteral("Archivo")
                                : QStringLiteral("Archivo %1").arg(suffix.toUpper());
    }
};

/// Wide enough for what the list tells of each file; a long name is what gives way. On a small or
/// magnified screen everything gives way to the screen, with the buttons on it.
void widenFileList(QFileDialog& dialog)
{
    const int character = dialog.fontMetrics().averageCharWidth();
    const QSize wanted(character * 100, dialog.fontMetrics().height() * 26);
    const QSize titleAndBorders(2 * character, 2 * dialog.fontMetrics().height());
    dialog.resize(wanted.boundedTo(dialog.screen()->availableSize() - titleAndBorders));
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (list == nullptr)
        return;
    list->header()->setMinimumSectionSize(character * 16);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// A dialog for the time that it is open. It may go before that, along with its parent.
template <typename Dialog>
class Modal {
public:
    template <typename... Arguments>
    explicit Modal(Arguments&&... arguments)
        : m_dialog(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ~Modal() { delete m_dialog; }
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    Dialog* operator->() const { return m_dialog; }
    Dialog& operator*() const { return *m_dialog; }

    /// @return whether it was answered, in whatever way, and is still there
    bool run()
    {
        m_dialog->exec();
        return m_dialog != nullptr;
    }
    bool isAccepted() { return run() && m_dialog->result() == QDialog::Accepted; }

private:
    QPointer<Dialog> m_dialog;
};

std::optional<QString> runFileDialog(Dialogs& dialogs, QWidget* parent, const FileRequest& request,
                                     QFileDialog::AcceptMode mode)
{
    FileKinds kinds; // outlives the dialog
    Modal<FileDialog> dialog(dialogs, parent, request.title, mode, request.suffix);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !request.confirmOverwrite);
    dialog->setIconProvider(&kinds);
    if (auto* splitter = dialog->findChild<QSplitter*>())
        splitter->setAccessibleName(QStringLiteral("Lugares y archivos"));
    dialog->setNameFilter(nameFilter(request.filter));
    widenFileList(*dialog);
    if (!request.fileName.isEmpty())
        dialog->offerName(request.fileName);
    if (!dialog.isAccepted())
        return std::nullopt;
    return dialog->chosenFile();
}

/// Says what the picture of a box says to those who see it.
void namePicture(const QMessageBox& box, const QString& name)
{
    if (auto* picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
        picture->setAccessibleName(name);
}

/// As Qt's own file dialog asks: the Return that confirmed the name, pressed twice, overwrites
/// nothing.
bool agreesToOverwrite(Dialogs& dialogs, QWidget* parent, const QString& fileName,
                       const QString& title)
{
    const QFileInfo file(fileName);
    const QString question = QStringLiteral("El archivo «%1» ya existe.\n¿Desea reemplazarlo?");
    return !file.exists() || dialogs.askYesNo(parent, question.arg(file.fileName()), title,
                                              Answer::No) == Answer::Yes;
}

QString missingFolder(const QString& fileName)
{
    return QStringLiteral("La carpeta «%1» no existe.").arg(QFileInfo(fileName).absolutePath());
}

} // namespace

void QtDialogs::showError(QWidget* parent, const QString& text, const QString& caption)
{
    Modal<QMessageBox> box(QMessageBox::Critical, caption, text, QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    namePicture(*box, QStringLiteral("Error"));
    box.run();
}

Answer QtDialogs::askYesNo(QWidget* parent, const QString& text, const QString& caption,
                           Answer ofReturn)
{
    Modal<QMessageBox> box(QMessageBox::Question, caption, text, QMessageBox::NoButton, parent);
    box->setTextFormat(Qt::PlainText);
    namePicture(*box, QStringLiteral("Pregunta"));
    // Neither button takes the reject role, so Escape and the box's close button answer nothing.
    QPushButton* yes = box->addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    QPushButton* no = box->addButton(QStringLiteral("&No"), QMessageBox::DestructiveRole);
    box->setDefaultButton(ofReturn == Answer::Yes ? yes : no);
    if (!box.run())
        return Answer::None;
    const QAbstractButton* clicked = box->clickedButton();
    return clicked == yes ? Answer::Yes : clicked == no ? Answer::No : Answer::None;
}

std::optional<QString> QtDialogs::openFileName(QWidget* parent, const FileRequest& request)
{
    return runFileDialog(*this, parent, request, QFileDialog::AcceptOpen);
}

/// The dialog comes back, with the name, after a name that cannot be taken.
std::optional<QString> QtDialogs::saveFileName(QWidget* parent, const FileRequest& request)
{
    const QPointer<QWidget> stillThere(parent);
    FileRequest next = request;
    // The file dialog would ask about the name as it was chosen.
    const bool asksHere = request.confirmOverwrite && request.writtenName;
    next.confirmOverwrite = request.confirmOverwrite && !asksHere;
    while (const std::optional<QString> chosen =
               runFileDialog(*this, parent, next, QFileDialog::AcceptSave)) {
        if (!QFileInfo(*chosen).dir().exists())
            showError(parent, missingFolder(*chosen), request.title);
        else if (!asksHere ||
                 agreesToOverwrite(*this, parent, request.writtenName(*chosen), request.title))
            return chosen;
        if (parent != nullptr && stillThere == nullptr)
            return std::nullopt;
        next.fileName = *chosen;
    }
    return std::nullopt;
}

std::optional<QString> QtDialogs::editLine(QWidget* parent, const QString& caption,
                                           const QString& label, const QString& text)
{
    Modal<QInputDialog> dialog(parent);
    dialog->setWindowTitle(caption);
    dialog->setLabelText(label);
    dialog->setTextValue(text);
    dialog->resize(dialog->fontMetrics().averageCharWidth() * 80, dialog->sizeHint().height());
    return dialog.isAccepted() ? std::optional(dialog->textValue()) : std::nullopt;
}

std::optional<int> QtDialogs::editInteger(QWidget* parent, const QString& caption,
                                          const QString& label, int value, int low, int high)
{
    Modal<QInputDialog> dialog(parent);
    dialog->setInputMode(QInputDialog::IntInput);
    dialog->setWindowTitle(caption);
    dialog->setLabelText(label);
    dialog->setIntRange(low, high);
    dialog->setIntValue(value);
    return dialog.isAccepted() ? std::optional(dialog->intValue()) : std::nullopt;
}

} // namespace window
