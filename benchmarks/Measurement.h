// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QFile>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include <sys/resource.h>

/**
 * What the programs of this folder share: clocks, the turns of one run, and the line that tells its result.
 *
 * A program does one side of a case once and writes one JSON object a line for each value. Who runs it takes
 * turns with the other side, and compares.
 */
namespace Measurement {

/// Seconds of a clock of this process.
inline double seconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

inline double wallSeconds()
{
    return seconds(CLOCK_MONOTONIC);
}

/// Of the calling thread, so that what else the machine does hardly shows.
inline double threadSeconds()
{
    return seconds(CLOCK_THREAD_CPUTIME_ID);
}

/// Of all threads of the process.
inline double processSeconds()
{
    return seconds(CLOCK_PROCESS_CPUTIME_ID);
}

/// The most memory that the process has had, in MiB.
inline double peakMebibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

/// The memory that the process has now without what is mapped from files, in MiB. How much of those is mapped hangs on
/// the pieces in which the system happens to keep them in its cache.
inline double ownMebibytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    const QByteArray name = QByteArrayLiteral("RssAnon:");
    if (status.open(QIODevice::ReadOnly)) {
        for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
            if (line.startsWith(name))
                return line.mid(name.size()).simplified().split(' ').first().toDouble() / 1024;
        }
    }
    qFatal("the kernel does not tell what memory is the process's own");
}

inline double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Does the work and gives its seconds by `clock`. Not inlined, as the counter of instructions counts in here
/// alone.
[[gnu::noinline]] inline double timed(const std::function<void()> &work, double (*clock)() = threadSeconds)
{
    const double before = clock();
    work();
    return clock() - before;
}

/// The arguments of a program: the side, and numbers behind it. A number that is missing is the given one.
class Call final
{
public:
    Call(int argc, char **argv) : m_arguments(argv + 1, argv + argc) { }

    bool isPeer() const { return text(0) == "peer"; }
    QByteArray text(int place) const { return m_arguments.value(place); }
    int number(int place, int otherwise) const
    {
        return place < m_arguments.size() ? m_arguments.at(place).toInt() : otherwise;
    }

    /// Writes one value under the case's name.
    void report(const QByteArray &name, double value, const char *unit) const
    {
        std::printf(R"({"case": "%s", "side": "%s", "value": %.9g, "unit": "%s"})"
                    "\n",
                    name.constData(), isPeer() ? "peer" : "ours", value, unit);
        std::fflush(stdout);
    }

private:
    QVector<QByteArray> m_arguments;
};

/// The median of some turns of one run; the first one only warms up. When instructions are counted, few will
/// do.
inline double medianOfTurns(const std::function<double()> &turn)
{
    int turns = 15;
    if (qEnvironmentVariableIsSet("HALVORA_BENCH_TURNS"))
        turns = qMax(1, qEnvironmentVariableIntValue("HALVORA_BENCH_TURNS"));
    QVector<double> values;
    turn();
    for (int i = 0; i < turns; ++i)
        values.append(turn());
    return median(values);
}

} // namespace Measurement
