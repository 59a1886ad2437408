// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "SecretStore.h"

#include <memory>

/// The desktop's secret store (the Secret Service or KWallet), by way of its session bus. The jobs belong to this
/// object.
class KeychainStore final : public SecretStore
{
    Q_OBJECT

public:
    using SecretStore::SecretStore;

    /// The store of this session, or null where there is no session bus, or nobody on it that keeps secrets. Asks the
    /// bus, and waits for its answer.
    static std::unique_ptr<SecretStore> ofSession();

    void read(const QString &id) override;
    void write(const QString &id, const QString &secret) override;
    void forget(const QString &id) override;
};
