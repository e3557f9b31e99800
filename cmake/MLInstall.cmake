# What the packages hold (package.sh makes them): for Windows the library with all that a host's programmer needs,
# for Linux the tool.
include(CMakePackageConfigHelpers)

set(packaging ${PROJECT_BINARY_DIR}/packaging)
set(ml_materials ${PROJECT_SOURCE_DIR}/examples/materials/DefaultMaterialD.mat
    ${PROJECT_SOURCE_DIR}/examples/materials/DefaultMaterialM.mat)

if(NOT WIN32)
    install(TARGETS matlib RUNTIME DESTINATION bin)
    install(FILES ${PROJECT_BINARY_DIR}/share/matlib.1 DESTINATION share/man/man1)
    install(FILES tools/matlib/shell/matlib.bash DESTINATION share/bash-completion/completions RENAME matlib)
    install(FILES ${ml_materials} DESTINATION share/matlib/materials)
    configure_file(cmake/package/README-linux.md.in ${packaging}/README.md @ONLY)
    install(FILES ${packaging}/README.md DESTINATION .)
    install(FILES CHANGELOG.md docs/file-format.md DESTINATION share/doc/matlib)
    return()
endif()

install(TARGETS MaterialLibrary RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES $<TARGET_FILE:MaterialLibrary>.debug DESTINATION debug)
install(TARGETS matlib RUNTIME DESTINATION bin)
install(FILES $<TARGET_FILE:matlib_messages> DESTINATION bin/matlib-modules)

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
install(FILES shared/MessageManager/IManager.h DESTINATION include/shared/MessageManager)
install(DIRECTORY docs examples DESTINATION .)
configure_file(cmake/package/README-windows.md.in ${packaging}/README.md @ONLY)
install(FILES ${packaging}/README.md CHANGELOG.md SECURITY.md DESTINATION .)

configure_file(cmake/package/MaterialLibrary.pc.in ${packaging}/MaterialLibrary.pc @ONLY)
install(FILES ${packaging}/MaterialLibrary.pc DESTINATION lib/pkgconfig)
write_basic_package_version_file(${packaging}/MaterialLibraryConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${packaging}/MaterialLibraryConfigVersion.cmake cmake/package/MaterialLibraryConfig.cmake
    DESTINATION lib/cmake/MaterialLibrary)
