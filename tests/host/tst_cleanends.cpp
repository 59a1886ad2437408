// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostProcess.h"

#include <QRandomGenerator>
#include <QtTest>

#include <csignal>

namespace {

QString operator""_s(const char *text, std::size_t length)
{
    return QString::fromUtf8(text, int(length));
}

int environmentNumber(const char *variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

/// A simulated house as a process, with something wrong with it.
class FaultyHouse final
{
public:
    explicit FaultyHouse(const QString &fault)
    {
        QTemporaryFile state;
        if (!state.open() || state.write(fault.toUtf8() + '\n') < 0 || !state.flush())
            return;
        m_process.start(QStringLiteral(HALVORA_SIMULATOR), {"--state"_s, state.fileName()});
        QByteArray out;
        while (!out.contains("artwork") && m_process.waitForReadyRead())
            out += m_process.readAllStandardOutput();
        m_address = QString::fromUtf8(out.left(out.indexOf('\n'))).section(QLatin1Char(' '), 1);
    }

    ~FaultyHouse()
    {
        m_process.write("quit\n");
        m_process.waitForFinished();
    }

    QString address() const { return m_address; } ///< of the device; empty when there is none

private:
    QProcess m_process;
    QString m_address;
};

} // namespace

/**
 * The host ends well at any moment of its life: on a tour through all screens of the demo, and before a house with a
 * fault. HALVORA_ENDS is the number of ends, HALVORA_SEED repeats the moments of an earlier run.
 */
class CleanEndsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void endsAtAnyMoment_data();
    void endsAtAnyMoment();

private:
    quint32 m_seed = 0;
};

void CleanEndsTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "needs a display; ./test brings one");
    m_seed = quint32(environmentNumber("HALVORA_SEED", int(QRandomGenerator::system()->bounded(1000000))));
    qInfo("HALVORA_SEED=%u", m_seed);
}

void CleanEndsTest::endsAtAnyMoment_data()
{
    const QStringList faults{"refuse-login on"_s,    "ignore-login on"_s,   "silent on"_s,
                             "close-on-accept on"_s, "close-after 700"_s,   "byte-by-byte on"_s,
                             "wrong-padding on"_s,   "link-delay 400"_s,    "link-refuse"_s,
                             "music-silent on"_s,    "music-error on"_s,    "music-double on"_s,
                             "music-garbage on"_s,   "music-delay 700"_s,   "pictures-missing on"_s,
                             "pictures-broken on"_s, "pictures-delay 800"_s};
    QTest::addColumn<QString>("fault"); // none: a tour of the demo
    QTest::addColumn<int>("moment");    // milliseconds from when the host listens to signals
    QTest::addColumn<int>("signal");
    QRandomGenerator chance(m_seed);
    const auto early = [&chance](int latest) { // more often early than late
        const double share = chance.generateDouble();
        return int(latest * share * share);
    };
    const int ends = environmentNumber("HALVORA_ENDS", 20);
    for (int number = 0; number < ends; ++number) {
        const bool tours = number % 2 == 0;
        const QString fault = tours ? QString() : faults.at(chance.bounded(faults.size()));
        const int moment = early(tours ? 12000 : 4000);
        const int signal = chance.bounded(2) ? SIGTERM : SIGINT;
        QTest::addRow("%d: %s, signal %d after %d ms", number, tours ? "tour" : qPrintable(fault), signal,
                      moment)
            << fault << moment << signal;
    }
}

void CleanEndsTest::endsAtAnyMoment()
{
    QFETCH(QString, fault);
    QFETCH(int, moment);
    QFETCH(int, signal);
    HostProcess host;
    std::unique_ptr<FaultyHouse> house;
    if (fault.isEmpty()) {
        host.set("QT_QPA_PLATFORM"_s, "xcb"_s);
        host.start({"--demo"_s, "--tour"_s, host.home() + "/tour"_s});
    } else {
        house = std::make_unique<FaultyHouse>(fault);
        QVERIFY(!house->address().isEmpty());
        host.set("HALVORA_PASSWORD"_s, "x"_s);
        host.start({"--device"_s, house->address(), "--user"_s, "anna"_s});
    }
    const auto listens = [&host] {
        // Until it has become the host, it is a copy of this program and has its handlers.
        return host.commandLine().startsWith(HALVORA_HOST) && host.catches(SIGTERM) && host.catches(SIGINT);
    };
    QTRY_VERIFY_WITH_TIMEOUT(listens(), 30000);
    QTest::qWait(moment); // the moment is what is tried here
    host.sendSignal(signal);
    QCOMPARE(host.wait(), 0);
    QCOMPARE(host.err(), QString());
}

QTEST_GUILESS_MAIN(CleanEndsTest)

#include "tst_cleanends.moc"
