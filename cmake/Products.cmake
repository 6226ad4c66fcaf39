# SPDX-License-Identifier: MIT
# quorvane_product(target): put what is delivered (the control, the host program) into out/x64 or
# out/x86, and build it with the target "products".

add_custom_target(products)

function(quorvane_product target)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        set(folder ${PROJECT_SOURCE_DIR}/out/x64)
    else()
        set(folder ${PROJECT_SOURCE_DIR}/out/x86)
    endif()
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${folder} LIBRARY_OUTPUT_DIRECTORY ${folder})
    add_dependencies(products ${target})
endfunction()
