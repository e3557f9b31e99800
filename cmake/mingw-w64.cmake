# 64-bit Windows from Debian, with the POSIX thread model (std::mutex and friends).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix) # GoogleTest asks for one
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The host's header-only packages serve every compiler. They are gathered in a prefix of their own, because the
# headers beside them are for Linux.
set(host_packages ${CMAKE_BINARY_DIR}/host-packages)
foreach(path share/cmake/CLI11 include/CLI share/cmake/nlohmann_json include/nlohmann
        lib/cmake/FastFloat include/fast_float include/libfccp)
    if(EXISTS /usr/${path})
        file(COPY /usr/${path}/ DESTINATION ${host_packages}/${path})
    endif()
endforeach()
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${host_packages})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Windows programs of the build run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine-run.sh)
