# The project's language settings, dependencies and the functions that every folder builds its parts with.
#
#   tarnquill_engine(NAME SOURCES … LINKS …)   NAME_engine: pure functions over values, no Qt
#   tarnquill_model(NAME SOURCES … LINKS …)    NAME_model: engine + Qt Core, no widgets
#   tarnquill_view(NAME SOURCES … LINKS …)     NAME_view: model + chrome
#   tarnquill_test(TARGET SOURCES … LINKS … [QT_CORE | QT_WIDGETS])
#
# LINKS are public, so the link graph is the architecture: what a layer must not use does not compile or does not link.

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_INTERPROCEDURAL_OPTIMIZATION OFF)

# The name by which desktops know the program.
set(TARNQUILL_ID org.tarnquill.Tarnquill)
# What is installed stands in the build tree as it is installed, because programs look for it beside their own folder.
set(TARNQUILL_MODULE_DIRECTORY "${CMAKE_BINARY_DIR}/lib/tarnquill")
set(TARNQUILL_SHARE_DIRECTORY "${CMAKE_BINARY_DIR}/share")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(Boost 1.81 REQUIRED COMPONENTS json)
find_package(ZLIB REQUIRED)
find_package(OpenSSL 3 REQUIRED)
find_package(CLI11 REQUIRED)
find_package(Threads REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core)
if(NOT TARNQUILL_SANITIZE)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Widgets Network Svg WebEngineWidgets WebChannel)
endif()
if(BUILD_TESTING)
  find_package(GTest REQUIRED)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  if(NOT TARNQUILL_SANITIZE)
    find_package(benchmark REQUIRED)
  endif()
endif()

# Warnings are errors in every target of the project, and in nothing that it includes.
add_library(tarnquill_settings INTERFACE)
target_compile_options(
  tarnquill_settings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wimplicit-fallthrough
            -Werror
            # g++ 12 sees overlapping copies in every concatenation of strings (its bug 105651).
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            # clang takes what g++'s library does inside std::stable_partition for a deprecated call of ours.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
target_include_directories(tarnquill_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(TARNQUILL_SANITIZE)
  target_compile_options(tarnquill_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                      -fno-omit-frame-pointer)
  target_link_options(tarnquill_settings INTERFACE -fsanitize=address,undefined)
endif()
if(TARNQUILL_FUZZ)
  target_compile_options(tarnquill_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

add_library(tarnquill_qt_settings INTERFACE)
target_compile_definitions(tarnquill_qt_settings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
target_link_libraries(tarnquill_qt_settings INTERFACE tarnquill_settings)

function(tarnquill_library target settings)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${settings})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
endfunction()

function(tarnquill_engine name)
  tarnquill_library(${name}_engine tarnquill_settings ${ARGN})
endfunction()

function(tarnquill_model name)
  tarnquill_library(${name}_model tarnquill_qt_settings ${ARGN})
  set_target_properties(${name}_model PROPERTIES AUTOMOC ON)
endfunction()

# There are no views in the sanitized build: the sanitizers watch what handles the user's bytes.
function(tarnquill_view name)
  if(TARNQUILL_SANITIZE)
    return()
  endif()
  tarnquill_library(${name}_view tarnquill_qt_settings ${ARGN})
  set_target_properties(${name}_view PROPERTIES AUTOMOC ON)
endfunction()

function(tarnquill_test target)
  cmake_parse_arguments(ARG "QT_CORE;QT_WIDGETS" "" "SOURCES;LINKS" ${ARGN})
  if(NOT BUILD_TESTING OR (ARG_QT_WIDGETS AND TARNQUILL_SANITIZE))
    return()
  endif()
  add_executable(${target} ${ARG_SOURCES})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/src")
  if(ARG_QT_WIDGETS)
    target_link_libraries(${target} PRIVATE ${ARG_LINKS} view_test_main Qt6::Test GTest::gmock
                                            tarnquill_qt_settings)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
  elseif(ARG_QT_CORE)
    target_link_libraries(${target} PRIVATE ${ARG_LINKS} model_test_main Qt6::Test GTest::gmock
                                            tarnquill_qt_settings)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
  else()
    target_link_libraries(${target} PRIVATE ${ARG_LINKS} GTest::gtest_main GTest::gmock tarnquill_settings)
  endif()
  add_test(NAME ${target} COMMAND ${target})
  set_tests_properties(
    ${target}
    PROPERTIES TIMEOUT 900
               WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
               ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
