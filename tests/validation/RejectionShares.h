// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "validation/Page.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// How often each test rejects squares that are nothing but noise.
namespace validation {

/// The levels of the power study, 1 - alpha.
constexpr std::array<double, 4> studyLevels{0.90, 0.95, 0.98, 0.99};

/// In per cent.
struct Share {
    double share = 0.0;
    double standardError = 0.0;
};

struct ShareRow {
    QString where; ///< analysis or power study
    QString test;
    int order = 0;
    std::array<Share, studyLevels.size()> atLevels;
};

/// In the analysis: F (treatments) with normal, uniform and exponential noise; Zimmerman, Bennett,
/// C and M, which see only the order of the observations, with uniform noise; Bennett also with
/// noise that was read to so few digits that there are ties. `squares` of each order and each kind
/// of noise.
std::vector<ShareRow> sharesOfTheAnalysis(int squares, std::uint64_t seed);

/// In the power study, at difference 0: studies of 5000 trials, each with critical values of its
/// own, with the three kinds of errors in turn. The standard errors are those between studies.
std::vector<ShareRow> sharesOfTheStudy(int studies, std::uint32_t seed);

void writeShares(Page& page, const std::vector<ShareRow>& analysis,
                 const std::vector<ShareRow>& study, int squares, int studies);

/// The rows of the table that writeShares() wrote into a document.
std::vector<ShareRow> readShares(const QString& document);

/// The shares that are further apart than chance explains: 4.5 standard errors of the difference,
/// and the rounding of what was printed. A row that the document does not have counts, too.
QStringList differences(const std::vector<ShareRow>& shares,
                        const std::vector<ShareRow>& documented);

} // namespace validation
