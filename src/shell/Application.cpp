// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Application.h"

#include "shell/PartNames.h"
#include "shell/Style.h"
#include "window/Dialogs.h"
#include "window/OpenQuestion.h"

#include <QKeyEvent>
#include <QLibraryInfo>
#include <QSettings>
#include <QWidget>

#include <csignal>
#include <exception>
#include <new>

namespace shell {

namespace {

/// Ctrl+Y, which redoes in spreadsheets.
bool isSecondRedoKey(const QEvent& event)
{
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
           static_cast<const QKeyEvent&>(event).keyCombination() == (Qt::CTRL | Qt::Key_Y);
}

} // namespace

Application::Application(int& argc, char** argv, window::Dialogs& dialogs)
    : QApplication(argc, argv)
    , m_dialogs(dialogs)
{
    setApplicationName(QStringLiteral("Cuadrado Latino"));
    setDesktopFileName(QStringLiteral("cuadrado-latino"));
    // A file that grows beyond the size that the system allows is a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    // Qt's file dialog would keep its last folder in a settings file; below a device no file can be
    // made, so nothing is kept.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    m_spanish.loadFrom(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    installTranslator(&m_spanish);
    setStyle(new Style);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (window::isBehindQuestion(*receiver, *event)) {
        event->ignore();
        window::showQuestion();
        return true;
    }
    // Comes to each widget once, before it is first shown.
    if (event->type() == QEvent::Polish && receiver->isWidgetType())
        namePart(static_cast<QWidget&>(*receiver));
    const auto fail = [this, event](const QString& why) {
        event->ignore(); // above all a close: it asked, and could not save
        m_dialogs.showError(activeWindow(), why, applicationName());
    };
    try {
        if (!isSecondRedoKey(*event))
            return QApplication::notify(receiver, event);
        const QKeyCombination known = QKeySequence(QKeySequence::Redo)[0];
        QKeyEvent redo(event->type(), known.key(), known.keyboardModifiers());
        const bool handled = QApplication::notify(receiver, &redo);
        event->setAccepted(redo.isAccepted());
        return handled;
    } catch (const std::bad_alloc&) {
        fail(QStringLiteral("No hay memoria suficiente."));
    } catch (const std::exception& error) {
        fail(QString::fromUtf8(error.what()));
    }
    return false;
}

} // namespace shell
