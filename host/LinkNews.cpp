// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "LinkNews.h"

// By name, as the host meets the client's classes at run time alone.
void LinkNews::setLink(QObject *link)
{
    if (m_link)
        m_link->disconnect(this);
    m_link = link;
    if (link) {
        connect(link, SIGNAL(showConnectionScreen(bool)), SIGNAL(screenShown(bool)));
        connect(link, SIGNAL(setConnectionScreenMessage(QString)), SIGNAL(messageSet(QString)));
        connect(link, SIGNAL(requireAuthenticationDialog()), SIGNAL(authenticationRequired()));
    }
    Q_EMIT linkChanged();
}
