// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ChildWindow.h"

#include "window/Caption.h"
#include "window/Icons.h"

#include <QCloseEvent>
#include <QMenu>
#include <QPointer>

namespace window {

QString restingText()
{
    return QStringLiteral("Listo.");
}

ChildWindow::ChildWindow(const QString& name, const QString& caption, Picture picture,
                         Dialogs& dialogs, QWidget* parent)
    : QWidget(parent)
    , m_caption(caption)
    , m_dialogs(dialogs)
    , m_menu(new QMenu(this))
{
    setObjectName(name);
    setAccessibleName(caption);
    setWindowTitle(caption);
    setWindowIcon(icon(picture));
    setAttribute(Qt::WA_DeleteOnClose);
}

void ChildWindow::FormActivate()
{
    emit statusText(restingText());
}

void ChildWindow::FormDeactivate()
{
    emit statusText(restingText());
}

void ChildWindow::FormClose()
{
    emit statusText(restingText());
}

void ChildWindow::closeUnasked()
{
    const QPointer<ChildWindow> stillThere(this);
    m_wasAsked = true;
    emit closeRequested();
    if (stillThere)
        m_wasAsked = false; // who stays after all is asked the next time
}

void ChildWindow::closeEvent(QCloseEvent* event)
{
    const QPointer<ChildWindow> stillThere(this);
    event->setAccepted(m_wasAsked || mayClose());
    if (event->isAccepted() && stillThere)
        FormClose();
}

std::optional<QString> ChildWindow::save(FileRequest request, const WriteFile& write,
                                         const QString& known)
{
    const QPointer<ChildWindow> stillThere(this);
    emit notice({}); // what was told of an earlier save
    std::optional<QString> name = known;
    if (known.isEmpty())
        name = m_dialogs.saveFileName(this, request);
    while (name && stillThere) {
        const base::Outcome<base::WrittenFile> file = write(*name);
        const QString written = request.writtenName ? request.writtenName(*name) : *name;
        if (file.value) {
            tellSaved(request.savedNotice, written, file.value->notKept);
            return name;
        }
        m_dialogs.showError(
            this,
            QStringLiteral("No se pudo guardar el archivo «%1».\n%2").arg(written, file.reason),
            m_caption);
        if (!stillThere)
            break;
        request.fileName = *name;
        name = m_dialogs.saveFileName(this, request);
    }
    return std::nullopt;
}

void ChildWindow::tellSaved(const QString& form, const QString& fileName, const QString& notKept)
{
    const QString saved = form.arg(onOneLine(fileName));
    emit notice(notKept.isEmpty() ? saved : notKept + QLatin1Char(' ') + saved);
}

void ChildWindow::saveLines(const FileRequest& request, const QStringList& lines)
{
    QString text;
    for (const QString& line : lines)
        text += line + QStringLiteral("\r\n");
    save(request,
         [&text](const QString& chosen) { return base::replaceFile(chosen, text.toUtf8()); });
}

} // namespace window
