// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "Measurement.h"
#include "OpenSsl.h"

#include "link/FrameCodec.h"
#include "link/HalvoraConnSocket.h"
#include "link/HalvoraConnThread.h"
#include "link/HalvoraConnection.h"
#include "model/Halvora.h"

#include <QCoreApplication>

// bench_broad ours|peer: the state of an output, from the bytes of its frame to the signals of the output.
// Ours takes the way of the product, with the step from thread to thread as an event that is posted and
// delivered, but without a socket: the bytes are put into the socket's buffer beforehand. The peer unarmours,
// deciphers and splits them.

namespace {

constexpr int messages = 400; // in a turn

const QString stateText = QStringLiteral("41|BROAD|3|0|5|30|0|2|0|-4|10");

class Ours final
{
public:
    Ours()
    {
        QObject::connect(&m_socket, &HalvoraConnSocket::elaborateCommand, &m_connection,
                         &HalvoraConnection::elaborateCommandReceived);
        QObject::connect(&m_connection, &HalvoraConnection::elaborateCommandReceived, &m_thread,
                         &HalvoraConnThread::elaborateCommandReceived, Qt::QueuedConnection);
        m_device.setConnPointer(&m_thread);
        m_device.commandReceived(
            {QString(), QString(), QStringLiteral("1"), QString(), QStringLiteral("5@Bath")});
        Output *output = m_device.outputAt(5);
        const auto count = [this] { ++m_signals; };
        for (const auto changed : {&Output::volumeChanged, &Output::muteChanged, &Output::bassChanged,
                                   &Output::middleChanged, &Output::trebleChanged, &Output::loudnessChanged})
            QObject::connect(output, changed, count);
        m_socket.open(QIODevice::ReadWrite);
    }

    double receive(const QByteArray &frame)
    {
        for (int i = frame.size() - 1; i >= 0; --i)
            m_socket.ungetChar(frame.at(i));
        m_signals = 0;
        const double elapsed = Measurement::timed(
            [this] {
                m_socket.socketReadStream();
                QCoreApplication::sendPostedEvents();
            },
            Measurement::wallSeconds);
        if (m_signals != 6 || m_device.outputAt(5)->treble() != -4)
            qFatal("the output has not heard of its state");
        return elapsed;
    }

private:
    HalvoraConnSocket m_socket;
    HalvoraConnection m_connection{QString(), 0};
    HalvoraConnThread m_thread;
    Halvora m_device;
    int m_signals = 0;
};

double byPeer(const QByteArray &frame)
{
    QList<QByteArray> fields;
    const double elapsed = Measurement::timed(
        [&] {
            const QByteArray armoured = frame.left(frame.size() - int(qstrlen(FrameCodec::deviceTerminator)));
            fields = OpenSsl::cbc(OpenSsl::Decipher, QByteArray::fromBase64(armoured),
                                  QByteArrayLiteral("7391058264610275"), QByteArray(16, '\0'), true)
                         .split('|');
        },
        Measurement::wallSeconds);
    if (fields.size() != 11 || fields.at(9) != "-4")
        qFatal("the message has not come out");
    return elapsed;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const Measurement::Call call(argc, argv);
    const QByteArray frame = FrameCodec::encryptText(stateText) + FrameCodec::deviceTerminator;
    Ours ours;
    const std::function<double()> one = call.isPeer() ? std::function<double()>([&] { return byPeer(frame); })
                                                      : [&] { return ours.receive(frame); };
    const double seconds = Measurement::medianOfTurns([&] {
        QVector<double> times;
        for (int i = 0; i < messages; ++i)
            times.append(one());
        return Measurement::median(times);
    });
    call.report("broad", seconds * 1e9, "ns");
    return 0;
}
