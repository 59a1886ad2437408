// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "model/Halvora.h"

#include "link/HalvoraConnThread.h"
#include "link/MessageFields.h"
#include "player/ListProperty.h"
#include "player/Reclaimer.h"

namespace {

constexpr int payloadAt = 4; // number, "BROAD", code and a field that is not read stand in front

QStringList subFields(const QString &field)
{
    return MessageFields::split(field, '@');
}

// The object under `index`, made and entered if it is new.
template<typename T>
T *entered(QMap<int, T *> *map, int index)
{
    T *&object = (*map)[index];
    if (!object) {
        object = new T;
        object->setIndex(index);
    }
    return object;
}

void route(Output *output, Source *source)
{
    const Source *current = output->selectedSource();
    if (!current || current->index() != source->index())
        output->setSelectedSource(source);
}

bool isSet(const QString &flag)
{
    return flag == QLatin1String("1");
}

// What is shown of AirPlay, in the order of the message's fields.
constexpr void (HalvoraPlayer::*airPlaySetters[])(const QString &) = {
    &HalvoraPlayer::setAirPlayTrack,
    &HalvoraPlayer::setAirPlayAlbum,
    &HalvoraPlayer::setAirPlayArtist,
    &HalvoraPlayer::setAirPlayImage,
};

// The state of an output, in the order of the message's fields.
using NumberSetter = void (*)(Output *, int);
constexpr NumberSetter stateSetters[] = {
    [](Output *output, int value) { output->setVolume(value); },
    nullptr, // mute, a flag
    [](Output *output, int value) { output->setBass(value); },
    [](Output *output, int value) { output->setMiddle(value); },
    [](Output *output, int value) { output->setTreble(value); },
    [](Output *output, int value) { output->setLoudness(value); },
};

} // namespace

struct Halvora::Code
{
    int number;
    int leastFields;
    void (Halvora::*parse)(const QStringList &l);
};

Halvora::Halvora(QObject *parent) : QObject(parent) { }

Halvora::~Halvora()
{
    stopAllPlayers();
    Reclaimer::dropAll(m_players);
    Reclaimer::dropAll(m_sources.values());
    Reclaimer::dropAll(m_outputs.values());
    Reclaimer::dropAll(m_entries);
}

QObject *Halvora::connPointer() const
{
    return m_connPointer;
}

void Halvora::setConnPointer(QObject *thread)
{
    m_connPointer = qobject_cast<HalvoraConnThread *>(thread);
    Q_EMIT connPointerChanged();
    if (m_connPointer)
        connect(m_connPointer, &HalvoraConnThread::halvoraCommandReceived, this, &Halvora::commandReceived);
}

QQmlListProperty<Output> Halvora::outputs()
{
    m_outputList = m_outputs.values();
    return listProperty(this, &m_outputList);
}

QQmlListProperty<Source> Halvora::sources()
{
    m_sourceList = m_sources.values();
    return listProperty(this, &m_sourceList);
}

QQmlListProperty<PlaylistEntry> Halvora::playlistEntries()
{
    return listProperty(this, &m_entries);
}

void Halvora::commandReceived(QStringList l)
{
    static constexpr Code codes[] = {
        {0, 0, &Halvora::parseSources},          {1, 0, &Halvora::parseOutputs},
        {2, 0, &Halvora::parseRoutes},           {3, 11, &Halvora::parseOutputState},
        {4, 6, &Halvora::parseSourceVolume},     {10, 6, &Halvora::parseAirPlay},
        {25, 0, &Halvora::parsePlaylistEntries}, {26, 0, &Halvora::refreshPlaylists},
    };

    if (l.size() < 3)
        return;
    const int number = MessageFields::number(l.at(2));
    for (const Code &code : codes) {
        if (code.number == number && l.size() >= code.leastFields)
            (this->*code.parse)(l);
    }
}

void Halvora::parseSources(const QStringList &l)
{
    for (int i = payloadAt; i < l.size(); ++i) {
        const QStringList fields = subFields(l.at(i));
        if (fields.size() < 3)
            continue;
        Source *source = entered(&m_sources, MessageFields::number(fields.at(0)));
        source->setName(fields.at(1));
        if (isSet(fields.at(2)))
            attachNewPlayer(source, fields);
        else
            source->setPlayer(nullptr);
    }
    Q_EMIT sourcesChanged();
}

// A player of an earlier list is left as it is, connected and polling.
void Halvora::attachNewPlayer(Source *source, const QStringList &fields)
{
    auto *player = new HalvoraPlayer;
    m_players.append(player);
    player->setSourceRef(source->index());
    if (fields.size() > 4) {
        player->setIpAddress(fields.at(3));
        player->setPort(fields.at(4));
    }
    source->setPlayer(player);
    player->startConnection();
}

void Halvora::stopAllPlayers()
{
    for (HalvoraPlayer *player : qAsConst(m_players))
        player->stopConnection();
}

void Halvora::parseOutputs(const QStringList &l)
{
    for (int i = payloadAt; i < l.size(); ++i) {
        const QStringList fields = subFields(l.at(i));
        if (fields.size() >= 2)
            entered(&m_outputs, MessageFields::number(fields.at(0)))->setName(fields.at(1));
    }
    Q_EMIT outputsChanged();
}

void Halvora::parseRoutes(const QStringList &l)
{
    for (int i = payloadAt; i < l.size(); ++i) {
        if (l.at(i).isEmpty())
            continue;
        const QStringList fields = subFields(l.at(i));
        Output *output = outputAt(MessageFields::number(fields.at(0)));
        if (!output)
            continue;
        if (fields.size() == 1)
            output->setSelectedSource(nullptr);
        else if (Source *source = sourceAt(MessageFields::number(fields.at(1))))
            route(output, source);
    }
    Q_EMIT routesUpdated();
}

void Halvora::parseOutputState(const QStringList &l)
{
    Output *output = outputAt(MessageFields::number(l.at(payloadAt)));
    if (!output)
        return;
    int field = payloadAt + 1;
    for (const NumberSetter set : stateSetters) {
        const QString &value = l.at(field++);
        if (set)
            set(output, MessageFields::number(value));
        else
            output->setMute(isSet(value));
    }
}

void Halvora::parseSourceVolume(const QStringList &l)
{
    if (Source *source = sourceAt(MessageFields::number(l.at(payloadAt))))
        source->setVolume(MessageFields::number(l.at(payloadAt + 1)));
}

void Halvora::parseAirPlay(const QStringList &l)
{
    const Source *source = sourceAt(MessageFields::number(l.at(payloadAt)));
    HalvoraPlayer *player = source ? source->player() : nullptr;
    if (!player)
        return;
    player->setAirPlay(isSet(l.at(payloadAt + 1)));
    const bool withTexts = l.size() >= payloadAt + 6;
    if (player->airPlay() && !withTexts)
        return;
    int field = payloadAt + 2;
    for (const auto set : airPlaySetters) {
        (player->*set)(player->airPlay() ? l.at(field) : QString());
        ++field;
    }
}

void Halvora::parsePlaylistEntries(const QStringList &l)
{
    const QList<PlaylistEntry *> former = m_entries;
    m_entries.clear();
    for (int i = payloadAt; i < l.size(); ++i) {
        const QStringList fields = subFields(l.at(i));
        if (fields.size() < 3)
            continue;
        auto *entry = new PlaylistEntry;
        entry->setEntryId(MessageFields::number(fields.at(0)));
        entry->setName(fields.at(1));
        entry->setPlaylistRef(fields.at(2));
        m_entries.append(entry);
    }
    Q_EMIT playlistEntriesChanged();
    Reclaimer::dropAll(former);
}

void Halvora::refreshPlaylists(const QStringList &)
{
    for (const Source *source : qAsConst(m_sources)) {
        if (source->player())
            source->player()->actionRefreshPlaylists();
    }
}
