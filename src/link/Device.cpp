// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "link/Device.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>

Device::Device(QObject *parent) : QObject(parent) { }

void Device::setSerialNumber(const QString &serialNumber)
{
    m_serialNumber = serialNumber;
    Q_EMIT serialNumberChanged();
}

void Device::setLocalIp(const QString &localIp)
{
    m_localIp = localIp;
    Q_EMIT localIpChanged();
}

void Device::setLocalPort(int localPort)
{
    m_localPort = localPort;
    Q_EMIT localPortChanged();
}

void Device::setRemoteIp(const QString &remoteIp)
{
    m_remoteIp = remoteIp;
    Q_EMIT remoteIpChanged();
}

void Device::setRemotePort(int remotePort)
{
    m_remotePort = remotePort;
    Q_EMIT remotePortChanged();
}

void Device::setUsername(const QString &username)
{
    m_username = username;
    Q_EMIT usernameChanged();
}

void Device::setPassword(const QString &password)
{
    m_password = password;
    Q_EMIT passwordChanged();
}

void Device::setPropDictionary(const QVariantHash &propDictionary)
{
    m_propDictionary = propDictionary;
    Q_EMIT propDictionaryChanged();
}

QVariant Device::getPropDictionaryValue(const QString &key) const
{
    return m_propDictionary.value(key, QString(QLatin1String("")));
}

void Device::setPropDictionaryValue(const QString &key, const QVariant &value)
{
    m_propDictionary.insert(key, value);
}

QString objectToJson(QObject *object)
{
    QVariantMap values;
    const QMetaObject *meta = object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        values.insert(QString::fromLatin1(property.name()), property.read(object));
    }
    return QString::fromUtf8(
        QJsonDocument(QJsonObject::fromVariantMap(values)).toJson(QJsonDocument::Compact));
}

bool objectFromJson(QObject *object, const QString &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isObject())
        return false;
    const QVariantMap values = document.object().toVariantMap();
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        object->setProperty(it.key().toLatin1().constData(), it.value());
    return true;
}
