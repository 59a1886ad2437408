// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

class QQuickItem;

/// The client's pop-ups, as any host can tell them: items in sight that have a signal close().
namespace ClientPopups {

/// Emits close() of the topmost one below an item: the client takes that as its own close button. False, and nothing
/// happens, when there is none.
bool closeTopmost(QQuickItem *root);

} // namespace ClientPopups
