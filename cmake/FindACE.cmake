# Finds the ADAPTIVE Communication Environment: the imported target ACE::ACE, and ACE_VERSION.
find_path(ACE_INCLUDE_DIR ace/OS_NS_Thread.h)
find_library(ACE_LIBRARY ACE)
mark_as_advanced(ACE_INCLUDE_DIR ACE_LIBRARY)

if(ACE_INCLUDE_DIR AND EXISTS "${ACE_INCLUDE_DIR}/ace/Version.h")
    file(STRINGS "${ACE_INCLUDE_DIR}/ace/Version.h" ace_version_line REGEX "define ACE_VERSION \"")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" ACE_VERSION "${ace_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(ACE
    REQUIRED_VARS ACE_LIBRARY ACE_INCLUDE_DIR
    VERSION_VAR ACE_VERSION
    REASON_FAILURE_MESSAGE "on Debian and Ubuntu: apt-get install libace-dev")

if(ACE_FOUND AND NOT TARGET ACE::ACE)
    add_library(ACE::ACE UNKNOWN IMPORTED)
    set_target_properties(ACE::ACE PROPERTIES
        IMPORTED_LOCATION "${ACE_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${ACE_INCLUDE_DIR}")
endif()
