// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QStringList>

/**
 * The fields of the device's messages. They give what QString::split() and QString::toInt() give, for any text, in half
 * of their time for the few short fields of a message: the state of a device is a thousand of them and more, read in the
 * GUI thread. Plain functions, for any thread.
 */
namespace MessageFields {

QStringList split(const QString &text, char separator);

/// 0 for what is no number.
int number(const QString &field);

} // namespace MessageFields
