// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"

#include "player/HalvoraPlayer.h"
#include "player/PlayerTiming.h"

#include <QCoreApplication>
#include <QEventLoop>

// bench_requests ours PORT: 2,000 requests to the server on that port, one after another and then all at
// once.

namespace {

constexpr int requests = 2000;

/// Takes the replies, and asks again behind each when they are to come one after another.
class Asker final : public QObject
{
    Q_OBJECT

public:
    Asker(HalvoraPlayer *player, int atOnce) : m_player(player), m_atOnce(atOnce) { }

    /// Wall seconds until the last reply.
    double run()
    {
        QEventLoop loop;
        connect(this, &Asker::done, &loop, &QEventLoop::quit);
        const double before = Measurement::wallSeconds();
        while (m_asked < m_atOnce)
            ask();
        loop.exec();
        return Measurement::wallSeconds() - before;
    }

    Q_INVOKABLE void browseAnswered(int, QJsonValue v)
    {
        if (v.toInt() != 3)
            qFatal("a wrong answer");
        if (++m_answered == requests)
            Q_EMIT done();
        else if (m_asked < requests)
            ask();
    }

Q_SIGNALS:
    void done();

private:
    void ask()
    {
        ++m_asked;
        m_player->actionPlayIndex(this, "browseAnswered");
    }

    HalvoraPlayer *m_player;
    int m_atOnce;
    int m_asked = 0;
    int m_answered = 0;
};

// The first poll's answer tells that the connection stands; the next one is sixty ticks away.
void connectTo(HalvoraPlayer *player, const QByteArray &port)
{
    PlayerTiming::current().tick = 100;
    QEventLoop loop;
    QObject::connect(player, &HalvoraPlayer::repeatChanged, &loop, &QEventLoop::quit);
    player->setIpAddress(QStringLiteral("127.0.0.1"));
    player->setPort(QString::fromLatin1(port));
    player->startConnection();
    loop.exec();
}

double callsPerSecond(HalvoraPlayer *player, int atOnce)
{
    Asker asker(player, atOnce);
    return requests / asker.run();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    HalvoraPlayer player;
    connectTo(&player, call.text(1));
    const double before = Measurement::processSeconds();
    call.report("requests-in-turn", callsPerSecond(&player, 1), "/s");
    const double between = Measurement::processSeconds();
    call.report("requests-in-turn-processor", (between - before) * 1e3, "ms");
    call.report("requests-pipelined", callsPerSecond(&player, requests), "/s");
    call.report("requests-pipelined-processor", (Measurement::processSeconds() - between) * 1e3, "ms");
    call.report("requests-memory", Measurement::peakMebibytes(), "MiB");
    call.report("requests-memory-own", Measurement::ownMebibytes(), "MiB");
    return 0;
}

#include "bench_requests.moc"
