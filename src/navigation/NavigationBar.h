// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QQuickItem>

/**
 * The title bar of a navigation stack. "qrc:/Qml/NavigationBar.qml" gives it its looks and its buttons: the
 * properties backText, backVisible, secRightText, secRightVisible, rightText and rightVisible, and the signals
 * right(), secondRight() and back().
 *
 * Made by NavigationController from that file, in the GUI thread, as its child item.
 */
class NavigationBar : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)

public:
    explicit NavigationBar(QQuickItem *parent = nullptr);

    /// The text in the middle, "" by default.
    QString title() const { return m_title; }
    void setTitle(const QString &title);

Q_SIGNALS:
    void titleChanged();

private:
    QString m_title;
};
