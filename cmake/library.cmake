# tavorine_library(name SOURCES a.cpp ... LINKS base ...)
# A folder is a static library and a namespace; headers are named from the top of the tree.
function(tavorine_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    if(ARG_SOURCES)
        add_library(${name} STATIC ${ARG_SOURCES})
        target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
        target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE tavorine_warnings)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
        target_link_libraries(${name} INTERFACE ${ARG_LINKS})
    endif()
endfunction()

add_library(tavorine_warnings INTERFACE)
# GCC 12 takes "literal" + std::string for overlapping memory when it optimises, hence -Wno-restrict.
target_compile_options(tavorine_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Woverloaded-virtual -Wnon-virtual-dtor -ffp-contract=off
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>
    $<$<BOOL:${TAVORINE_WERROR}>:-Werror>)
