# SPDX-License-Identifier: MIT
# What is delivered (the control, the host programs) goes into out/x64 or out/x86.

add_custom_target(products)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
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
endfunction()

# quorvane_tell_products(sources...): define QUORVANE_PRODUCTS in sources of a test program as the
# way from the program to the products. It is relative: the folder can be moved, and the 32-bit
# tests run elsewhere.
function(quorvane_tell_products)
    file(RELATIVE_PATH way ${CMAKE_CURRENT_BINARY_DIR} ${QUORVANE_PRODUCTS})
    string(REPLACE "/" "\\\\" way ${way})
    set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS "QUORVANE_PRODUCTS=\"${way}\"")
endfunction()
