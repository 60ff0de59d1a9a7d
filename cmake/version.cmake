# PROJECT_VERSION is the one version by hand. The programs (--version and the Windows version
# resources), the manual pages, the Windows README and the installer get it from the build. Two
# histories are kept by hand, each newest first: the AppStream release list, which software
# centres show, and the Debian changelog, which the package takes its version from. Their newest
# entry must be this version, or the build stops here.
set(VORLANE_RELEASE_LISTS ${PROJECT_SOURCE_DIR}/data/vorlane.metainfo.xml ${PROJECT_SOURCE_DIR}/data/debian/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${VORLANE_RELEASE_LISTS})

file(READ ${PROJECT_SOURCE_DIR}/data/vorlane.metainfo.xml metainfo)
string(REGEX MATCH "<release [^>]*version=\"([^\"]*)\"" release "${metainfo}")
if(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "data/vorlane.metainfo.xml: the newest <release> is \"${CMAKE_MATCH_1}\", "
    "but the project's version is ${PROJECT_VERSION}: add a <release> for it at the top of <releases>.")
endif()

file(STRINGS ${PROJECT_SOURCE_DIR}/data/debian/changelog entry LIMIT_COUNT 1)
string(REGEX MATCH "^vorlane \\(([^)]*)\\)" entry "${entry}")
if(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "data/debian/changelog: the newest entry is \"${CMAKE_MATCH_1}\", "
    "but the project's version is ${PROJECT_VERSION}: add an entry for it at the top.")
endif()
