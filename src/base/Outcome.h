// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace base {

/// What a reading came to: a value, or the reason, in Spanish and for the user, why there is none.
template <typename T>
struct Outcome {
    std::optional<T> value;
    QString reason; ///< Whole sentences; empty when there is a value.

    /// The reason alone.
    std::optional<QString> problem() const { return value ? std::nullopt : std::optional(reason); }

    static Outcome of(T result) { return {std::move(result), QString()}; }
    static Outcome refused(QString why) { return {std::nullopt, std::move(why)}; }
};

} // namespace base
