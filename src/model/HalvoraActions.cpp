// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "model/Halvora.h"

#include "link/HalvoraConnThread.h"

// The requests to the device. Each is the command's code, a constant field and the arguments.

namespace {

template<typename T>
T *atPosition(const QMap<int, T *> &map, int position)
{
    return position >= 0 && position < map.size() ? *std::next(map.constBegin(), position) : nullptr;
}

QString joined(int first, const char *separator, int second)
{
    return QString::number(first) + QLatin1String(separator) + QString::number(second);
}

} // namespace

void Halvora::send(const char *code, const QString &arguments)
{
    if (m_connPointer)
        Q_EMIT m_connPointer->requireSendCommand(QLatin1String(code) + QLatin1String("|100|") + arguments);
}

void Halvora::actionSetVolumeForOutput(int value, int outputIndex)
{
    if (const Output *output = outputAt(outputIndex))
        send("2000", joined(output->index(), "|", value));
}

void Halvora::actionSetMuteForOutput(bool value, int outputIndex)
{
    if (const Output *output = outputAt(outputIndex))
        send("2001", joined(output->index(), "|", value ? 1 : 0));
}

void Halvora::actionSetEqualizerForOutput(QString str)
{
    send("2002", str);
}

void Halvora::actionSetMatrixSetting(int sourceIndex, int outputIndex)
{
    const Output *output = atPosition(m_outputs, outputIndex);
    const Source *source = atPosition(m_sources, sourceIndex);
    if (!output || (!source && sourceIndex != -1))
        return;
    send("2003", joined(output->index(), "@", source ? source->index() : -1));
}

void Halvora::actionSetVolumeForSource(int value, int sourceIndex)
{
    if (const Source *source = sourceAt(sourceIndex))
        send("2004", joined(source->index(), "|", value));
}

void Halvora::actionRenamePlaylist(QString uri, QString new_name)
{
    send("2010", uri + QLatin1Char('|') + new_name);
}

void Halvora::actionDeletePlaylist(QString uri)
{
    send("2011", uri);
}

void Halvora::actionAssociatePlaylist(int entryId, QString uri)
{
    send("2012", uri + QLatin1Char('|') + QString::number(entryId));
}
