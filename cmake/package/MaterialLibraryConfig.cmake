# find_package(MaterialLibrary): the imported targets
#   MaterialLibrary::materials        the library for C
#   MaterialLibrary::MaterialLibrary  the library for hosts; Windows only
#
# On Windows programs that link one need its DLL beside them; $<TARGET_RUNTIME_DLLS:...> names it. Programs that load
# the DLL themselves use the target's include folder only.
if(TARGET MaterialLibrary::materials)
    return()
endif()
if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(MaterialLibrary_FOUND FALSE)
    set(MaterialLibrary_NOT_FOUND_MESSAGE "MaterialLibrary is for 64-bit systems")
    return()
endif()

function(_material_library_import name)
    get_filename_component(prefix "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../../.." ABSOLUTE)
    add_library(MaterialLibrary::${name} SHARED IMPORTED)
    set_target_properties(MaterialLibrary::${name} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${prefix}/include")
    if(NOT WIN32)
        set_target_properties(MaterialLibrary::${name} PROPERTIES IMPORTED_LOCATION "${prefix}/lib/lib${name}.so")
        return()
    endif()
    set(import_library "${prefix}/lib/lib${name}.dll.a")
    if(MSVC)
        set(import_library "${prefix}/lib/${name}.lib")
    endif()
    set_target_properties(MaterialLibrary::${name} PROPERTIES
        IMPORTED_LOCATION "${prefix}/bin/${name}.dll"
        IMPORTED_IMPLIB "${import_library}")
endfunction()

_material_library_import(materials)
if(WIN32)
    _material_library_import(MaterialLibrary)
    set_target_properties(MaterialLibrary::MaterialLibrary PROPERTIES INTERFACE_COMPILE_FEATURES cxx_std_17)
endif()
