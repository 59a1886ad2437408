// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "support/SignalLog.h"

#include <QMetaMethod>

void SignalLog::watch(QObject *object, const QString &name)
{
    m_names.insert(object, name);
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("record()"));
    const QMetaObject *meta = object->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            connect(object, meta->method(i), this, slot);
    }
}

QStringList SignalLog::take()
{
    QStringList heard;
    heard.swap(m_heard);
    return heard;
}

void SignalLog::record()
{
    const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
    m_heard.append(m_names.value(sender()) + QLatin1Char('.') + QString::fromLatin1(signal.name()));
}
