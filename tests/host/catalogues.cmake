# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

# cmake -DLUPDATE=... -DHOST=... -DWORK=... -P catalogues.cmake: whether the host's catalogues have each of its texts,
# and none besides.
foreach(language de it)
    set(name halvora-host_${language}.ts)
    file(COPY ${HOST}/translations/${name} DESTINATION ${WORK})
    execute_process(COMMAND ${LUPDATE} ${HOST} -locations none -source-language en -target-language ${language}
        -ts ${WORK}/${name}
        OUTPUT_VARIABLE said ERROR_VARIABLE warned RESULT_VARIABLE status)
    file(STRINGS ${WORK}/${name} left REGEX "type=\"(unfinished|vanished|obsolete)\"")
    if(NOT status EQUAL 0 OR warned OR left)
        message(FATAL_ERROR "${name}: ${said} ${warned} ${left}")
    endif()
endforeach()
