// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace manual {

/// A line to search with: what to look for, on and back, and what came of it.
class SearchBar : public QWidget {
    Q_OBJECT

public:
    explicit SearchBar(QWidget* parent = nullptr);

    QString text() const;
    /// Shows the bar with the keyboard in it and its text selected.
    void open();
    void tell(const QString& result);

signals:
    /// The text has changed: the search begins where it stands.
    void textEdited();
    void nextRequested();
    void previousRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* m_edit = nullptr;
    QLabel* m_result = nullptr;
};

} // namespace manual
