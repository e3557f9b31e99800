# What "cmake --install" puts in place, and so what the packages hold (package.sh makes them): for Windows the library
# with all that a host's programmer needs, for Linux the tool.
include(CMakePackageConfigHelpers)

set(packaging ${PROJECT_BINARY_DIR}/packaging)
if(WIN32)
    set(ml_documentation share/doc/MaterialLibrary)
    set(ml_readme cmake/package/README-windows.md.in)
    set(ml_documents CHANGELOG.md SECURITY.md THIRD-PARTY.md docs/file-format.md docs/host-guide.md docs/numerics.md)
    set(ml_beside LICENSE docs/images examples)
else()
    set(ml_documentation share/doc/matlib)
    set(ml_readme cmake/package/README-linux.md.in)
    set(ml_documents CHANGELOG.md THIRD-PARTY.md docs/file-format.md)
    set(ml_beside LICENSE examples/materials)
endif()

# ml_install_document(DOCUMENT): under its path in the tree. Its links to headers lead to the installed ones; of links
# to what is not installed the words stay.
function(ml_install_document document)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${document})
    cmake_path(GET document PARENT_PATH folder)
    list(JOIN ml_documents "|" installed)
    list(JOIN ml_beside "|" beside)
    file(READ ${PROJECT_SOURCE_DIR}/${document} text)
    string(REGEX MATCHALL "\\[[^]]*\\]\\([^)#:]+[^):]*\\)" links "${text}")
    foreach(link IN LISTS links)
        string(REGEX MATCH "^\\[(.*)\\]\\(([^#]*).*\\)$" link "${link}")
        set(words "${CMAKE_MATCH_1}")
        set(target "${CMAKE_MATCH_2}")
        cmake_path(SET path NORMALIZE "./${folder}/${target}")
        if(WIN32 AND path MATCHES "^include/")
            cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${ml_documentation}/${folder})
            string(REPLACE "](${target}" "](${path}" moved "${link}")
        elseif(path MATCHES "^(${installed})$" OR path MATCHES "^(${beside})(/|$)")
            continue()
        else()
            set(moved "${words}")
        endif()
        string(REPLACE "${link}" "${moved}" text "${text}")
    endforeach()
    file(WRITE ${packaging}/${document} "${text}")
    install(FILES ${packaging}/${document} DESTINATION ${ml_documentation}/${folder})
endfunction()

foreach(document IN LISTS ml_documents)
    ml_install_document(${document})
endforeach()
configure_file(${ml_readme} ${packaging}/README.md @ONLY)
install(FILES ${packaging}/README.md LICENSE DESTINATION ${ml_documentation})

install(TARGETS matlib RUNTIME DESTINATION bin)
if(NOT WIN32)
    install(FILES ${PROJECT_BINARY_DIR}/share/matlib.1 DESTINATION share/man/man1)
    install(FILES tools/matlib/shell/matlib.bash DESTINATION share/bash-completion/completions RENAME matlib)
    install(DIRECTORY examples/materials DESTINATION ${ml_documentation}/examples)
    return()
endif()

install(TARGETS matlib_messages LIBRARY DESTINATION bin/matlib-modules)
install(TARGETS MaterialLibrary RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES $<TARGET_FILE:MaterialLibrary>.debug DESTINATION lib/debug)
install(DIRECTORY docs/images DESTINATION ${ml_documentation}/docs)
install(DIRECTORY examples DESTINATION ${ml_documentation})

# The import library for compilers with the other object format.
find_program(ML_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
if(ML_LLVM_DLLTOOL)
    set(import_library ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/MaterialLibrary.lib)
    set(definition ${PROJECT_SOURCE_DIR}/MaterialLibrary/entry/win32/MaterialLibrary.def)
    add_custom_command(OUTPUT ${import_library}
        COMMAND ${ML_LLVM_DLLTOOL} -m i386:x86-64 -D MaterialLibrary.dll -d ${definition} -l ${import_library}
        DEPENDS ${definition}
        VERBATIM)
    add_custom_target(import_library ALL DEPENDS ${import_library})
    install(FILES ${import_library} DESTINATION lib)
endif()

install(DIRECTORY include/ DESTINATION include)

configure_file(cmake/package/MaterialLibrary.pc.in ${packaging}/MaterialLibrary.pc @ONLY)
install(FILES ${packaging}/MaterialLibrary.pc DESTINATION lib/pkgconfig)
write_basic_package_version_file(${packaging}/MaterialLibraryConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${packaging}/MaterialLibraryConfigVersion.cmake cmake/package/MaterialLibraryConfig.cmake
    DESTINATION lib/cmake/MaterialLibrary)
