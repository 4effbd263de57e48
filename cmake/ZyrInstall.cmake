# Installation: headers in their rooms, the two shared libraries, find_package(ZyrTopApi) and pkg-config, the
# programs with their completion, and the docs.

include(CMakePackageConfigHelpers)

set(ZYR_LIBRARY_FOLDER ${CMAKE_CURRENT_SOURCE_DIR}/src/Device/ZyrTopApi)

install(TARGETS ZyrTopApiTypes ZyrTopApiInterfaces ZyrTopApiImplementations ZyrZyrTopApi ZyrPlatform
    EXPORT ZyrTopApiTargets)
install(EXPORT ZyrTopApiTargets NAMESPACE ZyrTopApi:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZyrTopApi)

foreach(folder types interfaces public)
    install(DIRECTORY ${ZYR_LIBRARY_FOLDER}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZyrTopApi
        FILES_MATCHING PATTERN "*.h")
endforeach()
file(GLOB ZYR_IMPLEMENTATION_HEADERS CONFIGURE_DEPENDS ${ZYR_LIBRARY_FOLDER}/messages/*/src/*Impl.h)
install(FILES ${ZYR_IMPLEMENTATION_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZyrTopApi/messages)
install(DIRECTORY src/Platform/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZyrTopApi/platform
    FILES_MATCHING PATTERN "*.h")

configure_package_config_file(cmake/ZyrTopApiConfig.cmake.in ZyrTopApiConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZyrTopApi)
write_basic_package_version_file(ZyrTopApiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZyrTopApiConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZyrTopApiConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZyrTopApi)

# Relative, so that it holds under whatever prefix the files are installed.
file(RELATIVE_PATH ZYR_PREFIX_FROM_PC /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/zyrtopapi.pc.in zyrtopapi.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zyrtopapi.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(NOT ZYR_LIBRARY_ONLY)
    install(TARGETS zyrnode zyrctl)
    set(ZYR_COMPLETION src/Apps/zyrctl/completion)
    install(FILES ${ZYR_COMPLETION}/zyrctl.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME zyrctl)
    install(FILES ${ZYR_COMPLETION}/_zyrctl DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
    install(FILES ${ZYR_COMPLETION}/zyrctl.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
    install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()
