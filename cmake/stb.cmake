# stb_image (Debian's libstb-dev, header-only): the PNG decoder of the image search on the screen. A cross build
# finds only the target system's packages, and headers serve any target, so every build takes the build machine's
# /usr/include/stb through a folder of the build tree that holds that one folder rather than the whole
# /usr/include. The target ostrel_stb gives `#include <stb/stb_image.h>`.
find_path(OSTREL_STB_INCLUDE stb/stb_image.h PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
if(NOT OSTREL_STB_INCLUDE)
  message(FATAL_ERROR "stb/stb_image.h not found: install the Debian package libstb-dev")
endif()
set(OSTREL_STB_ONLY ${PROJECT_BINARY_DIR}/header-only/stb)
file(MAKE_DIRECTORY ${OSTREL_STB_ONLY})
if(NOT EXISTS ${OSTREL_STB_ONLY}/stb)
  file(CREATE_LINK ${OSTREL_STB_INCLUDE}/stb ${OSTREL_STB_ONLY}/stb SYMBOLIC)
endif()
add_library(ostrel_stb INTERFACE)
target_include_directories(ostrel_stb SYSTEM INTERFACE $<BUILD_INTERFACE:${OSTREL_STB_ONLY}>)
