// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "HostLog.h"

Q_LOGGING_CATEGORY(lcHost, "halvora.host", QtWarningMsg)

void sayAtTerminal(const QString &sentence)
{
    qCWarning(lcHost).noquote() << sentence;
}

void hideScreenNotes()
{
    QLoggingCategory::setFilterRules(QStringLiteral("qml.debug=false"));
}
