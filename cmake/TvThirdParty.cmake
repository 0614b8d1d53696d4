# Libraries of others. Header-only ones of Debian are reached through include roots of their own, so that a Windows
# build never sees the rest of /usr/include; the others are built from Debian's source packages, which ./run fetches
# into build/third_party.

function(tv_header_library target link_target link_name)
  add_library(${target} INTERFACE)
  set(root ${CMAKE_BINARY_DIR}/include_roots/third_party_${target})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${link_target} ${root}/${link_name} SYMBOLIC)
  target_include_directories(${target} SYSTEM INTERFACE ${root})
endfunction()

tv_header_library(tv_cli11 /usr/include/CLI CLI)
tv_header_library(tv_json /usr/include/nlohmann nlohmann)

# pugixml is built from its source package on both systems, so that stored lists have the same bytes everywhere.
add_library(tv_pugixml STATIC EXCLUDE_FROM_ALL ${TV_THIRD_PARTY}/pugixml/src/pugixml.cpp)
target_include_directories(tv_pugixml SYSTEM PUBLIC ${TV_THIRD_PARTY}/pugixml/src)

if(WIN32)
  add_library(tv_sqlite STATIC EXCLUDE_FROM_ALL ${TV_THIRD_PARTY}/sqlite3/sqlite3.c)
  target_include_directories(tv_sqlite SYSTEM PUBLIC ${TV_THIRD_PARTY}/sqlite3)
  target_compile_definitions(tv_sqlite PRIVATE SQLITE_THREADSAFE=1 SQLITE_OMIT_LOAD_EXTENSION)
else()
  find_package(SQLite3 REQUIRED)
  add_library(tv_sqlite INTERFACE)
  target_link_libraries(tv_sqlite INTERFACE SQLite::SQLite3)
endif()

set(gtest_disable_pthreads OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL SYSTEM)
add_library(tv_gtest_main INTERFACE)
target_link_libraries(tv_gtest_main INTERFACE gtest_main)
