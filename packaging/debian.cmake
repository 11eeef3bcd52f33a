# Run by CPack, after what is packed was installed and before the Debian package is made of it: adds
# what Debian asks for and no other installation, the licence, the changes and what lintian is told,
# and compresses the manual pages.
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr")
set(documents "${root}/share/doc/${CPACK_PACKAGE_NAME}")
set(overrides "${root}/share/lintian/overrides")
set(sources "${CMAKE_CURRENT_LIST_DIR}/..")

# The day of this version's release, as the desktops are told it.
file(READ "${CMAKE_CURRENT_LIST_DIR}/org.depcalc.desktop.metainfo.xml" metainfo)
if(NOT metainfo MATCHES "<release version=\"${CPACK_PACKAGE_VERSION}\" date=\"([0-9-]+)\"")
  message(FATAL_ERROR "The metainfo knows no release ${CPACK_PACKAGE_VERSION}.")
endif()
execute_process(COMMAND date --utc --rfc-email "--date=${CMAKE_MATCH_1}"
  OUTPUT_VARIABLE day OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

file(MAKE_DIRECTORY "${documents}" "${overrides}")
file(COPY_FILE "${sources}/LICENSE" "${documents}/copyright")
file(READ "${CMAKE_CURRENT_LIST_DIR}/lintian-overrides" overridden)
string(REPLACE "depcalc: " "${CPACK_PACKAGE_NAME}: " overridden "${overridden}")
file(WRITE "${overrides}/${CPACK_PACKAGE_NAME}" "${overridden}")
execute_process(
  COMMAND awk -v "package=${CPACK_PACKAGE_NAME}" -v "version=${CPACK_PACKAGE_VERSION}"
    -v "maintainer=${CPACK_PACKAGE_CONTACT}" -v "day=${day}"
    -f "${CMAKE_CURRENT_LIST_DIR}/debian_changelog.awk" "${sources}/CHANGELOG.md"
  OUTPUT_FILE "${documents}/changelog" COMMAND_ERROR_IS_FATAL ANY)

file(GLOB manual_pages "${root}/share/man/man*/*.[1-9]")
execute_process(COMMAND gzip -9 --no-name "${documents}/changelog" ${manual_pages}
  COMMAND_ERROR_IS_FATAL ANY)
# Whatever the umask of who packs.
execute_process(COMMAND chmod -R u=rwX,go=rX "${root}" COMMAND_ERROR_IS_FATAL ANY)
