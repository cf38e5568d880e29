// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/TestKind.h"

namespace stats {

const std::vector<Approach>& approaches()
{
    static const std::vector<Approach> all{Approach::Classical, Approach::Ranks,
                                           Approach::Sequences};
    return all;
}

const std::vector<TestKind>& testsOf(Approach approach)
{
    static const std::vector<TestKind> classical{TestKind::F};
    static const std::vector<TestKind> ranks{TestKind::Zimmerman, TestKind::Bennett};
    static const std::vector<TestKind> sequences{TestKind::C, TestKind::M};
    switch (approach) {
    case Approach::Classical:
        return classical;
    case Approach::Ranks:
        return ranks;
    case Approach::Sequences:
        break;
    }
    return sequences;
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
