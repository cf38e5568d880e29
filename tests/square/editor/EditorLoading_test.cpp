// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFilesFixture.h"
#include "square/file/BadFiles.h"
#include "square/file/LoadedSquare.h"
#include "support/FailingCalls.h"

#include <QSignalSpy>

#include <cerrno>

using namespace squarebytes;

namespace {

const QString badFileTold = QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");

} // namespace

// ---- Loading ------------------------------------------------------------------------------------

TEST_F(EditorFiles, ALoadFitsColumnsAsOftenWhateverTheirNumber)
{
    open();
    std::vector<qsizetype> fits;
    for (const int order : {4, 90}) {
        QSignalSpy observations(&datos(), &grid::TNTabEd::WidthChanged);
        QSignalSpy treatments(&reference(), &grid::TNTabEd::WidthChanged);
        const QByteArray count = QByteArray::number(order);
        load(lines({"ancho", count, count, "FALSE FALSE FALSE",
                    QByteArray("1 ").repeated(order * order)}));
        ASSERT_EQ(datos().NrOfColumns(), order);
        EXPECT_EQ(reference().precision(order), 0);
        fits.push_back(observations.count() + treatments.count());
    }
    EXPECT_EQ(fits[0], fits[1]);
}

TEST_F(EditorFiles, ALoadedFileFillsTheEditor)
{
    open();
    enterIntoCell(1, 1, "99");
    m_handOff.fileOpened = false;
    load(ofOrder5());
    EXPECT_TRUE(m_handOff.fileOpened);
    EXPECT_EQ(m_dialogs.openRequests.size(), 1U);
    EXPECT_EQ(m_dialogs.openRequests[0].filter, utf8("ASCII|*.asc"));
    EXPECT_EQ(m_dialogs.openRequests[0].suffix, utf8("asc"));
    EXPECT_EQ(m_editor->FileName(), path("a.asc"));
    EXPECT_EQ(m_editor->windowTitle(), utf8("Editor - ") + path("a.asc"));
    EXPECT_EQ(edit("Edit1").text(), utf8("5"));
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_EQ(datos().columnName(3), utf8("tres y medio"));
    EXPECT_EQ(rowNames(datos()).join(u' '), utf8("a b c d e"));
    EXPECT_EQ(datos().value(2, 3), 38.0);
    EXPECT_EQ(datos().rowAttribute(5), 255);
    EXPECT_EQ(datos().Identifier(),
              QByteArray("Exported by NTabED component: /tmp/propelente.asc"));
    EXPECT_EQ(reference().NrOfColumns(), 5);
    EXPECT_EQ(reference().NrOfRows(), 5);
    EXPECT_EQ(reference().value(5, 5), 4.0);
    for (int column = 1; column <= 5; ++column) {
        EXPECT_EQ(datos().precision(column), 3);
        EXPECT_EQ(reference().precision(column), 0);
    }
}

TEST_F(EditorFiles, ALoadReadsItsFileOnce)
{
    open();
    m_dialogs.openAnswers.push_back(fileOf(ofOrder3()));
    const failing::Disk disk(m_folder.path().toStdString(), {2, EIO, failing::Fault::Once, "open"});
    action("Cargar1").trigger();
    EXPECT_EQ(disk.count(), 1);
    EXPECT_EQ(m_editor->FileName(), path("a.asc"));
    EXPECT_TRUE(m_editor->Saved());
}

TEST_F(EditorFiles, ALoadKeepsThePrefixesAndTheNamesOfTheReference)
{
    open();
    load(ofOrder3().replace("Fila", "Lote"));
    EXPECT_EQ(rowNames(datos()), numbered("Lote", 3));
    EXPECT_EQ(rowNames(reference()), numbered("Fila", 3));
    EXPECT_EQ(edit("NFilas").text(), utf8("Fila"));
    EXPECT_EQ(edit("NColumnas").text(), utf8("Col"));
}

TEST_F(EditorFiles, ACancelledLoadChangesNothing)
{
    open();
    enterIntoCell(1, 1, "5");
    const State before = state();
    m_dialogs.openAnswers.push_back(std::nullopt);
    action("Cargar1").trigger();
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(m_handOff.fileOpened);
    EXPECT_TRUE(m_dialogs.errors.empty());
}

TEST_F(EditorFiles, EveryBadFileLeavesTheWindowAsItWas)
{
    open();
    load(ofOrder5());
    enterIntoCell(1, 1, "5");
    const State before = state();
    EXPECT_FALSE(before.saved);
    for (const badfiles::BadFile& file : badfiles::all()) {
        m_dialogs.errors.clear();
        load(file.bytes);
        EXPECT_EQ(state(), before) << file.what;
        EXPECT_FALSE(m_handOff.fileOpened) << file.what;
        ASSERT_EQ(m_dialogs.errors.size(), 1U) << file.what;
        EXPECT_EQ(m_dialogs.errors[0].caption, utf8("Abrir Archivo")) << file.what;
        EXPECT_EQ(m_dialogs.errors[0].text, square::loadSquare(path("a.asc")).reason) << file.what;
    }
}

TEST_F(EditorFiles, EveryPrefixOfAFileLoadsOrLeavesTheWindowAsItWas)
{
    open();
    load(ofOrder5());
    const State before = state();
    const QByteArray whole = ofOrder3();
    for (qsizetype length = 0; length < whole.trimmed().size() - 15; ++length) {
        load(whole.left(length));
        ASSERT_EQ(state(), before) << length;
    }
    EXPECT_EQ(m_dialogs.errors.size(), std::size_t(whole.trimmed().size() - 15));
}

TEST_F(EditorFiles, SizesThatNoGridHasAreRefusedInItsWords)
{
    open();
    const State before = state();
    load(badfiles::fileOf("0", "3", "FALSE FALSE FALSE", {"1"}));
    load(badfiles::fileOf("16000001", "1", "FALSE FALSE FALSE", {"1"}));
    // A good file of many columns and one row, for which the square of treatments has no room.
    load(badfiles::fileOf("5000", "1", "FALSE FALSE FALSE", {QByteArray("1 ").repeated(5000)}));
    ASSERT_EQ(m_dialogs.errors.size(), 3U);
    EXPECT_EQ(m_dialogs.errors[0].text, utf8("array dimensions zero or negative"));
    EXPECT_EQ(m_dialogs.errors[1].text, utf8("NTABED: not enough memory on heap"));
    EXPECT_EQ(m_dialogs.errors[2].text, utf8("NTABED: not enough memory on heap"));
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(m_handOff.fileOpened);
}

TEST_F(EditorFiles, AFileOfFourColumnsAndThreeRowsTakesItsOrderFromTheColumns)
{
    open();
    load(badfiles::fileOf("4", "3", "FALSE FALSE FALSE", {"1 2 3 4", "5 6 7 8", "9 10 11 12"}));
    EXPECT_EQ(edit("Edit1").text(), utf8("4"));
    EXPECT_EQ(datos().NrOfColumns(), 4);
    EXPECT_EQ(datos().NrOfRows(), 3);
    EXPECT_EQ(datos().value(4, 3), 12.0);
    EXPECT_EQ(reference().NrOfColumns(), 4);
    EXPECT_EQ(reference().NrOfRows(), 4);
    EXPECT_EQ(m_status.last(), square::shapeNotice(4, 3));
    load(badfiles::fileOf("3", "3", "FALSE FALSE FALSE", {"1 2 3", "5 6 7", "9 10 11"}));
    EXPECT_TRUE(m_status.last().startsWith(utf8("Puede manejar archivos")));
}

TEST_F(EditorFiles, EightColumnsLoadAndLeaveTheSpinnerAtItsLimit)
{
    open();
    for (const int order : {8, 1, 2, 7, 20}) {
        load(badfiles::fileOf(QByteArray::number(order), QByteArray::number(order),
                              "FALSE FALSE FALSE", {QByteArray("1 ").repeated(order * order)}));
        EXPECT_EQ(datos().NrOfColumns(), order);
        EXPECT_EQ(datos().NrOfRows(), order);
        EXPECT_EQ(reference().NrOfColumns(), order);
        EXPECT_EQ(reference().value(order, order), order > 1 ? order - 1 : 1);
        EXPECT_EQ(edit("Edit1").text(), utf8(order < 3 ? "3" : "6"));
        EXPECT_TRUE(m_editor->Saved());
    }
    spinner().stepBy(1); // now it is a click
    EXPECT_EQ(datos().NrOfColumns(), 6);
    EXPECT_FALSE(m_editor->Saved());
}

TEST_F(EditorFiles, ACellBeingEditedIsTakenOverBeforeALoad)
{
    open();
    typeIntoCell(1, 1, "1..2");
    action("Cargar1").trigger();
    EXPECT_TRUE(m_dialogs.openRequests.empty()); // the text was refused and the command stopped
    EXPECT_EQ(m_dialogs.errors.size(), 1U);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

    typeIntoCell(1, 1, "12");
    m_dialogs.openAnswers.push_back(std::nullopt);
    action("Cargar1").trigger();
    EXPECT_EQ(datos().value(1, 1), 12.0);
}

// ---- Opening on creation ------------------------------------------------------------------------

TEST_F(EditorFiles, AnEditorAskedToOpenAFileShowsIt)
{
    openWith(ofOrder5());
    EXPECT_TRUE(m_handOff.fileOpened);
    EXPECT_FALSE(m_handOff.openOnCreate);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_EQ(m_editor->windowTitle(), utf8("Editor - ") + path("a.asc"));
    EXPECT_EQ(datos().value(2, 3), 38.0);
    EXPECT_EQ(reference().value(1, 5), 5.0);
    EXPECT_EQ(edit("Edit1").text(), utf8("5"));
}

TEST_F(EditorFiles, ACancelledOpeningClosesUnasked)
{
    m_handOff.openOnCreate = true;
    m_handOff.fileOpened = true;
    m_dialogs.openAnswers.push_back(std::nullopt);
    open();
    EXPECT_FALSE(m_handOff.fileOpened);
    EXPECT_FALSE(m_handOff.openOnCreate);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.questions.empty());
    EXPECT_TRUE(m_dialogs.errors.empty());

    open(); // the next one asks for no file
    EXPECT_TRUE(m_handOff.fileOpened);
    EXPECT_FALSE(m_editor->Saved());
}

TEST_F(EditorFiles, ABadFileAtTheOpeningIsToldAndClosesUnasked)
{
    openWith("nada");
    ASSERT_EQ(m_dialogs.errors.size(), 1U);
    EXPECT_EQ(m_dialogs.errors[0].text, badFileTold);
    EXPECT_EQ(m_dialogs.errors[0].caption, utf8("Abrir Archivo"));
    EXPECT_FALSE(m_handOff.fileOpened);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.questions.empty());
}
