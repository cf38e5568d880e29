// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Memo.h"

#include "window/Paper.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace controls {

namespace {

constexpr int smallestLetters = 6; // pixels
constexpr int largestLetters = 72;

enum class MemoKey { None, Copy, SelectAll, Larger, Smaller, Usual };

MemoKey meaningOf(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy))
        return MemoKey::Copy;
    if (event.matches(QKeySequence::SelectAll))
        return MemoKey::SelectAll;
    // On some keyboards plus is a shifted key, on all there is another one on the keypad.
    const Qt::KeyboardModifiers held =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const QKeyCombination key(held, static_cast<Qt::Key>(event.key()));
    if (key == (Qt::CTRL | Qt::Key_Plus))
        return MemoKey::Larger;
    if (key == (Qt::CTRL | Qt::Key_Minus))
        return MemoKey::Smaller;
    if (key == (Qt::CTRL | Qt::Key_0))
        return MemoKey::Usual;
    return MemoKey::None;
}

} // namespace

Memo::Memo(const QString& text, QWidget* parent)
    : QPlainTextEdit(text, parent)
{
    QPalette colors = palette();
    window::makePaper(colors);
    setPalette(colors);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

QStringList Memo::lines() const
{
    return toPlainText().split(QLatin1Char('\n'));
}

bool Memo::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        meaningOf(*static_cast<QKeyEvent*>(event)) != MemoKey::None) {
        event->accept();
        return true;
    }
    return QPlainTextEdit::event(event);
}

void Memo::keyPressEvent(QKeyEvent* event)
{
    switch (meaningOf(*event)) {
    case MemoKey::Larger:
        zoom(1);
        break;
    case MemoKey::Smaller:
        zoom(-1);
        break;
    case MemoKey::Usual:
        unzoom();
        break;
    default:
        QPlainTextEdit::keyPressEvent(event);
    }
}

void Memo::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() != Qt::ControlModifier) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    m_turned += event->angleDelta().y();
    const int steps = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned -= steps * QWheelEvent::DefaultDeltasPerStep;
    zoom(steps);
}

/// A step is a tenth of the letters' size, and a pixel at least.
void Memo::zoom(int steps)
{
    if (!m_usualFont)
        m_usualFont = font();
    const int size = QFontInfo(font()).pixelSize();
    QFont zoomed = font();
    zoomed.setPixelSize(
        std::clamp(size + steps * std::max(1, size / 10), smallestLetters, largestLetters));
    setFont(zoomed);
}

void Memo::unzoom()
{
    if (m_usualFont)
        setFont(*std::exchange(m_usualFont, std::nullopt));
}

} // namespace controls
