// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#include "simulator/LoginPassword.h"

#include <QFile>
#include <QTextStream>

QString loginPassword(const QString &file, QString *error)
{
    QString password = qEnvironmentVariable("HALVORA_PASSWORD");
    if (!file.isEmpty()) {
        QFile secret(file);
        if (!secret.open(QIODevice::ReadOnly)) {
            *error = QStringLiteral("The password file \"%1\" cannot be read: %2.")
                         .arg(file, secret.errorString());
            return {};
        }
        QTextStream lines(&secret);
        lines.setCodec("UTF-8");
        password = lines.readLine();
    }
    // An empty one would let everybody in under this name.
    if (password.isEmpty())
        *error = QStringLiteral(
            "--user needs a password: give --password-file FILE or set HALVORA_PASSWORD.");
    return password;
}
