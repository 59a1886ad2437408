// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

#include <optional>

/// Where a peer listens.
struct Endpoint
{
    QString host;     ///< name or address; an IPv6 address stands without its brackets
    quint16 port = 0; ///< 1 to 65535

    /// The host as a URL wants it: an IPv6 address in brackets.
    QString urlHost() const;

    /// Reads "name:port", "1.2.3.4:port" or "[::1]:port". Nothing for any other text.
    static std::optional<Endpoint> parse(const QString &text);
};
