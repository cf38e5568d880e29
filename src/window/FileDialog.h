// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>

class QLineEdit;

namespace window {

class Dialogs;

/// Qt's own file dialog rather than the desktop's, but for typed names that Qt would take for
/// others, or say nothing about.
class FileDialog : public QFileDialog {
    Q_OBJECT

public:
    /// @param dialogs tell of a name that cannot be taken; they outlive this
    /// @param suffix added to a name without one, unless a file of that very name is to be opened
    FileDialog(Dialogs& dialogs, QWidget* parent, const QString& title, AcceptMode mode,
               const QString& suffix);

    /// Offers a name to change or confirm.
    void offerName(const QString& fileName);

    /// The file that was chosen, once the dialog was accepted.
    QString chosenFile() const;

protected:
    void accept() override;

private:
    QLineEdit* nameEdit() const;
    QString pathOf(const QString& name) const;
    QString meantName() const;
    QString obstacle() const;
    bool isTooLong() const;
    void nameTyped(const QString& name);

    Dialogs& m_dialogs;
    QString m_named; ///< To be opened, as it was named.
};

} // namespace window
