// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

#include <optional>

/// Where the password of a device comes from, the first that applies: the first line of `file` (when not empty),
/// the environment variable HALVORA_PASSWORD, a prompt for `user` on the terminal, with the echo off.
/// Nothing when it cannot be had: `error` is then one sentence on why.
std::optional<QString> readPassword(const QString &file, const QString &user, QString *error);
