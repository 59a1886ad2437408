// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "soak/SoakedClient.h"

#include "model/Halvora.h"
#include "screens/PlayerView.h"
#include "support/Listener.h"
#include "support/Text.h"
#include "support/Waiting.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QTest>

namespace {

constexpr int patience = 20000; // milliseconds
constexpr int ticksBetweenPolls = 60;
constexpr int panelTop = 15; // at most
const QPoint firstCover(50, 65 + 45);
const QPoint queueButton(40, 603);
const QPoint closeOfQueue(30, 15 + 20);

} // namespace

SoakedClient::SoakedClient(int devicePort)
{
    m_client.view.rootContext()->setContextProperty("devicePort"_s, devicePort);
    QObject::connect(&m_client.view, &QQuickWindow::frameSwapped, &m_client.view, [this] { ++m_frames; });
}

bool SoakedClient::openPlayer(const CatalogueTrack &first)
{
    m_album = first.albumName;
    const auto plays = [&] { return !m_client.texts().filter(first.name).isEmpty(); };
    if (!m_client.showOutputs() || !Waiting::comes(plays, patience))
        return false;
    m_client.click(firstCover);
    return Waiting::comes([this] { return player(); }, patience) && goToQueue();
}

HalvoraPlayer *SoakedClient::player() const
{
    const auto *view = qobject_cast<PlayerView *>(m_client.item("PlayerView"_s));
    const Output *output = view ? view->selectedOutput() : nullptr;
    return output && output->selectedSource() ? output->selectedSource()->player() : nullptr;
}

bool SoakedClient::round()
{
    HalvoraPlayer *polled = player();
    if (!polled)
        return false;
    const QSignalSpy queues(polled, &HalvoraPlayer::queueChanged);
    const QSignalSpy playlists(polled, &HalvoraPlayer::playlistsChanged);
    for (int tick = 0; tick < ticksBetweenPolls; ++tick)
        polled->refreshTimerTimeout();
    const auto isMirrored = [&] { return queues.size() >= 2 && !playlists.isEmpty(); };
    if (!Waiting::comes(isMirrored, patience))
        return false;
    const int seen = m_frames;
    m_client.view.update();
    return Waiting::comes([&] { return m_frames > seen; }, patience);
}

bool SoakedClient::comesToRest(const QString &panel, bool open)
{
    const auto isThere = [&] {
        const QQuickItem *item = m_client.item(panel);
        return item && (open ? item->y() <= panelTop : item->y() >= item->parentItem()->height());
    };
    return Waiting::comes(isThere, patience);
}

bool SoakedClient::goToPlaylists()
{
    m_client.click(closeOfQueue);
    if (!comesToRest("QueueView"_s, false))
        return false;
    m_client.click(Listener::libraryButton);
    if (!m_client.clickOn("Local media"_s) || !m_client.clickOn("Albums"_s)
        || !Waiting::comes([this] { return m_client.showsText(m_album); }, patience))
        return false;
    m_client.click(Listener::backButton);
    if (!Waiting::comes([this] { return m_client.showsText("Albums"_s); }, patience))
        return false;
    m_client.click(Listener::rightButton);
    if (!Waiting::comes([this] { return !m_client.showsText("Albums"_s); }, patience))
        return false;
    m_client.click(Listener::playlistsButton);
    return comesToRest("PlaylistsNavPopup"_s, true);
}

bool SoakedClient::goToQueue()
{
    const QQuickItem *playlists = m_client.item("PlaylistsNavPopup"_s);
    if (playlists && playlists->y() <= panelTop) {
        m_client.click(Listener::rightButton);
        if (!comesToRest("PlaylistsNavPopup"_s, false))
            return false;
    }
    m_client.click(queueButton);
    return comesToRest("QueueView"_s, true);
}

// What is dropped is handed to the collector bit by bit, and what the collector frees may drop more.
void SoakedClient::collectGarbage()
{
    for (int i = 0; i < 3; ++i) {
        QTest::qWait(20);
        m_client.view.engine()->collectGarbage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}
