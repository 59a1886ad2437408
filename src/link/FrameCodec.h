// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QByteArray>
#include <QString>

/**
 * The text of one message to the armoured cipher text of one frame and back.
 *
 * A frame is the message's UTF-8 bytes, padded by PKCS#7, enciphered with AES-128-CBC under the link's fixed key
 * from a zero vector, in Base64. The terminators stand outside: the client's frames end in clientTerminator, the
 * device's in deviceTerminator. The functions have no state and may be called on any thread.
 */
namespace FrameCodec {

constexpr char clientTerminator[] = "&";
constexpr char deviceTerminator[] = "%%%";

/// The Base64 text, without terminator, of `text`. Text behind a NUL character is cut off.
QByteArray encryptText(const QString &text);

/// The message behind a Base64 text (bytes from a NUL on are not read). Wrong padding is no error: it stays in
/// the message. Cipher text that is no multiple of 16 bytes gives an empty message.
QString decryptText(const QByteArray &armoured);

/// `plain` without its padding: with p the last byte, up to p last bytes that equal p are removed.
QByteArray withoutPadding(QByteArray plain);

} // namespace FrameCodec
