// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/PlayerItem.h"

#include <limits>

namespace {

// The largest width from `from` to `to`; without one, the last entry in the hash's own order.
QString largestWithin(const QHash<int, QString> &images, int from, int to)
{
    QString last;
    const QString *chosen = nullptr;
    int largest = from - 1;
    for (auto it = images.cbegin(); it != images.cend(); ++it) {
        last = it.value();
        if (it.key() > largest && it.key() <= to) {
            largest = it.key();
            chosen = &it.value();
        }
    }
    return chosen ? *chosen : last;
}

} // namespace

PlayerItem::PlayerItem(QObject *parent) : QObject(parent) { }

PlayerItem::PlayerItem(QString &&uri, QString &&name) : m_uri(std::move(uri)), m_name(std::move(name)) { }

void PlayerItem::setUri(const QString &uri)
{
    m_uri = uri;
    Q_EMIT uriChanged();
}

void PlayerItem::setName(const QString &name)
{
    m_name = name;
    Q_EMIT nameChanged();
}

void PlayerItem::setType(const QString &type)
{
    m_type = type;
    Q_EMIT typeChanged();
}

QString PlayerItem::smallImgPath() const
{
    constexpr int sentinel = 100000;
    if (images->isEmpty())
        return {};
    int smallest = sentinel;
    for (auto it = images->cbegin(); it != images->cend(); ++it)
        smallest = qMin(smallest, it.key());
    return smallest < sentinel ? images->value(smallest) : images->cbegin().value();
}

QString PlayerItem::mediumImgPath() const
{
    return largestWithin(*images, 300, 599);
}

QString PlayerItem::largeImgPath() const
{
    return largestWithin(*images, 500, std::numeric_limits<int>::max());
}
