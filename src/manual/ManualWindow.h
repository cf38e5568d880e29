// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QTextDocument>

class QAction;

namespace manual {

class Browser;
class SearchBar;

/// The manual in a window of its own, beside the frame: it may stay open while its reader works.
class TManual : public QMainWindow {
    Q_OBJECT

public:
    explicit TManual(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// Brings the window to the front with a chapter; with the index where the name is empty. One
    /// that is open there already stays where its reader is.
    void showChapter(const QString& chapter);

private:
    enum class From { Here, Next, Previous };

    void createToolBar();
    QAction* actionOf(const QString& name, const QString& text, const QString& tip,
                      const QKeySequence& key);
    void search(From from);
    bool searchInOtherChapters(QTextDocument::FindFlags flags);
    QString nextChapterThatSays(const QString& text, QTextDocument::FindFlags flags);
    void chapterShown(const QString& title);
    void openSearch();
    void leave();

    Browser* m_browser = nullptr;
    SearchBar* m_search = nullptr;
    QHash<QString, QString> m_readTexts; ///< Of the chapters that were searched.
};

} // namespace manual
