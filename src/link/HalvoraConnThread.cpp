// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/HalvoraConnThread.h"

#include "link/Device.h"
#include "link/HalvoraConnection.h"
#include "link/MessageFields.h"

#include <QCryptographicHash>
#include <QSettings>

namespace {

// Sub-codes of BROAD that concern the link itself; all others belong to the device model.
constexpr int settingsUrlsCode = 20;
constexpr int dumpEndCode = 500;

QString digest(const QString &text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toLatin1(), QCryptographicHash::Md5).toHex());
}

} // namespace

HalvoraConnThread::HalvoraConnThread(QObject *parent)
    : QThread(parent), m_uniqueID(QSettings().value(QStringLiteral("uniqueID"), QString()).toString())
{
}

HalvoraConnThread::~HalvoraConnThread()
{
    endRun();
}

void HalvoraConnThread::setDevice(Device *device)
{
    stopLink();
    m_device = device;
    if (!device) {
        m_useLocal = false;
        m_useRemote = false;
    } else if (!device->localIp().isEmpty()) {
        m_useLocal = true;
    } else if (!device->remoteIp().isEmpty()) {
        m_useRemote = true;
    }
}

void HalvoraConnThread::restartLink()
{
    endRun();
    start();
}

void HalvoraConnThread::stopLink()
{
    endRun();
}

void HalvoraConnThread::endRun()
{
    ++m_run;
    if (!isRunning())
        return;
    quit();
    wait();
}

void HalvoraConnThread::chooseAddress()
{
    if (m_useLocal) {
        m_host = m_device->localIp();
        m_port = m_device->localPort();
        m_viaLocal = true;
    } else if (m_useRemote) {
        m_host = m_device->remoteIp();
        m_port = m_device->remotePort();
        m_viaLocal = false;
    }
}

// The slots run in the GUI thread, behind the queue; by then this run may have been ended and the next begun.
template<typename Sender, typename Signal, typename Slot>
void HalvoraConnThread::connectForThisRun(Sender *sender, Signal signal, Slot slot)
{
    const int thisRun = m_run;
    connect(
        sender, signal, this,
        [this, thisRun, slot](auto... arguments) {
            if (m_run == thisRun)
                (this->*slot)(arguments...);
        },
        Qt::QueuedConnection);
}

void HalvoraConnThread::run()
{
    chooseAddress();
    m_firstPending = true;
    Q_EMIT showConnectionScreen(true);
    Q_EMIT setConnectionScreenMessage(QStringLiteral("Connecting to Halvora..."));

    {
        using Connection = HalvoraConnection;
        using Thread = HalvoraConnThread;
        Connection connection(m_host, m_port);
        connectForThisRun(&connection, &Connection::connectionOpen, &Thread::connectionOpen);
        connectForThisRun(&connection, &Connection::connectionEstablished, &Thread::connectionEstablished);
        connectForThisRun(&connection, &Connection::connectionError, &Thread::connectionErrorReceived);
        connectForThisRun(&connection, &Connection::authenticationRefused, &Thread::authenticationRefused);
        connectForThisRun(&connection, &Connection::elaborateCommandReceived,
                          &Thread::elaborateCommandReceived);
        connect(this, &Thread::requireSendString, &connection, &Connection::sendString);
        connect(this, &Thread::requireSendCommand, &connection, &Connection::sendCommand);
        connection.startConnection();
        exec();
        connection.killConnection();
    }

    Q_EMIT setConnectionScreenMessage(QStringLiteral("Disconnected."));
    Q_EMIT showConnectionScreen(true);
}

void HalvoraConnThread::connectionOpen()
{
    Q_EMIT setConnectionScreenMessage(QStringLiteral("Authentication in progress..."));
    Q_EMIT requireSendString(loginText());
}

QString HalvoraConnThread::loginText() const
{
    const QString clientToken = digest(QLatin1String("Halvora|") + m_uniqueID);
    const bool named = m_device && !m_device->username().isEmpty() && !m_device->password().isEmpty();
    const QStringList fields = named
        ? QStringList{QStringLiteral("CONNECT"),
                      m_uniqueID,
                      m_device->username(),
                      digest(m_device->password()),
                      QStringLiteral("HalvoraEnvClient"),
                      clientToken}
        : QStringList{QStringLiteral("CONNECT"), m_uniqueID, QStringLiteral("default"), clientToken};
    return fields.join(QLatin1Char('|'));
}

void HalvoraConnThread::connectionEstablished() { }

void HalvoraConnThread::connectionErrorReceived()
{
    Q_EMIT setConnectionScreenMessage(QStringLiteral("Halvora not reachable or connectivity problems."));
    Q_EMIT showConnectionScreen(true);
    restartLink();
}

void HalvoraConnThread::elaborateCommandReceived(QString command)
{
    const QStringList fields = MessageFields::split(command, '|');
    if (fields.size() < 3)
        return;
    switch (MessageFields::number(fields.at(2))) {
    case settingsUrlsCode:
        if (fields.size() >= 6)
            Q_EMIT deviceSettingsUrlsUpdated(fields.at(4), fields.at(5));
        break;
    case dumpEndCode:
        Q_EMIT showConnectionScreen(false);
        if (m_firstPending) {
            m_firstPending = false;
            Q_EMIT firstConnected();
        }
        break;
    default:
        Q_EMIT halvoraCommandReceived(fields);
    }
}

void HalvoraConnThread::authenticationRefused()
{
    Q_EMIT setConnectionScreenMessage(tr("Authentication failed."));
    Q_EMIT requireAuthenticationDialog();
}
