// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/HalvoraConnSocket.h"

#include "link/FrameCodec.h"
#include "link/QtCompat.h"
#include "link/WatchdogInterval.h"

namespace {

// Time limits in ticks of the watchdog, that is, in seconds.
constexpr int dialLimit = 11;
constexpr int joinLimit = 6;
constexpr int aliveLimit = 16;

// What is no port must not wrap round to some other service; port 0 refuses.
quint16 portNumber(int port)
{
    return port > 0 && port <= 65535 ? quint16(port) : quint16(0);
}

} // namespace

HalvoraConnSocket::HalvoraConnSocket(QObject *parent) : QTcpSocket(parent)
{
    m_watchdog.setInterval(WatchdogInterval::milliseconds());
    connect(&m_watchdog, &QTimer::timeout, this, &HalvoraConnSocket::timerTimeout, Qt::DirectConnection);
    connect(this, &QAbstractSocket::connected, this, &HalvoraConnSocket::socketConnected);
    connect(this, &QAbstractSocket::disconnected, this, &HalvoraConnSocket::socketDisconnected);
    connect(this, &QIODevice::readyRead, this, &HalvoraConnSocket::socketReadStream);
    connect(this, &QIODevice::bytesWritten, this, &HalvoraConnSocket::bytesWritten);
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    connect(this, &QAbstractSocket::errorOccurred, this, &HalvoraConnSocket::socketError);
#else
    connect(this, QOverload<SocketError>::of(&QAbstractSocket::error), this, &HalvoraConnSocket::socketError);
#endif
}

HalvoraConnSocket::~HalvoraConnSocket()
{
    m_watchdog.stop();
    disconnect(this, nullptr, this,
               nullptr); // the base still tells of its end, when there are no slots any more
}

void HalvoraConnSocket::connectToServer(const QString &host, int port)
{
    m_splitter.clear();
    m_sendCounter = 0;
    m_dialing = true;
    m_dialTicks = 0;
    connectToHost(host, portNumber(port), ReadWrite, AnyIPProtocol);
    if (!m_watchdog.isActive())
        m_watchdog.start();
}

void HalvoraConnSocket::writeMessage(QString &message)
{
    // Qt would keep a write to a socket that is still dialling and send it ahead of the login.
    if (state() != ConnectedState)
        return;
    message = QString::number(m_sendCounter) + QLatin1Char('|') + message;
    write(FrameCodec::encryptText(message) + FrameCodec::clientTerminator);
    ++m_sendCounter;
}

void HalvoraConnSocket::socketConnected()
{
    Q_EMIT connectionOpen();
    m_dialing = false;
    m_awaitingJoin = true;
    m_joinTicks = 0;
}

void HalvoraConnSocket::socketDisconnected() { }

void HalvoraConnSocket::bytesWritten(qint64) { }

void HalvoraConnSocket::socketError(QAbstractSocket::SocketError) { }

void HalvoraConnSocket::socketReadStream()
{
    // readAll() takes 16 KiB for whatever is there, and copies it.
    const QVector<QByteArray> frames = m_splitter.append(read(bytesAvailable()));
    for (const QByteArray &frame : frames)
        processFrame(frame);
}

void HalvoraConnSocket::processFrame(const QByteArray &frame)
{
    const QString plain = FrameCodec::decryptText(frame);
    const QVector<QStringRef> parts = plain.splitRef(QLatin1Char('|'), QtCompat::skipEmptyParts);
    if (parts.size() < 2)
        return;
    const QStringRef keyword = parts.at(1);
    if (keyword == QLatin1String("BROAD") && parts.size() > 2)
        broadReceived(plain, parts.at(2));
    else if (keyword == QLatin1String("JOIN"))
        joined();
    else if (keyword == QLatin1String("REFUSE"))
        refused();
}

void HalvoraConnSocket::joined()
{
    m_awaitingJoin = false;
    m_aliveWatch = true;
    m_aliveTicks = 0;
    Q_EMIT connectionEstablished();
    QString stateRequest = QStringLiteral("UI_COMMAND|17");
    writeMessage(stateRequest);
}

void HalvoraConnSocket::refused()
{
    Q_EMIT authenticationRefused();
    abort();
}

void HalvoraConnSocket::broadReceived(const QString &plain, const QStringRef &subCode)
{
    m_aliveTicks = 0;
    if (subCode != QLatin1String("5")) {
        Q_EMIT elaborateCommand(plain);
        return;
    }
    QString answer = QStringLiteral("UI_ALIVE");
    writeMessage(answer);
}

void HalvoraConnSocket::timerTimeout()
{
    if (state() == ConnectedState) {
        if (m_awaitingJoin ? limitReached(&m_joinTicks, joinLimit)
                           : m_aliveWatch && limitReached(&m_aliveTicks, aliveLimit)) {
            abort();
            Q_EMIT connectionError();
        }
    } else if (!m_dialing) {
        abort();
        Q_EMIT connectionMustRestart();
    } else if (limitReached(&m_dialTicks, dialLimit)) {
        m_dialing = false;
        m_dialTicks = 0;
        abort();
        Q_EMIT connectionError();
    }
}

bool HalvoraConnSocket::limitReached(int *ticks, int limit)
{
    ++*ticks;
    return *ticks >= limit;
}
