// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/UpDown.h"

#include "window/OpenQuestion.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace controls {

namespace {

/// Whole numbers have no decimals: a point or a comma can only set thousands apart.
QString withoutSeparators(QString text)
{
    return text.remove(QLatin1Char('.')).remove(QLatin1Char(','));
}

} // namespace

UpDown::UpDown(int low, int high, int increment, Typing typing, QWidget* parent)
    : QSpinBox(parent)
    , m_position(low)
{
    setLocale(QLocale::c()); // the same digits as everywhere else in the program
    setRange(low, high);
    setSingleStep(increment);
    setValue(low);
    setFocusPolicy(Qt::StrongFocus); // which the wheel does not give
    edit()->setReadOnly(typing == Typing::Nothing);
    // Assistive technology sets values and texts without a step, and without an edit by keys.
    connect(edit(), &QLineEdit::textEdited, this, [this] { m_isTyping = true; });
    connect(this, &QSpinBox::valueChanged, this, [this] {
        if (!m_isTyping)
            takeOver();
    });
    connect(edit(), &QLineEdit::textChanged, this, [this] { m_isTyping = false; });
}

void UpDown::setPosition(int position)
{
    const QSignalBlocker blocker(this);
    setValue(position);
    m_position = value();
}

void UpDown::setFirstText(const QString& text)
{
    m_firstText = text;
    setPosition(m_position);
}

bool UpDown::discardTyped()
{
    const bool wasTyped = !edit()->hasAcceptableInput() || value() != m_position;
    setPosition(m_position);
    return wasTyped;
}

void UpDown::stepBy(int steps)
{
    m_clicked = false;
    QSpinBox::stepBy(steps);
    if (!m_clicked) // at a limit
        takeOver();
}

void UpDown::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore(); // Qt would take what was typed over, as a step alone does here
    else
        QSpinBox::keyPressEvent(event);
}

void UpDown::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

/// Both arrows work at the limits too, where a click is a click all the same.
QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

QString UpDown::textFromValue(int value) const
{
    const bool isFirst = !m_firstText.isEmpty() && valueFromText(m_firstText) == value;
    return isFirst ? m_firstText : QString::number(value);
}

int UpDown::valueFromText(const QString& text) const
{
    return withoutSeparators(text).toInt();
}

QValidator::State UpDown::validate(QString& text, int& cursor) const
{
    QString digits = withoutSeparators(text);
    return QSpinBox::validate(digits, cursor);
}

void UpDown::takeOver()
{
    if (window::isAsking()) {
        setPosition(m_position);
        window::showQuestion();
        return;
    }
    m_position = value();
    m_firstText.clear();
    m_clicked = true;
    emit Click();
}

} // namespace controls
