# SPDX-FileCopyrightText: The Halvora client authors
# SPDX-License-Identifier: Apache-2.0

# What goes where, and the Debian packages made of it: `cmake --build --preset package --target package`.

include(GNUInstallDirs)

# Where Debian's Qt 5 looks for QML modules, relative to the prefix.
set(qml_folder ${CMAKE_INSTALL_LIBDIR}/qt5/qml/com/kestrum)

install(TARGETS HalvoraLib LIBRARY DESTINATION ${qml_folder}/halvoraint COMPONENT qml)
foreach(module halvoraint logic translations)
    install(FILES packaging/qml/com/kestrum/${module}/qmldir DESTINATION ${qml_folder}/${module} COMPONENT qml)
endforeach()
# What editors read of the types. It is dumped from the library itself, which the other presets need not wait for.
if(HALVORA_PACKAGES)
    find_program(QMLPLUGINDUMP qmlplugindump PATHS /usr/lib/qt5/bin REQUIRED)
    foreach(module halvoraint logic translations)
        set(types ${CMAKE_CURRENT_BINARY_DIR}/types/${module}.qmltypes)
        add_custom_command(OUTPUT ${types}
            COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${QMLPLUGINDUMP} -nonrelocatable
                -noinstantiate -output ${types} com.kestrum.${module} 1.0 ${CMAKE_BINARY_DIR}/qml
            DEPENDS HalvoraQmlModules HalvoraLib
            VERBATIM)
        add_custom_target(types-${module} ALL DEPENDS ${types})
        install(FILES ${types} RENAME plugins.qmltypes DESTINATION ${qml_folder}/${module} COMPONENT qml)
    endforeach()
endif()

install(TARGETS halvora-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT host)
install(FILES packaging/desktop/halvora-host.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT host)
install(FILES packaging/desktop/com.kestrum.Halvora.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT host)
install(FILES packaging/desktop/halvora-host.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT host)

install(TARGETS halvora-simulator RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT simulator)

# What Debian wants with each package. The changelog is packed without a time, so that equal sources make equal files.
set(debian_changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${debian_changelog}
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/packaging/debian/changelog > ${debian_changelog}
    DEPENDS packaging/debian/changelog
    VERBATIM)
add_custom_target(debian-changelog ALL DEPENDS ${debian_changelog})

# Manual pages, made of what --help says.
function(install_manual program component name)
    set(page ${CMAKE_CURRENT_BINARY_DIR}/man/${program}.1)
    add_custom_command(OUTPUT ${page}.gz
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/man
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen SOURCE_DATE_EPOCH=${changelog_time}
            ${HELP2MAN} --no-info --name=${name} --output=${page} $<TARGET_FILE:${program}>
        COMMAND gzip -9nf ${page}
        DEPENDS ${program}
        VERBATIM)
    add_custom_target(manual-${program} ALL DEPENDS ${page}.gz)
    install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
endfunction()
if(HALVORA_PACKAGES)
    find_program(HELP2MAN help2man REQUIRED)
    # The pages bear the month of the changelog, not that of the build.
    execute_process(COMMAND dpkg-parsechangelog -l ${CMAKE_SOURCE_DIR}/packaging/debian/changelog -S Timestamp
        OUTPUT_VARIABLE changelog_time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    install_manual(halvora-host host "desktop application for Halvora multi-room audio")
    install_manual(halvora-simulator simulator "Halvora device and music servers, simulated")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halvora-client)
set(CPACK_PACKAGE_VENDOR "The Halvora client authors")
set(CPACK_PACKAGE_CONTACT "The Halvora client authors <maintainers@halvora.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL qml host simulator)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# No tool finds what QML imports at run time.
set(qml_modules qml-module-qtqml qml-module-qtquick2 qml-module-qtqml-models2 qml-module-qtquick-layouts
    qml-module-qtquick-controls qml-module-qtgraphicaleffects)
list(JOIN qml_modules ", " qml_modules)

set(CPACK_DEBIAN_QML_PACKAGE_NAME qml-module-halvora)
set(CPACK_DEBIAN_QML_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_QML_PACKAGE_DEPENDS "${qml_modules}")
set(CPACK_COMPONENT_QML_DESCRIPTION "Halvora client as QML modules
The whole client of a Halvora multi-room audio matrix, logic and screens, as a
Qt 5 Quick plugin for a host application to load.")

set(CPACK_DEBIAN_HOST_PACKAGE_NAME halvora-host)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_HOST_PACKAGE_DEPENDS
    "qml-module-halvora (= ${PROJECT_VERSION}), qml-module-qtquick-window2, fonts-dejavu-core")
set(CPACK_DEBIAN_HOST_PACKAGE_RECOMMENDS "qtwayland5, libsecret-1-0, gnome-keyring | kwalletmanager")
set(CPACK_COMPONENT_HOST_DESCRIPTION "desktop application for Halvora multi-room audio
Zones, routing and the music players of a Halvora audio matrix in a window,
with a simulated house to try it without a device.")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME halvora-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION devel)
# Covers are drawn with type.
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "Halvora device and music servers, simulated
A device, its music servers and their covers on 127.0.0.1, to develop a
client of a Halvora against, with faults to try it with.")

foreach(component QML HOST SIMULATOR)
    set(documents ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME})
    string(TOLOWER ${component} name)
    install(FILES packaging/debian/copyright ${debian_changelog} DESTINATION ${documents} COMPONENT ${name})
endforeach()

include(CPack)
