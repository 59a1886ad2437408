// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

import QtQml 2.2
import QtQml.Models 2.2
import QtQuick 2.9
import QtQuick.Controls 1.2
import QtQuick.Controls.Styles 1.2
import QtQuick.Layouts 1.1
import QtQuick.Window 2.2
import QtGraphicalEffects 1.0

// The modules of the host and of the client's screens, in a window of the host's size with nothing in it.
Window {
    width: 450
    height: 710
    visible: true
}
