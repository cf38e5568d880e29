// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

#include <memory>

namespace manual {

/// Shows one chapter in the colours of the palette, with its pictures as wide as there is room.
///
/// Follows links between chapters and to headings in them, and remembers the way.
class Browser : public QTextBrowser {
    Q_OBJECT

public:
    explicit Browser(QWidget* parent = nullptr);

    QString chapter() const;
    void showChapter(const QString& chapter);

    QVariant loadResource(int type, const QUrl& name) override;

signals:
    /// Another chapter shows, or another place of it.
    void chapterShown(const QString& title);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void arrive(const QUrl& place);
    void showText(const QString& chapter);
    void fitPictures();
    void scrollToHeading(const QString& anchor);
    QImage fittedPicture(const QUrl& name) const;

    std::unique_ptr<QTextDocument> m_text; // of the chapter; nothing before the first
};

} // namespace manual
