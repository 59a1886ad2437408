// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "Sentence.h"

#include <QObject>

/// Where passwords outlive the process. Answers come later, in the GUI thread, or never when a person leaves the
/// store's own dialog open. A secret goes nowhere but there: not to the settings, not to a log.
class SecretStore : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void read(const QString &id) = 0; ///< answered by found()
    virtual void write(const QString &id, const QString &secret) = 0;
    virtual void forget(const QString &id) = 0; ///< one that is not there: nothing happens

Q_SIGNALS:
    void found(const QString &id, const QString &secret); ///< empty when there is none to be had
    void failed(const Sentence &problem);                 ///< on a read, found() with nothing follows
};
