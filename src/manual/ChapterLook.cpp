// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/ChapterLook.h"

#include "color/Contrast.h"

#include <QFontDatabase>
#include <QPalette>
#include <QTextBlock>
#include <QTextTable>

namespace manual {

namespace {

constexpr qreal margin = 18; // pixels around the text
constexpr qreal cellPadding = 5;

bool isCode(const QTextBlock& block)
{
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
}

bool isPicture(const QTextBlock& block)
{
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        if (piece.fragment().charFormat().isImageFormat())
            return true;
    }
    return false;
}

/// A colour between the text's and its ground: `share` of the text's.
QColor between(const QPalette& palette, qreal share)
{
    return color::mixture(palette.color(QPalette::Base), palette.color(QPalette::Text), share);
}

/// The palette's colour of links, as near to the text's as it takes to be legible: a dark theme may
/// well say nothing of links.
QColor linkColor(const QPalette& palette)
{
    constexpr qreal legible = 5.0;
    const QColor ground = palette.color(QPalette::Base);
    const QColor usual = palette.color(QPalette::Link);
    QColor found = usual;
    for (int tenths = 1; tenths <= 10 && color::contrast(found, ground) < legible; ++tenths)
        found = color::mixture(usual, palette.color(QPalette::Text), tenths / 10.0);
    return found;
}

void formatBlocks(QTextDocument& chapter, const QPalette& palette, qreal space)
{
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QTextBlock block = chapter.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        cursor.select(QTextCursor::BlockUnderCursor);
        QTextBlockFormat layout = block.blockFormat();
        if (isCode(block)) {
            // A block of code is many blocks of text: only the outer ones keep a distance.
            layout.setTopMargin(isCode(block.previous()) ? 0 : space);
            layout.setBottomMargin(isCode(block.next()) ? 0 : space);
            layout.setLeftMargin(space);
            layout.setNonBreakableLines(true);
            layout.setBackground(between(palette, 0.06));
            QTextCharFormat letters;
            letters.setFontFamilies({fixed.family()});
            letters.setFontFixedPitch(true);
            cursor.mergeCharFormat(letters);
        } else if (QTextCursor(block).currentTable() == nullptr) {
            layout.setTopMargin(isHeading(block) ? 2 * space : 0);
            layout.setBottomMargin(block.textList() != nullptr ? space / 2 : space);
            if (!isPicture(block)) // whose height is a line's, too
                layout.setLineHeight(118, QTextBlockFormat::ProportionalHeight);
        }
        QTextCursor(block).setBlockFormat(layout);
    }
}

void formatLinks(QTextDocument& chapter, const QPalette& palette)
{
    QTextCharFormat link;
    link.setForeground(linkColor(palette));
    for (QTextBlock block = chapter.begin(); block.isValid(); block = block.next()) {
        QList<QTextFragment> links; // to change one is to lose the place in the block
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (piece.fragment().charFormat().isAnchor())
                links << piece.fragment();
        }
        for (const QTextFragment& fragment : links) {
            QTextCursor cursor(&chapter);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(link);
        }
    }
}

void formatTables(QTextDocument& chapter, const QPalette& palette)
{
    for (QTextFrame* frame : chapter.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr)
            continue;
        QTextTableFormat look = table->format();
        look.setBorder(1);
        look.setBorderCollapse(true);
        look.setBorderBrush(between(palette, 0.35));
        look.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        look.setCellPadding(cellPadding);
        look.setCellSpacing(0);
        look.setTopMargin(cellPadding);
        look.setBottomMargin(2 * cellPadding);
        table->setFormat(look);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCell cell = table->cellAt(0, column);
            QTextCharFormat heading = cell.format();
            heading.setBackground(between(palette, 0.1));
            cell.setFormat(heading);
        }
    }
}

} // namespace

bool isHeading(const QTextBlock& block)
{
    return block.blockFormat().headingLevel() > 0;
}

void formatChapter(QTextDocument& chapter, const QPalette& palette, qreal space)
{
    chapter.setDocumentMargin(margin);
    formatTables(chapter, palette);
    formatBlocks(chapter, palette, space);
    formatLinks(chapter, palette);
}

} // namespace manual
