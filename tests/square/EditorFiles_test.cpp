// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/BadFiles.h"
#include "square/EditorFixture.h"
#include "square/FailingDisk.h"
#include "square/LoadedSquare.h"

#include <functional>

using namespace squarebytes;

namespace {

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

const QString badFile = QStringLiteral("Hay un error en el archivo, o no es un archivo ASCII.");
const QString roundedNotice = QStringLiteral("Se guardaron 8 cifras significativas de cada dato.");

} // namespace

// ---- Loading -----------------------------------------------------------------------------------

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
        EXPECT_EQ(m_dialogs.errors[0].text, square::loadSquare(path("a.asc")).problem) << file.what;
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

// ---- Opening on creation -----------------------------------------------------------------------

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
    EXPECT_EQ(m_dialogs.errors[0].text, badFile);
    EXPECT_EQ(m_dialogs.errors[0].caption, utf8("Abrir Archivo"));
    EXPECT_FALSE(m_handOff.fileOpened);
    EXPECT_TRUE(m_editor->Saved());
    EXPECT_TRUE(close());
    EXPECT_TRUE(m_dialogs.questions.empty());
}

// ---- Saving ------------------------------------------------------------------------------------

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
    EXPECT_EQ(lastStatus(), roundedNotice);
    EXPECT_EQ(datos().value(1, 1), 123456789.0);
    EXPECT_TRUE(bytesOf("nuevo.asc").contains("\t 1.2345679E+0008\t"));

    enterIntoCell(1, 1, "12345678");
    action("Guardar1").trigger();
    EXPECT_NE(lastStatus(), roundedNotice); // the note of the save before is not true of this one
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

// ---- Saves that fail ---------------------------------------------------------------------------

namespace {

struct Failure {
    const char* what;
    QString fileName;                                 ///< Within the folder of the test.
    std::function<std::shared_ptr<void>()> condition; ///< Holds while the pointer lives.
};

std::vector<Failure> failures()
{
    const auto none = [] { return std::shared_ptr<void>(); };
    return {
        {"full disk", utf8("a.asc"), [] { return std::make_shared<failingdisk::FullDisk>(100); }},
        {"missing folder", utf8("no/existe.asc"), none},
        {"a folder", utf8("carpeta"), none},
        {"a name that is too long", QString(300, u'x') + utf8(".asc"), none},
        {"a read-only file", utf8("a.asc"),
         [] { return std::make_shared<failingdisk::OrdinaryUser>(); }},
        {"a read-only folder", utf8("otro.asc"),
         [] { return std::make_shared<failingdisk::OrdinaryUser>(); }},
    };
}

} // namespace

class EditorFailures : public EditorFiles {
protected:
    void SetUp() override
    {
        fileOf(ofOrder3());
        QDir(m_folder.path()).mkdir(utf8("carpeta"));
        // Other users may look into the folder, and nobody but root may write there.
        QFile::setPermissions(m_folder.path(), m_readable | QFile::ExeOther);
        QFile::setPermissions(path("a.asc"), m_readable);
    }
    void TearDown() override
    {
        QFile::setPermissions(m_folder.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Runs an action while the disk refuses the file.
    void whileFailing(const Failure& failure, const std::function<void()>& act)
    {
        m_dialogs.errors.clear();
        const QStringList before = entries();
        {
            const std::shared_ptr<void> condition = failure.condition();
            act();
        }
        ASSERT_EQ(m_dialogs.errors.size(), 1U) << failure.what;
        const ScriptedDialogs::Box& box = m_dialogs.errors[0];
        EXPECT_EQ(box.caption, utf8("Editor")) << failure.what;
        EXPECT_TRUE(box.text.contains(m_folder.filePath(failure.fileName))) << failure.what;
        EXPECT_GT(box.text.section(u'\n', 1).size(), 10) << failure.what; // and the reason
        EXPECT_EQ(bytesOf("a.asc"), ofOrder3()) << failure.what;
        EXPECT_EQ(entries(), before) << failure.what;
    }

private:
    static constexpr QFile::Permissions m_readable =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther;
};

TEST_F(EditorFailures, ASaveLeavesEverythingAsItWas)
{
    open();
    enterIntoCell(1, 1, "5");
    const State before = state();
    for (const Failure& failure : failures()) {
        m_dialogs.saveAnswers.push_back(m_folder.filePath(failure.fileName));
        whileFailing(failure, [this] { action("Guardar1").trigger(); });
        EXPECT_EQ(state(), before) << failure.what;
    }
}

TEST_F(EditorFailures, ASaveOfALoadedFileKeepsItUnsaved)
{
    m_handOff.openOnCreate = true;
    m_dialogs.openAnswers.push_back(path("a.asc"));
    open();
    edit("NFilas").setText(utf8(" Lote "));
    const State before = state();
    for (const Failure& failure : failures()) {
        if (failure.fileName != utf8("a.asc"))
            continue;
        whileFailing(failure, [this] { action("Guardar1").trigger(); });
        EXPECT_EQ(state(), before) << failure.what;
        EXPECT_FALSE(m_editor->Saved());
    }
    // Once the folder is gone, the same.
    QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(QDir(m_folder.path()).removeRecursively());
    m_dialogs.errors.clear();
    action("Guardar1").trigger();
    EXPECT_EQ(m_dialogs.errors.size(), 1U);
    EXPECT_EQ(state(), before);
}

TEST_F(EditorFailures, SaveAndAnalyseStaysInTheEditor)
{
    open();
    const State before = state();
    for (const Failure& failure : failures()) {
        m_dialogs.saveAnswers.push_back(m_folder.filePath(failure.fileName));
        whileFailing(failure, [this] { action("GuardaryAnalizar1").trigger(); });
        EXPECT_EQ(state(), before) << failure.what;
        EXPECT_TRUE(m_requests.isEmpty()) << failure.what;
        EXPECT_EQ(m_handOff.pendingFileName, QString()) << failure.what;
    }
}

TEST_F(EditorFailures, ACloseIsCalledOff)
{
    open();
    const State before = state();
    for (const Failure& failure : failures()) {
        m_dialogs.yesNoAnswers.push_back(true);
        m_dialogs.saveAnswers.push_back(m_folder.filePath(failure.fileName));
        bool closed = true;
        whileFailing(failure, [&] { closed = close(); });
        EXPECT_FALSE(closed) << failure.what;
        ASSERT_TRUE(m_editor) << failure.what;
        EXPECT_TRUE(m_editor->isVisible()) << failure.what;
        EXPECT_EQ(state(), before) << failure.what;
    }
    EXPECT_TRUE(m_status.isEmpty());
}

// ---- Save and analyse --------------------------------------------------------------------------

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

// ---- Closing -----------------------------------------------------------------------------------

TEST_F(EditorFiles, ANewEditorAsksAlthoughNothingWasTyped)
{
    open();
    m_dialogs.yesNoAnswers.push_back(false);
    EXPECT_TRUE(close());
    ASSERT_EQ(m_dialogs.questions.size(), 1U);
    EXPECT_EQ(m_dialogs.questions[0].text, utf8("Desea guardar los cambios?"));
    EXPECT_EQ(m_dialogs.questions[0].caption, utf8("Editor"));
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
