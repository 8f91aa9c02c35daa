# The header-only libraries from Debian packages that the simulated Photoshop and the command line tool use:
# nlohmann-json (nlohmann-json3-dev) and CLI11 (libcli11-dev).
#
# A cross build finds only the target system's packages, and Debian installs these two for the build machine
# alone. Headers only serve any target, so there the build machine's copy is used, through a folder of the build
# tree that holds that one library rather than the machine's whole include folder.

# Defines the target `name` for the headers in /usr/include/<folder>, which must hold `header`.
function(ostrel_header_only_from_build_machine name folder header)
  string(MAKE_C_IDENTIFIER "${folder}" id)
  find_path(OSTREL_${id}_INCLUDE ${folder}/${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(only ${PROJECT_BINARY_DIR}/header-only/${id})
  file(MAKE_DIRECTORY ${only})
  if(NOT EXISTS ${only}/${folder})
    file(CREATE_LINK ${OSTREL_${id}_INCLUDE}/${folder} ${only}/${folder} SYMBOLIC)
  endif()
  add_library(ostrel_header_only_${id} INTERFACE)
  target_include_directories(ostrel_header_only_${id} SYSTEM INTERFACE ${only})
  add_library(${name} ALIAS ostrel_header_only_${id})
endfunction()

find_package(nlohmann_json 3.10 QUIET)
if(NOT nlohmann_json_FOUND)
  ostrel_header_only_from_build_machine(nlohmann_json::nlohmann_json nlohmann json.hpp)
endif()

find_package(CLI11 2.1 CONFIG QUIET)
if(NOT CLI11_FOUND)
  ostrel_header_only_from_build_machine(CLI11::CLI11 CLI CLI.hpp)
endif()
