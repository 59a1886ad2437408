# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0
#
# The host that the documentation shows is the one that is built: cmake -D SOURCE=<tree> -P this

file(READ ${SOURCE}/docs/host-contract.md document)
foreach(name main.cpp Main.qml)
    file(READ ${SOURCE}/examples/minimal-host/${name} text)
    string(REGEX REPLACE "^// SPDX[^\n]*\n// SPDX[^\n]*\n" "" text "${text}")
    string(FIND "${document}" "${text}```" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "docs/host-contract.md does not show examples/minimal-host/${name} as it is")
    endif()
endforeach()
