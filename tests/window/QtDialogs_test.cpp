// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/QtDialogs.h"

#include "support/Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

namespace {

/// Does something to the dialog that opens next, from within its event loop.
template <typename Dialog>
void whenOpen(std::function<void(Dialog&)> act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            whenOpen<Dialog>(act);
        else
            act(*dialog);
    });
}

void pressButton(const QMessageBox& box, const char* text)
{
    for (QAbstractButton* button : box.buttons()) {
        if (button->text().remove(QLatin1Char('&')) == QString::fromUtf8(text)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    ADD_FAILURE() << "no button " << text;
}

/// Name typed, then the dialog's own button: the completer's list would take a Return.
void nameAndAccept(QFileDialog& dialog, const QString& name)
{
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr);
    QApplication::setActiveWindow(&dialog);
    edit->setFocus();
    edit->setText(name);
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    ASSERT_NE(buttons, nullptr);
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    QTest::mouseClick(buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open),
                      Qt::LeftButton);
}

QString pictureName(const QMessageBox& box)
{
    return box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))->accessibleName();
}

class QtDialogs : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    void make(const char* name) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    window::QtDialogs dialogs;
    window::FileRequest request{QStringLiteral("Guardar"), QString(), QStringLiteral("asc"),
                                QStringLiteral("ASCII|*.asc"), true};

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(QtDialogs, ErrorBoxShowsItsTextAsItIs)
{
    whenOpen<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Falta <b>algo</b>."));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(pictureName(box), QStringLiteral("Error"));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    dialogs.showError(nullptr, QStringLiteral("Falta <b>algo</b>."), QStringLiteral("Editor"));
}

TEST_F(QtDialogs, YesNoBoxAnswersByItsButtonsOnly)
{
    for (const bool yes : {true, false}) {
        whenOpen<QMessageBox>([yes](QMessageBox& box) {
            EXPECT_EQ(pictureName(box), QStringLiteral("Pregunta"));
            QTest::keyClick(&box, Qt::Key_Escape);
            EXPECT_TRUE(box.isVisible());
            box.close();
            EXPECT_TRUE(box.isVisible());
            pressButton(box, yes ? "Sí" : "No");
        });
        EXPECT_EQ(dialogs.askYesNo(nullptr, QStringLiteral("Desea guardar los cambios?"),
                                   QStringLiteral("Editor"), window::Answer::Yes),
                  yes ? window::Answer::Yes : window::Answer::No);
    }
}

TEST_F(QtDialogs, ReturnGivesTheAnswerThatItIsToGive)
{
    for (const auto answer : {window::Answer::Yes, window::Answer::No}) {
        whenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(dialogs.askYesNo(nullptr, QStringLiteral("¿Desea reemplazarlo?"),
                                   QStringLiteral("Editor"), answer),
                  answer);
    }
}

TEST_F(QtDialogs, SavedNameGetsTheSuffixItLacks)
{
    for (const auto& [typed, chosen] : {std::pair{"parcela", "parcela.asc"}, {"a.dat", "a.dat"}}) {
        whenOpen<QFileDialog>([this, name = typed](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList(QStringLiteral("ASCII (*.asc)")));
            nameAndAccept(dialog, path(name));
        });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request), path(chosen));
    }
}

TEST_F(QtDialogs, OverwritingIsAskedForUnlessTheRequestWaivesIt)
{
    make("vieja.asc");
    whenOpen<QFileDialog>([this](QFileDialog& dialog) {
        whenOpen<QMessageBox>([&dialog](QMessageBox& box) {
            box.button(QMessageBox::No)->click();
            QTimer::singleShot(0, &dialog, &QDialog::reject);
        });
        nameAndAccept(dialog, path("vieja.asc"));
    });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), std::nullopt);

    request.confirmOverwrite = false;
    whenOpen<QFileDialog>(
        [this](QFileDialog& dialog) { nameAndAccept(dialog, path("vieja.asc")); });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("vieja.asc"));
}

TEST_F(QtDialogs, OverwritingIsAskedAboutTheNameThatIsWritten)
{
    make("a.dat");
    make("b.asc");
    request.writtenName = [](const QString& chosen) {
        return QString(chosen).replace(QStringLiteral(".dat"), QStringLiteral(".asc"));
    };
    // The chosen file is there but not the one that would be written: no question.
    whenOpen<QFileDialog>([this](QFileDialog& dialog) { nameAndAccept(dialog, path("a.dat")); });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("a.dat"));

    // The chosen file is not there but the other one is: No brings the dialog back, Yes ends it.
    for (const bool yes : {false, true}) {
        whenOpen<QFileDialog>([this, yes](QFileDialog& dialog) {
            whenOpen<QMessageBox>([yes](QMessageBox& box) {
                EXPECT_TRUE(box.text().contains(QStringLiteral("b.asc")))
                    << box.text().toStdString();
                if (!yes) {
                    whenOpen<QFileDialog>(
                        [](QFileDialog& again) { QTest::keyClick(&again, Qt::Key_Escape); });
                }
                pressButton(box, yes ? "Sí" : "No");
            });
            nameAndAccept(dialog, path("b.dat"));
        });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request),
                  yes ? std::optional(path("b.dat")) : std::nullopt);
    }
}

// Return confirmed the name; a second one may have been meant for that too.
TEST_F(QtDialogs, ReturnAloneDoesNotOverwrite)
{
    make("vieja.asc");
    const auto asItIs = [](const QString& chosen) { return chosen; };
    for (const bool asksHere : {false, true}) {
        request.writtenName = asksHere ? asItIs : std::function<QString(const QString&)>();
        bool wasAsked = false;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            whenOpen<QMessageBox>([&](QMessageBox& box) {
                wasAsked = true;
                whenOpen<QFileDialog>([](QFileDialog& again) { again.reject(); });
                QTest::keyClick(&box, Qt::Key_Return);
            });
            nameAndAccept(dialog, path("vieja.asc"));
        });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request), std::nullopt) << asksHere;
        EXPECT_TRUE(wasAsked);
    }
}

TEST_F(QtDialogs, OfferedNameAndFilterAreTheRequests)
{
    request = {QStringLiteral("Exportar"), QStringLiteral("reporte.txt"), QStringLiteral("txt"),
               QStringLiteral("Archivo de Texto (*.txt)|*.txt"), true};
    whenOpen<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Exportar"));
        EXPECT_EQ(dialog.nameFilters(), QStringList(QStringLiteral("Archivo de Texto (*.txt)")));
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("reporte.txt"));
        nameAndAccept(dialog, path("reporte.txt"));
    });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("reporte.txt"));
}

TEST_F(QtDialogs, ANameInNoFolderComesBackAsItWasTyped)
{
    const QString nowhere = path("no/existe/a.asc");
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            EXPECT_TRUE(box.text().contains(path("no/existe"))) << box.text().toStdString();
            whenOpen<QFileDialog>([&](QFileDialog& again) {
                EXPECT_EQ(again.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                          nowhere);
                nameAndAccept(again, path("a.asc"));
            });
            QTest::keyClick(&box, Qt::Key_Return);
        });
        nameAndAccept(dialog, nowhere);
    });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("a.asc"));
}

TEST_F(QtDialogs, ANameThatCannotBeTakenAsItIsIsRefused)
{
    for (const QString& name : {path("a\"b.asc"), path("c\"")}) {
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            whenOpen<QMessageBox>([&](QMessageBox& box) {
                EXPECT_TRUE(box.text().contains(QStringLiteral("nombre")));
                QTest::keyClick(&box, Qt::Key_Return);
            });
            nameAndAccept(dialog, name);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(), name);
            nameAndAccept(dialog, path("a.asc"));
        });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("a.asc"));
    }
}

TEST_F(QtDialogs, ANameThatIsTooLongIsToldOf)
{
    const QString letters(300, QLatin1Char('a'));
    const QString accents(140, QChar(0x00E1)); // two bytes each in a name on the disk
    for (const QString& name : {letters, accents, path("x") + letters}) {
        QString told;
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            whenOpen<QMessageBox>([&](QMessageBox& box) {
                told = box.text();
                QTest::keyClick(&box, Qt::Key_Return);
            });
            auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(edit->text(), name);
            dialog.reject();
        });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request), std::nullopt);
        EXPECT_EQ(told, QStringLiteral("El nombre del archivo es demasiado largo."));
    }
}

TEST_F(QtDialogs, BlanksAtTheEndOfANameAreNotSaved)
{
    for (const char* typed : {"datos ", "datos.asc ", "datos.asc  \t"}) {
        whenOpen<QFileDialog>([&](QFileDialog& dialog) { nameAndAccept(dialog, path(typed)); });
        EXPECT_EQ(dialogs.saveFileName(nullptr, request), path("datos.asc")) << typed;
    }
    whenOpen<QFileDialog>([&](QFileDialog& dialog) { nameAndAccept(dialog, path(" a b .asc")); });
    EXPECT_EQ(dialogs.saveFileName(nullptr, request), path(" a b .asc"));

    make("viejos.asc "); // as another program may have named it
    request.confirmOverwrite = false;
    for (const auto ask : {&window::QtDialogs::saveFileName, &window::QtDialogs::openFileName}) {
        whenOpen<QFileDialog>(
            [&](QFileDialog& dialog) { nameAndAccept(dialog, path("viejos.asc ")); });
        EXPECT_EQ((dialogs.*ask)(nullptr, request), path("viejos.asc "));
    }
}

TEST_F(QtDialogs, OpeningTakesATypedNameWithoutSuffix)
{
    const auto opened = [this](const QString& typed) {
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            nameAndAccept(dialog, typed);
            if (dialog.isVisible()) // with a box in front that says that there is no such file
                QTimer::singleShot(0, &dialog, &QDialog::reject);
        });
        return dialogs.openFileName(nullptr, request);
    };
    make("parcela");
    EXPECT_EQ(opened(path("parcela")), path("parcela"));
    make("parcela.asc");
    EXPECT_EQ(opened(path("parcela")), path("parcela")) << "what was typed";
    make("lote.asc");
    EXPECT_EQ(opened(path("lote")), path("lote.asc"));
}

TEST_F(QtDialogs, AQuestionGoesWithItsWindow)
{
    const auto destroyParentOf = [](QWidget& dialog) { delete dialog.parentWidget(); };
    whenOpen<QFileDialog>([&](QFileDialog& dialog) { destroyParentOf(dialog); });
    EXPECT_EQ(dialogs.saveFileName(new QWidget, request), std::nullopt);
    whenOpen<QMessageBox>([&](QMessageBox& box) { destroyParentOf(box); });
    EXPECT_EQ(dialogs.askYesNo(new QWidget, request.title, request.title, window::Answer::No),
              window::Answer::None);
    whenOpen<QMessageBox>([&](QMessageBox& box) { destroyParentOf(box); });
    dialogs.showError(new QWidget, request.title, request.title);
    whenOpen<QDialog>([&](QDialog& dialog) { destroyParentOf(dialog); });
    EXPECT_EQ(dialogs.editLine(new QWidget, request.title, request.title, QString()), std::nullopt);
    whenOpen<QDialog>([&](QDialog& dialog) { destroyParentOf(dialog); });
    EXPECT_EQ(dialogs.editInteger(new QWidget, request.title, request.title, 1, 0, 2),
              std::nullopt);
}

TEST_F(QtDialogs, OpeningTakesOnlyWhatIsThere)
{
    make("datos.asc");
    whenOpen<QFileDialog>(
        [this](QFileDialog& dialog) { nameAndAccept(dialog, path("datos.asc")); });
    EXPECT_EQ(dialogs.openFileName(nullptr, request), path("datos.asc"));

    whenOpen<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.openFileName(nullptr, request), std::nullopt);
}

TEST_F(QtDialogs, LineAndIntegerCanBeCancelled)
{
    const auto answer = [](int key) {
        whenOpen<QDialog>([key](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key(key)); });
    };
    const QString caption = QStringLiteral("Título");
    answer(Qt::Key_Return);
    EXPECT_EQ(dialogs.editLine(nullptr, caption, caption, QStringLiteral("uno")),
              QStringLiteral("uno"));
    answer(Qt::Key_Escape);
    EXPECT_EQ(dialogs.editLine(nullptr, caption, caption, QStringLiteral("uno")), std::nullopt);
    answer(Qt::Key_Return);
    EXPECT_EQ(dialogs.editInteger(nullptr, caption, caption, 3, -1, 8), 3);
    answer(Qt::Key_Escape);
    EXPECT_EQ(dialogs.editInteger(nullptr, caption, caption, 3, -1, 8), std::nullopt);
}
