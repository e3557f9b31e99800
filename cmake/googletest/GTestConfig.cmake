# What find_package(GTest) finds where a preset points GTest_DIR here: GoogleTest built from its source with the build's own compiler and flags. Debian packages it for no Windows compiler, and the
# sanitizers watch its containers too.
find_path(ML_GOOGLETEST_SOURCE googletest/CMakeLists.txt PATHS /usr /usr/local PATH_SUFFIXES src/googletest
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT ML_GOOGLETEST_SOURCE)
    message(FATAL_ERROR "There is no source of GoogleTest (Debian: googletest). Name its folder in ML_GOOGLETEST_SOURCE.")
endif()
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # options of its own heed what is set here
set(INSTALL_GTEST OFF)
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${ML_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(NOT WIN32) # not optimised it has ten times the sections, and there every link takes the square of their number
    foreach(library gtest gtest_main gmock)
        target_compile_options(${library} PRIVATE -O0)
    endforeach()
endif()
