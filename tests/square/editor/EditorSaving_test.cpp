// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFilesFixture.h"
#include "square/editor/FailingDisk.h"

#include <functional>

using namespace squarebytes;

TEST_F(EditorFiles, AFirstSaveAsksForAName)
{
    open();
    enterIntoCell(2, 1, "-2.5");
    saveAs("nuevo.asc");
    ASSERT_EQ(m_dialogs.saveRequests.size(), 1U);
    EXPECT_EQ(m_dialogs.saveRequests[0].filter, utf8("ASCII|*.asc"));
    EXPECT_EQ(m_dialogs.saveRequests[0].suffix, utf8("asc"));
    EXPECT_TRUE(m_dialogs.saveRequests[0].confirmOverwrite);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_EQ(m_editor->FileName(), path("nuevo.asc"));
    EXPECT_EQ(m_editor->windowTitle(), utf8("Editor - ") + path("nuevo.asc"));
    const QByteArray zero = "\t 0.0000000E+0000";
    EXPECT_EQ(
        bytesOf("nuevo.asc"),
        lines({"Exported by NTabED component: " + path("nuevo.asc").toUtf8(), "3\t;nr. of columns",
               "3\t;nr. of rows", "TRUE TRUE TRUE\t;row attributes, column names, row names",
               "\t\"Col 1\"\t\"Col 2\"\t\"Col 3\"",
               "0\t\"Fila 1\"" + zero + "\t-2.5000000E+0000" + zero,
               "0\t\"Fila 2\"" + zero + zero + zero, "0\t\"Fila 3\"" + zero + zero + zero}));
}

TEST_F(EditorFiles, ALaterSaveAsksNothing)
{
    open();
    saveAs("nuevo.asc");
    enterIntoCell(1, 1, "7");
    EXPECT_FALSE(m_editor->Saved());
    action("Guardar1").trigger();
    EXPECT_EQ(m_dialogs.saveRequests.size(), 1U);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 7.0000000E+0000"));
}

TEST_F(EditorFiles, ALoadedFileIsSavedUnderItsNameAndTitle)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    action("Guardar1").trigger();
    EXPECT_TRUE(m_dialogs.saveRequests.empty());
    EXPECT_EQ(bytesOf("a.asc"), ofOrder3().replace("\t 1.0000000E+0000", "\t 2.0000000E+0000"));

    load(QByteArray(ofOrder3()).replace("Parcelas de prueba", "Ca\xF1\xF3n \x01 \xC3"));
    action("Guardar1").trigger();
    EXPECT_TRUE(bytesOf("a.asc").startsWith("Ca\xF1\xF3n \x01 \xC3\r\n3\t"));
}

TEST_F(EditorFiles, AnEditedTitleIsAChangeAndIsSavedWithoutControlCharacters)
{
    openWith(ofOrder3());
    m_dialogs.lineAnswers.push_back(utf8("Año\t2024\r\nTRUE"));
    entry("HeaderMenu", "Edit Identifier").trigger();
    EXPECT_FALSE(m_editor->Saved());
    action("Guardar1").trigger();
    EXPECT_EQ(bytesOf("a.asc"),
              QByteArray(ofOrder3()).replace("Parcelas de prueba", "A\xC3\xB1o2024TRUE"));
}

TEST_F(EditorFiles, TrimmedNamesAreShownAfterASave)
{
    open();
    edit("NFilas").setText(utf8("  Lote"));
    EXPECT_EQ(datos().rowName(1), utf8("  Lote 1"));
    saveAs("nuevo.asc");
    EXPECT_EQ(datos().rowName(1), utf8("Lote 1"));
    EXPECT_TRUE(m_editor->Saved());
}

TEST_F(EditorFiles, ACancelledSaveChangesNothing)
{
    open();
    enterIntoCell(1, 1, "5");
    const State before = state();
    m_dialogs.saveAnswers.push_back(std::nullopt);
    action("Guardar1").trigger();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(entries(), QStringList());
}

TEST_F(EditorFiles, ASaveThatRoundsSaysSoAndKeepsWhatWasTyped)
{
    open();
    enterIntoCell(1, 1, "123456789");
    saveAs("nuevo.asc");
    EXPECT_EQ(m_notices.last(),
              utf8("Guardado con 8 cifras significativas de cada dato: ") + path("nuevo.asc"));
    EXPECT_EQ(datos().value(1, 1), 123456789.0);
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 1.2345679E+0008\t"));

    enterIntoCell(1, 1, "12345678");
    action("Guardar1").trigger();
    // The note of the save before is not true of this one.
    EXPECT_EQ(m_notices.last(), utf8("Guardado: ") + path("nuevo.asc"));
}

TEST_F(EditorFiles, ACellBeingEditedIsTakenOverBeforeASave)
{
    open();
    typeIntoCell(1, 1, "12");
    saveAs("nuevo.asc");
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 1.2000000E+0001\t"));
    EXPECT_TRUE(m_editor->Saved());

    typeIntoCell(1, 1, "1..2");
    action("Guardar1").trigger();
    EXPECT_EQ(m_dialogs.errors.size(), 1U);
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 1.2000000E+0001\t"));
}

TEST_F(EditorFiles, WhatCannotBeSavedWhereItWasFindsAnotherPlace)
{
    const std::function<void()> ways[] = {
        [this] { action("Guardar1").trigger(); },
        [this] { action("GuardaryAnalizar1").trigger(); },
        [this] {
            m_dialogs.yesNoAnswers.push_back(true);
            EXPECT_TRUE(close());
        },
    };
    for (const auto& save : ways) {
        QDir(m_folder.path()).mkdir(utf8("memoria"));
        m_handOff.openOnCreate = true;
        m_dialogs.openAnswers.push_back(fileOf(ofOrder3(), "memoria/a.asc"));
        open();
        enterIntoCell(1, 1, "7");
        ASSERT_TRUE(QDir(path("memoria")).removeRecursively()); // the stick is pulled out
        m_dialogs.errors.clear();
        m_dialogs.saveRequests.clear();
        m_dialogs.saveAnswers = {path("no/b.asc"), path("b.asc")};
        save();
        EXPECT_EQ(m_dialogs.errors.size(), 2U);
        ASSERT_EQ(m_dialogs.saveRequests.size(), 2U);
        EXPECT_EQ(m_dialogs.saveRequests[0].fileName, path("memoria/a.asc"));
        EXPECT_EQ(m_dialogs.saveRequests[1].fileName, path("no/b.asc"));
        EXPECT_TRUE(bytesOf("b.asc").contains("\t 7.0000000E+0000\t"));
        if (m_editor) {
            EXPECT_EQ(m_editor->FileName(), path("b.asc"));
        }
        EXPECT_TRUE(QFile::remove(path("b.asc")));
    }
    EXPECT_EQ(m_requests, QStringList({utf8("analyse ") + path("b.asc"), utf8("close")}));
}

TEST_F(EditorFiles, AnUnchangedFileIsNotWrittenAgain)
{
    // Laid out by another hand, with more digits than the program writes.
    const QByteArray bytes = lines({"Otro programa", "3 columnas", "3 filas", "false false false",
                                    "1.23456789012 2 3", "4 5 6", "7 8 9"});
    openWith(bytes);
    ASSERT_EQ(m_editor->FileName(), path("a.asc"));
    QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ExeGroup);
    QFile::setPermissions(path("a.asc"), QFile::ReadOwner | QFile::ReadGroup);
    {
        const failingdisk::OrdinaryUser user;
        action("Guardar1").trigger();
        action("GuardaryAnalizar1").trigger();
    }
    EXPECT_TRUE(m_dialogs.errors.empty());
    EXPECT_EQ(bytesOf("a.asc"), bytes);
    EXPECT_EQ(m_requests, QStringList({utf8("analyse ") + path("a.asc"), utf8("close")}));
}

TEST_F(EditorFiles, AFileThatChangedBehindTheEditorIsNotReplacedWithoutAQuestion)
{
    openWith(ofOrder3());
    for (const bool isChanged : {false, true}) {
        if (isChanged)
            enterIntoCell(1, 1, "7");
        fileOf("de otro");
        m_dialogs.questions.clear();
        m_dialogs.yesNoAnswers = {false};
        m_dialogs.saveAnswers = {std::nullopt};
        action("GuardaryAnalizar1").trigger();
        ASSERT_EQ(m_dialogs.questions.size(), 1U);
        EXPECT_TRUE(m_dialogs.questions[0].text.contains(path("a.asc")));
        EXPECT_EQ(m_dialogs.questions[0].ofReturn, window::Answer::No);
        EXPECT_EQ(m_dialogs.saveRequests.back().fileName, path("a.asc"));
        EXPECT_EQ(bytesOf("a.asc"), "de otro");
        EXPECT_TRUE(m_requests.isEmpty());
    }
    m_dialogs.yesNoAnswers = {false};
    m_dialogs.saveAnswers = {path("b.asc")};
    action("Guardar1").trigger();
    EXPECT_EQ(bytesOf("a.asc"), "de otro");
    EXPECT_EQ(m_editor->FileName(), path("b.asc"));

    fileOf("de otro", "b.asc");
    m_dialogs.yesNoAnswers = {true};
    action("Guardar1").trigger();
    EXPECT_TRUE(bytesOf("b.asc").contains("\t 7.0000000E+0000\t"));

    // What is gone altogether costs nobody anything.
    m_dialogs.questions.clear();
    ASSERT_TRUE(QFile::remove(path("b.asc")));
    action("Guardar1").trigger();
    EXPECT_TRUE(QFile::exists(path("b.asc")));
    EXPECT_TRUE(m_dialogs.questions.empty());
}

TEST_F(EditorFiles, WhatAnotherWritesRightAfterASaveIsNotTakenForTheEditors)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    QObject::connect(m_editor, &window::ChildWindow::notice, m_editor, [this](const QString& told) {
        if (told.startsWith(utf8("Guardado")))
            fileOf("of another program");
    });
    action("Guardar1").trigger();
    ASSERT_EQ(bytesOf("a.asc"), "of another program");

    m_editor->disconnect(m_editor);
    m_dialogs.yesNoAnswers = {true};
    action("Guardar1").trigger();
    EXPECT_EQ(m_dialogs.questions.size(), 1U);
    EXPECT_TRUE(bytesOf("a.asc").contains("\t 2.0000000E+0000"));
}

TEST_F(EditorFiles, TheShortcutsWorkAlsoInsideAnOpenCell)
{
    open();
    typeIntoCell(1, 1, "12");
    m_dialogs.saveAnswers.push_back(path("nuevo.asc"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 1.2000000E+0001\t"));
    m_dialogs.openAnswers.push_back(std::nullopt);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F3);
    EXPECT_EQ(m_dialogs.openRequests.size(), 1U);
}
