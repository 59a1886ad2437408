// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonObject>
#include <QObject>
#include <QPointer>

/**
 * The record of one request that waits for its reply. Owned by the pending table of HalvoraPlayer, in the GUI
 * thread; it goes with its reply or with its connection.
 */
class SocketHandler final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    int id = 0;            ///< number of the request
    QString method;        ///< its method, for inspection
    QPointer<QObject> rec; ///< who gets the reply; null when nobody wants it or the receiver is gone
    QJsonObject
        paramsIfRefused; ///< what to send the method with, once, when the reply has no result; empty: nothing
    const char
        *hdl = ""; ///< name of the invokable method of `rec`; a literal, "" when nobody wants the reply
};
