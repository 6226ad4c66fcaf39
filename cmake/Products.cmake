# SPDX-License-Identifier: MIT
# What is delivered (the control, the programs) goes into out/x64, out/x86 or, of the native preset,
# out/native.

add_custom_target(products)
if(NOT MINGW)
    set(QUORVANE_PRODUCTS ${CMAKE_BINARY_DIR}/products CACHE PATH "Folder of what is delivered")
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(QUORVANE_PRODUCTS ${PROJECT_SOURCE_DIR}/out/x64)
    # What manifests call the width of this build.
    set(QUORVANE_ASSEMBLY_ARCHITECTURE amd64)
else()
    set(QUORVANE_PRODUCTS ${PROJECT_SOURCE_DIR}/out/x86)
    set(QUORVANE_ASSEMBLY_ARCHITECTURE x86)
endif()

# quorvane_product(target): deliver the target, and build it with the target "products".
function(quorvane_product target)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${QUORVANE_PRODUCTS} LIBRARY_OUTPUT_DIRECTORY ${QUORVANE_PRODUCTS})
    add_dependencies(products ${target})
    if(MINGW)
        # Products run in processes, or beside modules, that are not ours.
        target_link_libraries(${target} PRIVATE quorvane_runtime)
    endif()
endfunction()

# quorvane_tell_products(sources...): define QUORVANE_PRODUCTS in sources of a test program as the
# way from the program to the products. It is relative: the folder can be moved, and the 32-bit
# tests run elsewhere. Sources of a library say with QUORVANE_PROGRAM_FOLDER where its programs are.
function(quorvane_tell_products)
    set(folder ${CMAKE_CURRENT_BINARY_DIR})
    if(DEFINED QUORVANE_PROGRAM_FOLDER)
        set(folder ${QUORVANE_PROGRAM_FOLDER})
    endif()
    file(RELATIVE_PATH way ${folder} ${QUORVANE_PRODUCTS})
    string(REPLACE "/" "\\\\" way ${way})
    set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS "QUORVANE_PRODUCTS=\"${way}\"")
endfunction()

# quorvane_control_resources(source): what the resource compiler needs to find for the control's
# resources, whichever module takes them.
function(quorvane_control_resources source)
    set(root ${PROJECT_SOURCE_DIR})
    # windres takes the type library from the build tree, the rest from the sources.
    set(used ${PROJECT_BINARY_DIR}/idl/QuorvaneAxEditor.tlb ${root}/module/VisualStyles.manifest
        ${root}/module/Toolbox.bmp ${root}/control/display/Error.ico)
    set_source_files_properties(${source} PROPERTIES
        COMPILE_OPTIONS "-I${PROJECT_BINARY_DIR}/idl" OBJECT_DEPENDS "${used}")
endfunction()
