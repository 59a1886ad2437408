// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "navigation/BrowseListView.h"
#include "navigation/BrowseReference.h"
#include "navigation/LibraryRows.h"
#include "navigation/NavigationController.h"
#include "player/LongReplyReader.h"

#include <QHash>
#include <QPointer>

class HalvoraPlayer;

/**
 * What all stacks of library lists do: they turn the requests of their views into requests of one player, and bring
 * each answer back to the view that waits for it, by the number of the request. Answers for views that have left the
 * stack are dropped.
 *
 * A base class; GUI thread. The player is not owned; without one nothing is sent. Its end destroys the views that are
 * still on its stack.
 */
class ListNavController : public NavigationController, public LongReplyReader
{
    Q_OBJECT

public:
    explicit ListNavController(QQuickItem *parent = nullptr);
    ~ListNavController() override;

    // Answers of the player. A value of the wrong type is an empty list, no change, or no position.
    Q_INVOKABLE void browseResultReceived(int responseId, QJsonValue v);
    /// The same from the text of the answer. False, and nothing is changed, when it is none that JsonReader reads.
    bool browseResultReceived(int responseId, const JsonText &result);
    bool readLongReply(const char *handler, int responseId, const JsonText &result) override;
    Q_INVOKABLE void browseLookupReceived(int responseId, QJsonValue v);
    Q_INVOKABLE void browseImagesReceived(int responseId, QJsonValue v);
    /// Position of the current track, behind which what is to be played at once goes; it goes to the end of the queue
    /// when there is none.
    Q_INVOKABLE void browsePlayIndex(int responseId, QJsonValue v);

public Q_SLOTS:
    void sendLookup(BrowseReference *b);
    void sendLookupImages(BrowseReference *b);
    /// Plays tracks in front of what is to come in the queue.
    void sendPlayNow(QStringList uris);
    /// Has `item`'s function updateImage(uri) called with the picture of that URL at hand.
    void requestImage(QString uri, QQuickItem *item);

protected:
    HalvoraPlayer *player() const { return m_player; }
    void setPlayer(HalvoraPlayer *player) { m_player = player; }

    /// The view on top if it is a list, else null.
    BrowseListView *topList() const;
    /// Notes who waits for the answer of that number; a view that is gone by then gets none.
    void expectRows(int responseId, BrowseListView *view);
    void expectPosition(int responseId, const QStringList &uris);
    /// Adds the tracks that wait for that number behind the position `v`.
    void addAtPosition(int responseId, const QJsonValue &v, bool play);
    /// How this stack reads a list.
    virtual LibraryRows rowsOf(const QJsonValue &v) const;
    virtual std::optional<LibraryRows> rowsOf(const JsonText &result) const;

private:
    void expectDetails(int responseId, BrowseReference *reference);
    BrowseListView *onStack(QObject *view) const;
    using Update = void (BrowseListView::*)(const QString &type, const QJsonValue &value);
    void applyDetails(int responseId, const QJsonValue &v, Update update);

    QPointer<HalvoraPlayer> m_player; // goes with its device, which these lists may outlive
    QHash<int, QPointer<BrowseListView>> m_pendingBrowse;
    QHash<int, QPointer<BrowseReference>> m_pendingReferences; // children of this
    QHash<int, QStringList> m_pendingPlay;
};
