// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "DeviceBook.h"

#include "HostSettings.h"

#include <QSettings>
#include <QUuid>

#include <algorithm>

namespace {

const QString group = QStringLiteral("devices");
const QString currentKey = QStringLiteral("currentDevice");
constexpr int mostDevices = 100; // whatever number the settings say

} // namespace

DeviceBook::DeviceBook(QObject *parent) : QAbstractListModel(parent)
{
    read();
}

void DeviceBook::read()
{
    QSettings settings;
    const int count = std::min(settings.beginReadArray(group), mostDevices);
    for (int row = 0; row < count; ++row) {
        settings.setArrayIndex(row);
        QVariantMap typed;
        for (const char *field : {"name", "host", "port", "user"})
            typed.insert(QLatin1String(field), settings.value(QLatin1String(field)));
        DeviceEntry entry = DeviceEntry::fromForm(typed);
        entry.id = settings.value(QStringLiteral("id")).toString();
        if (!entry.id.isEmpty() && rowOf(entry.id) < 0 && entry.complaint().isEmpty())
            m_entries.append(entry);
    }
    settings.endArray();
    m_currentId = settings.value(currentKey).toString();
}

void DeviceBook::keep()
{
    QSettings settings;
    settings.remove(group);
    settings.beginWriteArray(group, m_entries.size());
    for (int row = 0; row < m_entries.size(); ++row) {
        settings.setArrayIndex(row);
        settings.setValue(QStringLiteral("id"), m_entries.at(row).id);
        const QVariantMap values = fields(row);
        for (auto value = values.begin(); value != values.end(); ++value)
            settings.setValue(value.key(), value.value());
    }
    settings.endArray();
    settings.setValue(currentKey, m_currentId);
    const Sentence problem = writeOut(settings);
    if (problem)
        Q_EMIT notKept(problem);
    Q_EMIT changed();
}

int DeviceBook::current() const
{
    return rowOf(m_currentId);
}

void DeviceBook::setCurrent(int row)
{
    m_currentId = entry(row).id;
    if (!m_entries.isEmpty())
        Q_EMIT dataChanged(index(0), index(m_entries.size() - 1), {Chosen});
    keep();
}

QVariantMap DeviceBook::fields(int row) const
{
    const DeviceEntry device = entry(row);
    return {{QStringLiteral("name"), device.name},
            {QStringLiteral("host"), device.host},
            {QStringLiteral("port"), device.port > 0 ? QString::number(device.port) : QString()},
            {QStringLiteral("user"), device.user}};
}

int DeviceBook::find(const DeviceEntry &device) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&device](const DeviceEntry &other) {
        return device.isSameDevice(other);
    });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

int DeviceBook::rowOf(const QString &id) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&id](const DeviceEntry &entry) { return entry.id == id; });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

int DeviceBook::put(int row, DeviceEntry entry)
{
    const bool isNew = row < 0 || row >= m_entries.size();
    entry.id = isNew ? QUuid::createUuid().toString(QUuid::WithoutBraces) : m_entries.at(row).id;
    if (isNew) {
        row = m_entries.size();
        beginInsertRows({}, row, row);
        m_entries.append(entry);
        endInsertRows();
    } else {
        m_entries[row] = entry;
        Q_EMIT dataChanged(index(row), index(row));
    }
    keep();
    return row;
}

void DeviceBook::remove(int row)
{
    if (row < 0 || row >= m_entries.size())
        return;
    beginRemoveRows({}, row, row);
    m_entries.remove(row);
    endRemoveRows();
    keep();
}

int DeviceBook::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_entries.size();
}

QVariant DeviceBook::data(const QModelIndex &index, int role) const
{
    const DeviceEntry device = entry(index.row());
    switch (role) {
    case Name:
        return device.name;
    case Host:
        return device.host;
    case Port:
        return device.port;
    case User:
        return device.user;
    case Chosen:
        return device.id == m_currentId;
    default:
        return {};
    }
}

QHash<int, QByteArray> DeviceBook::roleNames() const
{
    return {{Name, "name"}, {Host, "host"}, {Port, "port"}, {User, "user"}, {Chosen, "chosen"}};
}
