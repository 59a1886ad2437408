// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

struct JsonText;

/**
 * A receiver of replies that reads the results of long ones from their text; see LongReply. Implemented beside QObject
 * by HalvoraPlayer and the controllers of lists, and called in the GUI thread.
 */
class LongReplyReader
{
public:
    /// Does what the handler of that name does, with the number of the request. False when it has found no plain text, or
    /// has no such handler, and has done nothing.
    virtual bool readLongReply(const char *handler, int responseId, const JsonText &result) = 0;

protected:
    ~LongReplyReader() = default;
};
