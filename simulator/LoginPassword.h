// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

/// The password that the device is to accept: the first line of `file`, in UTF-8, when that is not empty, otherwise
/// the environment variable HALVORA_PASSWORD. "" when there is none: `error` is then one sentence on why.
QString loginPassword(const QString &file, QString *error);
