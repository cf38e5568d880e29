// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/SearchBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace manual {

namespace {

QPushButton* buttonOf(const QString& name, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

} // namespace

SearchBar::SearchBar(QWidget* parent)
    : QWidget(parent)
    , m_edit(new QLineEdit)
    , m_result(new QLabel)
{
    setObjectName(QStringLiteral("Busqueda"));
    setAccessibleName(QStringLiteral("Búsqueda"));
    auto* label = new QLabel(QStringLiteral("Buscar:"));
    label->setBuddy(m_edit);
    m_edit->setObjectName(QStringLiteral("TextoBuscado"));
    m_edit->setAccessibleName(QStringLiteral("Texto que se busca"));
    m_edit->setClearButtonEnabled(false);
    m_result->setObjectName(QStringLiteral("Resultado"));
    m_result->setTextFormat(Qt::PlainText);
    QPushButton* next = buttonOf(QStringLiteral("Siguiente"), QStringLiteral("Siguiente"));
    QPushButton* previous = buttonOf(QStringLiteral("Anterior"), QStringLiteral("Anterior"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(label);
    row->addWidget(m_edit, 1);
    row->addWidget(next);
    row->addWidget(previous);
    row->addWidget(m_result, 1);

    connect(m_edit, &QLineEdit::textEdited, this, &SearchBar::textEdited);
    connect(next, &QPushButton::clicked, this, &SearchBar::nextRequested);
    connect(previous, &QPushButton::clicked, this, &SearchBar::previousRequested);
}

QString SearchBar::text() const
{
    return m_edit->text();
}

void SearchBar::open()
{
    tell(QString());
    show();
    m_edit->setFocus(Qt::ShortcutFocusReason);
    m_edit->selectAll();
}

void SearchBar::tell(const QString& result)
{
    m_result->setText(result);
    m_result->setAccessibleName(result.isEmpty() ? QStringLiteral("Sin resultado") : result);
}

void SearchBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->modifiers().testFlag(Qt::ShiftModifier))
        emit previousRequested();
    else
        emit nextRequested();
}

} // namespace manual
