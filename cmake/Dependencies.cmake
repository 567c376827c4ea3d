# Finds what the build needs. A missing dependency stops the configuration with
# the name of the Debian package that provides it; scripts/setup.sh installs them all.

function(tolv_missing_package what package)
  message(FATAL_ERROR
    "${what} was not found. Install the Debian package '${package}' "
    "(scripts/setup.sh installs every package the build needs).")
endfunction()

find_package(nlohmann_json 3 QUIET)
if(NOT nlohmann_json_FOUND)
  tolv_missing_package("nlohmann-json" nlohmann-json3-dev)
endif()

find_package(ICU 72 QUIET COMPONENTS uc i18n)
if(NOT ICU_FOUND)
  tolv_missing_package("ICU" libicu-dev)
endif()

# Base64 of the icon cache's file names.
find_package(OpenSSL 3 QUIET COMPONENTS Crypto)
if(NOT OpenSSL_FOUND)
  tolv_missing_package("OpenSSL" libssl-dev)
endif()

if(BUILD_TESTING)
  find_package(GTest QUIET)
  if(NOT GTest_FOUND)
    tolv_missing_package("GoogleTest" libgtest-dev)
  endif()
  if(NOT TARGET GTest::gmock)
    tolv_missing_package("GoogleMock" libgmock-dev)
  endif()
  find_package(benchmark QUIET)
  if(NOT benchmark_FOUND)
    tolv_missing_package("Google Benchmark" libbenchmark-dev)
  endif()
endif()

# The live X11 desktop: xcb with its helper libraries, Xlib for the decoding of
# compound text, libplist for the defaults store, and GIO for default
# applications, the desktop entries of the start menu and launching. Only the toolkit build needs them.
if(NOT TOLV_CORE_ONLY)
  find_package(PkgConfig QUIET)
  if(NOT PkgConfig_FOUND)
    tolv_missing_package("pkg-config" pkg-config)
  endif()
  foreach(entry IN ITEMS
      "xcb;libxcb1-dev" "xcb-ewmh;libxcb-ewmh-dev" "xcb-icccm;libxcb-icccm4-dev"
      "xcb-randr;libxcb-randr0-dev" "xcb-keysyms;libxcb-keysyms1-dev"
      "xcb-xtest;libxcb-xtest0-dev" "xcb-xinput;libxcb-xinput-dev" "xcb-composite;libxcb-composite0-dev"
      "x11;libx11-dev"
      "libplist-2.0;libplist-dev" "libpulse;libpulse-dev" "libpulse-mainloop-glib;libpulse-dev"
      "gio-2.0;libglib2.0-dev" "gio-unix-2.0;libglib2.0-dev")
    list(GET entry 0 module)
    list(GET entry 1 package)
    string(TOUPPER "${module}" variable)
    string(REGEX REPLACE "[^A-Z0-9]" "_" variable "TOLV_${variable}")
    pkg_check_modules(${variable} QUIET IMPORTED_TARGET ${module})
    if(NOT ${variable}_FOUND)
      tolv_missing_package("${module}" ${package})
    endif()
  endforeach()
endif()
