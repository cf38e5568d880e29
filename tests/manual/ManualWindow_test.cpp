// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/ManualWindow.h"

#include "manual/Browser.h"
#include "manual/Chapters.h"
#include "support/Contrast.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <QToolButton>

namespace {

class ManualWindow : public ::testing::Test {
protected:
    void open(const QString& chapter)
    {
        manual.showChapter(chapter);
        QApplication::setActiveWindow(&manual);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&manual));
    }

    manual::Browser& text() { return *manual.findChild<manual::Browser*>(); }
    QString title() { return text().document()->firstBlock().text(); }
    QLineEdit& searched() { return *manual.findChild<QLineEdit*>(QStringLiteral("TextoBuscado")); }
    QString result() { return manual.findChild<QLabel*>(QStringLiteral("Resultado"))->text(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void searchFor(const QString& wanted)
    {
        press(Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(searched().hasFocus());
        QTest::keyClicks(&searched(), wanted);
    }
    QString blockOfCursor() { return text().textCursor().block().text(); }

    /// Clicks on the link whose text this is.
    void follow(const QString& link)
    {
        const QTextCursor found = text().document()->find(link);
        ASSERT_FALSE(found.isNull()) << link.toStdString();
        text().setTextCursor(found);
        text().ensureCursorVisible();
        QTextCursor start = found;
        start.setPosition(found.selectionStart());
        const QPoint place = text().cursorRect(start).center() + QPoint(6, 0);
        QTest::mouseClick(text().viewport(), Qt::LeftButton, {}, place);
    }

    manual::TManual manual;
};

} // namespace

TEST_F(ManualWindow, HoldsEveryChapterOfTheIndex)
{
    ASSERT_GE(manual::chapters().size(), 15);
    for (const QString& chapter : manual::chapters()) {
        open(chapter);
        EXPECT_EQ(text().chapter(), chapter);
        EXPECT_TRUE(manual::chapterText(chapter).startsWith(QStringLiteral("# ") + title()));
        EXPECT_EQ(manual.windowTitle(), title() + QStringLiteral(" - Manual de Cuadrado Latino"));
        EXPECT_EQ(text().accessibleName(), title());
    }
}

TEST_F(ManualWindow, ShowsTheIndexForWhatIsNoChapter)
{
    open(QStringLiteral("no-hay"));
    EXPECT_EQ(text().chapter(), manual::indexChapter());
}

TEST_F(ManualWindow, EveryLinkLeadsToAChapterAndEveryPictureShows)
{
    int links = 0;
    int pictures = 0;
    for (const QString& chapter : manual::chapters()) {
        open(chapter);
        for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                const QTextCharFormat format = piece.fragment().charFormat();
                if (format.isAnchor()) {
                    ++links;
                    const QUrl target = text().source().resolved(QUrl(format.anchorHref()));
                    EXPECT_TRUE(manual::chapters().contains(manual::chapterOf(target)))
                        << format.anchorHref().toStdString();
                } else if (format.isImageFormat()) {
                    ++pictures;
                    const QUrl name(format.toImageFormat().name());
                    const auto picture = text()
                                             .document()
                                             ->resource(QTextDocument::ImageResource, name)
                                             .value<QImage>();
                    EXPECT_FALSE(picture.isNull()) << name.toString().toStdString();
                }
            }
        }
    }
    EXPECT_GT(links, 40);
    EXPECT_GE(pictures, 9);
}

TEST_F(ManualWindow, FollowsLinksAndTheWayBackByKeys)
{
    open(manual::indexChapter());
    follow(QStringLiteral("Del campo al programa"));
    EXPECT_EQ(text().chapter(), QStringLiteral("del-campo-al-programa"));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(text().chapter(), manual::indexChapter());
    EXPECT_EQ(manual.windowTitle(), QStringLiteral("Manual de Cuadrado Latino - Manual de Cuadrado "
                                                   "Latino"));
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(text().chapter(), QStringLiteral("del-campo-al-programa"));
}

TEST_F(ManualWindow, ALinkMayLeadToAHeading)
{
    open(QStringLiteral("preguntas"));
    follow(QStringLiteral("Datos que faltan"));
    ASSERT_EQ(text().chapter(), QStringLiteral("del-campo-al-programa"));
    EXPECT_EQ(blockOfCursor(), QStringLiteral("Datos que faltan"));
    const QRect heading = text().cursorRect();
    EXPECT_GE(heading.top(), 0);
    EXPECT_LT(heading.top(), text().viewport()->height() / 3);
    // And to another of the same chapter.
    follow(QStringLiteral("varias observaciones por celda"));
    EXPECT_EQ(blockOfCursor(), QStringLiteral("Varias observaciones por celda"));
}

TEST_F(ManualWindow, LooksTheSameOnTheWayBack)
{
    open(QStringLiteral("las-pruebas"));
    const auto look = [this] {
        const auto* table =
            qobject_cast<QTextTable*>(text().document()->rootFrame()->childFrames().first());
        return std::pair(table->format().cellPadding(), table->format().borderCollapse());
    };
    const auto before = look();
    EXPECT_GT(before.first, 0);
    EXPECT_TRUE(before.second);
    const int height = qRound(text().document()->size().height());
    follow(QStringLiteral("Lo que hay que saber antes de creer"));
    ASSERT_EQ(text().chapter(), QStringLiteral("antes-de-creer"));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(look(), before);
    EXPECT_EQ(qRound(text().document()->size().height()), height);
}

TEST_F(ManualWindow, TheWayBackLeadsToWhereItsReaderWas)
{
    open(QStringLiteral("del-campo-al-programa"));
    text().verticalScrollBar()->setValue(4000);
    manual.showChapter(QStringLiteral("bibliografia"));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(text().chapter(), QStringLiteral("del-campo-al-programa"));
    EXPECT_EQ(text().verticalScrollBar()->value(), 4000);
}

TEST_F(ManualWindow, AChapterIsLaidOutForTheScreenThatItIsOn)
{
    open(QStringLiteral("bibliografia"));
    EXPECT_EQ(text().document()->documentLayout()->paintDevice(), text().viewport());
}

TEST_F(ManualWindow, TheScrollBarLeadsToTheEndAtOnce)
{
    for (const QString& chapter : manual::chapters()) {
        open(chapter);
        const int end = text().verticalScrollBar()->maximum();
        const int height = qRound(text().document()->size().height());
        EXPECT_EQ(std::max(0, height - text().viewport()->height()), end) << chapter.toStdString();
    }
}

TEST_F(ManualWindow, ButtonsDoWhatTheKeysDo)
{
    open(QStringLiteral("editor"));
    const auto button = [this](const char* name) {
        return manual.findChild<QToolButton*>(QString::fromLatin1(name));
    };
    EXPECT_FALSE(button("Atras1")->isEnabled());
    QTest::mouseClick(button("Indice1"), Qt::LeftButton);
    EXPECT_EQ(text().chapter(), manual::indexChapter());
    QTest::mouseClick(button("Atras1"), Qt::LeftButton);
    EXPECT_EQ(text().chapter(), QStringLiteral("editor"));
    QTest::mouseClick(button("Adelante1"), Qt::LeftButton);
    EXPECT_EQ(text().chapter(), manual::indexChapter());
    QTest::mouseClick(button("Buscar1"), Qt::LeftButton);
    EXPECT_TRUE(searched().isVisible());
}

TEST_F(ManualWindow, SearchesInTheChapterAndThenInTheOthers)
{
    open(QStringLiteral("editor"));
    searchFor(QStringLiteral("portapapeles"));
    EXPECT_EQ(text().textCursor().selectedText(), QStringLiteral("portapapeles"));
    const int first = text().textCursor().selectionStart();
    press(Qt::Key_Return);
    const int second = text().textCursor().selectionStart();
    EXPECT_GT(second, first);
    EXPECT_EQ(text().chapter(), QStringLiteral("editor"));
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(text().textCursor().selectionStart(), first);
    EXPECT_EQ(text().chapter(), QStringLiteral("editor"));

    for (int i = 0; i < 60 && text().chapter() == QStringLiteral("editor"); ++i)
        press(Qt::Key_Return);
    EXPECT_NE(text().chapter(), QStringLiteral("editor"));
    EXPECT_EQ(text().textCursor().selectedText().toLower(), QStringLiteral("portapapeles"));
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(text().chapter(), QStringLiteral("editor"));
}

TEST_F(ManualWindow, TypingStaysInTheChapterAndSaysWhereTheTextIs)
{
    open(QStringLiteral("potencia"));
    searchFor(QStringLiteral("Kruskal"));
    EXPECT_EQ(text().chapter(), QStringLiteral("potencia"));
    EXPECT_EQ(result(), QStringLiteral("No está en este capítulo; Intro sigue en los demás."));
    press(Qt::Key_Return);
    EXPECT_NE(text().chapter(), QStringLiteral("potencia"));
    EXPECT_EQ(text().textCursor().selectedText(), QStringLiteral("Kruskal"));
    EXPECT_EQ(result(), QString());

    searched().clear();
    QTest::keyClicks(&searched(), QStringLiteral("xyzzy"));
    EXPECT_EQ(result(), QStringLiteral("No se encontró en el manual."));
    press(Qt::Key_Return);
    EXPECT_EQ(result(), QStringLiteral("No se encontró en el manual."));
}

TEST_F(ManualWindow, EscapeLeavesTheSearchAndThenTheManual)
{
    open(QStringLiteral("editor"));
    searchFor(QStringLiteral("celda"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(searched().isVisible());
    EXPECT_TRUE(text().hasFocus());
    EXPECT_TRUE(manual.isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(manual.isVisible());
}

TEST_F(ManualWindow, AskedForTheSameChapterStaysWhereItsReaderIs)
{
    open(QStringLiteral("las-pruebas"));
    text().verticalScrollBar()->setValue(500);
    manual.showChapter(QStringLiteral("las-pruebas"));
    EXPECT_EQ(text().verticalScrollBar()->value(), 500);
    manual.close();
    manual.showChapter(QStringLiteral("las-pruebas"));
    EXPECT_EQ(text().verticalScrollBar()->value(), 0);
}

TEST_F(ManualWindow, PicturesAreAsWideAsThereIsRoom)
{
    open(QStringLiteral("editor"));
    const auto width = [this] {
        const QUrl name(QStringLiteral("imagenes/editor.png"));
        return text()
            .document()
            ->resource(QTextDocument::ImageResource, name)
            .value<QImage>()
            .width();
    };
    const int natural = QImage(QStringLiteral(":/manual/imagenes/editor.png")).width();
    manual.resize(600, 500);
    QApplication::processEvents();
    EXPECT_LT(width(), text().viewport()->width());
    EXPECT_GT(width(), text().viewport()->width() / 2);
    EXPECT_EQ(text().horizontalScrollBar()->maximum(), 0);
    manual.resize(natural + 300, 500);
    QApplication::processEvents();
    EXPECT_EQ(width(), natural);
}

TEST_F(ManualWindow, NoGapIsLeftBelowAPicture)
{
    open(QStringLiteral("editor"));
    const QTextDocument& document = *text().document();
    int pictures = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const auto piece = block.begin();
        if (piece.atEnd() || !piece.fragment().charFormat().isImageFormat())
            continue;
        ++pictures;
        const QUrl name(piece.fragment().charFormat().toImageFormat().name());
        const auto picture = document.resource(QTextDocument::ImageResource, name).value<QImage>();
        const QRectF place = document.documentLayout()->blockBoundingRect(block);
        EXPECT_LT(place.height(), picture.height() * 1.08);
    }
    EXPECT_EQ(pictures, 2);
}

TEST_F(ManualWindow, IsLegibleInLightAndDark)
{
    const struct {
        QColor ground;
        QColor letters;
    } themes[] = {{QColor(255, 255, 255), QColor(35, 38, 41)},
                  {QColor(35, 38, 41), QColor(239, 240, 241)}};
    for (const auto& theme : themes) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Base, theme.ground);
        palette.setColor(QPalette::Text, theme.letters);
        palette.setColor(QPalette::Link, Qt::blue); // whatever the theme says
        text().setPalette(palette);
        open(QStringLiteral("las-pruebas"));
        QApplication::processEvents();
        int code = 0;
        int links = 0;
        for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                const QTextCharFormat format = piece.fragment().charFormat();
                links += format.isAnchor() ? 1 : 0;
                if (format.isAnchor()) {
                    EXPECT_GT(contrast(format.foreground().color(), theme.ground), 4.5);
                }
            }
            const QBrush ground = block.blockFormat().background();
            if (ground.style() == Qt::NoBrush)
                continue;
            ++code;
            EXPECT_GT(contrast(ground.color(), theme.letters), 7.0);
        }
        EXPECT_GT(code, 20);
        EXPECT_GT(links, 1);
        const QImage shown = text().viewport()->grab().toImage();
        EXPECT_EQ(shown.pixelColor(2, 2), theme.ground);
    }
}
