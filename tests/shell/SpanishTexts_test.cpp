// SPDX-License-Identifier: GPL-3.0-or-later
// Qt's own dialogs and menus speak Spanish: with its catalogue from the system, and with the copy
// inside the program where there is none.
#include "shell/SpanishTexts.h"

#include "window/QtDialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>
#include <QtEndian>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Is asked for every text that the catalogue does not know.
class Untranslated : public QTranslator {
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const bool isSetting = qstrcmp(source, "QT_LAYOUT_DIRECTION") == 0;
        // The file dialog names kinds of files twice, the second time as it is told to.
        const bool isOverruled = qstrcmp(context, "QAbstractFileIconProvider") == 0;
        if (!isSetting && !isOverruled)
            texts << QString::fromUtf8(context) + QStringLiteral(": ") + QString::fromUtf8(source);
        return {};
    }

    mutable QStringList texts;
};

/// With the folder of a catalogue, or one that has none.
class SpanishTexts : public testing::TestWithParam<const char*> {
protected:
    SpanishTexts()
    {
        spanish.loadFrom(QString::fromUtf8(GetParam()));
        qApp->installTranslator(&untranslated);
        qApp->installTranslator(&spanish); // asked first
    }

    ~SpanishTexts() override
    {
        qApp->removeTranslator(&spanish);
        qApp->removeTranslator(&untranslated);
    }

    std::string leftInEnglish() const
    {
        return untranslated.texts.join(QLatin1Char('|')).toStdString();
    }

    shell::SpanishTexts spanish;
    Untranslated untranslated;
};

/// A text that a catalogue translates: where it stands in Qt, and in which words.
struct Source {
    QByteArray context;
    QByteArray text;
    QByteArray comment;
};

quint32 numberAt(const QByteArray& bytes, qsizetype place)
{
    return qFromBigEndian<quint32>(bytes.constData() + place);
}

/// The section of a compiled catalogue that holds its messages: each is a row of tagged texts.
QByteArray messagesOf(const QByteArray& catalogue)
{
    constexpr char messages = 0x69;
    constexpr qsizetype magic = 16;
    for (qsizetype place = magic; place + 5 <= catalogue.size();) {
        const qsizetype size = numberAt(catalogue, place + 1);
        if (catalogue[place] == messages)
            return catalogue.mid(place + 5, size);
        place += 5 + size;
    }
    return {};
}

std::vector<Source> sourcesOf(const QByteArray& catalogue)
{
    enum Tag : char { End = 1, Translation = 3, Obsolete = 5, Text = 6, Context = 7, Comment = 8 };
    const QByteArray messages = messagesOf(catalogue);
    std::vector<Source> sources;
    Source source;
    for (qsizetype place = 0; place < messages.size();) {
        const char tag = messages[place++];
        if (tag == End) {
            sources.push_back(std::exchange(source, {}));
            continue;
        }
        const quint32 written = numberAt(messages, place);
        place += 4;
        if (tag == Obsolete) // a number
            continue;
        const qsizetype size = written == 0xFFFFFFFF ? 0 : static_cast<qsizetype>(written);
        const QByteArray value = messages.mid(place, size);
        place += size;
        if (tag == Text)
            source.text = value;
        else if (tag == Context)
            source.context = value;
        else if (tag == Comment)
            source.comment = value;
    }
    return sources;
}

std::string textsOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
    return texts.join(QLatin1Char('|')).toStdString();
}

} // namespace

TEST_P(SpanishTexts, FileDialog)
{
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("parcela")));
    QString kind;
    QString accept;
    QStringList labels;
    QTimer::singleShot(200, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setViewMode(QFileDialog::Detail);
        const auto* files = dialog->findChild<QFileSystemModel*>();
        const QModelIndex parcel = files->index(folder.filePath(QStringLiteral("parcela")));
        kind = parcel.siblingAtColumn(2).data().toString();
        accept = dialog->labelText(QFileDialog::Accept);
        for (const QFileDialog::DialogLabel label : {QFileDialog::FileName, QFileDialog::FileType})
            labels << dialog->labelText(label);
        dialog->reject();
    });
    window::FileRequest request;
    request.fileName = folder.filePath(QStringLiteral("a.asc"));
    request.filter = QStringLiteral("ASCII|*.asc");
    EXPECT_EQ(window::QtDialogs().saveFileName(nullptr, request), std::nullopt);
    EXPECT_EQ(kind.toStdString(), "Carpeta");
    EXPECT_EQ(accept.toStdString(), "&Guardar");
    EXPECT_EQ(labels.join(QLatin1Char('|')).toStdString(), "&Nombre de archivo:|Archivos de tipo:");
    EXPECT_EQ(leftInEnglish(), "");
}

TEST_P(SpanishTexts, StandardButtons)
{
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Close);
    box.show();
    EXPECT_EQ(box.button(QDialogButtonBox::Ok)->text().toStdString(), "Aceptar");
    EXPECT_EQ(box.button(QDialogButtonBox::Cancel)->text().toStdString(), "Cancelar");
    EXPECT_EQ(box.button(QDialogButtonBox::Close)->text().toStdString(), "Cerrar");
    QInputDialog input;
    input.setInputMode(QInputDialog::IntInput);
    input.show();
    EXPECT_EQ(leftInEnglish(), "");
}

TEST_P(SpanishTexts, ContextAndSystemMenus)
{
    QLineEdit line;
    QPlainTextEdit area(QStringLiteral("texto"));
    const std::unique_ptr<QMenu> ofLine(line.createStandardContextMenu());
    const std::unique_ptr<QMenu> ofArea(area.createStandardContextMenu());
    const std::string ofTexts = "Deshacer|Rehacer||Cortar|Copiar|Pegar|Borrar||Seleccionar todo";
    EXPECT_EQ(textsOf(*ofLine), ofTexts);
    EXPECT_EQ(textsOf(*ofArea), ofTexts);

    QMdiArea frame;
    const QMdiSubWindow* child = frame.addSubWindow(new QWidget);
    EXPECT_EQ(
        textsOf(*child->systemMenu()),
        "Restaurar|Mover|Redimensionar|Minimizar|Maximizar|Permanecer en primer plano||Cerrar");
    EXPECT_EQ(leftInEnglish(), "");
}

TEST_P(SpanishTexts, EveryTextOfTheCatalogueCallsAFileArchivoAndAFolderCarpeta)
{
    QFile file(spanish.filePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::vector<Source> sources = sourcesOf(file.readAll());
    EXPECT_GT(sources.size(), 1000U);
    int changed = 0;
    const auto plain = [](QString text) { return text.remove(QLatin1Char('&')).toLower(); };
    for (const auto& [context, text, comment] : sources) {
        const QString theirs =
            plain(spanish.QTranslator::translate(context, text, comment.constData(), -1));
        const QString ours = plain(spanish.translate(context, text, comment.constData(), -1));
        EXPECT_FALSE(ours.contains(QStringLiteral("fichero"))) << ours.toStdString();
        EXPECT_FALSE(ours.contains(QStringLiteral("directorio"))) << ours.toStdString();
        EXPECT_FALSE(ours.contains(QStringLiteral("el carpeta"))) << ours.toStdString();
        EXPECT_FALSE(ours.contains(QStringLiteral("un carpeta"))) << ours.toStdString();
        EXPECT_EQ(ours.isEmpty(), theirs.isEmpty());
        changed += ours != theirs ? 1 : 0;
    }
    EXPECT_GT(changed, 20);
}

TEST_P(SpanishTexts, KeysAreNamedAsOnAKeyboard)
{
    const auto named = [](const QKeySequence& key) {
        return key.toString(QKeySequence::NativeText).toStdString();
    };
    EXPECT_EQ(named(Qt::CTRL | Qt::Key_N), "Ctrl+N");
    EXPECT_EQ(named(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), "Ctrl+Mayúsculas+Z");
    EXPECT_EQ(named(Qt::Key_Delete), "Supr");
    EXPECT_EQ(named(Qt::Key_Escape), "Esc");
}

INSTANTIATE_TEST_SUITE_P(FromTheSystemAndFromInside, SpanishTexts,
                         testing::Values("/usr/share/qt6/translations", "/nowhere"));
