# What find_package(GTest) finds where a preset points GTest_DIR here: GoogleTest built from the source in
# ML_GOOGLETEST_SOURCE with the build's own compiler and flags. Debian packages it for no Windows compiler, and the
# sanitizers watch its containers too.
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # options of its own heed what is set here
set(INSTALL_GTEST OFF)
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
add_subdirectory(${ML_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(NOT WIN32) # not optimised it has ten times the sections, and there every link takes the square of their number
    foreach(library gtest gtest_main gmock)
        target_compile_options(${library} PRIVATE -O0)
    endforeach()
endif()
