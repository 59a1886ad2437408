// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "NameLookup.h"

#include <QHostAddress>
#include <QHostInfo>

NameLookup::~NameLookup()
{
    drop();
}

void NameLookup::drop()
{
    if (m_pending >= 0)
        QHostInfo::abortHostLookup(m_pending);
    m_pending = -1;
}

void NameLookup::ask(const QString &host)
{
    drop();
    if (host.isEmpty() || !QHostAddress(host).isNull())
        return;
    m_pending = QHostInfo::lookupHost(host, this, [this, host](const QHostInfo &info) {
        if (info.lookupId() == m_pending && info.addresses().isEmpty())
            Q_EMIT unknown(host);
    });
}
