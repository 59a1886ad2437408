// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <QString>

#include <functional>

/// One sentence for a person, in the language of the moment in which it is asked for. Empty: there is nothing to say.
using Sentence = std::function<QString()>;
