// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "DeviceEntry.h"
#include "Sentence.h"

#include <QAbstractListModel>
#include <QVector>

/**
 * The devices that a person has entered, in their order, and which one was chosen last. Kept in the settings at
 * every change; entries there that make no sense are left out when they are read.
 *
 * Owned by the host's controller, in the GUI thread. Roles: name, host, port, user, chosen. A row out of range
 * changes nothing and gives an empty entry.
 */
class DeviceBook final : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(int current READ current NOTIFY changed)

public:
    explicit DeviceBook(QObject *parent = nullptr);

    int count() const { return m_entries.size(); }
    int current() const; ///< row of the chosen device, -1 without one
    void setCurrent(int row);

    DeviceEntry entry(int row) const { return m_entries.value(row); }
    /// The fields of a row for a form: name, host, port and user.
    Q_INVOKABLE QVariantMap fields(int row) const;
    int find(const DeviceEntry &device) const; ///< the row with the same host, port and user, or -1
    int rowOf(const QString &id) const;        ///< -1 without one

    /// Puts an entry into a row, which keeps its id; with -1 behind the last, with a new one. Returns the row.
    int put(int row, DeviceEntry entry);
    void remove(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void changed();
    void notKept(const Sentence &problem); ///< the settings could not be written

private:
    enum Role { Name = Qt::UserRole, Host, Port, User, Chosen };

    void read();
    void keep();

    QVector<DeviceEntry> m_entries;
    QString m_currentId;
};
