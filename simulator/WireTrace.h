// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QObject>

class DemoHouse;

/**
 * Everything that passes between a running house and its clients, as lines of text: the peer's name, the direction
 * ("<" from the client, ">" to it), and what was said, deciphered. Login digests are left out, and of pictures all
 * but the size.
 *
 * Listens to a house that it does not own and that outlives it, in the house's thread.
 */
class WireTrace final : public QObject
{
    Q_OBJECT

public:
    /// The house must have been started.
    explicit WireTrace(DemoHouse *house, QObject *parent = nullptr);

Q_SIGNALS:
    void passed(const QString &line);

private:
    template<typename Peer>
    void follow(Peer *peer, const QString &name);
};
