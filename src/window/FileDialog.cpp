// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FileDialog.h"

#include "window/Dialogs.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

#include <unistd.h>

namespace window {

namespace {

QString withoutBlanksAtTheEnd(QString name)
{
    while (!name.isEmpty() && name.back().isSpace())
        name.chop(1);
    return name;
}

bool isFile(const QString& path)
{
    return QFileInfo(path).isFile();
}

} // namespace

FileDialog::FileDialog(Dialogs& dialogs, QWidget* parent, const QString& title, AcceptMode mode,
                       const QString& suffix)
    : QFileDialog(parent, title)
    , m_dialogs(dialogs)
{
    setOption(DontUseNativeDialog);
    setAcceptMode(mode);
    setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
    setDefaultSuffix(suffix);
    if (const QLineEdit* edit = nameEdit())
        connect(edit, &QLineEdit::textChanged, this, &FileDialog::nameTyped);
}

/// As it is where its folder does not exist and the dialog has nothing to show for it.
void FileDialog::offerName(const QString& fileName)
{
    QLineEdit* edit = nameEdit();
    if (edit == nullptr || QFileInfo(fileName).dir().exists()) {
        selectFile(fileName);
        return;
    }
    edit->setText(fileName);
    edit->selectAll();
}

void FileDialog::accept()
{
    QLineEdit* edit = nameEdit();
    if (edit == nullptr) {
        QFileDialog::accept();
        return;
    }
    const QString problem = obstacle();
    if (!problem.isEmpty()) {
        m_dialogs.showError(this, problem, windowTitle());
        return;
    }
    const QString name = meantName();
    if (acceptMode() == AcceptOpen && isFile(pathOf(name))) {
        m_named = QDir::cleanPath(pathOf(name));
        done(Accepted);
        return;
    }
    if (name != edit->text())
        edit->setText(name);
    QFileDialog::accept();
}

QString FileDialog::chosenFile() const
{
    return m_named.isEmpty() ? selectedFiles().constFirst() : m_named;
}

QLineEdit* FileDialog::nameEdit() const
{
    return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// Where a typed name leads, home folder included.
QString FileDialog::pathOf(const QString& name) const
{
    return name.startsWith(QStringLiteral("~/")) ? QDir::homePath() + name.mid(1)
                                                 : directory().absoluteFilePath(name);
}

/// The typed name without blanks at its end, which nobody sees: with them a suffix is no longer the
/// one that the dialogs show. A file that has them in its name can still be named.
QString FileDialog::meantName() const
{
    const QString typed = nameEdit()->text();
    return isFile(pathOf(typed)) ? typed : withoutBlanksAtTheEnd(typed);
}

/// Why the typed name cannot be taken; empty where it can. Between two quotation marks Qt looks for
/// one of several names, and would save under another name than the one that was typed.
QString FileDialog::obstacle() const
{
    if (nameEdit()->text().contains(QLatin1Char('"')))
        return QStringLiteral("El nombre de un archivo no puede llevar aquí comillas («\"»).");
    if (isTooLong())
        return QStringLiteral("El nombre del archivo es demasiado largo.");
    return {};
}

bool FileDialog::isTooLong() const
{
    const QFileInfo file(pathOf(meantName()));
    const auto limit = pathconf(QFile::encodeName(file.absolutePath()).constData(), _PC_NAME_MAX);
    return limit > 0 && QFile::encodeName(file.fileName()).size() > limit;
}

/// Qt disables the button, whose key does nothing then, of a name that is too long, and of one that
/// would not be there with a suffix.
void FileDialog::nameTyped(const QString& name)
{
    if (!isTooLong() && (acceptMode() == AcceptSave || !isFile(pathOf(name))))
        return;
    for (QAbstractButton* button : findChild<QDialogButtonBox*>()->buttons())
        button->setEnabled(true);
}

} // namespace window
