// SPDX-License-Identifier: GPL-3.0-or-later
#include "square/extraction/TreatmentKey.h"

#include "base/FileText.h"

namespace square {

namespace {

/// What stands in front of the name of a treatment, counted from 0.
QString introduction(qsizetype treatment)
{
    return (treatment == 0 ? QStringLiteral("Tratamientos: %1 = ") : QStringLiteral(", %1 = "))
        .arg(treatment + 1);
}

} // namespace

QString treatmentKey(const QStringList& treatments)
{
    QString key;
    for (qsizetype i = 0; i < treatments.size(); ++i)
        key += introduction(i) + treatments[i];
    return base::withoutControlCharacters(key);
}

QStringList treatmentsIn(const QByteArray& identifier)
{
    const QString key = base::decodedText(identifier);
    if (!key.startsWith(introduction(0)))
        return {};
    QStringList treatments;
    qsizetype start = introduction(0).size();
    while (start <= key.size()) {
        const QString next = introduction(treatments.size() + 1);
        const qsizetype end = key.indexOf(next, start);
        treatments += key.mid(start, end < 0 ? -1 : end - start);
        start = end < 0 ? key.size() + 1 : end + next.size();
    }
    return treatments;
}

} // namespace square
