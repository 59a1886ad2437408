// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "KeychainStore.h"

#include <qt5keychain/keychain.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

const QString service = QStringLiteral("halvora-host");

// Without one the libraries below would try to start a bus of their own, which outlives this process.
bool hasSessionBus()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(QDir(folder).filePath(QStringLiteral("bus")));
}

/// Whether somebody on the bus keeps secrets, or would be started to.
bool hasStore(const QDBusConnection &bus)
{
    if (!bus.isConnected())
        return false;
    const QStringList there = bus.interface()->registeredServiceNames().value()
        + bus.interface()->activatableServiceNames().value();
    const auto stores = {"org.freedesktop.secrets", "org.kde.kwalletd5", "org.kde.kwalletd"};
    return std::any_of(stores.begin(), stores.end(),
                       [&there](const char *name) { return there.contains(QLatin1String(name)); });
}

bool sessionHasStore()
{
    const QString connection = QStringLiteral("halvora-host secrets");
    const bool found = hasStore(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection));
    QDBusConnection::disconnectFromBus(connection);
    return found;
}

QString reasonOf(const QKeychain::Job *job)
{
    QString reason = job->errorString();
    while (reason.endsWith(QLatin1Char('.')))
        reason.chop(1);
    return reason;
}

bool isFine(const QKeychain::Job *job)
{
    return job->error() == QKeychain::NoError || job->error() == QKeychain::EntryNotFound;
}

} // namespace

std::unique_ptr<SecretStore> KeychainStore::ofSession()
{
    return hasSessionBus() && sessionHasStore() ? std::make_unique<KeychainStore>() : nullptr;
}

void KeychainStore::read(const QString &id)
{
    auto *job = new QKeychain::ReadPasswordJob(service, this);
    job->setKey(id);
    connect(job, &QKeychain::Job::finished, this, [this, job, id] {
        if (!isFine(job))
            Q_EMIT failed(
                [reason = reasonOf(job)] { return tr("The password could not be read: %1.").arg(reason); });
        Q_EMIT found(id, job->error() == QKeychain::NoError ? job->textData() : QString());
    });
    job->start();
}

void KeychainStore::write(const QString &id, const QString &secret)
{
    auto *job = new QKeychain::WritePasswordJob(service, this);
    job->setKey(id);
    job->setTextData(secret);
    connect(job, &QKeychain::Job::finished, this, [this, job] {
        if (!isFine(job))
            Q_EMIT failed(
                [reason = reasonOf(job)] { return tr("The password could not be kept: %1.").arg(reason); });
    });
    job->start();
}

void KeychainStore::forget(const QString &id)
{
    auto *job = new QKeychain::DeletePasswordJob(service, this);
    job->setKey(id);
    connect(job, &QKeychain::Job::finished, this, [this, job] {
        if (!isFine(job))
            Q_EMIT failed([reason = reasonOf(job)] {
                return tr("The password could not be forgotten: %1.").arg(reason);
            });
    });
    job->start();
}
