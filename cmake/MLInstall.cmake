# What "cmake --install" puts in place, and so what the packages hold (package.sh makes them): for Windows the libraries
# with all that a host's programmer needs, for Linux the tool and the library for C.
include(CMakePackageConfigHelpers)

set(packaging ${PROJECT_BINARY_DIR}/packaging)
if(WIN32)
    set(ml_documentation share/doc/MaterialLibrary)
    set(ml_readme cmake/package/README-windows.md.in)
    set(ml_documents CHANGELOG.md SECURITY.md THIRD-PARTY.md docs/c-interface.md docs/check-rules.md docs/file-format.md
        docs/from-a-data-sheet.md docs/host-guide.md docs/known-oddities.md docs/numerics.md docs/python.md docs/using-the-dialog.md)
    set(ml_beside LICENSE docs/images examples)
else()
    set(ml_documentation share/doc/matlib)
    set(ml_readme cmake/package/README-linux.md.in)
    set(ml_documents CHANGELOG.md THIRD-PARTY.md docs/c-interface.md docs/check-rules.md docs/file-format.md
        docs/from-a-data-sheet.md)
    set(ml_beside LICENSE docs/images/imported.svg examples/c examples/editors examples/import examples/materials)
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
        if((WIN32 AND path MATCHES "^include/") OR path MATCHES "^include/.*/materials.h$")
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

# ml_install_pkg_config(NAME DESCRIPTION)
function(ml_install_pkg_config name description)
    configure_file(cmake/package/package.pc.in ${packaging}/${name}.pc @ONLY)
    install(FILES ${packaging}/${name}.pc DESTINATION lib/pkgconfig)
endfunction()

write_basic_package_version_file(${packaging}/MaterialLibraryConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${packaging}/MaterialLibraryConfigVersion.cmake cmake/package/MaterialLibraryConfig.cmake
    DESTINATION lib/cmake/MaterialLibrary)
ml_install_pkg_config(materials "Printed-circuit-board materials for C")

install(TARGETS matlib RUNTIME DESTINATION bin)
install(TARGETS materials RUNTIME DESTINATION bin LIBRARY DESTINATION lib ARCHIVE DESTINATION lib)
if(NOT WIN32)
    install(FILES include/MaterialLibrary/materials.h include/MaterialLibrary/Version.h
        DESTINATION include/MaterialLibrary)
    install(DIRECTORY examples/c examples/editors DESTINATION ${ml_documentation}/examples)
    install(FILES ${PROJECT_BINARY_DIR}/share/matlib.1 DESTINATION share/man/man1)
    install(FILES tools/matlib/shell/matlib.bash DESTINATION share/bash-completion/completions RENAME matlib)
    install(DIRECTORY examples/import examples/materials DESTINATION ${ml_documentation}/examples)
    install(FILES docs/images/imported.svg DESTINATION ${ml_documentation}/docs/images)
    return()
endif()

install(TARGETS matlib_messages LIBRARY DESTINATION bin/matlib-modules)
install(TARGETS MaterialLibrary RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES $<TARGET_FILE:MaterialLibrary>.debug $<TARGET_FILE:materials>.debug DESTINATION lib/debug)
install(DIRECTORY docs/images DESTINATION ${ml_documentation}/docs)
install(DIRECTORY examples DESTINATION ${ml_documentation})

# The import libraries for compilers with the other object format.
find_program(ML_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
if(ML_LLVM_DLLTOOL)
    add_custom_target(import_libraries ALL)
    foreach(module MaterialLibrary materials)
        set(import_library ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/${module}.lib)
        get_target_property(definition ${module} SOURCES)
        list(FILTER definition INCLUDE REGEX "\\.def$")
        get_target_property(folder ${module} SOURCE_DIR)
        cmake_path(ABSOLUTE_PATH definition BASE_DIRECTORY ${folder})
        add_custom_command(OUTPUT ${import_library}
            COMMAND ${ML_LLVM_DLLTOOL} -m i386:x86-64 -D ${module}.dll -d ${definition} -l ${import_library}
            DEPENDS ${definition}
            VERBATIM)
        add_custom_target(import_library_of_${module} DEPENDS ${import_library})
        add_dependencies(import_libraries import_library_of_${module})
        install(FILES ${import_library} DESTINATION lib)
    endforeach()
endif()

install(DIRECTORY include/ DESTINATION include)
install(DIRECTORY python/materiallibrary DESTINATION share/python PATTERN __pycache__ EXCLUDE)
ml_install_pkg_config(MaterialLibrary "Printed-circuit-board materials for 64-bit Windows hosts")
