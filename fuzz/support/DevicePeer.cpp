// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/DevicePeer.h"

#include "link/FrameCodec.h"
#include "link/HalvoraConnSocket.h"
#include "support/FuzzRun.h"
#include "support/Require.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

DevicePeer::DevicePeer()
{
    int ends[2];
    REQUIRE(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends) == 0);
    m_end = ends[0];
    client.startConnection(); // fails to dial, and has its socket from now on
    m_socket = FuzzRun::find<HalvoraConnSocket>();
    REQUIRE(m_socket && m_socket->setSocketDescriptor(ends[1]));
    QObject::connect(m_socket, &HalvoraConnSocket::authenticationRefused, &client,
                     [this] { m_refused = true; });
}

DevicePeer::~DevicePeer()
{
    close(m_end);
}

void DevicePeer::open()
{
    m_socket->socketConnected();
}

void DevicePeer::say(const QByteArray &bytes)
{
    if (send(m_end, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL) > 0)
        FuzzRun::settle();
}

void DevicePeer::sayMessage(const QString &message)
{
    say(FrameCodec::encryptText(message) + FrameCodec::deviceTerminator);
}

QStringList DevicePeer::heard()
{
    FuzzRun::settle(); // has it written
    QByteArray stream(1 << 16, '\0');
    const ssize_t count = recv(m_end, stream.data(), size_t(stream.size()), 0);
    stream.truncate(count > 0 ? int(count) : 0);
    REQUIRE(stream.isEmpty() || stream.endsWith(FrameCodec::clientTerminator));
    QByteArrayList frames = stream.split(*FrameCodec::clientTerminator);
    frames.removeLast();
    QStringList messages;
    for (const QByteArray &frame : qAsConst(frames)) {
        const QString numbered = FrameCodec::decryptText(frame);
        const QString number = QString::number(m_frames++) + QLatin1Char('|');
        REQUIRE(numbered.startsWith(number));
        messages << numbered.mid(number.size());
    }
    return messages;
}
