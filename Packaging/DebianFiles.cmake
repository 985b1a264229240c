# Run by CPack before it packs: adds what a Debian package must hold besides, and packs as Debian does.
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
execute_process(COMMAND date --utc --rfc-email --date=${CPACK_TOLVANE_RELEASED}
    OUTPUT_VARIABLE date COMMAND_ERROR_IS_FATAL ANY)

file(GLOB folders ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*)
foreach(folder IN LISTS folders)
    file(WRITE ${folder}/changelog.Debian
        "${CPACK_DEBIAN_PACKAGE_SOURCE} (${version}) unstable; urgency=medium\n\n"
        "  * Release ${CPACK_PACKAGE_VERSION}.\n\n"
        " -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}")
endforeach()

# Where Debian's zsh looks for the completions of packages.
set(zsh ${CPACK_TEMPORARY_DIRECTORY}/terminal/usr/share/zsh)
file(RENAME ${zsh}/site-functions ${zsh}/vendor-completions)

file(GLOB texts ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man1/*.1
    ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog.Debian)
execute_process(COMMAND gzip --best --no-name ${texts} COMMAND_ERROR_IS_FATAL ANY)
