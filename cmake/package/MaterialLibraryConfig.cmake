# find_package(MaterialLibrary): the imported target MaterialLibrary::MaterialLibrary.
#
# Programs that link it need MaterialLibrary.dll beside them; $<TARGET_RUNTIME_DLLS:...> names it. Programs that load
# the DLL themselves use the target's include folder only.
if(TARGET MaterialLibrary::MaterialLibrary)
    return()
endif()
if(NOT WIN32 OR NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(MaterialLibrary_FOUND FALSE)
    set(MaterialLibrary_NOT_FOUND_MESSAGE "MaterialLibrary is for 64-bit Windows")
    return()
endif()

get_filename_component(_material_library_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
set(_material_library_import "${_material_library_prefix}/lib/libMaterialLibrary.dll.a")
if(MSVC)
    set(_material_library_import "${_material_library_prefix}/lib/MaterialLibrary.lib")
endif()
add_library(MaterialLibrary::MaterialLibrary SHARED IMPORTED)
set_target_properties(MaterialLibrary::MaterialLibrary PROPERTIES
    IMPORTED_LOCATION "${_material_library_prefix}/bin/MaterialLibrary.dll"
    IMPORTED_IMPLIB "${_material_library_import}"
    INTERFACE_INCLUDE_DIRECTORIES "${_material_library_prefix}/include"
    INTERFACE_COMPILE_FEATURES cxx_std_17)
unset(_material_library_prefix)
unset(_material_library_import)
