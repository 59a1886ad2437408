// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QJsonValue>

/**
 * Puts a wrong value somewhere into a JSON value. Fields are the values inside of it, its own one excepted, counted
 * from 0, depth first, a list or an object before what is in it and keys in alphabetical order. Plain functions.
 */
namespace JsonSpoiler {

/// `value` with its field of that number replaced; as it is, when there is no such field.
QJsonValue spoiled(const QJsonValue &value, int field, const QJsonValue &with);

} // namespace JsonSpoiler
