// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFile.h"
#include "window/Dialogs.h"

#include <QStringList>
#include <QWidget>

class QMenu;

namespace window {

enum class Picture;

/// The lasting text of a window that has nothing to say.
QString restingText();

/// The contract between a child window and the frame that holds it, and what all children share.
///
/// The frame shows menu() in its bar while the child is active, writes statusText() and notice()
/// into its status line, and calls FormActivate() and FormDeactivate() as the child becomes or
/// ceases to be the active one. A child that is asked to close lets mayClose() decide, and stays,
/// and keeps the frame open, where it says no; closeRequested() asks the frame to close the child's
/// place in it.
class ChildWindow : public QWidget {
    Q_OBJECT

public:
    /// A child that is deleted when it closes.
    /// @param caption its title, and that of its message boxes
    /// @param dialogs outlive the child
    ChildWindow(const QString& name, const QString& caption, Picture picture, Dialogs& dialogs,
                QWidget* parent);

    /// The child's own menu, merged into the frame's bar between "Archivo" and "Ventana".
    QMenu* menu() const { return m_menu; }

    /// The chapter of the manual that tells of this kind of window; without one, that of the frame.
    virtual QString manualChapter() const { return {}; }

    virtual void FormActivate();
    virtual void FormDeactivate();
    /// The child is closing: its last words to the status line.
    virtual void FormClose();

    /// Whether the child may close now. One with unsaved data asks its user, and saves them where
    /// he wants that; nothing else about it changes.
    virtual bool mayClose() { return true; }

    /// Closes without asking, after mayClose().
    void closeUnasked();

signals:
    /// What the window has to say for as long as nothing has happened in it.
    void statusText(const QString& text);
    /// What the user's last command did, in front of the statusText() until the next one of those;
    /// empty once a later change has made it old.
    void notice(const QString& text);
    void closeRequested();
    /// The child is about to ask something that the user can answer only with the child in view.
    void frontRequested();

protected:
    /// Writes a file under the name that the user chose.
    using WriteFile = std::function<base::Outcome<base::WrittenFile>(const QString& chosen)>;

    Dialogs& dialogs() const { return m_dialogs; }
    /// The caption without the name of a file, also that of message boxes.
    const QString& plainCaption() const { return m_caption; }

    void closeEvent(QCloseEvent* event) override;

    /// Saves under a name that the user is asked for. Where the file cannot be written the user is
    /// told why and asked again, the name at hand, until it is written or the user cancels: what is
    /// to be saved always finds a place. What was written is told in a notice().
    /// @param known tried first, without asking, where it is not empty
    /// @return the chosen name; nothing when nothing was saved, and when the child is gone
    std::optional<QString> save(FileRequest request, const WriteFile& write,
                                const QString& known = {});
    /// Tells in a notice() under which name something was saved, and before that what was lost.
    /// @param form a FileRequest::savedNotice
    void tellSaved(const QString& form, const QString& fileName, const QString& notKept);

    /// Saves lines of text in UTF-8, each with CRLF at its end.
    void saveLines(const FileRequest& request, const QStringList& lines);

private:
    const QString m_caption;
    Dialogs& m_dialogs;
    QMenu* const m_menu;
    bool m_wasAsked = false;
};

} // namespace window
