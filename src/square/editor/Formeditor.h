// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "grid/model/TableData.h"
#include "window/ChildWindow.h"

class QLineEdit;

namespace controls {
class UpDown;
}
namespace grid {
class TNTabEd;
}
namespace window {
struct HandOff;
}

namespace square {

class TablePanes;

/// The data editor: the observations of one square, next to them the treatment of each cell, and
/// the file that they are saved in and loaded from.
///
/// What the user does to the square can be undone step by step, a load, a change of the order and a
/// new name included: with the grids, names, order, file and caption come back.
///
/// Every command first takes over the cell that is being edited, and does nothing when its text is
/// refused; nothing changes the square while a question is open. A file that holds what the editor
/// shows is not written again, one that changed since not without a question. A save that fails
/// tells the user why and asks for another name; given up it leaves file, caption and Saved() as
/// they were. So does a file that cannot be loaded.
class TEditor : public window::ChildWindow {
    Q_OBJECT

public:
    /// An empty square of order 3, unsaved; or, where the hand-off asks for it, the file that the
    /// user is asked for. When that comes to nothing, `handOff.fileOpened` is false and the editor
    /// closes unasked. `handOff` and `dialogs` outlive the editor.
    TEditor(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent = nullptr);

    QString manualChapter() const override { return QStringLiteral("editor"); }
    void FormActivate() override;
    void FormClose() override;
    bool mayClose() override;

    /// Whether the grids hold nothing unsaved. False for a new square, though nothing was typed.
    bool Saved() const { return m_file.saved; }
    /// The file last loaded or saved; empty for a new square.
    const QString& FileName() const { return m_file.name; }

    QSize sizeHint() const override;

public slots:
    void Cargar1Click();
    void Guardar1Click();
    /// Saves, leaves the file name in the hand-off, asks for an analysis window and, once that has
    /// the square, for its own close, which neither asks nor writes to the status line.
    void GuardaryAnalizar1Click();
    void NumTratamientosClick();
    void NFilasChange();
    void NColumnasChange();
    void DatosChange();

    /// Writes the cyclic square into the reference grid: cell (column, row) gets treatment
    /// ((column + row - 2) mod n) + 1. Nothing is drawn at random, in spite of the name.
    void aleatorizar();

signals:
    /// The file named in the hand-off is ready to be analysed. closeRequested() follows where
    /// HandOff::fileOpened says that an analysis window has opened it.
    void analysisRequested();

private:
    /// The file last loaded or saved, and how it stands to the square.
    struct File {
        QString name;
        QByteArray fingerprint; ///< As it was last loaded or saved.
        bool rounded = false;   ///< It has fewer digits than the grid had as it was saved.
        bool saved = false;     ///< It holds what the grids show.
        QString notKept = {};   ///< Of the file that it replaced as it was saved.
    };

    /// Order and names, and what they are made of.
    struct Layout {
        grid::TableShape observations;
        grid::TableShape treatments;
        QString rowPrefix;
        QString columnPrefix;

        bool operator==(const Layout&) const = default;
    };

    /// Of the changes of a prefix, made letter by letter, those in a row become one step.
    enum ChangeKind { Order, RowPrefix, ColumnPrefix };

    void createControls();
    QWidget* createOptions();
    QWidget* createPanes();
    void createMenu();
    void createShortcuts();
    void connectControls();

    void FormCreate(bool openFile);

    bool loadFile();
    bool saveFile();
    QString showLoaded(record::SquareData square, const File& file);
    void exchangeFile(File& other);
    void compareWithDisk();
    void showFileName();
    void tellFile();
    QString replacementWarning() const;
    void setOrder(int order);
    void DatosResized(int columns);
    void takePrefix(QLineEdit& edit, QString& prefix, ChangeKind kind,
                    void (TEditor::*name)(grid::TNTabEd&) const);
    void nameColumns(grid::TNTabEd& table) const;
    void nameRows(grid::TNTabEd& table) const;
    QString treatmentTip(int column, int row) const;
    Layout layoutNow() const;
    void putAround(const Layout& layout);
    void keepChange(const Layout& before, ChangeKind kind);
    QWidget* dialogParent();

    window::HandOff& m_handOff;
    controls::UpDown* m_numTratamientos = nullptr;
    QLineEdit* m_nFilas = nullptr;
    QLineEdit* m_nColumnas = nullptr;
    grid::TNTabEd* m_datos = nullptr;
    grid::TNTabEd* m_refTratamientos = nullptr;
    TablePanes* m_panes = nullptr;
    QString m_rowPrefix;    ///< Of the names that the rows have now.
    QString m_columnPrefix; ///< Of the names that the columns have now.
    File m_file;
    bool m_handedOver = false; ///< "Guardar y Analizar" has left the file to an analysis window.
};

} // namespace square
