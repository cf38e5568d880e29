// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/ManualWindow.h"

#include "manual/Browser.h"
#include "manual/Chapters.h"
#include "manual/SearchBar.h"
#include "window/Icons.h"

#include <QAction>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

namespace manual {

namespace {

/// A chapter as its reader sees it, without what Markdown adds.
QString readText(const QString& chapter)
{
    QTextDocument document;
    document.setMarkdown(chapterText(chapter));
    return document.toPlainText();
}

} // namespace

TManual::TManual(QWidget* parent)
    : QMainWindow(parent)
    , m_browser(new Browser)
    , m_search(new SearchBar)
{
    setObjectName(QStringLiteral("Manual"));
    setAccessibleName(QStringLiteral("Manual"));
    setWindowTitle(QStringLiteral("Manual"));
    setWindowIcon(window::icon(window::Picture::Program));

    setContextMenuPolicy(Qt::NoContextMenu); // the tool bar is not to be hidden by accident
    createToolBar();

    auto* page = new QWidget;
    page->setAccessibleName(QStringLiteral("Página del manual"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_search);
    column->addWidget(m_browser, 1);
    setCentralWidget(page);
    m_search->hide();

    connect(m_browser, &Browser::chapterShown, this, &TManual::chapterShown);
    connect(m_search, &SearchBar::textEdited, this, [this] { search(From::Here); });
    connect(m_search, &SearchBar::nextRequested, this, [this] { search(From::Next); });
    connect(m_search, &SearchBar::previousRequested, this, [this] { search(From::Previous); });
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    connect(escape, &QShortcut::activated, this, &TManual::leave);
    resize(sizeHint());
}

QSize TManual::sizeHint() const
{
    constexpr QSize wanted(940, 720);
    return wanted.boundedTo(screen()->availableSize() * 0.9);
}

void TManual::showChapter(const QString& chapter)
{
    const QString wanted = chapters().contains(chapter) ? chapter : indexChapter();
    if (!isVisible() || m_browser->chapter() != wanted)
        m_browser->showChapter(wanted);
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    if (!m_search->isVisible())
        m_browser->setFocus();
}

void TManual::createToolBar()
{
    QToolBar* bar = addToolBar(QStringLiteral("Barra del manual"));
    bar->setObjectName(QStringLiteral("BarraManual"));
    bar->setAccessibleName(bar->windowTitle());
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);

    QAction* back = actionOf(QStringLiteral("Atras"), QStringLiteral("Atrás"),
                             QStringLiteral("Regresa a lo leído antes"), QKeySequence::Back);
    connect(back, &QAction::triggered, m_browser, &Browser::backward);
    connect(m_browser, &Browser::backwardAvailable, back, &QAction::setEnabled);
    QAction* forward = actionOf(QStringLiteral("Adelante"), QStringLiteral("Adelante"),
                                QStringLiteral("Vuelve a lo leído después"), QKeySequence::Forward);
    connect(forward, &QAction::triggered, m_browser, &Browser::forward);
    connect(m_browser, &Browser::forwardAvailable, forward, &QAction::setEnabled);
    for (QAction* action : {back, forward})
        action->setEnabled(false);
    QAction* index = actionOf(QStringLiteral("Indice"), QStringLiteral("Índice"),
                              QStringLiteral("Muestra el índice del manual"), {});
    connect(index, &QAction::triggered, this, [this] { m_browser->showChapter(indexChapter()); });
    QAction* find = actionOf(QStringLiteral("Buscar"), QStringLiteral("Buscar"),
                             QStringLiteral("Busca en el manual"), QKeySequence::Find);
    connect(find, &QAction::triggered, this, &TManual::openSearch);

    bar->addActions({back, forward, index, find});
    for (QAction* action : bar->actions()) {
        QWidget* button = bar->widgetForAction(action);
        button->setObjectName(action->objectName());
        button->setAccessibleName(action->text());
        button->setFocusPolicy(Qt::TabFocus);
    }
}

QAction* TManual::actionOf(const QString& name, const QString& text, const QString& tip,
                           const QKeySequence& key)
{
    auto* action = new QAction(text, this);
    action->setObjectName(name + QStringLiteral("1"));
    action->setShortcut(key);
    const QString keyText = key.toString(QKeySequence::NativeText);
    action->setToolTip(keyText.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keyText));
    return action;
}

/// Goes to the next place that says what is looked for: in this chapter, then in the others, then
/// in this one from its other end.
void TManual::search(From from)
{
    m_search->tell(QString());
    const QString text = m_search->text();
    QTextCursor cursor = m_browser->textCursor();
    if (from == From::Here)
        cursor.setPosition(cursor.selectionStart());
    if (text.isEmpty()) {
        cursor.clearSelection();
        m_browser->setTextCursor(cursor);
        return;
    }
    const QTextDocument::FindFlags flags =
        from == From::Previous ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextCursor found = m_browser->document()->find(text, cursor, flags);
    // While the text is being typed its reader stays in the chapter.
    if (found.isNull() && from != From::Here && searchInOtherChapters(flags))
        return;
    if (found.isNull()) {
        QTextCursor end(m_browser->document());
        end.movePosition(from == From::Previous ? QTextCursor::End : QTextCursor::Start);
        found = m_browser->document()->find(text, end, flags);
    }
    if (!found.isNull())
        m_browser->setTextCursor(found);
    else if (nextChapterThatSays(text, QTextDocument::FindFlags()).isEmpty())
        m_search->tell(QStringLiteral("No se encontró en el manual."));
    else
        m_search->tell(QStringLiteral("No está en este capítulo; Intro sigue en los demás."));
}

/// @return whether another chapter says what is looked for, and shows now
bool TManual::searchInOtherChapters(QTextDocument::FindFlags flags)
{
    const QString chapter = nextChapterThatSays(m_search->text(), flags);
    if (chapter.isEmpty())
        return false;
    m_browser->showChapter(chapter);
    QTextCursor end(m_browser->document());
    end.movePosition(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End
                                                                 : QTextCursor::Start);
    m_browser->setTextCursor(m_browser->document()->find(m_search->text(), end, flags));
    return true;
}

/// The nearest of the other chapters, around the end of the manual; empty where none says it.
QString TManual::nextChapterThatSays(const QString& text, QTextDocument::FindFlags flags)
{
    const QStringList all = chapters();
    const auto here = all.indexOf(m_browser->chapter());
    const bool backward = flags.testFlag(QTextDocument::FindBackward);
    for (qsizetype step = 1; step < all.size(); ++step) {
        const QString& chapter =
            all.at((here + (backward ? all.size() - step : step)) % all.size());
        if (!m_readTexts.contains(chapter)) // a chapter does not change while the program runs
            m_readTexts.insert(chapter, readText(chapter));
        if (m_readTexts.value(chapter).contains(text, Qt::CaseInsensitive))
            return chapter;
    }
    return {};
}

void TManual::chapterShown(const QString& title)
{
    setWindowTitle(QStringLiteral("%1 - Manual de Cuadrado Latino").arg(title));
    m_browser->setAccessibleName(title);
}

void TManual::openSearch()
{
    m_search->open();
}

/// Out of the search; without one, out of the manual.
void TManual::leave()
{
    if (m_search->isVisible()) {
        m_search->hide();
        m_browser->setFocus();
    } else {
        close();
    }
}

} // namespace manual
