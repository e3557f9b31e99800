# What every target of the tree shares, and the functions that declare them.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON) # the static libraries also make a shared one
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

set(ML_SANITIZE OFF CACHE STRING "address: AddressSanitizer and UndefinedBehaviorSanitizer; thread: ThreadSanitizer")
option(ML_COVERAGE "Line and branch coverage" OFF)

add_library(ml_options INTERFACE)
# "MaterialLibrary/X.h" is what a host sees; the module's own headers are named from within its folder: "model/X.h".
target_include_directories(ml_options INTERFACE
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/MaterialLibrary ${PROJECT_SOURCE_DIR})
target_compile_options(ml_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    # The dielectric model's results are the same on every machine: no fused multiply-add.
    -ffp-contract=off)

if(NOT WIN32)
    # Nobody replaces a function of ours at load time: calls within a file stay direct, and small ones are inlined.
    target_compile_options(ml_options INTERFACE -fno-semantic-interposition)
endif()
if(WIN32)
    target_compile_definitions(ml_options INTERFACE WINVER=0x0A00 _WIN32_WINNT=0x0A00 NOMINMAX
        WIN32_LEAN_AND_MEAN)
    add_compile_options(-gdwarf-4)
    add_link_options(-static -Wl,--no-insert-timestamp)
endif()
if(NOT ML_COVERAGE)
    # What is built does not depend on the folder that it is built in.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
    if(CMAKE_CROSSCOMPILING) # nor on whether a compiler cache names the files relative to the build folder
        file(RELATIVE_PATH relative_source ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR})
        file(RELATIVE_PATH relative_usr ${PROJECT_BINARY_DIR} /usr)
        add_compile_options(-ffile-prefix-map=${PROJECT_BINARY_DIR}/= -ffile-prefix-map=${relative_source}=
            -ffile-prefix-map=${relative_usr}=/usr)
    endif()
endif()
if(ML_SANITIZE)
    # Also for GoogleTest, whose containers cross into the tests: the preset builds it from source.
    set(sanitizers ${ML_SANITIZE})
    if(sanitizers STREQUAL "address")
        set(sanitizers address,undefined)
    endif()
    add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${sanitizers})
    if(CMAKE_BUILD_TYPE STREQUAL "Debug")
        add_compile_options(-O1 -g1) # reports name functions and lines
    endif()
endif()
if(ML_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link) # the fuzzer sees into the libraries too
endif()
if(ML_COVERAGE)
    target_compile_options(ml_options INTERFACE --coverage -O0 -fprofile-update=atomic) # threads count too
    add_link_options(--coverage)
endif()

# The day of the last commit, so that two builds of one commit are the same byte for byte.
execute_process(COMMAND git log -1 --format=%cd "--date=format:%b %d %Y"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE ML_BUILD_DATE
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT ML_BUILD_DATE)
    string(TIMESTAMP ML_BUILD_DATE "%b %d %Y" UTC)
endif()

# A compiler cache recognises plain compilations only. They show as well that every file includes what it uses.
if(CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# ml_find_package(NAME DEBIAN-PACKAGE): find_package, and where the package is missing its name on Debian.
macro(ml_find_package name debian_package)
    find_package(${name} QUIET)
    if(NOT ${name}_FOUND)
        message(SEND_ERROR "${name} is missing. On Debian: apt-get install ${debian_package}. "
            "Elsewhere install it and name its folder in CMAKE_PREFIX_PATH.")
        find_package(${name} REQUIRED) # says where it was looked for
    endif()
endmacro()

# ml_library(NAME SOURCES a.cpp ... [WIN32 win32/a.cpp ...] [NATIVE b.cpp ...] [LIBS ...])
# One room of the house as a static library.
function(ml_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;WIN32;NATIVE;LIBS" ${ARGN})
    if(WIN32)
        list(APPEND arg_SOURCES ${arg_WIN32})
    else()
        list(APPEND arg_SOURCES ${arg_NATIVE})
    endif()
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC ml_options ${arg_LIBS})
endfunction()

# ml_depends_on_version(RESOURCE-SCRIPT): one that includes VersionInfo.rc; windres does not tell.
function(ml_depends_on_version script)
    set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS
        "${PROJECT_SOURCE_DIR}/include/MaterialLibrary/Version.h;${PROJECT_SOURCE_DIR}/MaterialLibrary/resources/VersionInfo.rc;${PROJECT_SOURCE_DIR}/MaterialLibrary/resources/MaterialLibrary.manifest")
endfunction()

# ml_split_debug_information(TARGET): moves it to the file TARGET.debug beside the target's own, where debuggers
# find it.
function(ml_split_debug_information name)
    add_custom_command(TARGET ${name} POST_BUILD
        # Without --preserve-dates the time of the build would stand in the results.
        COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug $<TARGET_FILE_NAME:${name}>
            $<TARGET_FILE_NAME:${name}>.debug
        COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=$<TARGET_FILE_NAME:${name}>.debug
            $<TARGET_FILE_NAME:${name}>
        WORKING_DIRECTORY $<TARGET_FILE_DIR:${name}>
        VERBATIM)
endfunction()

# ml_windows_module(TARGET): a DLL that is delivered. It exports what its definition file names; what a debugger wants
# stands beside it in TARGET.dll.debug, and an identifier tells which debug file belongs to the module of a crash dump.
function(ml_windows_module name)
    target_link_options(${name} PRIVATE -Wl,--exclude-all-symbols
        -Wl,--build-id -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va)
    set_target_properties(${name} PROPERTIES PREFIX "")
    ml_split_debug_information(${name})
endfunction()

# Tests are compiled more often than they run: only the code that they test is optimised.
set(ml_test_options -O0)

# ml_test(NAME SOURCES a.cpp ... [LIBS ...])
# A GoogleTest program and its CTest test; under Wine for the Windows build.
function(ml_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ml_options ${arg_LIBS} GTest::gtest_main GTest::gmock)
    target_compile_options(${name} PRIVATE ${ml_test_options})
    target_precompile_headers(${name} REUSE_FROM test_headers)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests
        POSITION_INDEPENDENT_CODE OFF) # as the precompiled headers
    target_compile_definitions(${name} PRIVATE
        ML_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ML_BINARY_DIR="${PROJECT_BINARY_DIR}")
    if(WIN32)
        # The string table that LoadText reads.
        target_link_libraries(${name} PRIVATE module_resources)
    endif()
    add_test(NAME ${name} COMMAND ${name})
endfunction()

# ml_fuzz_target(NAME SOURCE x.cpp LIBS ... CORPUS dir)
# With ML_FUZZERS a libFuzzer program; otherwise a program that replays the corpus, as a test.
function(ml_fuzz_target name)
    cmake_parse_arguments(arg "" "SOURCE;CORPUS" "LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCE})
    target_link_libraries(${name} PRIVATE ml_options ${arg_LIBS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/fuzz)
    if(WIN32)
        # The string table that LoadText reads.
        target_link_libraries(${name} PRIVATE module_resources)
    endif()
    if(ML_FUZZERS)
        target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    else()
        target_link_libraries(${name} PRIVATE fuzz_replay)
        add_test(NAME ${name}_replay COMMAND ${name} ${arg_CORPUS})
    endif()
endfunction()

# ml_benchmark(NAME SOURCES a.cpp ... [LIBS ...]): a Google Benchmark program in build/bench/bench.
function(ml_benchmark name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ml_options ${arg_LIBS} benchmark::benchmark)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench)
endfunction()
