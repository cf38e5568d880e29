// SPDX-License-Identifier: GPL-3.0-or-later
// Qt's own dialogs and menus speak Spanish: with its catalogue from the system, and with the copy
// inside the program where there is none.
#include "shell/SpanishTexts.h"

#include "window/QtDialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
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

#include <gtest/gtest.h>

#include <memory>
#include <string>

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
        shell::loadSpanishTexts(spanish, QString::fromUtf8(GetParam()));
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

    QTranslator spanish;
    Untranslated untranslated;
};

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
    QTimer::singleShot(200, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setViewMode(QFileDialog::Detail);
        const auto* files = dialog->findChild<QFileSystemModel*>();
        const QModelIndex parcel = files->index(folder.filePath(QStringLiteral("parcela")));
        kind = parcel.siblingAtColumn(2).data().toString();
        accept = dialog->labelText(QFileDialog::Accept);
        dialog->reject();
    });
    window::FileRequest request;
    request.fileName = folder.filePath(QStringLiteral("a.asc"));
    request.filter = QStringLiteral("ASCII|*.asc");
    EXPECT_EQ(window::QtDialogs().saveFileName(nullptr, request), std::nullopt);
    EXPECT_EQ(kind.toStdString(), "Carpeta");
    EXPECT_EQ(accept.toStdString(), "&Guardar");
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

INSTANTIATE_TEST_SUITE_P(FromTheSystemAndFromInside, SpanishTexts,
                         testing::Values("/usr/share/qt6/translations", "/nowhere"));
