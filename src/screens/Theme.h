// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QColor>
#include <QJsonObject>
#include <QObject>

/**
 * The colours of all screens and the suffix of the pictures that go with them. MainTabController reads one from
 * the resources and publishes it to QML as "currentTheme"; it lives in the GUI thread as long as the engine.
 */
class Theme : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor background READ background WRITE setBackground NOTIFY backgroundChanged)
    Q_PROPERTY(QColor menu READ menu WRITE setMenu NOTIFY menuChanged)
    Q_PROPERTY(QColor header READ header WRITE setHeader NOTIFY headerChanged)
    Q_PROPERTY(QColor highlight READ highlight WRITE setHighlight NOTIFY highlightChanged)
    Q_PROPERTY(QColor icons READ icons WRITE setIcons NOTIFY iconsChanged)
    Q_PROPERTY(QColor text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString imgSuffix READ imgSuffix WRITE setImgSuffix NOTIFY imgSuffixChanged)

public:
    /// Black throughout, without a suffix.
    explicit Theme(QObject *parent = nullptr);
    /// Reads the seven keys of a theme file: colours as "red;green;blue" in decimal. What is missing, no text or
    /// too short gives black, and a missing suffix "".
    explicit Theme(const QJsonObject &json, QObject *parent = nullptr);

    QColor background() const { return m_background; } ///< page fill and overlays
    void setBackground(const QColor &background);
    QColor menu() const { return m_menu; } ///< top bars, pop-ups, slider tracks
    void setMenu(const QColor &menu);
    QColor header() const { return m_header; } ///< section bands and row titles
    void setHeader(const QColor &header);
    QColor highlight() const { return m_highlight; } ///< selection, names, slider fill
    void setHighlight(const QColor &highlight);
    QColor icons() const { return m_icons; } ///< primary text and rings
    void setIcons(const QColor &icons);
    QColor text() const { return m_text; } ///< secondary text and guide lines
    void setText(const QColor &text);
    QString imgSuffix() const { return m_imgSuffix; } ///< "_0" or "_1", between a picture's stem and ".png"
    void setImgSuffix(const QString &imgSuffix);

Q_SIGNALS:
    void backgroundChanged();
    void menuChanged();
    void headerChanged();
    void highlightChanged();
    void iconsChanged();
    void textChanged();
    void imgSuffixChanged();

private:
    static QColor parseColor(const QString &text);

    QColor m_background{0, 0, 0};
    QColor m_menu{0, 0, 0};
    QColor m_header{0, 0, 0};
    QColor m_highlight{0, 0, 0};
    QColor m_icons{0, 0, 0};
    QColor m_text{0, 0, 0};
    QString m_imgSuffix;
};
