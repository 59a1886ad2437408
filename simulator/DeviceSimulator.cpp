// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/DeviceSimulator.h"

#include <QCryptographicHash>
#include <QHostAddress>

#include <algorithm>

#include "simulator/DeviceCommands.h"
#include "simulator/DeviceConnection.h"

namespace {

QString withoutCounter(const QString &numbered)
{
    return numbered.section(QLatin1Char('|'), 1);
}

} // namespace

DeviceSimulator::DeviceSimulator(QObject *parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &DeviceSimulator::acceptConnections);
    connect(&m_pollTimer, &QTimer::timeout, this, &DeviceSimulator::poll);
    m_pollTimer.start(5000);
}

DeviceSimulator::~DeviceSimulator()
{
    // The sockets report their end while they are torn down; by then there must be nobody to hear it.
    for (DeviceConnection *connection : qAsConst(m_connections))
        connection->disconnect(this);
    qDeleteAll(m_connections);
}

bool DeviceSimulator::listen(quint16 port)
{
    if (!m_server.listen(QHostAddress::LocalHost, port))
        return false;
    m_port = m_server.serverPort();
    return true;
}

void DeviceSimulator::stopListening()
{
    m_server.close();
}

bool DeviceSimulator::listenAgain()
{
    return m_server.isListening() || listen(m_port);
}

QString DeviceSimulator::host() const
{
    return QStringLiteral("127.0.0.1");
}

void DeviceSimulator::setCredentials(const QString &userName, const QString &password)
{
    const QByteArray digest = QCryptographicHash::hash(password.toLatin1(), QCryptographicHash::Md5).toHex();
    m_userName = userName;
    m_passwordDigest = password.isEmpty() ? QString() : QString::fromLatin1(digest);
}

void DeviceSimulator::setPollInterval(int milliseconds)
{
    m_pollTimer.stop();
    if (milliseconds > 0)
        m_pollTimer.start(milliseconds);
}

void DeviceSimulator::setVolume(int outputIndex, int volume)
{
    runCommand(DeviceCommands::SetVolume, {QString::number(outputIndex), QString::number(volume)});
}

void DeviceSimulator::setMute(int outputIndex, bool mute)
{
    runCommand(DeviceCommands::SetMute, {QString::number(outputIndex), QString::number(int(mute))});
}

void DeviceSimulator::setEqualizer(int outputIndex, int bass, int middle, int treble, int loudness)
{
    runCommand(DeviceCommands::SetEqualizer,
               {QString::number(outputIndex), QString::number(bass), QString::number(middle),
                QString::number(treble), QString::number(loudness)});
}

void DeviceSimulator::setRoute(int outputIndex, int sourceIndex)
{
    runCommand(DeviceCommands::SetRoute, {QStringLiteral("%1@%2").arg(outputIndex).arg(sourceIndex)});
}

void DeviceSimulator::setSourceVolume(int sourceIndex, int volume)
{
    runCommand(DeviceCommands::SetSourceVolume, {QString::number(sourceIndex), QString::number(volume)});
}

void DeviceSimulator::setAirPlay(int sourceIndex, const AirPlayState &airPlay)
{
    SourceState *source = m_state.source(sourceIndex);
    if (!source)
        return;
    source->airPlay = airPlay;
    announce({DeviceMessages::airPlay(*source)});
}

void DeviceSimulator::setOutputs(const QVector<OutputState> &outputs)
{
    m_state.outputs = outputs;
    QVector<DeviceMessages::Broad> broads{DeviceMessages::outputs(m_state)};
    for (const OutputState &output : outputs)
        broads << DeviceMessages::outputValues(output);
    broads << DeviceMessages::routes(m_state);
    announce(broads);
}

void DeviceSimulator::setSources(const QVector<SourceState> &sources)
{
    m_state.sources = sources;
    announce({DeviceMessages::sources(m_state)});
}

void DeviceSimulator::setPlaylistEntries(const QVector<PlaylistEntryState> &entries)
{
    m_state.playlistEntries = entries;
    announce({DeviceMessages::playlistEntries(m_state)});
}

void DeviceSimulator::broadcast(int code, const QStringList &fields)
{
    const QString text = DeviceMessages::text(m_state.number, {code, fields});
    for (DeviceConnection *connection : qAsConst(m_connections)) {
        if (connection->isJoined())
            connection->sendPlain(text);
    }
}

void DeviceSimulator::sendPlain(const QString &text)
{
    for (DeviceConnection *connection : qAsConst(m_connections))
        connection->sendPlain(text);
}

void DeviceSimulator::sendRaw(const QByteArray &bytes)
{
    for (DeviceConnection *connection : qAsConst(m_connections))
        connection->sendRaw(bytes);
}

void DeviceSimulator::dropAll()
{
    // Each one leaves the list while it ends.
    const QList<DeviceConnection *> connections = m_connections;
    for (DeviceConnection *connection : connections)
        connection->reset();
}

QStringList DeviceSimulator::messages() const
{
    QStringList texts;
    std::transform(m_received.cbegin(), m_received.cend(), std::back_inserter(texts), withoutCounter);
    return texts;
}

void DeviceSimulator::clearReceived()
{
    m_received.clear();
    m_frames.clear();
}

int DeviceSimulator::joinedConnections() const
{
    return int(std::count_if(m_connections.cbegin(), m_connections.cend(),
                             [](const DeviceConnection *connection) { return connection->isJoined(); }));
}

int DeviceSimulator::unansweredPolls() const
{
    int most = 0;
    for (const DeviceConnection *connection : m_connections)
        most = std::max(most, connection->unansweredPolls());
    return most;
}

void DeviceSimulator::acceptConnections()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        auto *connection = new DeviceConnection(socket, m_faults, this);
        m_connections << connection;
        ++m_accepted;
        connect(connection, &DeviceConnection::frameReceived, this,
                [this](const QByteArray &frame) { m_frames << frame; });
        connect(connection, &DeviceConnection::messageReceived, this,
                [this, connection](const QString &numbered) { handleMessage(connection, numbered); });
        connect(connection, &DeviceConnection::plainSent, this, &DeviceSimulator::messageSent);
        connect(connection, &DeviceConnection::closed, this, [this, connection] { forget(connection); });
        if (m_faults.closeOnAccept)
            connection->close();
    }
}

void DeviceSimulator::forget(DeviceConnection *connection)
{
    if (!m_connections.removeOne(connection))
        return;
    connection->deleteLater();
    Q_EMIT clientDisconnected();
}

void DeviceSimulator::handleMessage(DeviceConnection *connection, const QString &numbered)
{
    m_received << numbered;
    Q_EMIT messageReceived(withoutCounter(numbered));
    const QStringList fields = numbered.split(QLatin1Char('|'));
    const QString keyword = fields.value(1);
    if (keyword == QLatin1String("CONNECT"))
        handleLogin(connection, fields);
    else if (keyword == QLatin1String("UI_ALIVE"))
        connection->clearPolls();
    else if (keyword == QLatin1String("UI_COMMAND") && connection->isJoined() && !m_faults.silentAfterJoin)
        handleCommand(connection, fields);
}

void DeviceSimulator::handleLogin(DeviceConnection *connection, const QStringList &fields)
{
    if (m_faults.ignoreLogin)
        return;
    const bool accepted = !m_faults.refuseLogin && isAccepted(fields);
    const QString answer = accepted ? QStringLiteral("JOIN") : QStringLiteral("REFUSE");
    connection->sendPlain(QString::number(m_state.number) + QLatin1Char('|') + answer);
    if (!accepted)
        return;
    connection->setJoined();
    Q_EMIT clientJoined();
}

bool DeviceSimulator::isAccepted(const QStringList &fields) const
{
    constexpr int shortForm = 5; // counter, keyword, identifier, "default", token
    constexpr int longForm = 7;  // counter, keyword, identifier, user name, digest, program, token
    if (m_userName.isEmpty() && m_passwordDigest.isEmpty())
        return fields.size() == shortForm || fields.size() == longForm;
    return fields.size() == longForm && fields.at(3) == m_userName && fields.at(4) == m_passwordDigest;
}

void DeviceSimulator::handleCommand(DeviceConnection *connection, const QStringList &fields)
{
    bool isNumber = false;
    const int code = fields.value(2).toInt(&isNumber);
    if (!isNumber)
        return;
    if (code != DeviceCommands::RequestState) {
        runCommand(code, fields.mid(4));
        return;
    }
    const QVector<DeviceMessages::Broad> broads = DeviceMessages::dump(m_state);
    for (const DeviceMessages::Broad &broad : broads)
        connection->sendPlain(DeviceMessages::text(m_state.number, broad));
}

void DeviceSimulator::runCommand(int code, const QStringList &arguments)
{
    const QVector<DeviceMessages::Broad> answers = DeviceCommands::apply(code, arguments, m_state);
    if (answers.isEmpty())
        return;
    if (code == DeviceCommands::RenamePlaylist)
        Q_EMIT playlistRenameRequested(arguments.at(0), arguments.at(1));
    else if (code == DeviceCommands::DeletePlaylist)
        Q_EMIT playlistDeleteRequested(arguments.at(0));
    announce(answers);
}

void DeviceSimulator::announce(const QVector<DeviceMessages::Broad> &broads)
{
    for (const DeviceMessages::Broad &broad : broads)
        broadcast(broad.code, broad.fields);
    Q_EMIT stateChanged();
}

void DeviceSimulator::poll()
{
    if (m_faults.silentAfterJoin)
        return;
    for (DeviceConnection *connection : qAsConst(m_connections)) {
        if (connection->isJoined())
            connection->countPoll();
    }
    broadcast(DeviceMessages::KeepAlive);
}
