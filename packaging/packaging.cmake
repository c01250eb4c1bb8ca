# The Debian package: the two programs, their data and examples, man pages, desktop entry and icon; make package.

# The package's version is the program's own (PROGVERSION in shell/constants.h).
file(STRINGS ${CMAKE_SOURCE_DIR}/src/shell/constants.h KESTRANE_VERSION_LINE REGEX "PROGVERSION = ")
string(REGEX MATCH "PROGVERSION = ([0-9.]+)f" KESTRANE_VERSION_MATCH "${KESTRANE_VERSION_LINE}")
set(KESTRANE_VERSION ${CMAKE_MATCH_1})

# Man pages made from each program's --help, named for the program and the package's version.
find_program(HELP2MAN help2man REQUIRED)
set(KESTRANE_MAN_DIR ${CMAKE_BINARY_DIR}/man)
set(KESTRANE_MAN_PAGES)
foreach(program kestrane kestrane-gui)
  if(program STREQUAL "kestrane")
    set(summary "design steam jet vacuum systems from the command line")
  else()
    set(summary "design steam jet vacuum systems on the desktop")
  endif()
  set(page ${KESTRANE_MAN_DIR}/${program}.1.gz)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${KESTRANE_MAN_DIR}
    COMMAND ${HELP2MAN} --no-info --no-discard-stderr --section=1 --name=${summary}
            --version-string=${KESTRANE_VERSION}
            --output=${KESTRANE_MAN_DIR}/${program}.1 $<TARGET_FILE:${program}>
    COMMAND gzip -9nf ${KESTRANE_MAN_DIR}/${program}.1
    DEPENDS ${program}
    COMMENT "Writing the man page of ${program}"
    VERBATIM)
  list(APPEND KESTRANE_MAN_PAGES ${page})
endforeach()
add_custom_target(man_pages ALL DEPENDS ${KESTRANE_MAN_PAGES})

install(TARGETS kestrane kestrane-gui RUNTIME DESTINATION bin)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/pgmfiles/ DESTINATION share/kestrane)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/usrfiles/ DESTINATION share/doc/kestrane/examples)
install(FILES ${KESTRANE_MAN_PAGES} DESTINATION share/man/man1)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/kestrane.desktop DESTINATION share/applications)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/kestrane.svg DESTINATION share/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrane)
set(CPACK_PACKAGE_VERSION ${KESTRANE_VERSION})
set(CPACK_PACKAGE_VENDOR "Kestrane")
set(CPACK_PACKAGE_CONTACT "Kestrane developers <developers@kestrane.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "design of steam jet ejector vacuum systems")
set(CPACK_PACKAGE_DESCRIPTION "Kestrane designs industrial vacuum systems: trains of steam jet ejector \
stages with surface or direct contact condensers and liquid ring vacuum pumps, thermo compressors, and the \
engineering calculations around them. It prints specification and data sheets and dimensioned drawings.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
# The shared libraries (Qt among them) come from dpkg-shlibdeps; the report font is loaded by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2")
include(CPack)
