// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>
#include <QVariantHash>

/**
 * One device as it is dialled: its addresses, the login, and what else a host wants to note about it.
 *
 * Made in the GUI thread, by MainTabController, which keeps it to its own end, or by QML. The link's thread
 * reads the addresses when it starts, so the record is not written while the link runs. Nothing is checked:
 * every setter stores what it is given and emits its signal, changed or not.
 */
class Device : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString serialNumber READ serialNumber WRITE setSerialNumber NOTIFY serialNumberChanged)
    Q_PROPERTY(QString localIp READ localIp WRITE setLocalIp NOTIFY localIpChanged)
    Q_PROPERTY(int localPort READ localPort WRITE setLocalPort NOTIFY localPortChanged)
    Q_PROPERTY(QString remoteIp READ remoteIp WRITE setRemoteIp NOTIFY remoteIpChanged)
    Q_PROPERTY(int remotePort READ remotePort WRITE setRemotePort NOTIFY remotePortChanged)
    Q_PROPERTY(QString username READ username WRITE setUsername NOTIFY usernameChanged)
    Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY passwordChanged)
    Q_PROPERTY(
        QVariantHash propDictionary READ propDictionary WRITE setPropDictionary NOTIFY propDictionaryChanged)

public:
    explicit Device(QObject *parent = nullptr);

    /// The device's serial text, "" by default. Stored only.
    QString serialNumber() const { return m_serialNumber; }
    void setSerialNumber(const QString &serialNumber);
    /// Address on the local network, "" by default. Where it is set, it wins over remoteIp.
    QString localIp() const { return m_localIp; }
    void setLocalIp(const QString &localIp);
    /// TCP port for localIp, 0 by default.
    int localPort() const { return m_localPort; }
    void setLocalPort(int localPort);
    /// Address from outside, "" by default.
    QString remoteIp() const { return m_remoteIp; }
    void setRemoteIp(const QString &remoteIp);
    /// TCP port for remoteIp, 0 by default.
    int remotePort() const { return m_remotePort; }
    void setRemotePort(int remotePort);
    /// User name of the login, "" by default: with no user name or no password the short login is sent.
    QString username() const { return m_username; }
    void setUsername(const QString &username);
    /// Password in plain, "" by default. Only its digest travels.
    QString password() const { return m_password; }
    void setPassword(const QString &password);
    /// Free pairs of the host's own, empty by default.
    QVariantHash propDictionary() const { return m_propDictionary; }
    void setPropDictionary(const QVariantHash &propDictionary);

    /// The value under `key`, or the empty text for a key that is not there.
    Q_INVOKABLE QVariant getPropDictionaryValue(const QString &key) const;
    /// Inserts or replaces one value. Emits no signal.
    void setPropDictionaryValue(const QString &key, const QVariant &value);

Q_SIGNALS:
    void serialNumberChanged();
    void localIpChanged();
    void localPortChanged();
    void remoteIpChanged();
    void remotePortChanged();
    void usernameChanged();
    void passwordChanged();
    void propDictionaryChanged();

private:
    QString m_serialNumber = QLatin1String("");
    QString m_localIp = QLatin1String("");
    int m_localPort = 0;
    QString m_remoteIp = QLatin1String("");
    int m_remotePort = 0;
    QString m_username = QLatin1String("");
    QString m_password = QLatin1String("");
    QVariantHash m_propDictionary;
};

/// All properties of `object`, objectName included, as the compact JSON text of one object.
QString objectToJson(QObject *object);

/// Sets each key of the JSON object in `json` as a property of `object`, in key order; a key that names no declared
/// property becomes a dynamic one. False, and nothing is changed, when `json` is no object.
bool objectFromJson(QObject *object, const QString &json);
