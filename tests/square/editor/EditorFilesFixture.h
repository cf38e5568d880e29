// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "square/editor/EditorFixture.h"

/// As EditorTest, for what the editor does with files.
class EditorFiles : public EditorTest {
protected:
    void load(const QByteArray& bytes)
    {
        m_dialogs.openAnswers.push_back(fileOf(bytes));
        action("Cargar1").trigger();
    }
    void saveAs(const char* name)
    {
        m_dialogs.saveAnswers.push_back(path(name));
        action("Guardar1").trigger();
    }
    QString lastStatus() const { return m_status.value(m_status.size() - 1); }

    /// Whether the window closes; afterwards a closed editor is gone.
    bool close()
    {
        const bool closed = m_editor->close();
        QCoreApplication::sendPostedEvents(m_editor, QEvent::DeferredDelete);
        return closed;
    }
};
