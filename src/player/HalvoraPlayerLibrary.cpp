// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "player/HalvoraPlayer.h"

#include "screens/DynamicTranslator.h"

#include <QJsonArray>

// Reading the server's library for others, and the search filters.

namespace {

// Schemes that are transports and no music services.
bool isTransport(const QString &scheme)
{
    static const QStringList transports{
        QStringLiteral("yt"),  QStringLiteral("rtsp"),  QStringLiteral("rtmps"), QStringLiteral("rtmp"),
        QStringLiteral("mms"), QStringLiteral("https"), QStringLiteral("http"),  QStringLiteral("file")};
    return transports.contains(scheme);
}

QJsonObject urisParameter(const QStringList &uris)
{
    return {{QStringLiteral("uris"), QJsonArray::fromStringList(uris)}};
}

} // namespace

void HalvoraPlayer::updateUriSchemes(QJsonValue v)
{
    if (!v.isArray())
        return;
    m_filters = QStringList{QStringLiteral("all")};
    const QJsonArray schemes = v.toArray();
    for (const QJsonValue &value : schemes) {
        const QString scheme = value.toString();
        if (!isTransport(scheme))
            m_filters.append(scheme);
    }
    m_filterTitles.clear();
    for (const QString &filter : qAsConst(m_filters))
        m_filterTitles.append(DynamicTranslator::translation(filter));
    Q_EMIT filtersChanged();
}

int HalvoraPlayer::actionBrowse(QString uri, QObject *rec, const char *hdl)
{
    return post(QStringLiteral("core.library.browse"),
                {{QStringLiteral("uri"), uri.isEmpty() ? QJsonValue() : QJsonValue(uri)}}, rec, hdl);
}

int HalvoraPlayer::actionLookup(QStringList uris, QObject *rec, const char *hdl)
{
    return post(QStringLiteral("core.library.lookup"), urisParameter(uris), rec, hdl);
}

int HalvoraPlayer::actionLookupImages(QStringList uris, QObject *rec, const char *hdl)
{
    return post(QStringLiteral("core.library.get_images"), urisParameter(uris), rec, hdl);
}

void HalvoraPlayer::actionSearch(QString text, QString filter, QObject *rec, const char *hdl)
{
    QJsonValue uris = QJsonObject();
    if (!filter.isEmpty())
        uris = QJsonArray{QString(filter + QLatin1Char(':'))};
    post(QStringLiteral("core.library.search"),
         {{QStringLiteral("query"), QJsonObject{{QStringLiteral("any"), text}}},
          {QStringLiteral("uris"), uris}},
         rec, hdl);
}
