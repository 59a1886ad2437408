// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QVector>

#include <algorithm>
#include <cstdio>
#include <functional>

/**
 * Two ways to do the same work, measured in one run, turn by turn: times alone mean nothing on a shared machine.
 * Each way measures itself and gives its milliseconds, so that it can prepare and check outside of the time.
 */
namespace Measurement {

using Way = std::function<double()>;

constexpr int turns = 15;

inline double quantile(QVector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.at(int(part * (values.size() - 1)));
}

/// Runs both and writes one line: medians, the median of the ratios of a turn and the distance of their quartiles.
/// True when the ratio is within the goal.
inline bool compare(const char *name, const Way &ours, const Way &peer, double goal)
{
    QVector<double> times[2];
    QVector<double> ratios;
    for (int turn = 0; turn < turns; ++turn) {
        times[0].append(ours());
        times[1].append(peer());
        ratios.append(times[0].constLast() / times[1].constLast());
    }
    const double ratio = quantile(ratios, 0.5);
    std::printf("%-34s %9.2f ms %9.2f ms   %5.2f +- %.2f   at most %.2f   %s\n", name,
                quantile(times[0], 0.5), quantile(times[1], 0.5), ratio,
                quantile(ratios, 0.75) - quantile(ratios, 0.25), goal, ratio <= goal ? "met" : "NOT MET");
    return ratio <= goal;
}

} // namespace Measurement
