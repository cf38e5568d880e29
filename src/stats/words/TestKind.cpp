// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/TestKind.h"

namespace stats {

std::vector<Approach> approaches()
{
    return {Approach::Classical, Approach::Ranks, Approach::Sequences};
}

std::vector<TestKind> testsOf(Approach approach)
{
    switch (approach) {
    case Approach::Classical:
        return {TestKind::F};
    case Approach::Ranks:
        return {TestKind::Zimmerman, TestKind::Bennett};
    case Approach::Sequences:
        break;
    }
    return {TestKind::C, TestKind::M};
}

QString caption(Approach approach)
{
    switch (approach) {
    case Approach::Classical:
        return QStringLiteral("Clásico");
    case Approach::Ranks:
        return QStringLiteral("Rangos");
    case Approach::Sequences:
        break;
    }
    return QStringLiteral("Secuencias");
}

QString caption(TestKind kind)
{
    switch (kind) {
    case TestKind::F:
        return QStringLiteral("Prueba F");
    case TestKind::Zimmerman:
        return QStringLiteral("Zimmerman (F)");
    case TestKind::Bennett:
        return QStringLiteral("Bennett (Chi-2)");
    case TestKind::C:
        return QStringLiteral("Prueba C (Exacta -> Normal)");
    case TestKind::M:
        break;
    }
    return QStringLiteral("Prueba M (Exacta -> F)");
}

} // namespace stats
