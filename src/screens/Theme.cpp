// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "screens/Theme.h"

#include <QStringList>

Theme::Theme(QObject *parent) : QObject(parent) { }

Theme::Theme(const QJsonObject &json, QObject *parent) : QObject(parent)
{
    static constexpr struct
    {
        const char *key;
        QColor Theme::*color;
    } colors[] = {
        {"theme_background", &Theme::m_background}, {"theme_menu", &Theme::m_menu},
        {"theme_header", &Theme::m_header},         {"theme_highlight", &Theme::m_highlight},
        {"theme_icons", &Theme::m_icons},           {"theme_text", &Theme::m_text},
    };
    for (const auto &entry : colors)
        this->*entry.color = parseColor(json.value(QLatin1String(entry.key)).toString());
    m_imgSuffix = json.value(QLatin1String("theme_image_suffix")).toString();
}

QColor Theme::parseColor(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() < 3)
        return QColor::fromRgb(0, 0, 0);
    return QColor::fromRgb(parts.at(0).toInt(), parts.at(1).toInt(), parts.at(2).toInt());
}

void Theme::setBackground(const QColor &background)
{
    m_background = background;
    Q_EMIT backgroundChanged();
}

void Theme::setMenu(const QColor &menu)
{
    m_menu = menu;
    Q_EMIT menuChanged();
}

void Theme::setHeader(const QColor &header)
{
    m_header = header;
    Q_EMIT headerChanged();
}

void Theme::setHighlight(const QColor &highlight)
{
    m_highlight = highlight;
    Q_EMIT highlightChanged();
}

void Theme::setIcons(const QColor &icons)
{
    m_icons = icons;
    Q_EMIT iconsChanged();
}

void Theme::setText(const QColor &text)
{
    m_text = text;
    Q_EMIT textChanged();
}

void Theme::setImgSuffix(const QString &imgSuffix)
{
    m_imgSuffix = imgSuffix;
    Q_EMIT imgSuffixChanged();
}
