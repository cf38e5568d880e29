// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/editor/EditorFilesFixture.h"
#include "square/editor/FailingDisk.h"
#include "support/FileSizeLimit.h"

#include <functional>
#include <memory>

using namespace squarebytes;

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
        {"full disk", utf8("a.asc"), [] { return std::make_shared<FileSizeLimit>(100); }},
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

    /// Runs an action while the disk refuses the file. The user is told, asked for another name
    /// with the refused one at hand, and gives up.
    void whileFailing(const Failure& failure, const std::function<void()>& act)
    {
        m_dialogs.errors.clear();
        m_dialogs.saveRequests.clear();
        m_dialogs.saveAnswers.push_back(std::nullopt);
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
        ASSERT_FALSE(m_dialogs.saveRequests.empty()) << failure.what;
        EXPECT_EQ(m_dialogs.saveRequests.back().fileName, m_folder.filePath(failure.fileName));
        EXPECT_TRUE(m_dialogs.saveAnswers.empty()) << failure.what;
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
    m_dialogs.saveAnswers.push_back(std::nullopt);
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
