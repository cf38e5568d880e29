// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QtDialogs.h"

#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>

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

/// Wide enough for what the list tells of each file; a long name is what gives way.
void widenFileList(QFileDialog& dialog)
{
    const int character = dialog.fontMetrics().averageCharWidth();
    dialog.resize(character * 100, dialog.fontMetrics().height() * 26);
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (list == nullptr)
        return;
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

std::optional<QString> runFileDialog(QWidget* parent, const FileRequest& request,
                                     QFileDialog::AcceptMode mode)
{
    FileKinds kinds; // outlives the dialog
    QFileDialog dialog(parent, request.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.confirmOverwrite);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    dialog.setIconProvider(&kinds);
    if (auto* splitter = dialog.findChild<QSplitter*>())
        splitter->setAccessibleName(QStringLiteral("Lugares y archivos"));
    dialog.setNameFilter(nameFilter(request.filter));
    dialog.setDefaultSuffix(request.suffix);
    widenFileList(dialog);
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

/// Says what the picture of a box says to those who see it.
void namePicture(const QMessageBox& box, const QString& name)
{
    if (auto* picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
        picture->setAccessibleName(name);
}

} // namespace

void QtDialogs::showError(QWidget* parent, const QString& text, const QString& caption)
{
    QMessageBox box(QMessageBox::Critical, caption, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    namePicture(box, QStringLiteral("Error"));
    box.exec();
}

bool QtDialogs::askYesNo(QWidget* parent, const QString& text, const QString& caption)
{
    QMessageBox box(QMessageBox::Question, caption, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    namePicture(box, QStringLiteral("Pregunta"));
    // Neither button takes the reject role, so Escape and the box's close button answer nothing.
    const QPushButton* yes = box.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    box.addButton(QStringLiteral("&No"), QMessageBox::DestructiveRole);
    while (box.clickedButton() == nullptr)
        box.exec();
    return box.clickedButton() == yes;
}

std::optional<QString> QtDialogs::openFileName(QWidget* parent, const FileRequest& request)
{
    return runFileDialog(parent, request, QFileDialog::AcceptOpen);
}

std::optional<QString> QtDialogs::saveFileName(QWidget* parent, const FileRequest& request)
{
    if (request.confirmOverwrite && request.writtenName)
        return saveUnderWrittenName(parent, request);
    return runFileDialog(parent, request, QFileDialog::AcceptSave);
}

/// The file dialog would ask about the name as it was chosen, so the question is put after it; on
/// No the dialog comes back with that name.
std::optional<QString> QtDialogs::saveUnderWrittenName(QWidget* parent, const FileRequest& request)
{
    FileRequest unasked = request;
    unasked.confirmOverwrite = false;
    while (const std::optional<QString> chosen = saveFileName(parent, unasked)) {
        const QFileInfo target(request.writtenName(*chosen));
        if (!target.exists() ||
            askYesNo(parent,
                     QStringLiteral("El archivo «%1» ya existe.\n¿Desea reemplazarlo?")
                         .arg(target.fileName()),
                     request.title))
            return chosen;
        unasked.fileName = *chosen;
    }
    return std::nullopt;
}

std::optional<QString> QtDialogs::editLine(QWidget* parent, const QString& caption,
                                           const QString& label, const QString& text)
{
    QInputDialog dialog(parent);
    dialog.setWindowTitle(caption);
    dialog.setLabelText(label);
    dialog.setTextValue(text);
    dialog.resize(dialog.fontMetrics().averageCharWidth() * 80, dialog.sizeHint().height());
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.textValue()) : std::nullopt;
}

std::optional<int> QtDialogs::editInteger(QWidget* parent, const QString& caption,
                                          const QString& label, int value, int low, int high)
{
    bool accepted = false;
    const int edited = QInputDialog::getInt(parent, caption, label, value, low, high, 1, &accepted);
    return accepted ? std::optional(edited) : std::nullopt;
}

} // namespace window
