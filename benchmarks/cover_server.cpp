// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "ServerLife.h"

#include "simulator/ArtworkServer.h"
#include "simulator/Catalogue.h"
#include "simulator/CoverPainter.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>

// cover_server: covers of 600 by 600 over HTTP on 127.0.0.1, at "/covers/0.jpg" to "/covers/219.jpg". Writes
// its port, and ends with its standard input, after ten minutes at the latest.

namespace {

constexpr int width = 600;
constexpr int addresses = 220;
constexpr int drawn = 20; // they repeat

QByteArray jpeg(quint32 seed)
{
    const CoverPainter painter(seed, Catalogue::coverTitle(seed), Catalogue::coverArtist(seed));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    painter.paint(width).save(&buffer, "JPG");
    return buffer.data();
}

void fill(ArtworkServer *server)
{
    QVector<QByteArray> pictures;
    for (quint32 seed = 1; seed <= drawn; ++seed)
        pictures.append(jpeg(seed));
    for (int i = 0; i < addresses; ++i)
        server->setFile(QStringLiteral("/covers/%1.jpg").arg(i), "image/jpeg", pictures.at(i % drawn));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    ArtworkServer server;
    fill(&server);
    if (!server.listen())
        qFatal("no port to listen on");
    ServerLife::tell(server.port());
    return ServerLife::run();
}
