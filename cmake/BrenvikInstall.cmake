# What an installed kit consists of, and how find_package(BrenvikUIKit) finds it.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# Headers are included as <BrenvikUIKit/...>, "platform/..." and so on; a root of their own keeps those
# common names out of everybody else's way.
set(BKUK_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/BrenvikUIKit-${PROJECT_VERSION_MAJOR})
set(BKUK_CONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/BrenvikUIKit)

# bkuk_public_library(TARGET NAME): makes TARGET a library that programs link as BrenvikUIKit::NAME and that
# `install` delivers. As a shared one it shows the public interface only.
function(bkuk_public_library target name)
  add_library(BrenvikUIKit::${name} ALIAS ${target})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${BKUK_INCLUDE_DIR}>)
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS ${target} EXPORT BrenvikUIKitTargets)
  if(BUILD_SHARED_LIBS AND UNIX AND NOT APPLE)
    set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(${target} PRIVATE LINKER:--version-script=${exports})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${exports})
  endif()
endfunction()

# bkuk_headers(KIND RESULT): what the lines of that kind in cmake/headers.txt name first.
function(bkuk_headers kind result)
  set(data ${PROJECT_SOURCE_DIR}/cmake/headers.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${data})
  file(STRINGS ${data} lines REGEX "^${kind} ")
  list(TRANSFORM lines REPLACE "^${kind} +([^ ]+).*" "\\1")
  set(${result} ${lines} PARENT_SCOPE)
endfunction()

function(bkuk_install_headers)
  bkuk_headers(public folders)
  bkuk_headers(internal inside)
  list(TRANSFORM inside REPLACE "(.+)" "PATTERN;\\1;EXCLUDE")
  foreach(folder ${folders})
    get_filename_component(parent ${folder} DIRECTORY)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${BKUK_INCLUDE_DIR}/${parent}
      FILES_MATCHING PATTERN "*.h" ${inside})
  endforeach()
endfunction()

function(bkuk_install_package)
  bkuk_install_headers()
  install(EXPORT BrenvikUIKitTargets NAMESPACE BrenvikUIKit:: DESTINATION ${BKUK_CONFIG_DIR})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/BrenvikUIKitConfig.cmake.in
    ${PROJECT_BINARY_DIR}/BrenvikUIKitConfig.cmake INSTALL_DESTINATION ${BKUK_CONFIG_DIR})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/BrenvikUIKitConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/BrenvikUIKitConfig.cmake
    ${PROJECT_BINARY_DIR}/BrenvikUIKitConfigVersion.cmake DESTINATION ${BKUK_CONFIG_DIR})
endfunction()
