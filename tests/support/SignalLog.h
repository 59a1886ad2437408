// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

/**
 * Records which signals objects of its own thread emit, over all of them in one order.
 */
class SignalLog final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Records all signals of `object` but QObject's own, as `name` + "." + the signal's name.
    void watch(QObject *object, const QString &name);

    /// What was recorded since the last call.
    QStringList take();

private Q_SLOTS:
    void record();

private:
    QHash<QObject *, QString> m_names;
    QStringList m_heard;
};
