// SPDX-License-Identifier: GPL-3.0-or-later
#include "stats/words/TestKind.h"

#include <array>

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
    static const std::array captions{QStringLiteral("Clásico"), QStringLiteral("Rangos"),
                                     QStringLiteral("Secuencias")};
    return captions.at(static_cast<std::size_t>(approach));
}

QString caption(TestKind kind)
{
    static const std::array captions{QStringLiteral("Prueba F"), QStringLiteral("Zimmerman (F)"),
                                     QStringLiteral("Bennett (Chi-2)"),
                                     QStringLiteral("Prueba C (Exacta -> Normal)"),
                                     QStringLiteral("Prueba M (Exacta -> F)")};
    return captions.at(static_cast<std::size_t>(kind));
}

} // namespace stats
