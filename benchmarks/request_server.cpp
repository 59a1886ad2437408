// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ServerLife.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

// request_server: a WebSocket on 127.0.0.1 that answers every request with the number 3, in as little time as
// it can, so that what is measured is its client. Writes its port, and ends with its standard input, after
// ten minutes at the latest.

namespace {

/// One client: the handshake, then frames below 64 KiB in, and answers out, one write for each read.
class Client final : public QObject
{
public:
    explicit Client(QTcpSocket *socket) : QObject(socket), m_socket(socket)
    {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(socket, &QIODevice::readyRead, this, &Client::read);
        connect(socket, &QAbstractSocket::disconnected, socket, &QObject::deleteLater);
    }

private:
    void read()
    {
        m_input += m_socket->read(m_socket->bytesAvailable());
        if (!m_open && !shakeHands())
            return;
        QByteArray answers;
        int at = 0;
        for (int taken = 1; taken > 0; at += taken)
            taken = answerFrame(at, &answers);
        m_input.remove(0, at);
        m_socket->write(answers);
    }

    bool shakeHands()
    {
        const int end = m_input.indexOf("\r\n\r\n");
        if (end < 0)
            return false;
        const QByteArray header = QByteArrayLiteral("sec-websocket-key:");
        const int at = m_input.toLower().indexOf(header) + header.size();
        const QByteArray key = m_input.mid(at, m_input.indexOf('\r', at) - at).trimmed();
        const QByteArray digest = QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11",
                                                           QCryptographicHash::Sha1);
        m_socket->write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                        "Sec-WebSocket-Accept: "
                        + digest.toBase64() + "\r\n\r\n");
        m_input.remove(0, end + 4);
        m_open = true;
        return true;
    }

    // Gives the number of bytes of the frame at that place, 0 when it is not there yet.
    int answerFrame(int at, QByteArray *answers)
    {
        const int there = m_input.size() - at;
        const char *frame = m_input.constData() + at;
        if (there < 6)
            return 0;
        int length = frame[1] & 0x7f;
        const int head = length == 126 ? 8 : 6;
        if (there < head)
            return 0;
        if (length == 126)
            length = qFromBigEndian<quint16>(frame + 2);
        if (there < head + length)
            return 0;
        if ((frame[0] & 0x0f) == 1)
            answerRequest(unmasked(frame + head, frame + head - 4, length), answers);
        return head + length;
    }

    static QByteArray unmasked(const char *bytes, const char *mask, int length)
    {
        QByteArray text(length, Qt::Uninitialized);
        char *out = text.data();
        for (int i = 0; i < length; ++i)
            out[i] = char(bytes[i] ^ mask[i % 4]);
        return text;
    }

    static void answerRequest(const QByteArray &request, QByteArray *answers)
    {
        const int id = request.indexOf("\"id\":") + 5;
        const int comma = request.indexOf(',', id);
        const int end = comma < 0 ? request.indexOf('}', id) : comma;
        const QByteArray result = request.contains("core.describe")
            ? QByteArrayLiteral(R"({"core.tracklist.index":{"description":"","params":[]}})")
            : QByteArrayLiteral("3");
        const QByteArray text = R"({"jsonrpc":"2.0","id":)" + request.mid(id, end - id) + R"(,"result":)"
            + result + '}';
        *answers += char(0x81);
        *answers += char(text.size()); // below 126
        *answers += text;
    }

    QTcpSocket *m_socket;
    QByteArray m_input;
    bool m_open = false;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QTcpServer server;
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        while (QTcpSocket *socket = server.nextPendingConnection())
            new Client(socket);
    });
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("no port to listen on");
    ServerLife::tell(server.serverPort());
    return ServerLife::run();
}
