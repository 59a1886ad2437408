// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "KeychainStore.h"

#include <qt5keychain/keychain.h>

#include <QDir>
#include <QFileInfo>

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

QString complaint(const char *what, const QKeychain::Job *job)
{
    QString reason = job->errorString();
    while (reason.endsWith(QLatin1Char('.')))
        reason.chop(1);
    return QStringLiteral("The password could not be %1: %2.").arg(QLatin1String(what), reason);
}

bool isFine(const QKeychain::Job *job)
{
    return job->error() == QKeychain::NoError || job->error() == QKeychain::EntryNotFound;
}

} // namespace

std::unique_ptr<SecretStore> KeychainStore::ofSession()
{
    return hasSessionBus() ? std::make_unique<KeychainStore>() : nullptr;
}

void KeychainStore::read(const QString &id)
{
    auto *job = new QKeychain::ReadPasswordJob(service, this);
    job->setKey(id);
    connect(job, &QKeychain::Job::finished, this, [this, job, id] {
        if (!isFine(job))
            Q_EMIT failed(complaint("read", job));
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
            Q_EMIT failed(complaint("kept", job));
    });
    job->start();
}

void KeychainStore::forget(const QString &id)
{
    auto *job = new QKeychain::DeletePasswordJob(service, this);
    job->setKey(id);
    connect(job, &QKeychain::Job::finished, this, [this, job] {
        if (!isFine(job))
            Q_EMIT failed(complaint("forgotten", job));
    });
    job->start();
}
