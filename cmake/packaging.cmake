# What `cmake --install` puts where, and the Debian package that CPack makes of it.
include(GNUInstallDirs)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# --- What is made while building: the manual page, the compressed texts, the guide as HTML.

find_program(VELMORA_GZIP gzip REQUIRED)

# velmora_compress(<source> <target>): the same source always gives the same bytes.
function(velmora_compress source target)
    add_custom_command(OUTPUT ${target}
        COMMAND ${VELMORA_GZIP} -9 --no-name --to-stdout ${source} > ${target}
        DEPENDS ${source}
        VERBATIM)
endfunction()

set(made ${PROJECT_BINARY_DIR}/packaging)
configure_file(${packaging}/velmora.1.in ${made}/velmora.1 @ONLY)
velmora_compress(${made}/velmora.1 ${made}/velmora.1.gz)
configure_file(${packaging}/velmora-informe.1.in ${made}/velmora-informe.1 @ONLY)
velmora_compress(${made}/velmora-informe.1 ${made}/velmora-informe.1.gz)
velmora_compress(${packaging}/alias.1 ${made}/alias.1.gz)
velmora_compress(${packaging}/changelog.Debian ${made}/changelog.Debian.gz)
velmora_compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${made}/changelog.gz)
set(made_files velmora.1.gz velmora-informe.1.gz alias.1.gz changelog.Debian.gz changelog.gz)

# Debian's own Python: the one that python3-markdown belongs to.
set(VELMORA_PYTHON /usr/bin/python3 CACHE FILEPATH "Python that has the markdown module")
execute_process(COMMAND ${VELMORA_PYTHON} -c "import markdown"
    RESULT_VARIABLE no_markdown OUTPUT_QUIET ERROR_QUIET)
if(no_markdown)
    message(STATUS "The guide is installed without its HTML page: python3-markdown is missing")
else()
    add_custom_command(OUTPUT ${made}/guia.html
        COMMAND ${VELMORA_PYTHON} ${packaging}/guia_html.py
            ${PROJECT_SOURCE_DIR}/docs/guia.md ${packaging}/guia.css ${made}/guia.html
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/docs/images ${made}/images
        DEPENDS ${PROJECT_SOURCE_DIR}/docs/guia.md ${packaging}/guia.css ${packaging}/guia_html.py
        VERBATIM)
    list(APPEND made_files guia.html)
endif()

list(TRANSFORM made_files PREPEND ${made}/)
add_custom_target(velmora_packaging ALL DEPENDS ${made_files})
# Whoever has built the program can make the package.
add_dependencies(velmora velmora_packaging velmora_informe)

# --- Where it goes.

# What people start is the launcher, which sets the decimal point; "velmora-punto" is another name of
# it. The program itself stands out of the way.
install(TARGETS velmora RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/velmora)
install(PROGRAMS ${packaging}/velmora ${packaging}/velmora-guia
    DESTINATION ${CMAKE_INSTALL_BINDIR})
file(CREATE_LINK velmora ${made}/velmora-punto SYMBOLIC)
install(FILES ${made}/velmora-punto DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS velmora_informe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${packaging}/velmora-informe.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME velmora-informe)
install(FILES ${packaging}/velmora.desktop ${packaging}/velmora-informe.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/org.velmora.velmora.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${made}/velmora.1.gz ${made}/velmora-informe.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
foreach(command velmora-punto velmora-guia)
    install(FILES ${made}/alias.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
        RENAME ${command}.1.gz)
endforeach()

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 24 32 48 64 128 256 512)
    install(FILES ${PROJECT_SOURCE_DIR}/assets/rendered/velmora-${size}.png
        DESTINATION ${icons}/${size}x${size}/apps RENAME velmora.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/assets/velmora.svg DESTINATION ${icons}/scalable/apps)

install(FILES ${packaging}/copyright ${made}/changelog.Debian.gz ${made}/changelog.gz
    ${PROJECT_SOURCE_DIR}/docs/guia.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(NOT no_markdown)
    install(FILES ${made}/guia.html DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()
# hoja.png is the README's picture.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR}
    FILES_MATCHING PATTERN *.png PATTERN hoja.png EXCLUDE)
install(FILES ${packaging}/velmora.doc-base DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base
    RENAME velmora)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

# --- The Debian package: `cpack` in the build folder.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "Velmora developers")
set(CPACK_PACKAGE_CONTACT "Velmora developers <velmora@velmora.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

# Its revision stays below a first one of Debian's own.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0velmora1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n, fonts-liberation, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups, printer-driver-cups-pdf")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "evaluation of occupational exposure to chemical agents")
file(READ ${packaging}/description CPACK_DEBIAN_PACKAGE_DESCRIPTION)

include(CPack)
