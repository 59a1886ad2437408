// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "model/Output.h"
#include "model/PlaylistEntry.h"
#include "model/Source.h"

#include <QMap>
#include <QQmlListProperty>
#include <QStringList>

class HalvoraConnThread;

/**
 * The mirror of one device: its outputs, its sources, which source each output plays, and its preset slots; and
 * the actions that ask the device for a change.
 *
 * Made by MainTabController for each device, without a parent, in the GUI thread, where everything here runs;
 * dropped with it. Only the device's own messages change the mirror. An action formats one command
 * and hands it to the link: no limit, no retry, no answer, and nothing while there is no link. What it changes
 * shows when the device has answered.
 *
 * Outputs and sources are named by the device's own numbers (`index`), any numbers in any gaps; a position in a
 * list is the rank of that number and no index. Nothing is ever removed from the
 * lists. A message of the wrong shape, or about an unknown index, changes nothing.
 */
class Halvora : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *connPointer READ connPointer WRITE setConnPointer NOTIFY connPointerChanged)
    Q_PROPERTY(QQmlListProperty<Output> outputs READ outputs NOTIFY outputsChanged)
    Q_PROPERTY(QQmlListProperty<Source> sources READ sources NOTIFY sourcesChanged)
    Q_PROPERTY(
        QQmlListProperty<PlaylistEntry> playlistEntries READ playlistEntries NOTIFY playlistEntriesChanged)

public:
    explicit Halvora(QObject *parent = nullptr);
    /// Stops all players and drops all objects of its lists, the players of earlier source lists too.
    ~Halvora() override;

    /// The link, a HalvoraConnThread (anything else counts as null); null by default. Not owned. A link that was
    /// set earlier stays connected.
    QObject *connPointer() const;
    void setConnPointer(QObject *thread);

    /// The outputs in ascending order of their index.
    QQmlListProperty<Output> outputs();
    /// The sources in ascending order of their index.
    QQmlListProperty<Source> sources();
    /// The preset slots in the device's order.
    QQmlListProperty<PlaylistEntry> playlistEntries();

    /// The output or source with that device index; null for an unknown one.
    Output *outputAt(int index) const { return m_outputs.value(index); }
    Source *sourceAt(int index) const { return m_sources.value(index); }
    /// All sources by device index.
    const QMap<int, Source *> &sourceMap() const { return m_sources; }

    /// Ends the connections of all players there have ever been, those of earlier source lists too. For whoever takes
    /// the screens away that follow them.
    void stopAllPlayers();

    /// `value`: volume as the device counts, 0 to 100 on the screens. `outputIndex`: device index.
    Q_INVOKABLE void actionSetVolumeForOutput(int value, int outputIndex);
    Q_INVOKABLE void actionSetMuteForOutput(bool value, int outputIndex);
    /// `str`: output index, bass, middle, treble and loudness in decimal, joined by "|". Sent unchecked.
    Q_INVOKABLE void actionSetEqualizerForOutput(QString str);
    /// Routes a source to an output, or none for -1. Both arguments are positions in sources() and outputs().
    Q_INVOKABLE void actionSetMatrixSetting(int sourceIndex, int outputIndex);
    /// `sourceIndex`: device index.
    Q_INVOKABLE void actionSetVolumeForSource(int value, int sourceIndex);
    /// Names and keys go out as they are; the protocol has no escape for "|" and "@".
    Q_INVOKABLE void actionRenamePlaylist(QString uri, QString new_name);
    Q_INVOKABLE void actionDeletePlaylist(QString uri);
    /// Ties the playlist `uri` to the preset slot `entryId`.
    Q_INVOKABLE void actionAssociatePlaylist(int entryId, QString uri);

Q_SIGNALS:
    void connPointerChanged();
    void outputsChanged();
    void sourcesChanged();
    void routesUpdated();
    void playlistEntriesChanged();

public Q_SLOTS:
    /// One message of the device, as HalvoraConnThread delivers it. Fewer than three fields change nothing.
    void commandReceived(QStringList l);

private:
    struct Code;

    void parseSources(const QStringList &l);
    void parseOutputs(const QStringList &l);
    void parseRoutes(const QStringList &l);
    void parseOutputState(const QStringList &l);
    void parseSourceVolume(const QStringList &l);
    void parseAirPlay(const QStringList &l);
    void parsePlaylistEntries(const QStringList &l);
    void refreshPlaylists(const QStringList &l);
    void attachNewPlayer(Source *source, const QStringList &fields);
    void send(const char *code, const QString &arguments);

    QMap<int, Output *> m_outputs;
    QMap<int, Source *> m_sources;
    HalvoraConnThread *m_connPointer = nullptr;
    QList<Output *> m_outputList;
    QList<Source *> m_sourceList;
    QList<PlaylistEntry *> m_entries;
    QList<HalvoraPlayer *> m_players; // of all source lists
};
