// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFilesFixture.h"

using namespace squarebytes;

// ---- Save and analyse ---------------------------------------------------------------------------

TEST_F(EditorFiles, SaveAndAnalyseHandsTheFileOverAndLeaves)
{
    open();
    m_dialogs.saveAnswers.push_back(path("nuevo.asc"));
    action("GuardaryAnalizar1").trigger();
    EXPECT_EQ(m_requests, QStringList({utf8("analyse ") + path("nuevo.asc"), utf8("close")}));
    EXPECT_TRUE(QFile::exists(path("nuevo.asc")));
    m_status.clear();
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.questions.empty());
    EXPECT_TRUE(m_status.isEmpty()); // the analysis window has written there
}

TEST_F(EditorFiles, SaveAndAnalyseOfANamedFileAsksForNone)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    action("GuardaryAnalizar1").trigger();
    EXPECT_TRUE(m_dialogs.saveRequests.empty());
    EXPECT_EQ(m_requests, QStringList({utf8("analyse ") + path("a.asc"), utf8("close")}));
    EXPECT_TRUE(bytesOf("a.asc").contains("\t 2.0000000E+0000\t"));
}

TEST_F(EditorFiles, AnEditorThatWasHandedOverAndStayedStillAsksForWhatIsTyped)
{
    openWith(ofOrder3());
    action("GuardaryAnalizar1").trigger();
    enterIntoCell(1, 1, "2");
    m_dialogs.yesNoAnswers.push_back(false);
    EXPECT_TRUE(close());
    EXPECT_EQ(m_dialogs.questions.size(), 1U);
}

TEST_F(EditorFiles, TheEditorStaysWhereNoAnalysisCouldOpenItsFile)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    m_analysisStands = false;
    action("GuardaryAnalizar1").trigger();
    EXPECT_EQ(m_requests, QStringList(utf8("analyse ") + path("a.asc")));
    EXPECT_EQ(m_handOff.pendingFileName, QString());
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_EQ(datos().value(1, 1), 2.0);
    EXPECT_TRUE(close());
    EXPECT_EQ(m_status.last(), utf8("Listo")); // nobody else has the status line
}

TEST_F(EditorFiles, SaveAndAnalyseStopsWithTheDialog)
{
    open();
    const State before = state();
    m_dialogs.saveAnswers.push_back(std::nullopt);
    action("GuardaryAnalizar1").trigger();
    EXPECT_TRUE(m_requests.isEmpty());
    EXPECT_EQ(m_handOff.pendingFileName, QString());
    EXPECT_EQ(state(), before);
}

TEST_F(EditorFiles, SaveAndAnalyseStopsAtARefusedCell)
{
    open();
    typeIntoCell(1, 1, "1..2");
    action("GuardaryAnalizar1").trigger();
    EXPECT_TRUE(m_dialogs.saveRequests.empty());
    EXPECT_TRUE(m_requests.isEmpty());
}

TEST_F(EditorFiles, AFrameMayDeleteTheEditorFromWithinTheRequest)
{
    open();
    QObject::connect(m_editor, &square::TEditor::analysisRequested, m_host.get(),
                     [this] { delete m_editor; });
    m_dialogs.saveAnswers.push_back(path("nuevo.asc"));
    action("GuardaryAnalizar1").trigger();
    EXPECT_FALSE(m_editor);
    EXPECT_EQ(m_requests, QStringList(utf8("analyse ") + path("nuevo.asc")));
}

// ---- Closing ------------------------------------------------------------------------------------

TEST_F(EditorFiles, ANewEditorAsksAlthoughNothingWasTyped)
{
    open();
    m_dialogs.yesNoAnswers.push_back(false);
    EXPECT_TRUE(close());
    ASSERT_EQ(m_dialogs.questions.size(), 1U);
    EXPECT_EQ(m_dialogs.questions[0].text, utf8("Desea guardar los cambios?"));
    EXPECT_EQ(m_dialogs.questions[0].caption, utf8("Editor"));
    EXPECT_EQ(m_dialogs.questions[0].ofReturn, window::Answer::Yes);
    EXPECT_EQ(m_status, QStringList(utf8("Listo")));
    EXPECT_FALSE(m_editor); // gone
    EXPECT_EQ(entries(), QStringList());
}

TEST_F(EditorFiles, YesSavesUnderTheNameAskedForAndCloses)
{
    open();
    m_dialogs.yesNoAnswers.push_back(true);
    m_dialogs.saveAnswers.push_back(path("nuevo.asc"));
    QString captionAtTheEnd;
    QObject::connect(m_editor, &QWidget::windowTitleChanged, m_host.get(),
                     [&](const QString& caption) { captionAtTheEnd = caption; });
    EXPECT_TRUE(close());
    EXPECT_TRUE(QFile::exists(path("nuevo.asc")));
    EXPECT_EQ(captionAtTheEnd, utf8("Editor - ") + path("nuevo.asc"));
    EXPECT_EQ(lastStatus(), utf8("Listo"));
    EXPECT_FALSE(m_editor);
}

TEST_F(EditorFiles, YesSavesANamedFileWithoutADialog)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    m_dialogs.yesNoAnswers.push_back(true);
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.saveRequests.empty());
    EXPECT_TRUE(bytesOf("a.asc").contains("\t 2.0000000E+0000\t"));
}

TEST_F(EditorFiles, NoClosesAndLeavesTheFileAlone)
{
    openWith(ofOrder3());
    enterIntoCell(1, 1, "2");
    m_dialogs.yesNoAnswers.push_back(false);
    EXPECT_TRUE(close());
    EXPECT_EQ(bytesOf("a.asc"), ofOrder3());
}

TEST_F(EditorFiles, ACancelledSaveDialogKeepsTheEditor)
{
    open();
    const State before = state();
    m_dialogs.yesNoAnswers.push_back(true);
    m_dialogs.saveAnswers.push_back(std::nullopt);
    EXPECT_FALSE(close());
    ASSERT_TRUE(m_editor);
    EXPECT_EQ(state(), before);
    EXPECT_TRUE(m_status.isEmpty());
}

TEST_F(EditorFiles, ASavedEditorClosesUnasked)
{
    openWith(ofOrder3());
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.questions.empty());
    EXPECT_EQ(m_status, QStringList(utf8("Listo")));
}

TEST_F(EditorFiles, ACellBeingEditedCountsAtTheClose)
{
    openWith(ofOrder3());
    typeIntoCell(1, 1, "1..2");
    EXPECT_FALSE(close()); // refused, and told
    EXPECT_EQ(m_dialogs.errors.size(), 1U);
    EXPECT_TRUE(m_dialogs.questions.empty());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

    typeIntoCell(1, 1, "12");
    m_dialogs.yesNoAnswers.push_back(true);
    EXPECT_TRUE(close());
    EXPECT_TRUE(bytesOf("a.asc").contains("\t 1.2000000E+0001\t"));
}
