// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/StatusLine.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace shell {

namespace {

class ElidedLabel : public QLabel {
public:
    ElidedLabel(const QString& name, QWidget* parent)
        : QLabel(parent)
    {
        setObjectName(name);
        setTextFormat(Qt::PlainText);
        // A long text is cut at the frame's edge, it does not widen the frame.
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return QLabel::event(event);
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), shownText() == text() ? QString() : text(), this);
        return true;
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), shownText(), foregroundRole());
    }

private:
    QString shownText() const
    {
        return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    }
};

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStackedWidget(parent)
    , m_text(new ElidedLabel(QStringLiteral("Status"), this))
    , m_tip(new ElidedLabel(QStringLiteral("StatusTip"), this))
{
    setAccessibleName(QStringLiteral("Texto de estado"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    addWidget(m_text);
    addWidget(m_tip);
}

void StatusLine::setText(const QString& text)
{
    m_lasting = text;
    showNotice(QString());
}

void StatusLine::showNotice(const QString& notice)
{
    m_text->setText(notice.isEmpty() ? m_lasting : notice);
    showTip(QString());
    m_text->repaint();
}

void StatusLine::showTip(const QString& tip)
{
    m_tip->setText(tip);
    setCurrentWidget(tip.isEmpty() ? m_text : m_tip);
}

} // namespace shell
