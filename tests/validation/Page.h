// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace validation {

/// The document as it grows, in Spanish and Markdown, and what of it is out of its range.
class Page {
public:
    void heading(const QString& text);
    void paragraph(const QString& text);
    void table(const QStringList& header, const QList<QStringList>& rows);

    /// A figure that must not exceed `most`, as text of two significant digits.
    QString atMost(const QString& what, double figure, double most);
    /// A figure that must not fall below `least`, with `decimals` decimals.
    QString atLeast(const QString& what, double figure, double least, int decimals);
    /// A count that must be what it is.
    QString exactly(const QString& what, qint64 count, qint64 expected);

    const QString& text() const { return m_text; }
    const QStringList& failures() const { return m_failures; }

private:
    QString m_text;
    QStringList m_failures;
};

/// Two significant digits: "1,2E-10".
QString twoDigits(double value);

} // namespace validation
