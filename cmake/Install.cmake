# What `cmake --install` puts where, and the Debian package made of it.

# On Debian hosts look in /usr/lib/vst and /usr/local/lib/vst, not in the architecture's folder.
set(CMAKE_INSTALL_DOCDIR "share/doc/tessel8" CACHE PATH "Folder of the manual")
include(GNUInstallDirs)
if(EXISTS /etc/debian_version)
  set(TESSEL8_DEFAULT_VST_DIR lib/vst)
else()
  set(TESSEL8_DEFAULT_VST_DIR ${CMAKE_INSTALL_LIBDIR}/vst)
endif()
set(TESSEL8_VST_DIR ${TESSEL8_DEFAULT_VST_DIR} CACHE PATH "Folder of the plug-in, below the prefix")

# Installed files find each other by these ways, so that the whole may be moved.
# tessel8_way(<variable> <from> <to>): the way from one folder below the prefix to another.
function(tessel8_way variable from to)
  foreach(folder from to)
    get_filename_component(${folder} "${${folder}}" ABSOLUTE BASE_DIR /prefix)
  endforeach()
  file(RELATIVE_PATH way "${from}" "${to}")
  set(${variable} "${way}" PARENT_SCOPE)
endfunction()
tessel8_way(TESSEL8_BIN_TO_VST "${CMAKE_INSTALL_BINDIR}" "${TESSEL8_VST_DIR}")
tessel8_way(TESSEL8_VST_TO_MANUAL "${TESSEL8_VST_DIR}" "${CMAKE_INSTALL_DOCDIR}/manual.pdf")

# Called when all targets are known.
function(tessel8_install)
  # The unstripped files stay in the build folder.
  install(TARGETS VantorTesselEcho LIBRARY DESTINATION ${TESSEL8_VST_DIR} COMPONENT main)
  install(TARGETS tessel8 RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT main)
  install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT main)
  install(FILES docs/man/tessel8.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT plain)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT plain)
  # Built by the target `manual` alone, which wants tools that nothing else needs.
  install(FILES ${PROJECT_BINARY_DIR}/docs/manual.html ${PROJECT_BINARY_DIR}/docs/manual.pdf
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT main OPTIONAL)

  set(completions packaging/completions)
  set(data ${CMAKE_INSTALL_DATADIR})
  install(FILES ${completions}/tessel8.bash RENAME tessel8
    DESTINATION ${data}/bash-completion/completions COMPONENT main)
  install(FILES ${completions}/tessel8.fish
    DESTINATION ${data}/fish/vendor_completions.d COMPONENT main)
  install(FILES ${completions}/_tessel8 DESTINATION ${data}/zsh/site-functions COMPONENT plain)

  # Debian's own forms and places of some, for its package alone in place of the plain ones.
  find_program(GZIP gzip)
  if(GZIP)
    set(forms ${PROJECT_BINARY_DIR}/packaging)
    file(MAKE_DIRECTORY ${forms})
    foreach(form docs/man/tessel8.1 packaging/debian/changelog)
      get_filename_component(name ${form} NAME)
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${form})
      execute_process(COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/${form}
        OUTPUT_FILE ${forms}/${name}.gz COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
    set(debian COMPONENT debian EXCLUDE_FROM_ALL)
    install(FILES ${forms}/tessel8.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 ${debian})
    install(FILES ${forms}/changelog.gz DESTINATION share/doc/tessel8 ${debian})
    install(FILES packaging/debian/copyright DESTINATION share/doc/tessel8 ${debian})
    install(FILES ${completions}/_tessel8 DESTINATION share/zsh/vendor-completions ${debian})
  endif()
endfunction()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessel8)
set(CPACK_PACKAGE_CONTACT "The Tessel8 authors <maintainers@tessel8.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${PROJECT_BINARY_DIR};${PROJECT_NAME};main;/;${PROJECT_BINARY_DIR};${PROJECT_NAME};debian;/")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "ardour | qtractor | audacity, zenity | kdialog")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "eight-tap stereo delay effect (VST 2.4)")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Vantor Tessel Echo has eight taps, each with a stereo delay line of its own
of up to eight seconds, with level, width, balance, filter, saturation,
reverb send and feedback. A master feedback path runs through all of them,
in one of three topologies. Delays stand in milliseconds or on a grid of note
values at the effect's own tempo or the host's; an LFO and an envelope
follower move the filters.

The package holds the plug-in for hosts such as Ardour, Qtractor and
Audacity, the command-line host tessel8, which renders files through the
effect, and the manual.")
include(CPack)
