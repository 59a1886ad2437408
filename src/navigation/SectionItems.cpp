// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "navigation/SectionItems.h"

#include "player/Reclaimer.h"

SectionItems::SectionItems(QObject *parent) : QObject(parent) { }

void SectionItems::release()
{
    if (--m_users > 0)
        return;
    Reclaimer::dropAll(items);
    Reclaimer::drop(this);
}

void SectionItems::append(PlayerItem *item)
{
    itemUris.append(item->uri());
    items.append(item);
    index();
}

void SectionItems::index() const
{
    for (; m_indexed < itemUris.size(); ++m_indexed) {
        int &position = m_positions[itemUris.at(m_indexed)];
        if (position == 0)
            position = m_indexed + 1; // counted from 1, as 0 stands for a new entry
    }
}

int SectionItems::positionOf(const QString &uri) const
{
    index();
    return m_positions.value(uri) - 1;
}

PlayerItem *SectionItems::itemOf(const QString &uri) const
{
    return items.value(positionOf(uri));
}
